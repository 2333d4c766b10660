#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "model/model_parameters.h"

namespace kirameki {

constexpr int kPathBufferSize = 260;
constexpr int kSettingsFileSize = 729;

using PathBuffer = std::array<char, kPathBufferSize>;

// The trimming of saved pictures: margins cut from each side (pixels) when on.
struct Trim {
    std::int32_t top = 0;
    std::int32_t bottom = 0;
    std::int32_t left = 0;
    std::int32_t right = 0;
    std::int32_t on = 0;
    std::int32_t lastSetting = 0;  // stored and restored as it stands

    std::array<std::int32_t, 4> Margins() const { return {top, bottom, left, right}; }
    bool operator==(const Trim&) const = default;
};

// Every persistent setting of the 729-byte settings file; the file's order and widths are
// kept in one place, ForEachSettingsField in settings_layout.h. The file is raw
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
    std::int32_t rotationSpeed = 0;  // the wait of each turning step, milliseconds
    std::int32_t recursionDepth = 0;
    std::uint8_t targetPicture = 0;  // draw the view-point target pictures
    PathBuffer screenShotFolder{};
    std::int32_t writePositionInfo = 0;  // write the Position-Info file beside a shot
    PathBuffer captureFolder{};
    std::int32_t captureFrames = 0;
    std::int32_t captureArgument = 0;  // the running capture's argument; not stored
    std::int32_t gifTimeWeight = 0;    // hundredths of a second each animation frame shows
    std::int32_t gifDirection = 0;     // 0 anticlockwise, 1 clockwise
    std::int32_t ObjectWiseMode = 0;
    std::int32_t IncrementalViewMode = 0;
    std::int32_t highQuality = 0;               // the "HQ" toggle: render at twice the size
    std::int32_t fire = 0;                      // the "Fire" check box: dispersion
    std::int32_t showTrimmingFrame = 0;         // outline the trimmed picture over the preview
    std::int32_t rowByRow = 0;                  // show the picture row by row while rendering
    std::array<std::int16_t, 12> backColour{};  // 0..2: red, green, blue of the back colour
    std::int32_t reserved2 = 0;
    std::int32_t mainLightVolume = 0;
    std::int32_t backLightVolume = 0;
    std::int32_t fillLightVolume = 0;
    std::int32_t narrowMainLight = 0;
    std::int32_t separateRenderWindow = 0;
    std::int32_t imageSize = 0;
    Trim trim;
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
