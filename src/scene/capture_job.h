#pragma once

#include <string>

#include "output/app_settings.h"
#include "output/capture_loop.h"
#include "output/scene_state.h"

namespace kirameki {

// Where a run starts: the first frame to draw and whether every frame is checked (the
// missing or damaged ones drawn again).
struct CaptureStart {
    int firstFrame = 0;
    bool existenceCheck = false;
};

// A resume of a record that says `recorded`: from the frame it reached (checking each frame
// when the record was written by a checking run), or, when every frame is to be checked,
// from frame 0. A record that says every frame is done starts at the end: only the turn
// back to the start, nothing drawn.
CaptureStart ResumeStart(const CaptureState& recorded, int frameCount, bool checkEveryFrame);

// Why a record's frame counts cannot be resumed (frames done outside 0 to N); empty if they
// can.
std::string RecordedCountsProblem(const CaptureState& recorded, int frameCount);

// The whole run of a capture: frames, files, trimming, background and render parameters, as
// the settings give them, from the start orientation. `stem` is the record's path without
// its extension. The settings must have no SceneProblem.
CaptureRun MakeCaptureRun(const AppSettings& settings, const ViewState& start,
                          const std::string& stem, const CaptureStart& from);

}  // namespace kirameki
