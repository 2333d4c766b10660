#include "scene/batch_plan.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>

namespace kirameki {
namespace {

namespace fs = std::filesystem;

class BatchPlan : public ::testing::Test {
  protected:
    void SetUp() override {
        root_ = fs::temp_directory_path() /
                ("batch_plan_" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) +
                 "_" + ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(root_);
        fs::create_directories(root_ / "library" / "ovals");
    }
    void TearDown() override { fs::remove_all(root_); }
    void Touch(const fs::path& path) { std::ofstream(root_ / path) << "GemCad 5.0\n"; }

    fs::path root_;
};

TEST_F(BatchPlan, AFolderListsItsDesignsInNameOrderAndAListKeepsItsOwn) {
    Touch("library/round.asc");
    Touch("library/ovals/round.ASC");  // same file name, another folder
    Touch("library/notes.txt");
    std::vector<BatchItem> items;
    std::string error;
    ASSERT_TRUE(ListBatchDesigns((root_ / "library").string(), items, error)) << error;
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(items[0].name, "ovals/round.ASC");
    EXPECT_EQ(items[1].name, "round.asc");

    std::ofstream(root_ / "list.txt") << "# my designs\r\n\r\n  library/round.asc\r\n"
                                      << (root_ / "library/ovals/round.ASC").string() << "\n";
    ASSERT_TRUE(ListBatchDesigns((root_ / "list.txt").string(), items, error)) << error;
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(items[0].design, (root_ / "library/round.asc").string());
    EXPECT_TRUE(fs::exists(items[1].design));

    AssignResultFolders(items, "out");
    EXPECT_NE(items[0].folder, items[1].folder);
    EXPECT_EQ(fs::path(items[0].folder).parent_path(), "out");

    std::ofstream(root_ / "empty.txt") << "# nothing yet\n";
    EXPECT_FALSE(ListBatchDesigns((root_ / "empty.txt").string(), items, error));
    EXPECT_FALSE(ListBatchDesigns((root_ / "missing").string(), items, error));
    EXPECT_NE(error.find("missing"), std::string::npos);
}

TEST_F(BatchPlan, TheShardsOfASplitHoldEveryDesignOnce) {
    std::vector<BatchItem> items;
    for (int i = 0; i < 23; ++i)
        items.push_back({"d" + std::to_string(i) + ".asc", "d" + std::to_string(i) + ".asc", ""});
    for (const int count : {1, 2, 5, 23, 40}) {
        std::multiset<std::string> seen;
        for (int index = 0; index < count; ++index)
            for (const BatchItem& item : ShardItems(items, {index, count}))
                seen.insert(item.name);
        EXPECT_EQ(seen.size(), items.size()) << count;
        EXPECT_EQ(std::set<std::string>(seen.begin(), seen.end()).size(), items.size());
    }
    EXPECT_EQ(ParseShard("3/4")->index, 3);
    for (const char* bad : {"4/4", "0/0", "-1/2", "1", "/2", "1/", "a/b", "1/2/3", "9999999/1"})
        EXPECT_FALSE(ParseShard(bad)) << bad;
}

TEST_F(BatchPlan, ADesignIsDoneOnlyWhenItsResultFileIsThere) {
    std::vector<BatchItem> items = {{"a.asc", "a.asc", ""}};
    AssignResultFolders(items, (root_ / "out").string());
    EXPECT_EQ(StateOf(items[0]), BatchItemState::kNew);
    fs::create_directories(items[0].folder);
    EXPECT_EQ(StateOf(items[0]), BatchItemState::kBegun);
    std::ofstream(BatchResultFile(items[0])) << "{}";
    EXPECT_EQ(StateOf(items[0]), BatchItemState::kDone);
}

}  // namespace
}  // namespace kirameki
