#pragma once

#include <memory>
#include <thread>
#include <utility>

#include "model/gem_model.h"
#include "render/preview_geometry.h"
#include "render/render_threads.h"
#include "render/tracer.h"
#include "worker/message_queue.h"
#include "worker/shared_scene.h"
#include "worker/worker_commands.h"
#include "worker/worker_sink.h"

namespace kirameki {

// The worker thread: it owns the model, the orientation and the rendered picture, and
// carries out one command at a time, in the order they were posted. Long jobs (a render,
// a held rotation, a capture) poll the same queue: a poll takes whatever message is next,
// and only an abort (for a render or capture) or a stop (for a rotation) ends them; any
// other message a poll takes is lost, which is why the window thread posts nothing while a
// render runs.
class Worker {
  public:
    Worker(SharedScene& scene, WorkerSink& sink, ManualResetEvent& idle);
    ~Worker();
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    void Start();
    // Ends the thread after the command under way (a long job should be aborted first).
    void Quit();

    void Post(int command, int argument = 0, CommandPayload payload = {}) {
        queue_.Post({kWorkerCommandMessage, command, argument, std::move(payload)});
    }
    void PostStop() { queue_.Post({kStopAnimationMessage, 0, 0, {}}); }
    void PostMessage(ThreadMessage message) { queue_.Post(std::move(message)); }

  private:
    struct DragState {
        int startX = 0, startY = 0;
        int currentX = 0, currentY = 0;
        int mirroredX = 0, mirroredY = 0;
        OrientationFrame snapshot;
        bool hasSnapshot = false;
        int target = kTargetUnset;
        int previousTarget = kTargetUnset;
    };

    void Run();
    void Dispatch(const ThreadMessage& message);
    void AdoptRequestedView();
    void Redraw();
    void RenderFrameCommand();
    void AnimateRotation(int identifier);
    void BeginViewDrag(int point);
    void ViewDrag(int point);
    void LightDrag(int point);
    void ResetOrientation();
    void CaptureFrames(const CaptureRun& run);
    void CompileAnimatedGif(const GifJob& job);
    void StudyLight(const LightStudySetup& setup);
    bool AbortRequested();

    SharedScene& scene_;
    WorkerSink& sink_;
    ManualResetEvent& idle_;
    MessageQueue queue_;
    std::thread thread_;

    AppSettings settings_;  // the copy taken at the start of the command under way
    StoneSource stone_;     // taken with the settings
    std::unique_ptr<GemModel> model_ = std::make_unique<GemModel>();
    std::unique_ptr<TracerWorkAreas> work_ = std::make_unique<TracerWorkAreas>();
    RenderThreads renderThreads_;  // kept from frame to frame
    std::unique_ptr<PreviewPolygons> preview_ = std::make_unique<PreviewPolygons>();
    FrameImage image_;
    ViewState view_ = InitialViewState();
    DragState drag_;
};

}  // namespace kirameki
