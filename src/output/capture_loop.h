#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "model/gem_model.h"
#include "render/frame_renderer.h"
#include "render/view_state.h"

namespace kirameki {

// One run of the automatic capture: frames firstFrame .. N-1 of a full turn.
struct CaptureRun {
    std::string stem;  // the capture file's path without extension
    int frameCount = 128;
    int firstFrame = 0;              // frames before it are on disk
    bool existenceCheck = false;     // walk every frame, render only missing or damaged files
    bool viewPointRotation = false;  // turn the view point around the stone, not the stone
    ViewState start;                 // the orientation of frame 0
    bool trimming = false;
    std::array<std::int32_t, 4> margins{};  // top, bottom, left, right
    std::uint32_t background = 0;           // the back colour, exact in every frame
    RenderParameters parameters;
    RenderGeometry geometry;
};

// What the run tells its surroundings besides the render notifications.
class CaptureObserver {
  public:
    virtual ~CaptureObserver() = default;
    // Frame k of N is next (k = N: the turn back to the start, nothing rendered).
    virtual void FrameStarted(int index, int frameCount) = 0;
    // The stone was turned for the next frame: the model's view vertices and face data are
    // those of `view` now (the viewer redraws its preview from them).
    virtual void Turned(const GemModel& model, const ViewState& view) = 0;
};

// How a run ended and how many frames are on disk from frame 0: N when it completed; after an
// abort the index of the frame under rendering (not written); after a failure the index of
// the frame that could not be written, with the reason, so that a resume starts there.
struct CaptureOutcome {
    enum class End { kCompleted, kAborted, kFailed };
    End end = End::kCompleted;
    int framesDone = 0;
    std::string error;  // kFailed: the file and why it could not be written
};

// The orientation of frame k of n: the start turned by k * 2 pi / n about the stone's own
// vertical axis, or with the view point turned about the view's vertical axis. Increasing
// k turns the stone anticlockwise as seen from above.
ViewState FrameOrientation(const ViewState& start, int index, int frameCount,
                           bool viewPointRotation);

// Renders and saves the frames of the run, each a 256-colour GIF written through a
// temporary file. A frame that cannot be written stops the run. `view` ends at the frame
// reached: the start again after a completed run.
// Each frame is written on a thread of its own while the next is traced; the run returns
// only when every frame it handed over is on disk. The frames are traced on `threads`.
CaptureOutcome RunCapture(const CaptureRun& run, GemModel& model, ViewState& view,
                          TracerWorkAreas& work, FrameImage& image, RenderSink& sink,
                          const AbortPoll& abortPoll, CaptureObserver& observer,
                          RenderThreads& threads);

// The same with render threads of its own for the run.
CaptureOutcome RunCapture(const CaptureRun& run, GemModel& model, ViewState& view,
                          TracerWorkAreas& work, FrameImage& image, RenderSink& sink,
                          const AbortPoll& abortPoll, CaptureObserver& observer);

}  // namespace kirameki
