// The main window driven offscreen through the real worker.
#include "app/main_window.h"

#include <sys/stat.h>

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include "app/output_flows.h"
#include "app/progress_window.h"
#include "app/view_panel.h"
#include "app/viewer_session.h"
#include "output/capture_info.h"
#include "output/path_block.h"
#include "output/record_lock.h"
#include "ui/setting_dialog.h"
#include "viewer_harness.h"

namespace kirameki {

class MainWindowTest : public QObject {
    Q_OBJECT

  private:
    QTemporaryDir dir_;

  private slots:
    void MenusAndListsFollowTheSettings() {
        Viewer v(dir_.path(), [](AppSettings& s) {
            s.showTitleWindow = 0;
            s.polygonColour = 5;
            s.renderWindowTopMost = 0;
            s.stone = 3;
            s.model = 8;
            s.stoneColour = 4;
        });
        QVERIFY(v.window->PolygonColourAction(5).isChecked());
        QVERIFY(!v.window->PolygonColourAction(1).isChecked());
        QVERIFY(!v.window->ShowTitleAction().isChecked());
        QVERIFY(!v.window->TopMostAction().isChecked());
        QCOMPARE(v.window->StoneList().currentIndex(), 3);
        QCOMPARE(v.window->CutList().currentIndex(), 8);
        QCOMPARE(v.window->ColourList().currentIndex(), 4);
    }

    void StoneCutAndIndexRules() {
        Viewer v(dir_.path(), [](AppSettings& s) { s.showTitleWindow = 0; });
        MainWindow& w = *v.window;
        emit w.StoneList().activated(1);  // Sapphire
        QCOMPARE(w.CutList().currentIndex(), 6);
        QCOMPARE(w.ColourList().currentIndex(), 3);
        QCOMPARE(w.IndexField().text(), QString("1.77"));
        emit w.CutList().activated(22);  // the separator line is refused
        QCOMPARE(w.CutList().currentIndex(), 6);
        QCOMPARE(v.session->Settings().model, 6);
        w.IndexField().setText("0.5");
        emit w.IndexField().editingFinished();
        QCOMPARE(w.IndexField().text(), QString("1.00"));
        w.IndexField().setText("3.01");
        w.RequestRender();
        QCOMPARE(v.prompter.told.size(), 1);
        QVERIFY(v.prompter.told[0].startsWith("Refractive index must be set"));
        QVERIFY(!v.session->Client().Rendering());
    }

    void ARenderFillsThePanelAndTheBusyRuleHolds() {
        Viewer v(dir_.path(), [](AppSettings& s) {
            s.showTitleWindow = 0;
            s.imageSize = 200;
            s.highQuality = 1;  // high quality: long enough to ask during it
            s.recursionDepth = 20;
        });
        MainWindow& w = *v.window;
        QSignalSpy finished(&v.session->Sink(), &QtWorkerSink::renderFinished);
        w.RequestRender();
        QVERIFY(v.session->Client().Rendering());
        QTRY_VERIFY(w.ProgressButton().isVisible());
        // Another render while one runs: the question, and nothing else happens.
        v.prompter.answer = false;
        w.RequestRender();
        QCOMPARE(v.prompter.asked.size(), 1);
        QCOMPARE(v.prompter.asked[0], QString("Now rendering, Abort current process?"));
        QTRY_VERIFY_WITH_TIMEOUT(finished.count() == 1, 60000);
        QTRY_VERIFY(!w.ProgressButton().isVisible());
        QVERIFY(!v.session->Client().Rendering());
        QVERIFY(w.Panel().ShowsRender());
        const QImage picture = w.Panel().RenderedPicture();
        QCOMPARE(picture.width(), 200);
        QVERIFY(picture.pixelColor(100, 100) != picture.pixelColor(0, 0));  // stone on background
    }

