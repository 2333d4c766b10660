// The viewer driven offscreen through the real worker: a main window over a session whose
// message boxes and file dialogs are answered by script.
#pragma once

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QTimer>
#include <functional>
#include <memory>

#include "app/main_window.h"
#include "app/output_flows.h"
#include "app/progress_window.h"
#include "app/viewer_session.h"
#include "output/path_block.h"
#include "ui/setting_dialog.h"

namespace kirameki {

// The menu item with this text; the test ends when there is none.
inline QAction& MenuAction(MainWindow& window, const QString& text) {
    for (QAction* action : window.findChildren<QAction*>())
        if (action->text() == text)
            return *action;
    qFatal("no menu item %s", qPrintable(text));
}

class ScriptedPrompter : public Prompter {
  public:
    bool answer = false;
    QStringList asked, told;
    QList<DefaultAnswer> presets;  // the default button of each question asked
    bool AskYesNo(const std::string& text, DefaultAnswer preset) override {
        asked << QString::fromStdString(text);
        presets << preset;
        return answer;
    }
    void Tell(const std::string& text, bool) override { told << QString::fromStdString(text); }
};

// Answers the file dialogs with the paths queued for them, in order, choosing `filter` in
// the screen-shot dialog; remembers what each dialog was opened with.
class ScriptedFiles : public FileChooser {
  public:
    QStringList answers;
    QStringList titles, folders, suffixes;
    int filter = 4;  // PNG 24-bit
    QString Choose(QWidget*, bool, const QString& title, const QStringList&, const QString& folder,
                   const QString&, int* filterIndex, const QString& defaultSuffix) override {
        titles << title;
        folders << folder;
        suffixes << defaultSuffix;
        if (filterIndex)
            *filterIndex = filter;
        return answers.isEmpty() ? QString() : answers.takeFirst();
    }
};

struct Viewer {
    explicit Viewer(const QString& folder, const std::function<void(AppSettings&)>& setup = {}) {
        paths.settingsFile = (folder + "/Setting.ini").toStdString();
        paths.screenShotsFolder = (folder + "/ScreenShots/").toStdString();
        paths.capturesFolder = (folder + "/AutoCaps/").toStdString();
        if (setup) {
            AppSettings s;
            LoadDefaults(s, {paths.screenShotsFolder, paths.capturesFolder});
            s.showTitleWindow = 0;
            setup(s);
            std::string error;
            SaveSettings(paths.settingsFile, s, error);
        }
        session = std::make_unique<ViewerSession>(paths, prompter);
        window = std::make_unique<MainWindow>(*session, files);
        window->show();
        session->Start();
    }
    ~Viewer() { window->close(); }
    ProgramPaths paths;
    ScriptedPrompter prompter;
    ScriptedFiles files;
    std::unique_ptr<ViewerSession> session;
    std::unique_ptr<MainWindow> window;
};

// Accepts every setting window as soon as it is up (OK with the values shown), and presses
// "Abort (&A)" on a capture's progress window when asked to.
struct ModalAnswers {
    QTimer timer;
    bool abortCapture = false;
    ModalAnswers() {
        QObject::connect(&timer, &QTimer::timeout, [this] {
            QWidget* modal = QApplication::activeModalWidget();
            if (auto* dialog = qobject_cast<SettingDialog*>(modal))
                dialog->accept();
            if (auto* progress = qobject_cast<ProgressWindow*>(modal); progress && abortCapture) {
                abortCapture = false;
                emit progress->abortRequested();
            }
        });
        timer.start(20);
    }
};

inline int FramesOnDisk(const QString& stem, int n) {
    int count = 0;
    for (int i = 0; i < n; ++i)
        count += QFile::exists(QString::fromStdString(FrameFileName(stem.toStdString(), i, n)));
    return count;
}

}  // namespace kirameki
