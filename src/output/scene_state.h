#pragma once

#include <cstdint>

#include "output/app_settings.h"
#include "render/view_state.h"

namespace kirameki {

// The state of a capture run that the settings file does not keep.
struct CaptureState {
    std::int32_t framesCaptured = 0;  // frames 0 .. framesCaptured-1 are on disk
    std::int32_t existenceCheck = 0;  // re-check every frame file, render only missing ones
    std::int32_t panelOverlay = 0;    // a view-panel flag of the main window, kept with the scene
};

// The whole scene as the capture and position records save it: the settings (stone, cut,
// colour, index, lights, trimming, frame count), the orientation and the capture state.
// Reading a record overwrites these in place.
struct SceneState {
    AppSettings& settings;
    ViewState& view;
    CaptureState& capture;
};

}  // namespace kirameki
