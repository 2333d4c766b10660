// Faceting designs in the viewer, offscreen through the real worker: opening one (good or
// bad) the way the menu does, the cut list's extra entry, the companion settings file across
// starts, and records that carry their design beside them.
#include <QComboBox>
#include <QDropEvent>
#include <QMimeData>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QtTest>

#include "model/model_builder.h"
#include "output/capture_info.h"
#include "output/messages.h"
#include "ui/design_window.h"
#include "viewer_harness.h"

namespace kirameki {

namespace {

constexpr char kRound[] =
    "GemCad 5.0\n"
    "g 96 0.0\n"
    "y 8 y\n"
    "I 1.54\n"
    "H Round brilliant, 57 facets\n"
    "F A test design\n"
    "a 90.0 1.0 3 9 15 21 27 33 39 45 51 57 63 69 75 81 87 93 G girdle\n"
    "a -40.750000 0.664123 0 12 24 36 48 60 72 84 n P1 G pavilion mains\n"
    "a -42.000000 0.680278 3 9 15 21 27 33 39 45\n"
    " 51 57 63 69 75 81 87 93\n"
    "a 34.500000 0.578768 0 12 24 36 48 60 72 84\n"
    "a 21.000000 0.481732 6 18 30 42 54 66 78 90\n"
    "a 40.000000 0.654278 3 9 15 21 27 33 39 45 51 57 63 69 75 81 87 93\n"
    "a 0.0 0.317404 0 n T G table\n";

// Crown facets alone: the stone does not close, and the error names the line.
constexpr char kOpenBelow[] = "GemCad 5.0\ng 96\na 40 0.9 0 24 48 72\n";

QString Write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void Small(AppSettings& s) {
    s.imageSize = 64;
    s.captureFrames = 4;
}

}  // namespace

class DesignViewerTest : public QObject {
    Q_OBJECT

  private:
    QTemporaryDir dir_;

    QString Folder(const QString& name) {
        const QString folder = dir_.path() + "/" + name;
        QDir().mkpath(folder);
        return folder;
    }

  private slots:
    // A good design becomes the stone and the last entry of the cut list, offering its own
    // index; a bad one is refused with its line and leaves everything as it was. The cut
    // list switches between the cuts and the design.
    void OpeningADesign() {
        const QString folder = Folder("open");
        const QString round = Write(folder + "/round.asc", kRound);
        const QString bad = Write(folder + "/bad.asc", kOpenBelow);
        Viewer v(folder, Small);
        MainWindow& w = *v.window;
        QVERIFY(!w.DesignWindowAction().isEnabled());
        QCOMPARE(w.CutList().count(), kCutListSize);

        v.prompter.answer = true;
        QVERIFY(w.OpenDesign(round));
        QCOMPARE(v.prompter.asked.size(), 1);
        QVERIFY(v.prompter.asked.last().contains("1.54"));
        QCOMPARE(v.session->Settings().refractiveIndex, 1.54);
        QVERIFY(v.session->DesignShown());
        QVERIFY(v.session->Scene().Stone().design);
        QCOMPARE(w.CutList().count(), kCutListSize + 1);
        QCOMPARE(w.CutList().currentIndex(), kCutListSize);
        QCOMPARE(w.CutList().currentText(), QString("Round brilliant, 57 facets"));
        QVERIFY(w.DesignWindowAction().isEnabled());

        QVERIFY(!w.OpenDesign(bad));
        QVERIFY(v.prompter.told.last().contains("line 3"));
        QVERIFY(v.prompter.told.last().contains("open at the girdle"));
        QCOMPARE(v.session->Design()->path, round.toStdString());
        QCOMPARE(v.session->Companion().recentDesigns,
                 std::vector<std::string>{round.toStdString()});

        // A cut of the list replaces the design as the stone; the design stays in the list.
        emit w.CutList().activated(0);
        QVERIFY(!v.session->DesignShown());
        QVERIFY(!v.session->Scene().Stone().design);
        QCOMPARE(w.CutList().count(), kCutListSize + 1);
        emit w.CutList().activated(kCutListSize);
        QVERIFY(v.session->DesignShown());

        // Opening the same design again asks nothing: the index is already the design's.
        const QMimeData* data = [&] {
            auto* mime = new QMimeData;
            mime->setUrls({QUrl::fromLocalFile(round)});
            return mime;
        }();
        QDropEvent drop(QPointF(10, 10), Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&w, &drop);
        QTRY_COMPARE(v.session->Companion().recentDesigns.size(), std::size_t(1));
        QCOMPARE(v.prompter.asked.size(), 1);
        delete data;

        // The Design window: the tiers as a table, and the cutting sheet as a PDF.
        w.DesignWindowAction().trigger();
        QVERIFY(w.CuttingTable());
        QCOMPARE(w.CuttingTable()->Tiers().rowCount(), 7);
        QCOMPARE(w.CuttingTable()->Tiers().item(1, 0)->text(), QString("P1"));
        QCOMPARE(w.CuttingTable()->Tiers().item(1, 1)->text(), QString("-40.75°"));
        QCOMPARE(w.CuttingTable()->Tiers().item(1, 2)->text(), QString("00-12-24-36-48-60-72-84"));
        v.files.answers << folder + "/sheet";
        w.CuttingTable()->SavePdf();
        QVERIFY(Bytes(folder + "/sheet.pdf").startsWith("%PDF"));
    }

