#pragma once

namespace kirameki {

// Thread messages of the worker.
enum WorkerMessage : int {
    kWorkerCommandMessage = 7020,  // wParam a command, lParam its argument
    kStopAnimationMessage = 7030,  // ends a running rotation animation
    kHandledMark = 7040,           // what a handled message is marked as
};

// The commands of message 7020.
enum WorkerCommand : int {
    kRedrawPreview = 7050,
    kBuildModel = 7055,
    kRenderFrame = 7060,
    kAbortJob = 7065,
    kAnimateRotation = 7070,
    kBeginViewDrag = 7080,
    kBeginLightDrag = 7090,
    kViewDrag = 7100,
    kLightDrag = 7110,
    kInvalidateViewPanel = 7120,
    kResetOrientation = 7130,
    kCaptureFrames = 8000,
    kCompileAnimatedGif = 8030,
    kStudyLight = 8060,  // the light performance of the current stone
};

// A mouse point packed as the drag commands carry it: x in the low 16 bits, y in the high
// 16 bits, each taken back without sign extension.
constexpr int PackPoint(int x, int y) {
    return int((unsigned(y) & 0xffffu) << 16 | (unsigned(x) & 0xffffu));
}
constexpr int PointX(int packed) {
    return int(unsigned(packed) & 0xffffu);
}
constexpr int PointY(int packed) {
    return int((unsigned(packed) >> 16) & 0xffffu);
}

}  // namespace kirameki
