#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace kirameki {

// What the fixed 729-byte settings file cannot hold, in a small INI text file beside it:
// the open design and the designs opened last. Sections and keys this program does not
// know are kept as they were, so that a newer version's additions survive an older one.
struct CompanionSettings {
    static constexpr std::size_t kRecentCount = 8;

    std::string openDesign;    // the design in the cut list at exit; empty: none
    bool designShown = false;  // whether it was the stone, rather than a cut of the list
    std::vector<std::string> recentDesigns;  // most recent first, at most kRecentCount
    std::vector<std::string> otherLines;     // sections of others, kept verbatim

    // Puts a path first in the recent list (once), dropping the oldest past the limit.
    void RememberDesign(const std::string& path);
    void ForgetDesign(const std::string& path);
};

// The companion file beside the settings file: same folder, "Kirameki.ini".
std::string CompanionSettingsPath(const std::string& settingsFile);

// Reads the file leniently: a missing, unreadable or damaged file gives what could be read
// (at worst nothing); it never fails.
CompanionSettings LoadCompanionSettings(const std::string& path);
CompanionSettings ParseCompanionSettings(const std::string& text);

std::string CompanionSettingsText(const CompanionSettings& settings);
// Written through a temporary file renamed into place; false with one line in error.
bool SaveCompanionSettings(const std::string& path, const CompanionSettings& settings,
                           std::string& error);

}  // namespace kirameki
