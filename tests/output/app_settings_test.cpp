#include "output/app_settings.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace kirameki {
namespace {

namespace fs = std::filesystem;

const DefaultFolders kFolders{"/home/u/ScreenShots/", "/home/u/AutoCaps/"};

class SettingsFile : public ::testing::Test {
  protected:
    void SetUp() override {
        dir_ = fs::temp_directory_path() /
               ("kirameki-settings-" +
                std::to_string(::testing::UnitTest::GetInstance()->random_seed()) +
                ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::create_directories(dir_);
    }
    void TearDown() override { fs::remove_all(dir_); }
    std::string Path(const char* name) const { return (dir_ / name).string(); }
    static std::vector<char> Bytes(const std::string& path) {
        std::ifstream in(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    fs::path dir_;
};

TEST_F(SettingsFile, AFirstStartGetsTheDefaults) {
    AppSettings s;
    LoadSettings(Path("missing.ini"), s, kFolders);
    EXPECT_EQ(s.stone, 0);
    EXPECT_EQ(s.model, 0);
    EXPECT_EQ(s.refractiveIndex, 2.42);
    EXPECT_EQ(s.polygonColour, 1);
    EXPECT_EQ(s.imageSize, 270);
    EXPECT_EQ(s.captureFrames, 128);
    EXPECT_EQ(s.recursionDepth, 8);
    EXPECT_EQ(s.mainLightVolume + s.backLightVolume + s.fillLightVolume, 300);
    EXPECT_EQ(s.showTitleWindow, 1);
    EXPECT_EQ(s.ObjectWiseMode + s.IncrementalViewMode, 0);
    EXPECT_EQ(PathText(s.captureFolder), kFolders.captures);
    EXPECT_EQ(s.modelParameters[11], 87);
}

TEST_F(SettingsFile, WrittenAndReadBackGivesTheSame729Bytes) {
    AppSettings s;
    LoadDefaults(s, kFolders);
    s.backColour = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, -12};
    s.reserved2 = 77;
    s.trim = {1, 2, 3, 4, 1, 9};
    SetPath(s.screenShotFolder, "/home/u/宝石/ScreenShots/");
    std::string error;
    ASSERT_TRUE(SaveSettings(Path("Setting.ini"), s, error)) << error;
    const std::vector<char> first = Bytes(Path("Setting.ini"));
    ASSERT_EQ(first.size(), 729u);
    AppSettings back;
    LoadSettings(Path("Setting.ini"), back, kFolders);
    EXPECT_EQ(PathText(back.screenShotFolder), "/home/u/宝石/ScreenShots/");
    EXPECT_EQ(back.backColour[11], -12);
    ASSERT_TRUE(SaveSettings(Path("Setting.ini"), back, error)) << error;
    EXPECT_EQ(Bytes(Path("Setting.ini")), first);
    // Spot checks of the layout: the capture folder at 309, the image size at 653.
    EXPECT_EQ(std::string(&first[309]), kFolders.captures);
    std::int32_t imageSize = 0;
    std::memcpy(&imageSize, &first[653], 4);
    EXPECT_EQ(imageSize, 270);
}

TEST_F(SettingsFile, AShortFileLoadsWhatItHoldsAndLeavesTheRestZero) {
    AppSettings full;
    LoadDefaults(full, kFolders);
    std::string longFolder(200, 'a');
    SetPath(full.screenShotFolder, longFolder);
    const auto bytes = SettingsBytes(full);
    {
        std::ofstream out(Path("short.ini"), std::ios::binary);
        out.write(reinterpret_cast<const char*>(bytes.data()), 100);
    }
    AppSettings s;  // zero at start, as the program starts
    LoadSettings(Path("short.ini"), s, kFolders);
    EXPECT_EQ(s.polygonColour, 1);
    EXPECT_EQ(s.refractiveIndex, 2.42);
    EXPECT_EQ(s.targetPicture, 1);  // field 11 is the last whole one
    EXPECT_EQ(PathText(s.screenShotFolder), std::string(55, 'a'));
    EXPECT_EQ(s.writePositionInfo, 0);
    EXPECT_EQ(PathText(s.captureFolder), "");
    EXPECT_EQ(s.imageSize, 0);
    EXPECT_EQ(s.modelParameters[11], 0);
}

TEST_F(SettingsFile, AFailedSaveKeepsTheOldFileAndLeavesNoLitter) {
    AppSettings s;
    LoadDefaults(s, kFolders);
    std::string error;
    ASSERT_TRUE(SaveSettings(Path("Setting.ini"), s, error));
    const std::vector<char> before = Bytes(Path("Setting.ini"));
    EXPECT_FALSE(SaveSettings(Path("no-such-folder/Setting.ini"), s, error));
    EXPECT_NE(error.find("no-such-folder"), std::string::npos);
    EXPECT_EQ(Bytes(Path("Setting.ini")), before);
    int files = 0;
    for ([[maybe_unused]] const auto& entry : fs::directory_iterator(dir_))
        ++files;
    EXPECT_EQ(files, 1);
}

TEST(SettingsPaths, APathTooLongForItsBufferIsStoredEmptyNotCut) {
    // A cut path would name a folder that does not exist; empty means the default folder.
    PathBuffer buffer;
    std::string text;
    for (int i = 0; i < 100; ++i)
        text += "宝";  // three bytes each
    SetPath(buffer, text);
    EXPECT_EQ(PathText(buffer), "");
    const std::string fits(259, 'a');
    SetPath(buffer, fits);
    EXPECT_EQ(PathText(buffer), fits);
}

TEST_F(SettingsFile, AFileThatIsThereButCannotBeReadIsAnErrorAndNeverBlocks) {
    // A FIFO would block a plain read for ever; a folder is not a settings file.
    ASSERT_EQ(mkfifo(Path("fifo.ini").c_str(), 0600), 0);
    fs::create_directories(Path("folder.ini"));
    for (const char* name : {"fifo.ini", "folder.ini"}) {
        AppSettings s;
        const SettingsLoad load = LoadSettings(Path(name), s, kFolders);
        EXPECT_FALSE(load.fromFile) << name;
        EXPECT_NE(load.error.find(name), std::string::npos) << load.error;
        EXPECT_EQ(s.imageSize, 270) << name;  // the defaults stand in
    }
    AppSettings s;
    const SettingsLoad missing = LoadSettings(Path("none.ini"), s, kFolders);
    EXPECT_FALSE(missing.fromFile);
    EXPECT_EQ(missing.error, "");
}

}  // namespace
}  // namespace kirameki
