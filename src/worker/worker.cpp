#include "worker/worker.h"

#include <algorithm>
#include <chrono>
#include <cmath>

#include "model/model_builder.h"
#include "model/stone_tables.h"
#include "output/capture_info.h"
#include "output/gif_compiler.h"
#include "render/frame_renderer.h"
#include "render/rotation_steps.h"
#include "scene/render_settings.h"
#include "scene/stone_source.h"
#include "worker/drag_rotation.h"

namespace kirameki {

namespace {

constexpr std::int32_t kLongestRotationWait = 500;  // milliseconds

// Forwards the frame renderer's notifications to the worker's sink.
class RenderForwarder : public RenderSink {
  public:
    explicit RenderForwarder(WorkerSink& sink) : sink_(sink) {}
    void RenderStarted() override { sink_.RenderStarted(); }
    void RenderProgress(int percent) override { sink_.RenderProgress(percent); }
    void RowsRendered(const FrameImage& image, int first, int last) override {
        sink_.RenderRows(image, first, last);
    }
    void RenderFinished() override { sink_.RenderFinished(); }

  private:
    WorkerSink& sink_;
};

// Doubles every pixel of the quick pass into the picture's size.
void Enlarge(const FrameImage& small, int size, FrameImage& large) {
    if (large.Width() != size || large.Height() != size)
        large.Create(size, size);
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x)
            large.SetPixel(x, y,
                           small.Pixel(std::min(x / 2, small.Width() - 1),
                                       std::min(y / 2, small.Height() - 1)));
}

// A capture tells the progress window and redraws the panel as the stone turns; its
// renders tell the render window nothing more than a plain render does.
class CaptureForwarder : public CaptureObserver {
  public:
    CaptureForwarder(WorkerSink& sink, const std::function<void()>& redraw)
        : sink_(sink), redraw_(redraw) {}
    void FrameStarted(int index, int frameCount) override {
        sink_.CaptureProgress(index, frameCount);
    }
    void Turned(const GemModel&, const ViewState&) override { redraw_(); }

  private:
    WorkerSink& sink_;
    std::function<void()> redraw_;
};

}  // namespace

Worker::Worker(SharedScene& scene, WorkerSink& sink, ManualResetEvent& idle)
    : scene_(scene), sink_(sink), idle_(idle) {}

Worker::~Worker() {
    Quit();
}

void Worker::Start() {
    settings_ = scene_.Settings();
    stone_ = scene_.Stone();
    BuildSceneModel(settings_, stone_, *model_);
    TransformVertices(view_, *model_);
    thread_ = std::thread([this] { Run(); });
}

void Worker::Quit() {
    queue_.Quit();
    if (thread_.joinable())
        thread_.join();
}

void Worker::Run() {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    if (scene_.Settings().showTitleWindow)
        sink_.OpenTitleWindow();
    ThreadMessage message;
    while (queue_.Get(message)) {
        // Anything but a command (a late stop or abort nobody polled) is fetched and dropped.
        if (message.message != kWorkerCommandMessage)
            continue;
        Dispatch(message);
    }
}

void Worker::Dispatch(const ThreadMessage& message) {
    const int command = message.wParam;
    const int argument = message.lParam;
    settings_ = scene_.Settings();
    stone_ = scene_.Stone();
    AdoptRequestedView();
    switch (command) {
        case kRedrawPreview:
        case kInvalidateViewPanel:
            Redraw();
            LiveFrames(true);
            break;
        case kBuildModel:
            BuildSceneModel(settings_, stone_, *model_);
            Redraw();
            LiveFrames(true);
            break;
        case kRenderFrame:
            RenderFrameCommand();
            idle_.Set();
            break;
        case kAnimateRotation:
            AnimateRotation(argument);
            LiveFrames(true);  // the turn has stopped: the full picture
            break;
        case kBeginViewDrag:
            BeginViewDrag(argument);
            break;
        case kBeginLightDrag:
            drag_.startX = PointX(argument);
            drag_.startY = PointY(argument);
            break;
        case kViewDrag:
            ViewDrag(argument);
            idle_.Set();
            LiveFrames(true);
            break;
        case kLightDrag:
            LightDrag(argument);
            idle_.Set();
            LiveFrames(true);
            break;
        case kResetOrientation:
            ResetOrientation();
            idle_.Set();
            LiveFrames(true);
            break;
        case kCaptureFrames:
            if (const auto* run = std::get_if<CaptureRun>(&message.payload))
                CaptureFrames(*run);
            break;
        case kCompileAnimatedGif:
            if (const auto* job = std::get_if<GifJob>(&message.payload))
                CompileAnimatedGif(*job);
            break;
        case kStudyLight:
            if (const auto* setup = std::get_if<LightStudySetup>(&message.payload))
                StudyLight(*setup);
            break;
        default:
            break;  // an abort with nothing to abort, or an unknown code
    }
}

