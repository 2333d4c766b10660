#include "output/atomic_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <iterator>

namespace kirameki {
namespace {

namespace fs = std::filesystem;

class AtomicFile : public ::testing::Test {
  protected:
    void SetUp() override {
        folder_ = fs::temp_directory_path() /
                  ("kirameki-atomic-" + std::to_string(getpid()) + "-" +
                   ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(folder_);
        fs::create_directories(folder_);
    }
    void TearDown() override { fs::remove_all(folder_); }

    std::string Path(const std::string& name) const { return (folder_ / name).string(); }
    static bool Write(const std::string& path, const std::string& text, std::string& error) {
        return WriteFileAtomically(
            path, [&](std::FILE* file) { return std::fputs(text.c_str(), file) >= 0; }, error);
    }
    static std::string Text(const std::string& path) {
        std::string text;
        if (std::FILE* file = std::fopen(path.c_str(), "rb")) {
            char buffer[256];
            std::size_t n = 0;
            while ((n = std::fread(buffer, 1, sizeof buffer, file)) > 0)
                text.append(buffer, n);
            std::fclose(file);
        }
        return text;
    }
    static mode_t Mode(const std::string& path) {
        struct stat status {};
        return stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
    }
    // The names in the folder: no temporary may be left behind.
    std::size_t Entries() const {
        return std::size_t(std::distance(fs::directory_iterator(folder_), {}));
    }

    fs::path folder_;
};

TEST_F(AtomicFile, WritesThroughSymbolicLinks) {
    fs::create_directories(folder_ / "real");
    std::string error;
    ASSERT_TRUE(Write(Path("real/file.txt"), "old", error)) << error;
    fs::create_symlink("real/file.txt", folder_ / "relative");  // relative to the link's folder
    fs::create_symlink(folder_ / "relative", folder_ / "chain");
    ASSERT_TRUE(Write(Path("chain"), "new", error)) << error;
    EXPECT_TRUE(fs::is_symlink(folder_ / "chain"));
    EXPECT_TRUE(fs::is_symlink(folder_ / "relative"));
    EXPECT_EQ(Text(Path("real/file.txt")), "new");
    EXPECT_EQ(Entries(), 3u);

    // A dangling link makes the file it names; a loop is refused.
    fs::create_symlink("made.txt", folder_ / "dangling");
    ASSERT_TRUE(Write(Path("dangling"), "made", error)) << error;
    EXPECT_TRUE(fs::is_symlink(folder_ / "dangling"));
    EXPECT_EQ(Text(Path("made.txt")), "made");
    fs::create_symlink("loop2", folder_ / "loop1");
    fs::create_symlink("loop1", folder_ / "loop2");
    EXPECT_FALSE(Write(Path("loop1"), "x", error));
    EXPECT_NE(error.find("loop1"), std::string::npos) << error;
}

TEST_F(AtomicFile, RefusesWhatIsNotARegularFileAndTouchesNothing) {
    fs::create_directories(folder_ / "folder");
    ASSERT_EQ(mkfifo(Path("fifo").c_str(), 0600), 0);
    fs::create_symlink("folder", folder_ / "link-to-folder");
    std::vector<std::pair<std::string, std::string>> refused = {
        {"folder", "folder"}, {"fifo", "FIFO"}, {"link-to-folder", "folder"}};
    // A device of our own (the null device's numbers) where root may make one.
    if (mknod(Path("device").c_str(), S_IFCHR | 0600, makedev(1, 3)) == 0)
        refused.push_back({"device", "device"});
    const std::size_t before = Entries();
    for (const auto& [name, what] : refused) {
        std::string error;
        EXPECT_FALSE(Write(Path(name), "x", error)) << name;
        EXPECT_NE(error.find(what), std::string::npos) << error;
        EXPECT_NE(error.find(name), std::string::npos) << error;
    }
    EXPECT_EQ(Entries(), before);
    EXPECT_TRUE(fs::is_directory(folder_ / "folder"));
    EXPECT_TRUE(fs::is_fifo(folder_ / "fifo"));
    EXPECT_TRUE(fs::is_symlink(folder_ / "link-to-folder"));
    if (fs::exists(folder_ / "device")) {
        EXPECT_TRUE(fs::is_character_file(folder_ / "device"));
    }
}

TEST_F(AtomicFile, KeepsTheModeOfAReplacedFileAndHonoursTheUmaskForANewOne) {
    std::string error;
    const mode_t saved = umask(027);
    const bool made = Write(Path("new.txt"), "a", error);
    umask(077);
    const bool madePrivate = Write(Path("private.txt"), "a", error);
    umask(saved);
    ASSERT_TRUE(made && madePrivate) << error;
    EXPECT_EQ(Mode(Path("new.txt")), 0640u);
    EXPECT_EQ(Mode(Path("private.txt")), 0600u);

    for (const mode_t mode : {0600u, 0755u, 0444u}) {
        ASSERT_EQ(chmod(Path("new.txt").c_str(), mode), 0);
        ASSERT_TRUE(Write(Path("new.txt"), "b", error)) << error;
        EXPECT_EQ(Mode(Path("new.txt")), mode);
        EXPECT_EQ(Text(Path("new.txt")), "b");
    }
    EXPECT_EQ(Entries(), 2u);
}

}  // namespace
}  // namespace kirameki
