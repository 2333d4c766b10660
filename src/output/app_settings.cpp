#include "output/app_settings.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <iterator>
#include <vector>

#include "model/stone_tables.h"
#include "output/atomic_file.h"
#include "output/binary_fields.h"
#include "output/file_reading.h"
#include "output/settings_layout.h"

namespace kirameki {

static_assert(std::endian::native == std::endian::little,
              "the settings file is little-endian and read by copying bytes");

void LoadDefaults(AppSettings& s, const DefaultFolders& folders) {
    const StoneRecord& diamond = Stones()[0];
    s.polygonColour = 1;
    s.stone = 0;
    s.model = diamond.defaultCut;
    s.stoneColour = diamond.defaultColour;
    s.refractiveIndex = diamond.index100 / 100.0;
    s.reserved1 = 0;
    s.showTitleWindow = 1;
    s.renderWindowTopMost = 1;
    s.rotationSpeed = 50;
    s.recursionDepth = 8;
    s.targetPicture = 1;
    SetPath(s.screenShotFolder, folders.screenShots);
    s.writePositionInfo = 1;
    SetPath(s.captureFolder, folders.captures);
    s.captureFrames = 128;
    s.gifTimeWeight = 4;
    s.gifDirection = 0;
    s.ObjectWiseMode = 0;
    s.IncrementalViewMode = 0;
    s.highQuality = 0;
    s.fire = 1;
    s.showTrimmingFrame = 1;
    s.rowByRow = 1;
    s.backColour.fill(0);
    // reserved2 is not part of the defaults and keeps its value.
    s.mainLightVolume = s.backLightVolume = s.fillLightVolume = 100;
    s.narrowMainLight = 0;
    s.separateRenderWindow = 0;
    s.imageSize = 270;
    s.trim = {};
    s.modelParameters = kDefaultModelParameters;
}

void ReadSettingsBytes(const std::uint8_t* bytes, std::size_t size, AppSettings& settings) {
    FieldReader reader(bytes, size);
    ForEachSettingsField(settings, [&](const char*, auto& field) { reader(&field, sizeof field); });
}

SettingsLoad LoadSettings(const std::string& path, AppSettings& settings,
                          const DefaultFolders& folders) {
    const FileBytes file = ReadRegularFile(path, kSettingsFileSize);
    SettingsLoad load;
    if (file.outcome != FileBytes::Outcome::kRead) {
        LoadDefaults(settings, folders);
        if (file.outcome == FileBytes::Outcome::kFailed)
            load.error = "Cannot read " + path + ": " + file.error;
        return load;
    }
    ReadSettingsBytes(file.bytes.data(), file.bytes.size(), settings);
    load.fromFile = true;
    return load;
}

std::array<std::uint8_t, kSettingsFileSize> SettingsBytes(const AppSettings& settings) {
    std::array<std::uint8_t, kSettingsFileSize> bytes{};
    std::vector<std::uint8_t> written;
    FieldWriter writer(written);
    ForEachSettingsField(settings,
                         [&](const char*, const auto& field) { writer(&field, sizeof field); });
    std::copy(written.begin(), written.end(), bytes.begin());
    return bytes;
}

bool SaveSettings(const std::string& path, const AppSettings& settings, std::string& error) {
    const auto bytes = SettingsBytes(settings);
    return WriteFileAtomically(
        path,
        [&](std::FILE* file) {
            return std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
        },
        error);
}

std::string PathText(const PathBuffer& buffer) {
    const auto end = std::find(buffer.begin(), buffer.end(), '\0');
    return std::string(buffer.begin(), end);
}

void SetPath(PathBuffer& buffer, const std::string& text) {
    buffer.fill('\0');
    // The buffer keeps a terminating zero.
    if (text.size() < buffer.size())
        std::copy(text.begin(), text.end(), buffer.begin());
}

}  // namespace kirameki
