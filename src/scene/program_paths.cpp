#include "scene/program_paths.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string_view>

#include "output/file_reading.h"

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
    if (!programFolder.empty() && !IsSystemFolder(beside) && writable(beside)) {
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

bool IsSystemFolder(const std::string& folder) {
    static const char* const kSystem[] = {"/usr/",   "/opt/", "/bin/", "/sbin/", "/lib/",
                                          "/lib64/", "/etc/", "/var/", "/snap/", "/nix/"};
    const std::string path = WithSlash(folder);
    for (const char* system : kSystem)
        if (path.rfind(system, 0) == 0)
            return true;
    return path == "/";
}

std::string PicturesFolderFromUserDirs(const std::string& text, const std::string& home) {
    std::istringstream lines(text);
    std::string line;
    const std::string key = "XDG_PICTURES_DIR=\"";
    while (std::getline(lines, line)) {
        if (line.rfind(key, 0) != 0 || line.size() < key.size() + 1 || line.back() != '"')
            continue;
        std::string value = line.substr(key.size(), line.size() - key.size() - 1);
        if (value.rfind("$HOME", 0) == 0)
            value = WithSlash(home) + value.substr(value.size() > 5 && value[5] == '/' ? 6 : 5);
        else if (value.empty() || value[0] != '/')
            continue;
        // A folder set to $HOME itself means the desktop has no pictures folder.
        if (WithSlash(value) == WithSlash(home))
            continue;
        return value;
    }
    return {};
}

std::string ProgramFolder() {
    std::error_code error;
    const std::filesystem::path exe = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error)
        return {};
    return WithSlash(exe.parent_path().string());
}

ProgramPaths CurrentProgramPaths(const std::string& picturesFolder) {
    const auto variable = [](const char* name) {
        const char* value = std::getenv(name);
        return std::string(value ? value : "");
    };
    std::string pictures = picturesFolder;
    if (pictures.empty()) {
        std::string config = variable("XDG_CONFIG_HOME");
        if (config.empty())
            config = WithSlash(variable("HOME")) + ".config";
        const FileBytes userDirs = ReadRegularFile(WithSlash(config) + "user-dirs.dirs", 65536);
        pictures = PicturesFolderFromUserDirs(
            std::string(userDirs.bytes.begin(), userDirs.bytes.end()), variable("HOME"));
    }
    // An installed program (its manual page in ../share/man/man1) is never portable, even in
    // a prefix of the user's own such as ~/.local.
    std::string programFolder = ProgramFolder();
    if (!programFolder.empty() &&
        access((programFolder + "../share/man/man1/kirameki-cli.1.gz").c_str(), F_OK) == 0)
        programFolder.clear();
    return ResolveProgramPaths(
        programFolder,
        [&](const char* name) {
            if (std::string_view(name) == "XDG_PICTURES_DIR" && !pictures.empty())
                return pictures;
            return variable(name);
        },
        [](const std::string& folder) { return access(folder.c_str(), W_OK) == 0; });
}

}  // namespace kirameki
