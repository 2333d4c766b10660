#include "scene/program_paths.h"

#include <gtest/gtest.h>

#include <map>

namespace kirameki {
namespace {

ProgramPaths Resolve(const std::string& programFolder, bool writable,
                     const std::map<std::string, std::string>& variables) {
    return ResolveProgramPaths(
        programFolder,
        [&](const char* name) {
            const auto found = variables.find(name);
            return found == variables.end() ? std::string() : found->second;
        },
        [&](const std::string&) { return writable; });
}

TEST(ProgramPaths, PortableOnlyInAWritableFolderOfTheUser) {
    const std::map<std::string, std::string> home{{"HOME", "/home/a"}};
    EXPECT_EQ(Resolve("/home/a/kirameki", true, home).settingsFile, "/home/a/kirameki/Setting.ini");
    EXPECT_EQ(Resolve("/home/a/kirameki", false, home).settingsFile,
              "/home/a/.config/kirameki/Setting.ini");
    // Root can write to /usr/bin and /opt, which are still no place for a user's files.
    for (const char* system : {"/usr/bin", "/usr/local/bin/", "/opt/kirameki", "/bin"}) {
        const ProgramPaths paths = Resolve(system, true, home);
        EXPECT_EQ(paths.settingsFile, "/home/a/.config/kirameki/Setting.ini") << system;
        EXPECT_EQ(paths.screenShotsFolder, "/home/a/Pictures/Kirameki/ScreenShots/") << system;
    }
    EXPECT_FALSE(IsSystemFolder("/usrlocal/kirameki"));
    EXPECT_FALSE(IsSystemFolder("/home/a/opt"));
}

TEST(ProgramPaths, PicturesFolderOfTheDesktop) {
    const ProgramPaths paths = Resolve(
        "/usr/bin", true,
        {{"HOME", "/home/a"}, {"XDG_CONFIG_HOME", "/cfg"}, {"XDG_PICTURES_DIR", "/p/画像"}});
    EXPECT_EQ(paths.settingsFile, "/cfg/kirameki/Setting.ini");
    EXPECT_EQ(paths.capturesFolder, "/p/画像/Kirameki/AutoCaps/");

    const std::string userDirs =
        "# written by xdg-user-dirs-update\n"
        "XDG_DESKTOP_DIR=\"$HOME/デスクトップ\"\n"
        "XDG_PICTURES_DIR=\"$HOME/画像\"\n";
    EXPECT_EQ(PicturesFolderFromUserDirs(userDirs, "/home/a"), "/home/a/画像");
    EXPECT_EQ(PicturesFolderFromUserDirs("XDG_PICTURES_DIR=\"/srv/pics\"\n", "/home/a"),
              "/srv/pics");
    // Set to the home folder itself (the desktop's way of saying none), relative, or broken.
    for (const char* none : {"XDG_PICTURES_DIR=\"$HOME/\"", "XDG_PICTURES_DIR=\"$HOME\"",
                             "XDG_PICTURES_DIR=\"pics\"", "XDG_PICTURES_DIR=\"$HOME/x", "", "\""})
        EXPECT_EQ(PicturesFolderFromUserDirs(none, "/home/a"), "") << none;
}

}  // namespace
}  // namespace kirameki
