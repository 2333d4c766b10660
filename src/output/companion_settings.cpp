#include "output/companion_settings.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

#include "output/atomic_file.h"
#include "output/file_reading.h"

namespace kirameki {

namespace {

constexpr std::string_view kDesignSection = "Design";
// A companion file is a few lines; anything much larger is not one of ours.
constexpr std::size_t kLargestCompanion = 256u << 10;

std::string_view Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    const auto last = text.find_last_not_of(" \t");
    return text.substr(first, last - first + 1);
}

// A value is the rest of its line: a path that holds a line break or a NUL cannot be one.
bool Storable(const std::string& value) {
    return !value.empty() &&
           value.find_first_of(std::string_view("\r\n\0", 3)) == std::string::npos;
}

void TakeDesignKey(std::string_view key, const std::string& value, CompanionSettings& settings,
                   std::vector<std::string>& recent) {
    if (key == "Open") {
        settings.openDesign = value;
    } else if (key == "Shown") {
        settings.designShown = value == "1";
    } else if (key.size() > 6 && key.substr(0, 6) == "Recent") {
        if (Storable(value))
            recent.push_back(value);
    }
}

}  // namespace

void CompanionSettings::RememberDesign(const std::string& path) {
    ForgetDesign(path);
    recentDesigns.insert(recentDesigns.begin(), path);
    if (recentDesigns.size() > kRecentCount)
        recentDesigns.resize(kRecentCount);
}

void CompanionSettings::ForgetDesign(const std::string& path) {
    recentDesigns.erase(std::remove(recentDesigns.begin(), recentDesigns.end(), path),
                        recentDesigns.end());
}

std::string CompanionSettingsPath(const std::string& settingsFile) {
    return (std::filesystem::path(settingsFile).parent_path() / "Kirameki.ini").string();
}

CompanionSettings ParseCompanionSettings(const std::string& text) {
    CompanionSettings settings;
    std::vector<std::string> recent;
    enum class Section { kNone, kDesign, kOther } section = Section::kNone;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string::npos)
            end = text.size();
        std::string line = text.substr(start, end - start);
        start = end + 1;
        while (!line.empty() && line.back() == '\r')
            line.pop_back();
        const std::string_view trimmed = Trimmed(line);
        if (!trimmed.empty() && trimmed.front() == '[' && trimmed.back() == ']') {
            section = trimmed.substr(1, trimmed.size() - 2) == kDesignSection ? Section::kDesign
                                                                              : Section::kOther;
            if (section == Section::kDesign)
                continue;
        }
        if (section == Section::kOther)
            settings.otherLines.push_back(line);
        if (section != Section::kDesign)
            continue;  // lines before any section belong to none: damage, dropped
        const auto equals = line.find('=');
        if (equals == std::string::npos)
            continue;  // a damaged line is dropped, the rest still counts
        TakeDesignKey(Trimmed(std::string_view(line).substr(0, equals)), line.substr(equals + 1),
                      settings, recent);
    }
    if (!Storable(settings.openDesign)) {
        settings.openDesign.clear();
        settings.designShown = false;
    }
    for (const std::string& path : recent)
        if (settings.recentDesigns.size() < CompanionSettings::kRecentCount &&
            std::find(settings.recentDesigns.begin(), settings.recentDesigns.end(), path) ==
                settings.recentDesigns.end())
            settings.recentDesigns.push_back(path);
    while (!settings.otherLines.empty() && Trimmed(settings.otherLines.back()).empty())
        settings.otherLines.pop_back();
    return settings;
}

CompanionSettings LoadCompanionSettings(const std::string& path) {
    const FileBytes file = ReadRegularFile(path, kLargestCompanion);
    if (file.outcome != FileBytes::Outcome::kRead || file.longer)
        return {};
    return ParseCompanionSettings(std::string(file.bytes.begin(), file.bytes.end()));
}

std::string CompanionSettingsText(const CompanionSettings& settings) {
    std::string text = "[Design]\n";
    if (Storable(settings.openDesign)) {
        text += "Open=" + settings.openDesign + "\n";
        text += std::string("Shown=") + (settings.designShown ? "1" : "0") + "\n";
    }
    int n = 0;
    for (const std::string& path : settings.recentDesigns)
        if (Storable(path) && n < int(CompanionSettings::kRecentCount))
            text += "Recent" + std::to_string(++n) + "=" + path + "\n";
    if (!settings.otherLines.empty())
        text += "\n";
    for (const std::string& line : settings.otherLines)
        text += line + "\n";
    return text;
}

bool SaveCompanionSettings(const std::string& path, const CompanionSettings& settings,
                           std::string& error) {
    const std::string text = CompanionSettingsText(settings);
    return WriteFileAtomically(
        path,
        [&](std::FILE* file) {
            return std::fwrite(text.data(), 1, text.size(), file) == text.size();
        },
        error);
}

}  // namespace kirameki
