// The main window driven offscreen through the real worker.
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include "app/main_window.h"
#include "app/view_panel.h"
#include "app/viewer_session.h"

namespace kirameki {

class ScriptedPrompter : public Prompter {
public:
    bool answer = false;
    QStringList asked, told;
    bool AskYesNo(const std::string& text) override {
        asked << QString::fromStdString(text);
        return answer;
    }
    void Tell(const std::string& text, bool) override { told << QString::fromStdString(text); }
};

class MainWindowTest : public QObject {
    Q_OBJECT

private:
    struct Viewer {
        explicit Viewer(const QString& folder, const std::function<void(AppSettings&)>& setup = {}) {
            paths.settingsFile = (folder + "/Setting.ini").toStdString();
            paths.screenShotsFolder = (folder + "/ScreenShots/").toStdString();
            paths.capturesFolder = (folder + "/AutoCaps/").toStdString();
            if (setup) {
                AppSettings s;
                LoadDefaults(s, {paths.screenShotsFolder, paths.capturesFolder});
                setup(s);
                std::string error;
                SaveSettings(paths.settingsFile, s, error);
            }
            session = std::make_unique<ViewerSession>(paths, prompter);
            window = std::make_unique<MainWindow>(*session);
            window->show();
            session->Start();
        }
        ~Viewer() { window->close(); }
        ProgramPaths paths;
        ScriptedPrompter prompter;
        std::unique_ptr<ViewerSession> session;
        std::unique_ptr<MainWindow> window;
    };
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
            s.option4 = 1;  // high quality: long enough to ask during it
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
};

}  // namespace kirameki

QTEST_MAIN(kirameki::MainWindowTest)
#include "main_window_test.moc"
