#include "app/output_flows.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QWidget>
#include <filesystem>

#include "app/progress_window.h"
#include "model/model_builder.h"
#include "model/stone_choice.h"
#include "model/stone_tables.h"
#include "output/capture_info.h"
#include "output/gif_compiler.h"
#include "output/gif_files.h"
#include "output/messages.h"
#include "output/picture_writers.h"
#include "output/record_lock.h"
#include "scene/capture_job.h"
#include "scene/gif_job.h"
#include "scene/render_settings.h"
#include "scene/screen_shot.h"
#include "scene/stone_source.h"
#include "ui/capture_header_dialog.h"
#include "ui/gif_settings_dialog.h"

namespace kirameki {

namespace {

QString Tr(const char* text) {
    return QCoreApplication::translate("OutputFlows", text);
}

// The texts this file shows through Tr, listed for translation.
[[maybe_unused]] const char* const kTexts[] = {
    QT_TRANSLATE_NOOP("OutputFlows", "Save Screen Shot"),
    QT_TRANSLATE_NOOP("OutputFlows", "Open Position-Info File"),
    QT_TRANSLATE_NOOP("OutputFlows", "Position-Info File (*.gpi)"),
    QT_TRANSLATE_NOOP("OutputFlows", "Save Capture-Info File"),
    QT_TRANSLATE_NOOP("OutputFlows", "Open Capture-Info File"),
    QT_TRANSLATE_NOOP("OutputFlows", "Capture-Info File (*.sqi)"),
    QT_TRANSLATE_NOOP("OutputFlows", "Save Animation GIF File"),
    QT_TRANSLATE_NOOP("OutputFlows", "Animation GIF File (*.gif)"),
    QT_TRANSLATE_NOOP("OutputFlows", "Animated WebP File (*.webp)"),
    QT_TRANSLATE_NOOP("OutputFlows", "Automatic Screen Capturing"),
    QT_TRANSLATE_NOOP("OutputFlows", "Compiling Animated-GIF"),
    QT_TRANSLATE_NOOP("OutputFlows", "Nothing has been rendered yet: press Ray-Trace first."),
    QT_TRANSLATE_NOOP("OutputFlows", "The capture file's frame counts are damaged."),
    QT_TRANSLATE_NOOP("OutputFlows", "Bitmap 24bit FullColor (*.bmp)"),
    QT_TRANSLATE_NOOP("OutputFlows", "Bitmap 16bit HighColor (*.bmp)"),
    QT_TRANSLATE_NOOP("OutputFlows", "Bitmap 256 Colors (*.bmp)"),
    QT_TRANSLATE_NOOP("OutputFlows", "PNG 24bit FullColor (*.png)"),
    QT_TRANSLATE_NOOP("OutputFlows", "PNG 16bit HighColor (*.png)"),
    QT_TRANSLATE_NOOP("OutputFlows", "PNG 256 Colors (*.png)"),
    QT_TRANSLATE_NOOP("OutputFlows", "GIF 256 Colors (*.gif)"),
    QT_TRANSLATE_NOOP("OutputFlows",
                      "There is no design beside the record (%1 is missing): the record's cut "
                      "is used."),
    QT_TRANSLATE_NOOP("OutputFlows",
                      "The design beside the record cannot be opened: the record's cut is "
                      "used.\n\n%1"),
};

// The extension of a screen-shot filter (1..7) without its dot: "bmp", "png" or "gif".
QString FilterExtension(int filter) {
    const std::string_view pattern = kPictureFormatFilters[std::clamp(filter, 1, 7) - 1].pattern;
    return QString::fromUtf8(pattern.substr(2).data(), qsizetype(pattern.size() - 2));
}

// A file's extension must match what is written into it: a name without one, or with one
// that is not a picture type, gets the filter's; a picture type other than the filter's is
// replaced by it.
QString WithFilterExtension(const QString& path, int filter) {
    const QString extension = FilterExtension(filter);
    const QFileInfo info(path);
    const QString typed = info.suffix().toLower();
    if (typed == extension)
        return path;
    if (typed == "bmp" || typed == "png" || typed == "gif")
        return path.left(path.size() - typed.size()) + extension;
    return path + "." + extension;
}

// A message with %s filled in, translated before the argument goes in.
std::string Formatted(const char* text, const std::string& argument) {
    return QCoreApplication::translate("Messages", text)
        .replace("%s", QString::fromStdString(argument))
        .toStdString();
}

}  // namespace

QString DialogFileChooser::Choose(QWidget* owner, bool save, const QString& title,
                                  const QStringList& filters, const QString& folder,
                                  const QString& suggested, int* filterIndex,
                                  const QString& defaultSuffix) {
    QFileDialog dialog(owner, title, folder);
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(defaultSuffix);
    // The default extension is always that of the filter shown, from the start.
    const auto suffixOf = [](const QString& filter) {
        return filter.section("*.", 1).section(')', 0, 0);
    };
    if (filterIndex) {
        dialog.selectNameFilter(filters.value(*filterIndex - 1));
        dialog.setDefaultSuffix(suffixOf(filters.value(*filterIndex - 1)));
    }
    if (!suggested.isEmpty())
        dialog.selectFile(suggested);
    if (filterIndex) {
        QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                         [&](const QString& f) { dialog.setDefaultSuffix(suffixOf(f)); });
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    if (filterIndex)
        *filterIndex = int(filters.indexOf(dialog.selectedNameFilter())) + 1;
    return dialog.selectedFiles().first();
}

OutputFlows::OutputFlows(ViewerSession& session, QWidget* owner, FileChooser& files,
                         std::function<bool()> checkIndex, std::function<void()> sceneChanged)
    : QObject(owner),
      session_(session),
      owner_(owner),
      files_(files),
      checkIndex_(std::move(checkIndex)),
      sceneChanged_(std::move(sceneChanged)) {
    // The dialogs open where files were chosen last, in this run or an earlier one.
    shotBlock_.initialFolder = PathText(session_.Settings().screenShotFolder);
    captureBlock_.initialFolder = PathText(session_.Settings().captureFolder);
}

void OutputFlows::RememberFolders() {
    AppSettings& s = session_.Settings();
    SetPath(s.screenShotFolder, shotBlock_.initialFolder);
    SetPath(s.captureFolder, captureBlock_.initialFolder);
    session_.Commit();
}

void OutputFlows::Tell(const std::string& text, bool warning) {
    session_.Prompts().Tell(text, warning);
}

std::string OutputFlows::Folder(const PathBlock& block, const std::string& fallback) const {
    std::error_code error;
    if (!block.initialFolder.empty() && std::filesystem::is_directory(block.initialFolder, error))
        return block.initialFolder;
    std::filesystem::create_directories(fallback, error);
    return fallback;
}

void OutputFlows::WriteRecord(const std::string& path, const ViewState& orientation) {
    AppSettings settings = session_.Settings();
    ViewState view = orientation;
    std::string error;
    if (!WriteCaptureInfo(path, {settings, view, capture_}, error))
        Tell(messages::kFailedToOpenFile, true);
}

void OutputFlows::SaveScreenShot(QWidget* owner) {
    if (session_.Client().Busy(kNowRenderingSave))
        return;
    const FrameImage picture = session_.Scene().LastFrame();
    if (picture.Empty()) {
        Tell(Tr("Nothing has been rendered yet: press Ray-Trace first.").toStdString());
        return;
    }
    QStringList filters;
    for (const PictureFormatFilter& f : kPictureFormatFilters)
        filters << QString("%1").arg(Tr(f.text));
    const std::string folder = Folder(shotBlock_, session_.Paths().screenShotsFolder);
    const QString chosen =
        files_.Choose(owner, true, Tr("Save Screen Shot"), filters, QString::fromStdString(folder),
                      {}, &shotFilter_, FilterExtension(shotFilter_));
    if (chosen.isEmpty())
        return;
    const QString path = WithFilterExtension(chosen, shotFilter_);
    AppSettings settings = session_.Settings();
    ViewState view = session_.Scene().ShownView();
    std::string error;
    const bool withRecord = settings.writePositionInfo != 0;
    if (!kirameki::SaveScreenShot(picture, path.toStdString(),
                                  PictureFormat(std::clamp(shotFilter_, 1, 7)),
                                  {settings, view, capture_}, withRecord, error) ||
        (withRecord && !WriteDesignBeside(session_.Stone(), path.toStdString(), error))) {
        Tell(QCoreApplication::translate("Messages", messages::kFailedToOpenFile).toStdString() +
                 "\n\n" + error,
             true);
        return;
    }
    ChoosePath(path.toStdString(), shotBlock_);
    RememberFolders();
    Tell(settings.writePositionInfo ? messages::kPictureAndPositionSaved
                                    : messages::kOnlyPictureSaved);
}

void OutputFlows::AdoptDesignBeside(const std::string& recordPath) {
    const std::string beside = DesignBeside(recordPath);
    std::error_code missing;
    if (!std::filesystem::exists(beside, missing)) {
        // A record holds no mark of a design: one shown now is what the user expects back.
        if (session_.DesignShown())
            Tell(Tr("There is no design beside the record (%1 is missing): the record's cut is "
                    "used.")
                     .arg(QString::fromStdString(beside))
                     .toStdString(),
                 true);
        session_.ShowDesign(false);
        return;
    }
    auto design = std::make_shared<OpenDesign>();
    std::string error;
    if (!OpenDesignFile(beside, *design, error)) {
        Tell(Tr("The design beside the record cannot be opened: the record's cut is used.\n\n%1")
                 .arg(QString::fromStdString(error))
                 .toStdString(),
             true);
        session_.ShowDesign(false);
        return;
    }
    session_.SetDesign(std::move(design), true);
}

void OutputFlows::AdoptScene(const AppSettings& read, const ViewState& view) {
    AppSettings& s = session_.Settings();
    AppSettings taken = read;
    // Values no table holds are refused one by one; the rest of the record takes effect.
    std::string refused;
    if (!IsStoneIndex(taken.stone))
        taken.stone = s.stone;
    if (!HasGenerator(taken.model))
        taken.model = s.model;
    if (!IsColourIndex(taken.stoneColour))
        taken.stoneColour = s.stoneColour;
    if (!RefractiveIndexInRange(taken.refractiveIndex))
        taken.refractiveIndex = s.refractiveIndex;
    if (taken.imageSize < 32 || taken.imageSize > 512)
        taken.imageSize = s.imageSize;
    if (taken.captureFrames < 1)
        taken.captureFrames = s.captureFrames;
    refused = SceneProblem(read);
    // The folders are the viewer's, not the record's.
    taken.screenShotFolder = s.screenShotFolder;
    taken.captureFolder = s.captureFolder;
    s = taken;
    session_.Commit();
    session_.Scene().RequestView(view);
    session_.Client().Post(kBuildModel);
    sceneChanged_();
    if (!refused.empty())
        Tell(refused, true);
}

std::optional<OutputFlows::OpenedRecord> OutputFlows::OpenRecord(bool captureFile, bool headerOnly,
                                                                 PathBlock& block) {
    const QString path =
        captureFile
            ? files_.Choose(owner_, false, Tr("Open Capture-Info File"),
                            {Tr("Capture-Info File (*.sqi)")},
                            QString::fromStdString(Folder(block, session_.Paths().capturesFolder)),
                            {}, nullptr, "sqi")
            : files_.Choose(
                  owner_, false, Tr("Open Position-Info File"), {Tr("Position-Info File (*.gpi)")},
                  QString::fromStdString(Folder(block, session_.Paths().screenShotsFolder)), {},
                  nullptr, "gpi");
    if (path.isEmpty())
        return std::nullopt;
    OpenedRecord record{session_.Settings(), session_.Scene().ShownView(), capture_, {}, {}};
    SceneState scene{record.settings, record.view, record.capture};
    const RecordRead read = ReadCaptureInfo(path.toStdString(), scene, headerOnly);
    if (!read.opened) {
        Tell(messages::kFailedToOpenFile, true);
        return std::nullopt;
    }
    ChoosePath(path.toStdString(), block);
    RememberFolders();
    record.refused = read.refused;
    record.path = path.toStdString();
    return record;
}

void OutputFlows::RestorePosition() {
    if (session_.Client().Busy())
        return;
    const auto record = OpenRecord(false, false, shotBlock_);
    if (!record)
        return;
    // Reading overwrites the scene in place: the capture counts travel with it.
    capture_ = record->capture;
    AdoptDesignBeside(record->path);
    AdoptScene(record->settings, record->view);
    if (!record->refused.empty())
        Tell(record->refused, true);
}

int OutputFlows::RunCaptureWindow(const CaptureStart& from) {
    const CaptureRun run =
        MakeCaptureRun(session_.Settings(), runStart_, captureBlock_.fullPath, from);
    session_.Scene().SetCapturedFrames(from.firstFrame);
    ProgressWindow window(Tr("Automatic Screen Capturing"), true, owner_);
    QtWorkerSink& sink = session_.Sink();
    connect(&sink, &QtWorkerSink::captureProgress, &window, &ProgressWindow::Progress);
    connect(&sink, &QtWorkerSink::captureFinished, &window, &ProgressWindow::Finish);
    connect(&window, &ProgressWindow::abortRequested, &window,
            [this] { session_.Client().Post(kAbortJob); });
    connect(&window, &ProgressWindow::started, &window,
            [this, &run] { session_.Client().StartCapture(run); });
    window.exec();
    owner_->raise();
    owner_->activateWindow();
    return session_.Scene().CapturedFrames();
}

void OutputFlows::NewCapture() {
    if (session_.Client().Busy())
        return;
    if (!checkIndex_())
        return;
    capture_.framesCaptured = 0;
    capture_.existenceCheck = 0;
    CaptureHeaderDialog header(session_.Settings(), session_.Prompts(), owner_);
    if (header.exec() != QDialog::Accepted)
        return;
    session_.Settings().captureFrames = header.Result().captureFrames;
    session_.Persist();
    const QString path = files_.Choose(
        owner_, true, Tr("Save Capture-Info File"), {Tr("Capture-Info File (*.sqi)")},
        QString::fromStdString(Folder(captureBlock_, session_.Paths().capturesFolder)), {}, nullptr,
        "sqi");
    if (path.isEmpty())
        return;
    ChoosePath(path.toStdString(), captureBlock_);
    RememberFolders();
    RecordLock lock;
    if (!LockRecord(lock))
        return;
    capture_.panelOverlay = 0;
    // The record keeps the orientation of frame 0, whatever frame an abort stops at.
    runStart_ = session_.Scene().ShownView();
    WriteRecord(path.toStdString(), runStart_);
    if (std::string error; !WriteDesignBeside(session_.Stone(), path.toStdString(), error))
        Tell(QCoreApplication::translate("Messages", messages::kFailedToOpenFile).toStdString() +
                 "\n\n" + error,
             true);
    capture_.framesCaptured = RunCaptureWindow({0, false});
    WriteRecord(captureBlock_.fullPath + captureBlock_.extension, runStart_);
    TellCaptureEnd(session_.Settings().captureFrames);
}

void OutputFlows::TellCaptureEnd(int frameCount) {
    if (const std::string error = session_.Scene().CaptureError(); !error.empty())
        Tell(Formatted(messages::kFrameNotSaved, error), true);
    else if (capture_.framesCaptured != frameCount)
        Tell(messages::kCapturingAborted);
    else
        Tell(Formatted(messages::kAllFramesCaptured, captureBlock_.name));
}

bool OutputFlows::LockRecord(RecordLock& lock) {
    std::string error;
    if (lock.Acquire(captureBlock_.fullPath + captureBlock_.extension, error))
        return true;
    Tell(error, true);
    return false;
}

void OutputFlows::ResumeCapture() {
    if (session_.Client().Busy())
        return;
    const auto record = OpenRecord(true, false, captureBlock_);
    if (!record)
        return;
    const AppSettings& settings = record->settings;
    const ViewState& view = record->view;
    const CaptureState& capture = record->capture;
    if (!SceneProblem(settings).empty() ||
        !RecordedCountsProblem(capture, settings.captureFrames).empty()) {
        Tell(SceneProblem(settings).empty()
                 ? Tr("The capture file's frame counts are damaged.").toStdString()
                 : SceneProblem(settings),
             true);
        return;
    }
    RecordLock lock;
    if (!LockRecord(lock))
        return;
    capture_ = capture;
    capture_.panelOverlay = 0;
    runStart_ = view;
    AdoptDesignBeside(record->path);
    AdoptScene(settings, view);
    const int n = settings.captureFrames;
    const bool complete = capture_.framesCaptured == n;
    capture_.framesCaptured = RunCaptureWindow(ResumeStart(capture_, n, false));
    if (complete && session_.Prompts().AskYesNo(messages::kAlreadyComplete, DefaultAnswer::kYes)) {
        capture_.existenceCheck = 1;
        capture_.framesCaptured = RunCaptureWindow(ResumeStart(capture_, n, true));
    }
    WriteRecord(captureBlock_.fullPath + captureBlock_.extension, runStart_);
    TellCaptureEnd(n);
}

void OutputFlows::MakeAnimatedGif() {
    if (session_.Client().Busy())
        return;
    gifBlock_.initialFolder = captureBlock_.initialFolder;
    const auto record = OpenRecord(true, true, captureBlock_);
    if (!record)
        return;
    const int n = record->settings.captureFrames;
    // The header overwrites the frame counts in place, as every read of a record does.
    if (n >= 1) {
        session_.Settings().captureFrames = n;
        session_.Persist();
    }
    capture_.framesCaptured = record->capture.framesCaptured;
    if (n < 1 || n != record->capture.framesCaptured) {
        Tell(messages::kNotAllFramesCaptured, true);
        return;
    }
    GifSettingsDialog settings(session_.Settings(), session_.Prompts(), owner_);
    if (settings.exec() != QDialog::Accepted)
        return;
    session_.Settings().gifTimeWeight = settings.Result().gifTimeWeight;
    session_.Settings().gifDirection = settings.Result().gifDirection;
    session_.Persist();
    gifBlock_.fullPath = captureBlock_.fullPath + "_ANI";
    const QString output =
        files_.Choose(owner_, true, Tr("Save Animation GIF File"),
                      {Tr("Animation GIF File (*.gif)"), Tr("Animated WebP File (*.webp)")},
                      QString::fromStdString(gifBlock_.initialFolder),
                      QString::fromStdString(gifBlock_.fullPath), nullptr, "gif");
    owner_->raise();
    if (output.isEmpty())
        return;
    gifBlock_.fullPath = output.toStdString();
    const bool webp = output.endsWith(".webp", Qt::CaseInsensitive);
    const GifJob job =
        MakeGifJob(captureBlock_.fullPath + captureBlock_.extension, n,
                   session_.Settings().gifTimeWeight, session_.Settings().gifDirection,
                   gifBlock_.fullPath, {webp, webp ? settings.WebPQuality() : -1});
    ProgressWindow window(Tr("Compiling Animated-GIF"), false, owner_);
    QtWorkerSink& sink = session_.Sink();
    connect(&sink, &QtWorkerSink::gifProgress, &window, &ProgressWindow::Progress);
    connect(&sink, &QtWorkerSink::gifFinished, &window, &ProgressWindow::Finish);
    connect(&window, &ProgressWindow::started, &window,
            [this, &job] { session_.Client().StartGif(job); });
    if (window.exec() == 1) {
        Tell(Formatted(webp ? messages::kAnimatedWebPSaved : messages::kAnimationSaved,
                       gifBlock_.fullPath));
        return;
    }
    TellAnimationFailure(job, session_.Scene().GifMessage());
}

void OutputFlows::TellAnimationFailure(const GifJob& job, const std::string& otherwise) {
    const int n = job.frameCount;
    // The first frame missing or damaged in the order the frames are loaded: backwards when
    // clockwise. Told here, in the window thread, so that the message is translated.
    const bool clockwise = job.direction == 1;
    FrameSize size = job.frameSize;
    for (int i = 0; i < n; ++i) {
        const std::string frame =
            FrameFileName(captureBlock_.fullPath, clockwise ? n - 1 - i : i, n);
        IndexedImage picture;
        std::string error;
        const FrameState state = ReadFrameGif(frame, size, picture, error);
        if (state != FrameState::kGood) {
            Tell(state == FrameState::kMissing ? Formatted(messages::kMissingFrame, frame)
                                               : Formatted(messages::kDamagedFrame, error),
                 true);
            return;
        }
        size = {picture.width, picture.height};
    }
    Tell(otherwise, true);
}

}  // namespace kirameki
