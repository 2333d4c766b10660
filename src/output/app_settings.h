#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "model/model_parameters.h"

namespace kirameki {

constexpr int kPathBufferSize = 260;
constexpr int kSettingsFileSize = 729;

using PathBuffer = std::array<char, kPathBufferSize>;

// Every persistent setting, in the order of the 729-byte settings file. The file is raw
// little-endian binary: no header, no names, no checksum.
struct AppSettings {
    std::int32_t polygonColour = 0;
    std::int32_t stone = 0;
    std::int32_t model = 0;
    std::int32_t stoneColour = 0;
    double refractiveIndex = 0.0;
    std::int32_t reserved1 = 0;
    std::int32_t showTitleWindow = 0;
    std::int32_t renderWindowTopMost = 0;
    std::int32_t rotationSpeed = 0;
    std::int32_t recursionDepth = 0;
    std::uint8_t targetPicture = 0;
    PathBuffer screenShotFolder{};
    std::int32_t screenShotOption = 0;  // write the Position-Info file beside a shot
    PathBuffer captureFolder{};
    std::int32_t captureFrames = 0;
    std::int32_t captureArgument = 0;  // the running capture's argument; not stored
    std::int32_t gifOption1 = 0;       // animated GIF time weight
    std::int32_t gifOption2 = 0;       // animated GIF direction
    std::int32_t ObjectWiseMode = 0;
    std::int32_t IncrementalViewMode = 0;
    std::int32_t option4 = 0;  // the "HQ" toggle
    std::int32_t option5 = 0;  // the "Fire" check box
    std::int32_t option6 = 0;
    std::int32_t option7 = 0;
    std::array<std::int16_t, 12> backColour{};  // 0..2: red, green, blue of the back colour
    std::int32_t reserved2 = 0;
    std::int32_t mainLightVolume = 0;
    std::int32_t backLightVolume = 0;
    std::int32_t fillLightVolume = 0;
    std::int32_t lightOption = 0;  // narrow main light
    std::int32_t separateRenderWindow = 0;
    std::int32_t imageSize = 0;
    std::array<std::int32_t, 6> trimming{};  // top, bottom, left, right, on, last setting
    ModelParameters modelParameters{};
};

// The default folders are formed by the program (beside it or in the user's folders).
struct DefaultFolders {
    std::string screenShots;
    std::string captures;
};

void LoadDefaults(AppSettings& settings, const DefaultFolders& folders);

// Reads the file field by field. A short file fills only what it holds: later fields keep
// their values (zero in a fresh record), a field cut by the end keeps the bytes that were
// there. A missing file gives the defaults. So does a file that exists but cannot be read
// (no permission, not a regular file), and then error says why: such a file must not be
// written over, or the user's settings would be lost.
struct SettingsLoad {
    bool fromFile = false;
    std::string error;  // empty unless the file exists and could not be read
};
SettingsLoad LoadSettings(const std::string& path, AppSettings& settings,
                          const DefaultFolders& folders);

// Parses the file's bytes into the record; fields past the end are left alone.
void ReadSettingsBytes(const std::uint8_t* bytes, std::size_t size, AppSettings& settings);

// The 729 bytes of the record.
std::array<std::uint8_t, kSettingsFileSize> SettingsBytes(const AppSettings& settings);

// Writes through a temporary file renamed over the old one; false and error when it fails.
bool SaveSettings(const std::string& path, const AppSettings& settings, std::string& error);

// A folder path buffer as a string (up to its first zero byte) and back. A path that does not
// fit is stored empty, meaning the default folder: a cut path names a folder that does not
// exist.
std::string PathText(const PathBuffer& buffer);
void SetPath(PathBuffer& buffer, const std::string& text);

}  // namespace kirameki
