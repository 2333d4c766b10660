// Any bytes as the companion settings file: reading never crashes, keeps at most eight recent
// designs, and what it writes back reads to the same text again.
#include <cstdint>
#include <string>

#include "output/companion_settings.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kirameki;
    const CompanionSettings read =
        ParseCompanionSettings(std::string(reinterpret_cast<const char*>(data), size));
    if (read.recentDesigns.size() > CompanionSettings::kRecentCount)
        __builtin_trap();
    const std::string text = CompanionSettingsText(read);
    if (CompanionSettingsText(ParseCompanionSettings(text)) != text)
        __builtin_trap();
    return 0;
}
