// The light performance window offscreen through the real worker: a study of the stone
// shown fills the figures and pictures; an aborted one leaves the last study in place.
#include <QAction>
#include <QLabel>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QtTest>

#include "app/light_performance_window.h"
#include "viewer_harness.h"

namespace kirameki {

class LightPerformanceTest : public QObject {
    Q_OBJECT

  private slots:
    void AStudyFillsTheWindowAndAnAbortKeepsTheLastOne() {
        QTemporaryDir dir;
        Viewer v(dir.path(), [](AppSettings& s) { s.imageSize = 96; });
        QAction* menu = nullptr;
        for (QAction* action : v.window->findChildren<QAction*>())
            if (action->text() == "Light Performance... (&P)")
                menu = action;
        QVERIFY(menu);
        menu->trigger();
        LightPerformanceWindow& window = v.window->LightPerformance();
        QVERIFY(window.isVisible());

        QVERIFY(window.Measure());
        const LightStudy first = window.Study();
        QCOMPARE(int(first.tilts.size()), 13);
        QVERIFY(first.faceUp.isoBrightness > 20.0 && first.faceUp.isoBrightness <= 100.0);
        QCOMPARE(first.aset.Width(), 96);
        const auto* table = window.findChild<QTableWidget*>();
        QVERIFY(table->item(0, 0)->text().endsWith("%"));

        // Abort once the third picture is made: the figures shown stay the first study's.
        const QMetaObject::Connection abortAt3 =
            connect(&v.session->Sink(), &QtWorkerSink::lightStudyProgress, this, [](int done, int) {
                if (done != 3)
                    return;
                if (auto* progress =
                        qobject_cast<ProgressWindow*>(QApplication::activeModalWidget()))
                    emit progress->abortRequested();
            });
        QVERIFY(!window.Measure());
        disconnect(abortAt3);
        QCOMPARE(window.Study().faceUp.isoBrightness, first.faceUp.isoBrightness);
        QTRY_VERIFY(!v.session->Client().Busy());  // free for the next render, once told
    }
};

}  // namespace kirameki

QTEST_MAIN(kirameki::LightPerformanceTest)
#include "light_performance_test.moc"