    // The open design and the recent list survive an exit in the companion file (the
    // 729-byte settings file keeps its size); a design gone since is told once; a recent
    // design no longer there leaves the list; a damaged companion file is ignored.
    void TheCompanionFileAcrossStarts() {
        const QString folder = Folder("companion");
        const QString round = Write(folder + "/round.asc", kRound);
        {
            Viewer v(folder, Small);
            v.prompter.answer = false;
            QVERIFY(v.window->OpenDesign(round));
        }
        QCOMPARE(QFileInfo(folder + "/Setting.ini").size(), 729);
        {
            Viewer v(folder);
            QVERIFY(v.session->DesignShown());
            QCOMPARE(v.window->CutList().currentIndex(), kCutListSize);
            QCOMPARE(v.session->Companion().recentDesigns,
                     std::vector<std::string>{round.toStdString()});
            const QString gone = folder + "/gone.asc";
            v.session->Companion().RememberDesign(gone.toStdString());
            v.window->OpenRecentDesign(gone);
            QVERIFY(v.prompter.told.last().contains("no longer there"));
            QCOMPARE(v.session->Companion().recentDesigns,
                     std::vector<std::string>{round.toStdString()});
        }
        QVERIFY(QFile::rename(round, round + ".moved"));
        {
            Viewer v(folder);
            QTRY_COMPARE(v.prompter.told.size(), 1);
            QVERIFY(v.prompter.told.first().contains("round.asc"));
            QVERIFY(!v.session->Design());
            QCOMPARE(v.window->CutList().count(), kCutListSize);
        }
        {
            Viewer v(folder);
            QTest::qWait(50);
            QVERIFY(v.prompter.told.isEmpty());
        }
        QVERIFY(QFile::rename(round + ".moved", round));
        Write(folder + "/Kirameki.ini",
              QByteArray("\xff\xfe[Design\n=\nOpen\n[Design]\nOpen=", 31) + round.toUtf8() +
                  QByteArray("\0junk\nShown=1\nRecent1=\n\x01\x02", 25));
        {
            Viewer v(folder);
            QVERIFY(!v.session->Design());
            QVERIFY(v.window->OpenDesign(round));
        }
        QVERIFY(Bytes(folder + "/Kirameki.ini").startsWith("[Design]\nOpen=" + round.toUtf8()));
    }

    // A capture of a design writes the design beside its record; a resume takes it from
    // there, whatever the viewer shows meanwhile, and draws the frames the whole run drew.
    // Without it the record's cut is the stone, and the viewer says so.
    void ResumeTakesTheDesignBesideTheRecord() {
        const QString folder = Folder("resume");
        const QString round = Write(folder + "/round.asc", kRound);
        Viewer v(folder, Small);
        ModalAnswers answers;
        v.prompter.answer = false;
        QVERIFY(v.window->OpenDesign(round));
        v.files.answers << folder + "/Whole.sqi";
        v.window->Flows().NewCapture();
        QCOMPARE(FramesOnDisk(folder + "/Whole", 4), 4);
        QCOMPARE(Bytes(folder + "/Whole.asc"), QByteArray(kRound));

        QMetaObject::Connection abortAt1 =
            connect(&v.session->Sink(), &QtWorkerSink::captureProgress, this, [](int frame, int) {
                if (auto* window = qobject_cast<ProgressWindow*>(QApplication::activeModalWidget());
                    window && frame == 1)
                    emit window->abortRequested();
            });
        v.files.answers << folder + "/Part.sqi";
        v.window->Flows().NewCapture();
        disconnect(abortAt1);
        QCOMPARE(v.prompter.told.last(), QString(messages::kCapturingAborted));
        QVERIFY(FramesOnDisk(folder + "/Part", 4) < 4);

        emit v.window->CutList().activated(kCutListSize - 1);
        QVERIFY(!v.session->DesignShown());
        v.files.answers << folder + "/Part.sqi";
        v.window->Flows().ResumeCapture();
        QVERIFY(v.session->DesignShown());
        QCOMPARE(v.session->Design()->path, (folder + "/Part.asc").toStdString());
        for (int k = 0; k < 4; ++k) {
            const auto frame = [&](const QString& stem) {
                return Bytes(QString::fromStdString(FrameFileName(stem.toStdString(), k, 4)));
            };
            QVERIFY2(frame(folder + "/Part") == frame(folder + "/Whole"),
                     qPrintable(QString::number(k)));
        }

        QVERIFY(QFile::remove(folder + "/Part.asc"));
        v.files.answers << folder + "/Part.sqi";
        v.window->Flows().ResumeCapture();
        QVERIFY(v.prompter.told.contains(
            QString("There is no design beside the record (%1 is missing): the record's cut is "
                    "used.")
                .arg(folder + "/Part.asc")));
        QVERIFY(!v.session->DesignShown());
        AppSettings recorded;
        ViewState view;
        CaptureState capture;
        SceneState scene{recorded, view, capture};
        QVERIFY(ReadCaptureInfo((folder + "/Part.sqi").toStdString(), scene, false).opened);
        QCOMPARE(v.window->CutList().currentIndex(), recorded.model);
    }
};

}  // namespace kirameki

QTEST_MAIN(kirameki::DesignViewerTest)
#include "design_viewer_test.moc"
