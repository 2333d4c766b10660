// Any bytes as a settings file: loading never crashes or reads outside the record, and the
// record always writes back as 729 bytes that load to the same record.
#include <cstdint>
#include <cstring>

#include "output/app_settings.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    kirameki::AppSettings settings;
    kirameki::ReadSettingsBytes(data, size, settings);
    const auto bytes = kirameki::SettingsBytes(settings);
    kirameki::AppSettings again;
    kirameki::ReadSettingsBytes(bytes.data(), bytes.size(), again);
    if (kirameki::SettingsBytes(again) != bytes)
        __builtin_trap();
    (void)kirameki::PathText(settings.screenShotFolder);
    (void)kirameki::PathText(settings.captureFolder);
    return 0;
}