    void ScreenShotAndRestorePosition() {
        const QString folder = dir_.path() + "/shot";
        QDir().mkpath(folder);
        Viewer v(folder, [](AppSettings& s) {
            s.showTitleWindow = 0;
            s.imageSize = 64;
            s.stone = 1;
            s.model = 6;
            s.stoneColour = 3;
            s.refractiveIndex = 1.77;
        });
        MainWindow& w = *v.window;
        // Before anything was rendered there is nothing to save.
        v.window->Flows().SaveScreenShot(&w);
        QCOMPARE(v.files.titles.size(), 0);
        QSignalSpy finished(&v.session->Sink(), &QtWorkerSink::renderFinished);
        w.RequestRender();
        QTRY_VERIFY_WITH_TIMEOUT(finished.count() == 1, 20000);
        v.files.answers << folder + "/Gem.png";
        w.Flows().SaveScreenShot(&w);
        QVERIFY(QFile::exists(folder + "/Gem.png"));
        QVERIFY(QFile::exists(folder + "/Gem.gpi"));
        QVERIFY(v.prompter.told.last().contains("Position-Info File\" were saved"));
        QCOMPARE(QImage(folder + "/Gem.png").width(), 64);
        // Another stone, then the position brings the saved scene back.
        emit w.StoneList().activated(0);
        QCOMPARE(w.CutList().currentIndex(), 0);
        v.files.answers << folder + "/Gem.gpi";
        w.Flows().RestorePosition();
        QCOMPARE(w.StoneList().currentIndex(), 1);
        QCOMPARE(w.CutList().currentIndex(), 6);
        QCOMPARE(w.IndexField().text(), QString("1.77"));
    }

    void CaptureAbortResumeAndAnimatedGif() {
        const QString folder = dir_.path() + "/capture";
        QDir().mkpath(folder);
        Viewer v(folder, [](AppSettings& s) {
            s.showTitleWindow = 0;
            s.imageSize = 48;
            s.captureFrames = 6;
            s.fire = 0;
        });
        MainWindow& w = *v.window;
        ModalAnswers answers;
        v.files.answers << folder + "/Gem.sqi";
        w.Flows().NewCapture();
        QCOMPARE(FramesOnDisk(folder + "/Gem", 6), 6);
        QVERIFY(v.prompter.told.last().startsWith("All frames have been captured."));
        QVERIFY(v.prompter.told.last().contains("\"Gem.sqi\""));

        // A longer run, aborted from its progress window: the record keeps how far it got.
        v.session->Settings().captureFrames = 40;
        v.session->Settings().imageSize = 256;
        v.session->Settings().highQuality = 1;
        v.session->Commit();
        answers.abortCapture = true;
        v.files.answers << folder + "/Long.sqi";
        w.Flows().NewCapture();
        QCOMPARE(v.prompter.told.last(), QString("Capturing was aborted."));
        AppSettings s;
        ViewState view;
        CaptureState capture;
        SceneState scene{s, view, capture};
        QVERIFY(ReadCaptureInfo((folder + "/Long.sqi").toStdString(), scene, true).opened);
        QCOMPARE(s.captureFrames, 40);
        QVERIFY(capture.framesCaptured < 40);
        QCOMPARE(FramesOnDisk(folder + "/Long", 40), capture.framesCaptured);

        // The incomplete run cannot become an animation; the complete one can.
        v.files.answers << folder + "/Long.sqi";
        w.Flows().MakeAnimatedGif();
        QVERIFY(v.prompter.told.last().startsWith("All frames have not been captured."));
        v.files.answers << folder + "/Gem.sqi" << folder + "/Gem_ANI.gif";
        w.Flows().MakeAnimatedGif();
        QVERIFY(v.prompter.told.last().startsWith("Animation GIF file was saved."));
        QVERIFY(QFile::exists(folder + "/Gem_ANI.gif"));
        v.files.answers << folder + "/Gem.sqi" << folder + "/Gem_ANI.webp";
        w.Flows().MakeAnimatedGif();
        QVERIFY(v.prompter.told.last().startsWith("Animated WebP file was saved."));
        QFile webp(folder + "/Gem_ANI.webp");
        QVERIFY(webp.open(QIODevice::ReadOnly));
        QCOMPARE(webp.read(12).mid(8), QByteArray("WEBP"));

        // Resuming the aborted run completes it from where it stopped.
        v.files.answers << folder + "/Long.sqi";
        w.Flows().ResumeCapture();
        QVERIFY(v.prompter.told.last().startsWith("All frames have been captured."));
        QCOMPARE(FramesOnDisk(folder + "/Long", 40), 40);
    }