void Worker::AdoptRequestedView() {
    if (auto view = scene_.TakeRequestedView()) {
        view_ = *view;
        drag_.target = drag_.previousTarget = kTargetNone;
    }
}

void Worker::Redraw() {
    TransformVertices(view_, *model_);
    const PanelSize panel = scene_.Panel();
    const int size = std::clamp(settings_.imageSize, 32, 512);
    const PanelGeometry geometry{panel.width * 0.5, panel.height * 0.5, double(ScaleForSize(size))};
    const std::array<double, 3>& colour =
        PolygonColours()[IsPolygonColourIndex(settings_.polygonColour) ? settings_.polygonColour
                                                                       : 1];
    ComputePreview(*model_, view_.LightDirection, colour, geometry, *preview_);
    const bool changed = drag_.target != drag_.previousTarget;
    drag_.previousTarget = drag_.target;
    sink_.PreviewDrawn({*preview_, panel, size, view_.LightDirection, drag_.target, changed});
    scene_.PublishView(view_);
}

bool Worker::AbortRequested() {
    const auto message = queue_.Peek();
    return message && message->wParam == kAbortJob;
}

void Worker::RenderFrameCommand() {
    TransformVertices(view_, *model_);
    WriteAllFaceData(*model_);
    RenderForwarder forward(sink_);
    if (!SceneProblem(settings_).empty()) {
        // The window thread checks the scene before posting; a damaged one renders nothing.
        sink_.RenderStarted();
        sink_.RenderProgress(0);
        sink_.RenderFinished();
        return;
    }
    RenderFrame(
        WithLight(RenderParametersFor(settings_), scene_.Light()), *model_, view_.LightDirection,
        GeometryFor(settings_), *work_, image_, forward, [this] { return AbortRequested(); },
        renderThreads_);
    scene_.PublishFrame(image_);
}

void Worker::AnimateRotation(int identifier) {
    const RotationKind kind = ClassifyRotation(identifier);
    const auto step = StepFrame(kind);
    for (;;) {
        const auto message = queue_.Peek();
        if (message && message->message == kStopAnimationMessage)
            return;
        if (step && kind.light) {
            drag_.target = kTargetLight;
            // Up/down turn the light about its own X axis, right/left about the view's Y.
            if (kind.axis == TurnAxis::kX)
                LocalRotationStep(view_.light, *step);
            else
                RotationStep(view_.light, *step);
            view_.LightDirection = LightDirectionOf(view_.light);
            Redraw();
            LiveFrames(false);
            std::this_thread::sleep_for(std::chrono::milliseconds(40));
            continue;
        }
        if (step && settings_.ObjectWiseMode) {
            drag_.target = kTargetObject;
            LocalRotationStep(view_.object, *step);
        } else if (step) {
            drag_.target = kTargetViewPoint;
            RotationStep(view_.view, *step);
        }
        Redraw();
        LiveFrames(false);
        // Fewer visible faces, a longer pause: the turn keeps an even pace. A damaged
        // settings file may hold any wait; none beyond the settings window's 500 ms is taken,
        // or a turn would not stop for days.
        const long pause = std::lround(std::min(settings_.rotationSpeed, kLongestRotationWait) -
                                       0.25 * preview_->facesDrawn);
        if (pause > 0)
            std::this_thread::sleep_for(std::chrono::milliseconds(pause));
    }
}

void Worker::BeginViewDrag(int point) {
    drag_.startX = drag_.currentX = PointX(point);
    drag_.startY = drag_.currentY = PointY(point);
    drag_.hasSnapshot = true;
    if (settings_.ObjectWiseMode)
        drag_.snapshot = view_.object;
    else if (!settings_.IncrementalViewMode)
        drag_.snapshot = view_.view;
    else
        drag_.hasSnapshot = false;
}

