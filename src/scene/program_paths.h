#pragma once

#include <functional>
#include <string>

namespace kirameki {

// Where the program keeps its settings and proposes its pictures.
struct ProgramPaths {
    std::string settingsFile;       // Setting.ini
    std::string screenShotsFolder;  // ends with '/'
    std::string capturesFolder;     // ends with '/'
};

// Beside the program when its folder is writable (portable use, the build tree); otherwise
// $XDG_CONFIG_HOME/kirameki/Setting.ini (or ~/.config/...) and the pictures folder
// ($XDG_PICTURES_DIR or ~/Pictures) + Kirameki/ScreenShots/ and Kirameki/AutoCaps/.
// `environment` reads a variable (empty when unset); `writable` tells whether a folder can
// be written to.
ProgramPaths ResolveProgramPaths(const std::string& programFolder,
                                 const std::function<std::string(const char*)>& environment,
                                 const std::function<bool(const std::string&)>& writable);

// The same for this process, from its executable and the real environment.
ProgramPaths CurrentProgramPaths();

// The folder of the running executable, with a trailing '/'.
std::string ProgramFolder();

}  // namespace kirameki
