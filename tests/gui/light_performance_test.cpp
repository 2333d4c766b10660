// The light performance window offscreen through the real worker: a study of the stone
// shown fills the figures and pictures; an aborted one leaves the last study in place.
#include <QAction>
#include <QFileInfo>
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
        MenuAction(*v.window, "Light Performance... (&P)").trigger();
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

    // The lighting chosen in the View menu lights the Ray-Trace picture and is there again
    // at the next start; the 729-byte settings file does not hold it.
    void TheChosenLightingLightsThePictureAndIsKept() {
        QTemporaryDir dir;
        {
            Viewer v(dir.path(), [](AppSettings& s) { s.imageSize = 64; });
            MenuAction(*v.window, "ASET (&A)").trigger();
            MenuAction(*v.window, "Head Shadow (&H)").trigger();
            const PictureLight light = v.session->Scene().Light();
            QCOMPARE(light.light.model, LightingModel::kAset);
            QCOMPARE(light.light.headShadow, 16.0);
            QVERIFY(v.session->Client().Render());
            QTRY_COMPARE(v.session->Scene().LastFrame().Width(), 64);
            QTRY_VERIFY(!v.session->Client().Busy());
            // ASET colours only: no pixel of the stone is grey.
            const FrameImage& frame = v.session->Scene().LastFrame();
            const std::uint32_t centre = frame.Pixel(32, 32);
            const int r = int(centre & 0xFF), g = int((centre >> 8) & 0xFF),
                      b = int((centre >> 16) & 0xFF);
            QVERIFY(!(r == g && g == b));
        }
        Viewer again(dir.path());
        QCOMPARE(again.session->Scene().Light().light.model, LightingModel::kAset);
        QVERIFY(MenuAction(*again.window, "Head Shadow (&H)").isChecked());
        QCOMPARE(QFileInfo(dir.path() + "/Setting.ini").size(), qint64(729));
    }
};

}  // namespace kirameki

QTEST_MAIN(kirameki::LightPerformanceTest)
#include "light_performance_test.moc"
