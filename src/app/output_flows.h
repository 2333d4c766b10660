#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

#include "app/viewer_session.h"
#include "output/path_block.h"
#include "output/record_lock.h"
#include "output/scene_state.h"
#include "scene/capture_job.h"
#include "scene/gif_job.h"

class QWidget;

namespace kirameki {

// Chooses a file to save or open, as the file dialogs do; empty when cancelled.
class FileChooser {
  public:
    virtual ~FileChooser() = default;
    virtual QString Choose(QWidget* owner, bool save, const QString& title,
                           const QStringList& filters, const QString& folder,
                           const QString& suggested, int* filterIndex,
                           const QString& defaultSuffix) = 0;
};

// The Qt file dialogs: an overwrite question when saving, the default extension (that of
// the chosen filter) added when the name has none.
class DialogFileChooser : public FileChooser {
  public:
    QString Choose(QWidget* owner, bool save, const QString& title, const QStringList& filters,
                   const QString& folder, const QString& suggested, int* filterIndex,
                   const QString& defaultSuffix) override;
};

// The screen-shot, capture and animated-GIF commands of the menus: their dialogs, the
// progress windows and the message of each outcome. The path blocks remember where each
// kind of file was last chosen.
class OutputFlows : public QObject {
    Q_OBJECT

  public:
    // sceneChanged is called after a record replaced the scene, so the window shows it.
    OutputFlows(ViewerSession& session, QWidget* owner, FileChooser& files,
                std::function<bool()> checkIndex, std::function<void()> sceneChanged);

    void SaveScreenShot(QWidget* owner);
    void RestorePosition();
    void NewCapture();
    void ResumeCapture();
    void MakeAnimatedGif();

  private:
    // A capture or position file the user chose, read over a copy of the scene; nothing
    // when the dialog was cancelled or the file could not be read (after saying so).
    struct OpenedRecord {
        AppSettings settings;
        ViewState view;
        CaptureState capture;
        std::string refused;
        std::string path;
    };
    std::optional<OpenedRecord> OpenRecord(bool captureFile, bool headerOnly, PathBlock& block);

    // Runs the capture progress window from the start given; answers the
    // frames on disk afterwards.
    int RunCaptureWindow(const CaptureStart& from);
    // Holds the capture record for the length of a run; false after saying that another
    // run (this viewer's or the command line's) holds it.
    bool LockRecord(RecordLock& lock);
    // Says how the run ended: a frame not written, an abort, or every frame captured.
    void TellCaptureEnd(int frameCount);
    // Says which frame, in loading order, is missing or damaged; else tells `otherwise`.
    void TellAnimationFailure(const GifJob& job, const std::string& otherwise);
    // A record of a design has the design beside it: it becomes the stone. Without one (or
    // with one that cannot be read, after saying so) the record's cut is the stone.
    void AdoptDesignBeside(const std::string& recordPath);
    // Takes a record's scene into the viewer, refusing values no table holds.
    void AdoptScene(const AppSettings& read, const ViewState& view);
    void WriteRecord(const std::string& path, const ViewState& orientation);
    // Keeps the folders of the last chosen files in the settings, for the next start.
    void RememberFolders();
    void Tell(const std::string& text, bool warning = false);
    std::string Folder(const PathBlock& block, const std::string& fallback) const;

    ViewerSession& session_;
    QWidget* owner_;
    FileChooser& files_;
    std::function<bool()> checkIndex_;
    std::function<void()> sceneChanged_;
    PathBlock shotBlock_;
    int shotFilter_ = 1;
    PathBlock captureBlock_;
    PathBlock gifBlock_;
    CaptureState capture_;
    ViewState runStart_;  // the orientation of frame 0 of the capture under way
};

}  // namespace kirameki
