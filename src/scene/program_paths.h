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

// Beside the program when its folder is writable and not a system folder (portable use, the
// build tree); otherwise $XDG_CONFIG_HOME/kirameki/Setting.ini (or ~/.config/...) and the
// pictures folder ($XDG_PICTURES_DIR or ~/Pictures) + Kirameki/ScreenShots/ and
// Kirameki/AutoCaps/. `environment` reads a variable (empty when unset); `writable` tells
// whether a folder can be written to.
ProgramPaths ResolveProgramPaths(const std::string& programFolder,
                                 const std::function<std::string(const char*)>& environment,
                                 const std::function<bool(const std::string&)>& writable);

// Whether a folder belongs to the system (/usr, /opt, /bin, ...): never used for portable
// files, even by root, who can write there.
bool IsSystemFolder(const std::string& folder);

// The desktop's pictures folder as user-dirs.dirs names it (XDG_PICTURES_DIR="$HOME/..."),
// from the text of that file; empty when it names none.
std::string PicturesFolderFromUserDirs(const std::string& text, const std::string& home);

// The same for this process, from its executable and the real environment; an installed
// program (one with its manual page in ../share/man/man1) is never portable. The pictures
// folder is `picturesFolder` when given (the viewer passes the desktop's answer), else the
// one $XDG_CONFIG_HOME/user-dirs.dirs names.
ProgramPaths CurrentProgramPaths(const std::string& picturesFolder = {});

// The folder of the running executable, with a trailing '/'.
std::string ProgramFolder();

}  // namespace kirameki
