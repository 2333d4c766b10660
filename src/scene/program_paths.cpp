#include "scene/program_paths.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>

namespace kirameki {

namespace {

std::string WithSlash(std::string folder) {
    if (folder.empty() || folder.back() != '/')
        folder += '/';
    return folder;
}

}  // namespace

ProgramPaths ResolveProgramPaths(const std::string& programFolder,
                                 const std::function<std::string(const char*)>& environment,
                                 const std::function<bool(const std::string&)>& writable) {
    ProgramPaths paths;
    const std::string beside = WithSlash(programFolder);
    if (!programFolder.empty() && writable(beside)) {
        paths.settingsFile = beside + "Setting.ini";
        paths.screenShotsFolder = beside + "ScreenShots/";
        paths.capturesFolder = beside + "AutoCaps/";
        return paths;
    }
    const std::string home = WithSlash(environment("HOME"));
    std::string config = environment("XDG_CONFIG_HOME");
    if (config.empty())
        config = home + ".config";
    paths.settingsFile = WithSlash(config) + "kirameki/Setting.ini";
    std::string pictures = environment("XDG_PICTURES_DIR");
    if (pictures.empty())
        pictures = home + "Pictures";
    const std::string ours = WithSlash(pictures) + "Kirameki/";
    paths.screenShotsFolder = ours + "ScreenShots/";
    paths.capturesFolder = ours + "AutoCaps/";
    return paths;
}

std::string ProgramFolder() {
    std::error_code error;
    const std::filesystem::path exe = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error)
        return {};
    return WithSlash(exe.parent_path().string());
}

ProgramPaths CurrentProgramPaths() {
    return ResolveProgramPaths(
        ProgramFolder(),
        [](const char* name) {
            const char* value = std::getenv(name);
            return std::string(value ? value : "");
        },
        [](const std::string& folder) { return access(folder.c_str(), W_OK) == 0; });
}

}  // namespace kirameki
