#include "worker/worker_client.h"

#include <chrono>

namespace kirameki {

bool WorkerClient::ConfirmAbort(const char* text) {
    const bool yes = prompter_.AskYesNo(text, DefaultAnswer::kNo);
    if (yes)
        worker_.Post(kAbortJob, 0);
    return yes;
}

bool WorkerClient::Busy(const char* text) {
    if (!Rendering())
        return false;
    ConfirmAbort(text);
    return true;
}

bool WorkerClient::Render() {
    if (Busy())
        return false;
    idle_.Reset();
    rendering_.store(1);
    worker_.Post(kRenderFrame, 0);
    return true;
}

void WorkerClient::StartCapture(const CaptureRun& run) {
    rendering_.store(1);
    worker_.Post(kCaptureFrames, run.existenceCheck ? 1 : 0, run);
}

bool WorkerClient::BeginDrag(int kind, int x, int y) {
    if (!idle_.Wait(std::chrono::milliseconds(0)))
        return false;
    dragKind_ = kind;
    worker_.Post(kind == 1 ? kBeginViewDrag : kBeginLightDrag, PackPoint(x, y));
    return true;
}

bool WorkerClient::Drag(int x, int y) {
    if (dragKind_ == 0 || !idle_.Wait(std::chrono::milliseconds(0)))
        return false;
    idle_.Reset();
    worker_.Post(dragKind_ == 1 ? kViewDrag : kLightDrag, PackPoint(x, y));
    return true;
}

void WorkerClient::ResetOrientation() {
    if (Busy())
        return;
    idle_.Reset();
    worker_.Post(kResetOrientation, 0);
}

void WorkerClient::AbortAndWait() {
    if (!Rendering())
        return;
    worker_.Post(kAbortJob, 0);
    idle_.Wait(std::chrono::milliseconds(5000));
}

bool WorkerClient::MayClose() {
    if (!Rendering())
        return true;
    if (!ConfirmAbort(kNowRenderingExit))
        return false;
    idle_.Wait(std::chrono::milliseconds(5000));
    return true;
}

}  // namespace kirameki