void Worker::ViewDrag(int point) {
    drag_.currentX = PointX(point);
    drag_.currentY = PointY(point);
    const int span = std::min(scene_.Panel().width, scene_.Panel().height);
    const int dx = drag_.currentX - drag_.startX, dy = drag_.currentY - drag_.startY;
    if (settings_.ObjectWiseMode) {
        drag_.target = kTargetObject;
        if (drag_.hasSnapshot)
            view_.object = drag_.snapshot;
        TurnByDrag(view_.object, dx, dy, span);
    } else {
        drag_.target = kTargetViewPoint;
        if (settings_.IncrementalViewMode) {
            drag_.mirroredX = 2 * drag_.startX - drag_.currentX;
            drag_.mirroredY = 2 * drag_.startY - drag_.currentY;
            TurnByDrag(view_.view, dx, dy, span);
            drag_.startX = drag_.currentX;
            drag_.startY = drag_.currentY;
        } else {
            if (drag_.hasSnapshot)
                view_.view = drag_.snapshot;
            TurnByDrag(view_.view, dx, dy, span);
        }
    }
    Redraw();
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

void Worker::LightDrag(int point) {
    drag_.currentX = PointX(point);
    drag_.currentY = PointY(point);
    drag_.target = kTargetLight;
    TurnLightByDrag(view_.light, drag_.currentX - drag_.startX, drag_.currentY - drag_.startY, 120);
    view_.LightDirection = LightDirectionOf(view_.light);
    drag_.startX = drag_.currentX;
    drag_.startY = drag_.currentY;
    Redraw();
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

void Worker::ResetOrientation() {
    // In incremental mode the view frame is only derived again from its stored vectors;
    // otherwise the view looks along (0, 0, -1) from the front again.
    if (settings_.IncrementalViewMode)
        Decompose(view_.view);
    else
        view_.view = OrientationFrame{};
    drag_.target = drag_.previousTarget = kTargetNone;
    Redraw();
}

void Worker::CaptureFrames(const CaptureRun& run) {
    BuildSceneModel(settings_, stone_, *model_);
    CaptureForwarder observer(sink_, [this] { Redraw(); });
    RenderForwarder forward(sink_);
    // The window thread checks the scene first; a damaged one draws nothing.
    CaptureOutcome outcome{CaptureOutcome::End::kAborted, run.firstFrame, {}};
    if (SceneProblem(settings_).empty()) {
        outcome = RunCapture(
            run, *model_, view_, *work_, image_, forward, [this] { return AbortRequested(); },
            observer, renderThreads_);
        scene_.PublishFrame(image_);
    }
    scene_.SetCapturedFrames(outcome.framesDone);
    scene_.SetCaptureError(outcome.error);
    scene_.PublishView(view_);
    sink_.CaptureFinished(outcome.end == CaptureOutcome::End::kCompleted ? 1 : 2);
    sink_.RenderFinished();
}

void Worker::CompileAnimatedGif(const GifJob& job) {
    std::string message;
    const bool ok =
        GifCompiled::kSaved ==
        RunGifJob(
            job, [this](int frame, int count) { sink_.GifProgress(frame, count); }, message);
    scene_.SetGifMessage(message);
    sink_.GifFinished(ok ? 1 : 2);
}

void Worker::StudyLight(const LightStudySetup& setup) {
    // The stone as it is: a build of the model posted before this has been carried out.
    LightStudy study;
    const bool done = RunLightStudy(
        setup, *model_, view_.LightDirection, *work_, study, [this] { return AbortRequested(); },
        [this](int picture, int total) { sink_.LightStudyProgress(picture, total); });
    sink_.LightStudyFinished(done ? 1 : 2, study);
    sink_.RenderFinished();  // ends the busy state the client set, as after a capture
}

void Worker::LiveFrames(bool refine) {
    if (!scene_.LiveView() || !SceneProblem(settings_).empty())
        return;
    // Any message (the next step of a drag, a stop, a command) ends the frame in flight at
    // its next row: only the newest view is traced, and the message is left for its turn.
    const auto input = [this] { return queue_.HasMessage(); };
    TransformVertices(view_, *model_);
    WriteAllFaceData(*model_);
    RenderParameters parameters = WithLight(RenderParametersFor(settings_), scene_.Light());
    parameters.highQuality = false;
    const RenderGeometry full = GeometryFor(settings_);
    const RenderGeometry half{(full.size + 1) / 2, ScaleForSize(full.size) / 2};
    SilentRenderSink quiet;
    if (RenderFrame(parameters, *model_, view_.LightDirection, half, *work_, liveQuick_, quiet,
                    input, renderThreads_) == 0)
        return;
    Enlarge(liveQuick_, full.size, liveFull_);
    sink_.LiveFrame(liveFull_, true);
    // The full picture once the view has rested a moment.
    if (!refine || queue_.WaitForMessage(std::chrono::milliseconds(kLiveRestMs)))
        return;
    parameters.highQuality = settings_.highQuality != 0;
    if (RenderFrame(parameters, *model_, view_.LightDirection, full, *work_, liveFull_, quiet,
                    input, renderThreads_) == 1)
        sink_.LiveFrame(liveFull_, false);
}

}  // namespace kirameki
