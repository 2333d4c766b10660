#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/options.h"
#include "output/app_settings.h"
#include "output/scene_state.h"
#include "render/frame_renderer.h"
#include "render/view_state.h"
#include "scene/stone_source.h"

namespace kirameki::cli {

// Refuses, as bad input, a settings file named on the command line that is not there, is no
// regular file or has more bytes than the settings file (or, when exact, another number):
// the viewer would fall back to the defaults, but here it is most likely a typing error.
enum class SettingsFileSize { kAtMost, kExact };
void CheckSettingsFile(const std::string& path, SettingsFileSize size);

// The settings file named on the command line, checked as above; a shorter file is read as
// the viewer reads it.
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

    // Adds the scene flags to a subcommand, their values checked as they are parsed.
    void AddFlags(CLI::App& app);

    // The scene flags given on the command line, in the order given, with their values.
    std::vector<std::pair<std::string, std::string>> Given(const CLI::App& app) const;

    // Applies the scene flags given, in the order given; returns them.
    std::vector<std::pair<std::string, std::string>> Apply(const CLI::App& app);

    // Takes one scene flag and its value. Turns are applied at once, as the rotation buttons
    // apply them in the current mode.
    void Take(std::string_view flag, const std::string& value);

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

  private:
    std::vector<std::pair<const CLI::Option*, std::string>> flags_;
};

}  // namespace kirameki::cli
