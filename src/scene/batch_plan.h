#pragma once

#include <optional>
#include <string>
#include <vector>

namespace kirameki {

// One design of a batch and the folder its results go to.
struct BatchItem {
    std::string design;  // the design's path, as opened
    std::string name;    // the design's path relative to the batch's source: stable anywhere
    std::string folder;  // its own result folder under the output folder
};

// One piece of a batch split n ways: the piece `index`, 0 to count - 1.
struct Shard {
    int index = 0;
    int count = 1;
};

// "i/n" with 0 <= i < n; nothing for anything else.
std::optional<Shard> ParseShard(const std::string& text);

// The designs of a source: a folder (every .asc file in it and its subfolders, in name
// order) or a list file (one path a line, blank lines and lines starting with # skipped,
// relative paths taken from the list's folder, in the list's order). False with one line in
// error when the source cannot be read or names nothing.
bool ListBatchDesigns(const std::string& source, std::vector<BatchItem>& items, std::string& error);

// The items of one shard: every count-th from index, so that each shard gets a share of
// every part of the list. The shards of one split hold every item exactly once.
std::vector<BatchItem> ShardItems(const std::vector<BatchItem>& items, const Shard& shard);

// Gives every item its result folder under outputFolder: the design's file name with a
// short hash of its name, so that designs of the same file name in different folders never
// share one and every shard on every machine picks the same folder.
void AssignResultFolders(std::vector<BatchItem>& items, const std::string& outputFolder);

// Where a design of a batch stands: results complete, a run begun and cut off, or nothing.
enum class BatchItemState { kNew, kBegun, kDone };

// The file whose presence says a design's results are complete; written last.
std::string BatchResultFile(const BatchItem& item);

BatchItemState StateOf(const BatchItem& item);

}  // namespace kirameki
