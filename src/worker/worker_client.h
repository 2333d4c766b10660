#pragma once

#include <atomic>
#include <string>

#include "worker/message_queue.h"
#include "worker/prompter.h"
#include "worker/worker.h"

namespace kirameki {

inline constexpr const char* kNowRendering = "Now rendering, Abort current process?";
inline constexpr const char* kNowRenderingSave =
    "Now rendering. Save the file after the precedeing process is finnished.\n\nAbort current "
    "process?";
inline constexpr const char* kNowRenderingSize =
    "Now rendering. Change the size after the preceding process is finnished.\n\nAbort current "
    "process?";
inline constexpr const char* kNowRenderingExit =
    "Now rendering. Abort current process to exit the program?";

// The window thread's half of the worker protocol: the busy rule, the idle event that
// throttles drags and guards renders, and the rendering flag.
class WorkerClient {
  public:
    WorkerClient(Worker& worker, Prompter& prompter, ManualResetEvent& idle)
        : worker_(worker), prompter_(prompter), idle_(idle) {}

    bool Rendering() const { return rendering_.load() != 0; }

    // Asks "Now rendering..." when a render runs, posting an abort on Yes; true when a
    // render was running, so that the command that asked must not be carried out.
    bool Busy(const char* text = kNowRendering);
    bool ConfirmAbort(const char* text);

    // Posts a command that needs no guard (model builds, redraws, rotations).
    void Post(int command, int argument = 0) { worker_.Post(command, argument); }
    void PostStop() { worker_.PostStop(); }

    // A render: the caller has checked the refractive index. Refused while one runs.
    bool Render();
    void RenderFinished() { rendering_.store(0); }

    // A capture or animated GIF job (the progress window opens and posts it); the rendering
    // flag is set for a capture so that the busy rule holds while it runs.
    void StartCapture(const CaptureRun& run);
    void StartGif(const GifJob& job) { worker_.Post(kCompileAnimatedGif, 0, job); }
    // A light study of the current stone; the rendering flag is set as for a capture.
    void StartLightStudy(const LightStudySetup& setup) {
        rendering_.store(1);
        worker_.Post(kStudyLight, 0, setup);
    }

    // A left press in the view panel (kind 1) or the light-ray area (kind 2): ignored while
    // the worker is busy with an interactive step or a render.
    bool BeginDrag(int kind, int x, int y);
    // A move while dragging: dropped while the previous step is still under way, so the
    // queue never holds more than one drag step.
    bool Drag(int x, int y);
    void EndDrag() { dragKind_ = 0; }
    int DragKind() const { return dragKind_; }

    void ResetOrientation();

    // Closing the program: false keeps it open. On Yes the render is aborted and the close
    // waits up to 5000 ms for the worker.
    bool MayClose();
    // The program must stop: a render under way is aborted and waited for (5000 ms at most).
    void AbortAndWait();

  private:
    Worker& worker_;
    Prompter& prompter_;
    ManualResetEvent& idle_;
    std::atomic<int> rendering_{0};
    int dragKind_ = 0;
};

}  // namespace kirameki
