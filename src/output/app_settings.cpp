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

namespace kirameki {

static_assert(std::endian::native == std::endian::little,
              "the settings file is little-endian and read by copying bytes");

namespace {

// Visits every stored field in file order with its address and width.
template <typename Settings, typename Visit>
void ForEachField(Settings& s, Visit visit) {
    visit(&s.polygonColour, 4);
    visit(&s.stone, 4);
    visit(&s.model, 4);
    visit(&s.stoneColour, 4);
    visit(&s.refractiveIndex, 8);
    visit(&s.reserved1, 4);
    visit(&s.showTitleWindow, 4);
    visit(&s.renderWindowTopMost, 4);
    visit(&s.rotationSpeed, 4);
    visit(&s.recursionDepth, 4);
    visit(&s.targetPicture, 1);
    visit(s.screenShotFolder.data(), kPathBufferSize);
    visit(&s.screenShotOption, 4);
    visit(s.captureFolder.data(), kPathBufferSize);
    visit(&s.captureFrames, 4);
    visit(&s.gifOption1, 4);
    visit(&s.gifOption2, 4);
    visit(&s.ObjectWiseMode, 4);
    visit(&s.IncrementalViewMode, 4);
    visit(&s.option4, 4);
    visit(&s.option5, 4);
    visit(&s.option6, 4);
    visit(&s.option7, 4);
    visit(s.backColour.data(), 24);
    visit(&s.reserved2, 4);
    visit(&s.mainLightVolume, 4);
    visit(&s.backLightVolume, 4);
    visit(&s.fillLightVolume, 4);
    visit(&s.lightOption, 4);
    visit(&s.separateRenderWindow, 4);
    visit(&s.imageSize, 4);
    visit(s.trimming.data(), 24);
    visit(s.modelParameters.data(), 48);
}

}  // namespace

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
    s.screenShotOption = 1;
    SetPath(s.captureFolder, folders.captures);
    s.captureFrames = 128;
    s.gifOption1 = 4;
    s.gifOption2 = 0;
    s.ObjectWiseMode = 0;
    s.IncrementalViewMode = 0;
    s.option4 = 0;
    s.option5 = 1;
    s.option6 = 1;
    s.option7 = 1;
    s.backColour.fill(0);
    // reserved2 is not part of the defaults and keeps its value.
    s.mainLightVolume = s.backLightVolume = s.fillLightVolume = 100;
    s.lightOption = 0;
    s.separateRenderWindow = 0;
    s.imageSize = 270;
    s.trimming.fill(0);
    s.modelParameters = kDefaultModelParameters;
}

void ReadSettingsBytes(const std::uint8_t* bytes, std::size_t size, AppSettings& settings) {
    FieldReader reader(bytes, size);
    ForEachField(settings, [&](void* field, std::size_t width) { reader(field, width); });
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
    ForEachField(settings, [&](const void* field, std::size_t width) { writer(field, width); });
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
