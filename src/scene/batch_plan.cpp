#include "scene/batch_plan.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace kirameki {

namespace fs = std::filesystem;

namespace {

bool IsDesignFile(const fs::path& path) {
    std::string extension = path.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return char(std::tolower(c)); });
    return extension == ".asc";
}

bool ListFolder(const fs::path& folder, std::vector<BatchItem>& items, std::string& error) {
    std::error_code code;
    fs::recursive_directory_iterator it(folder, fs::directory_options::skip_permission_denied,
                                        code);
    for (; !code && it != fs::recursive_directory_iterator(); it.increment(code)) {
        if (it->is_regular_file(code) && IsDesignFile(it->path()))
            items.push_back(
                {it->path().string(), it->path().lexically_relative(folder).generic_string(), ""});
    }
    if (code) {
        error = folder.string() + ": " + code.message();
        return false;
    }
    std::sort(items.begin(), items.end(),
              [](const BatchItem& a, const BatchItem& b) { return a.name < b.name; });
    return true;
}

bool ListFile(const fs::path& list, std::vector<BatchItem>& items, std::string& error) {
    std::ifstream in(list);
    if (!in) {
        error = list.string() + ": cannot be read";
        return false;
    }
    const fs::path base = list.parent_path();
    std::string line;
    while (std::getline(in, line)) {
        while (!line.empty() && (line.back() == '\r' || line.back() == ' ' || line.back() == '\t'))
            line.pop_back();
        const std::size_t start = line.find_first_not_of(" \t");
        if (start == std::string::npos || line[start] == '#')
            continue;
        const fs::path design = line.substr(start);
        const fs::path opened = design.is_absolute() ? design : base / design;
        items.push_back({opened.string(), design.lexically_normal().generic_string(), ""});
    }
    return true;
}

std::uint32_t Fnv1a(const std::string& text) {
    std::uint32_t hash = 2166136261u;
    for (const char c : text) {
        hash ^= static_cast<unsigned char>(c);
        hash *= 16777619u;
    }
    return hash;
}

}  // namespace

std::optional<Shard> ParseShard(const std::string& text) {
    const std::size_t slash = text.find('/');
    if (slash == std::string::npos || slash == 0 || slash + 1 == text.size())
        return std::nullopt;
    const std::string index = text.substr(0, slash), count = text.substr(slash + 1);
    const auto digits = [](const std::string& s) {
        return s.size() <= 6 &&
               std::all_of(s.begin(), s.end(), [](unsigned char c) { return std::isdigit(c); });
    };
    if (!digits(index) || !digits(count))
        return std::nullopt;
    const Shard shard{std::stoi(index), std::stoi(count)};
    if (shard.count < 1 || shard.index >= shard.count)
        return std::nullopt;
    return shard;
}

bool ListBatchDesigns(const std::string& source, std::vector<BatchItem>& items,
                      std::string& error) {
    items.clear();
    std::error_code code;
    const bool folder = fs::is_directory(source, code);
    if (!folder && !fs::is_regular_file(source, code)) {
        error = source + ": no such folder or list file";
        return false;
    }
    if (!(folder ? ListFolder(source, items, error) : ListFile(source, items, error)))
        return false;
    if (items.empty()) {
        error = source + (folder ? ": no .asc design in the folder" : ": the list names no design");
        return false;
    }
    return true;
}

std::vector<BatchItem> ShardItems(const std::vector<BatchItem>& items, const Shard& shard) {
    std::vector<BatchItem> piece;
    for (std::size_t i = std::size_t(shard.index); i < items.size(); i += std::size_t(shard.count))
        piece.push_back(items[i]);
    return piece;
}

void AssignResultFolders(std::vector<BatchItem>& items, const std::string& outputFolder) {
    for (BatchItem& item : items) {
        char hash[9];
        std::snprintf(hash, sizeof hash, "%08x", unsigned(Fnv1a(item.name)));
        item.folder =
            (fs::path(outputFolder) / (fs::path(item.name).stem().string() + "-" + hash)).string();
    }
}

std::string BatchResultFile(const BatchItem& item) {
    return (fs::path(item.folder) / "result.json").string();
}

BatchItemState StateOf(const BatchItem& item) {
    std::error_code code;
    if (fs::is_regular_file(BatchResultFile(item), code))
        return BatchItemState::kDone;
    return fs::exists(item.folder, code) ? BatchItemState::kBegun : BatchItemState::kNew;
}

}  // namespace kirameki