    void CaptureRefusesABusyRecordAndStopsAtAFrameItCannotWrite() {
        const QString folder = dir_.path() + "/capture-faults";
        QDir().mkpath(folder);
        Viewer v(folder, [](AppSettings& s) {
            s.showTitleWindow = 0;
            s.imageSize = 32;
            s.captureFrames = 4;
            s.fire = 0;
        });
        ModalAnswers answers;
        // Another run (here the command line's, in effect) holds the record.
        RecordLock held;
        std::string error;
        QVERIFY(held.Acquire((folder + "/Busy.sqi").toStdString(), error));
        v.files.answers << folder + "/Busy.sqi";
        v.window->Flows().NewCapture();
        QVERIFY(v.prompter.told.last().contains("Another capture is running"));
        QVERIFY(!QFileInfo::exists(folder + "/Busy_F[0].gif"));
        held.Release();
        // A frame that cannot be written stops the run, and the record says where it stopped.
        QDir().mkpath(folder + "/Stop_F[2].gif");
        v.files.answers << folder + "/Stop.sqi";
        v.window->Flows().NewCapture();
        QVERIFY(v.prompter.told.last().startsWith("A frame could not be saved"));
        QVERIFY(v.prompter.told.last().contains("Stop_F[2].gif"));
        AppSettings s;
        ViewState view;
        CaptureState capture;
        SceneState scene{s, view, capture};
        QVERIFY(ReadCaptureInfo((folder + "/Stop.sqi").toStdString(), scene, true).opened);
        QCOMPARE(capture.framesCaptured, 2);
    }

    void ClosingWritesTheSettingsFile() {
        const QString folder = dir_.path() + "/close";
        QDir().mkpath(folder);
        {
            Viewer v(folder, [](AppSettings& s) { s.showTitleWindow = 0; });
            emit v.window->StoneList().activated(4);
        }
        QFile file(folder + "/Setting.ini");
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.size(), 729);
        AppSettings s;
        LoadSettings((folder + "/Setting.ini").toStdString(), s, {});
        QCOMPARE(s.stone, 4);
        QCOMPARE(s.model, 12);
    }

    void ASignalEndsTheViewerEvenWhenTheSettingsCannotBeSaved() {
        // A folder in the settings file's place: the save fails, and no box may wait for an
        // answer nobody will give.
        const QString folder = dir_.path() + "/signal";
        QDir().mkpath(folder + "/Setting.ini");
        Viewer v(folder);
        v.window->Terminate();
        QVERIFY(!v.window->isVisible());
        QVERIFY(v.prompter.told.isEmpty());
        QVERIFY(QFileInfo(folder + "/Setting.ini").isDir());
    }

    void ASettingsFileThatCannotBeReadIsNotWrittenOver() {
        const QString folder = dir_.path() + "/unreadable";
        QDir().mkpath(folder);
        const QString path = folder + "/Setting.ini";
        QVERIFY(mkfifo(path.toLocal8Bit().constData(), 0600) == 0);
        {
            Viewer v(folder);
            QCOMPARE(v.session->Settings().imageSize, 270);  // the defaults stand in
        }
        QVERIFY(!QFileInfo(path).isFile());  // still the FIFO
    }
};

}  // namespace kirameki

QTEST_MAIN(kirameki::MainWindowTest)
#include "main_window_test.moc"
