#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/cli_arguments.h"
#include "output/app_settings.h"
#include "output/scene_state.h"
#include "render/frame_renderer.h"
#include "render/view_state.h"
#include "scene/stone_source.h"

namespace kirameki::cli {

// The settings file named on the command line; a file that does not exist is bad input
// (the viewer would fall back to the defaults, but here it is most likely a typing error).
AppSettings LoadSettingsArgument(const std::string& path);

// The viewer's own settings file when there is one (what a resume takes beside its record),
// else the settings given.
AppSettings ProgramSettings(const AppSettings& fallback);

// The scene a headless command renders: it starts from the settings file given (or the
// defaults) in the orientation the viewer first shows, and the scene flags override it in
// the order given.
struct SceneArguments {
    AppSettings settings;
    ViewState view = InitialViewState();
    CaptureState capture;
    StoneSource stone;  // a design when --design was given, else the settings' cut
    int threads = 0;

    SceneArguments();

    SceneState Scene() { return {settings, view, capture}; }

    // Takes one scene flag and its value; false when the flag is not a scene flag. Turns
    // are applied at once, as the rotation buttons apply them in the current mode.
    bool Take(std::string_view flag, Arguments& args);

    // The render parameters of the scene; bad input (a stone or colour no table holds)
    // throws UsageError.
    RenderParameters Parameters() const;

    // Reads a capture or position record into the scene; a file that cannot be read or a
    // damaged orientation throws UsageError. A design beside the record (its stem + ".asc")
    // becomes the stone.
    void ReadRecord(const std::string& path, bool headerOnly);

    // Opens a design as the stone, with its own refractive index when it gives one in range;
    // a design that cannot be read or built throws UsageError.
    void OpenDesign(const std::string& path);
};

}  // namespace kirameki::cli
