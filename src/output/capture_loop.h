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
    bool existenceCheck = false;     // walk every frame, render only missing files
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
    // A frame could not be written; the run goes on and a later existence check finds it.
    virtual void FrameNotSaved(const std::string& path, const std::string& error) = 0;
};

// The orientation of frame k of n: the start turned by k * 2 pi / n about the stone's own
// vertical axis, or with the view point turned about the view's vertical axis. Increasing
// k turns the stone anticlockwise as seen from above.
ViewState FrameOrientation(const ViewState& start, int index, int frameCount,
                           bool viewPointRotation);

// Renders and saves the frames of the run, each a 256-colour GIF written through a
// temporary file. Returns the number of frames now on disk from frame 0 (N when the run
// completed; the index of the frame under rendering after an abort, whose file is not
// written). `view` ends at the frame reached: the start again after a completed run.
int RunCapture(const CaptureRun& run, GemModel& model, ViewState& view, TracerWorkAreas& work,
               FrameImage& image, RenderSink& sink, const AbortPoll& abortPoll,
               CaptureObserver& observer);

}  // namespace kirameki
