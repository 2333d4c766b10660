#include "output/companion_settings.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <string_view>

#include "output/atomic_file.h"
#include "output/file_reading.h"

namespace kirameki {

namespace {

constexpr std::string_view kDesignSection = "Design";
constexpr std::string_view kLightingSection = "Lighting";
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

void TakeLightingKey(std::string_view key, const std::string& value, CompanionSettings& settings) {
    int number = 0;
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
    const bool whole = error == std::errc() && end == value.data() + value.size();
    if (key == "Model" &&
        (value == "classic" || value == "iso" || value == "cos" || value == "aset"))
        settings.lighting = value;
    else if (key == "HeadShadow" && whole && number >= 0 && number <= 45)
        settings.headShadow = number;
    else if (key == "SpectralFire" && whole && (number == 0 || (number >= 4 && number <= 32)))
        settings.spectralFire = number;
    else if (key == "LiveRayTrace" && (value == "0" || value == "1"))
        settings.liveRayTrace = value == "1";
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
    enum class Section { kNone, kDesign, kLighting, kOther } section = Section::kNone;
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
            const std::string_view name = trimmed.substr(1, trimmed.size() - 2);
            section = name == kDesignSection     ? Section::kDesign
                      : name == kLightingSection ? Section::kLighting
                                                 : Section::kOther;
            if (section != Section::kOther)
                continue;
        }
        if (section == Section::kOther)
            settings.otherLines.push_back(line);
        if (section == Section::kNone || section == Section::kOther)
            continue;  // lines before any section belong to none: damage, dropped
        const auto equals = line.find('=');
        if (equals == std::string::npos)
            continue;  // a damaged line is dropped, the rest still counts
        const std::string_view key = Trimmed(std::string_view(line).substr(0, equals));
        if (section == Section::kDesign)
            TakeDesignKey(key, line.substr(equals + 1), settings, recent);
        else
            TakeLightingKey(key, line.substr(equals + 1), settings);
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
    text += "\n[" + std::string(kLightingSection) + "]\nModel=" + settings.lighting +
            "\nHeadShadow=" + std::to_string(settings.headShadow) +
            "\nSpectralFire=" + std::to_string(settings.spectralFire) +
            "\nLiveRayTrace=" + (settings.liveRayTrace ? "1" : "0") + "\n";
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
