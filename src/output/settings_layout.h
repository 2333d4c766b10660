#pragma once

#include <cstddef>

#include "output/app_settings.h"

namespace kirameki {

// The settings file's one table: every stored field in file order with the name it goes by
// (in `kirameki-cli settings --dump`). Each field's width is its size, and its offset the
// sum of the widths before it. The reader, the writer and the dump all walk this list.
template <typename Settings, typename Visit>
constexpr void ForEachSettingsField(Settings& s, Visit&& visit) {
    visit("polygonColour", s.polygonColour);
    visit("stone", s.stone);
    visit("model", s.model);
    visit("stoneColour", s.stoneColour);
    visit("refractiveIndex", s.refractiveIndex);
    visit("reserved1", s.reserved1);
    visit("showTitleWindow", s.showTitleWindow);
    visit("renderWindowTopMost", s.renderWindowTopMost);
    visit("rotationSpeed", s.rotationSpeed);
    visit("recursionDepth", s.recursionDepth);
    visit("targetPicture", s.targetPicture);
    visit("screenShotFolder", s.screenShotFolder);
    visit("writePositionInfo", s.writePositionInfo);
    visit("captureFolder", s.captureFolder);
    visit("captureFrames", s.captureFrames);
    visit("gifTimeWeight", s.gifTimeWeight);
    visit("gifDirection", s.gifDirection);
    visit("ObjectWiseMode", s.ObjectWiseMode);
    visit("IncrementalViewMode", s.IncrementalViewMode);
    visit("highQuality", s.highQuality);
    visit("fire", s.fire);
    visit("showTrimmingFrame", s.showTrimmingFrame);
    visit("rowByRow", s.rowByRow);
    visit("backColour", s.backColour);
    visit("reserved2", s.reserved2);
    visit("mainLightVolume", s.mainLightVolume);
    visit("backLightVolume", s.backLightVolume);
    visit("fillLightVolume", s.fillLightVolume);
    visit("narrowMainLight", s.narrowMainLight);
    visit("separateRenderWindow", s.separateRenderWindow);
    visit("imageSize", s.imageSize);
    visit("trimming", s.trim);
    visit("modelParameters", s.modelParameters);
}

static_assert(sizeof(Trim) == 24 && sizeof(PathBuffer) == 260, "fields are stored as they lie");

// The offset of the named field in the file; the file's size for a name it does not hold.
constexpr std::size_t SettingsFieldOffset(const char* name) {
    AppSettings settings{};
    std::size_t offset = 0;
    bool found = false;
    ForEachSettingsField(settings, [&](const char* field, const auto& value) {
        bool same = !found;
        for (std::size_t i = 0; same && (field[i] != '\0' || name[i] != '\0'); ++i)
            same = field[i] == name[i];
        found = found || same;
        if (!found)
            offset += sizeof value;
    });
    return offset;
}

static_assert(SettingsFieldOffset("") == kSettingsFileSize, "the settings file is 729 bytes");
static_assert(SettingsFieldOffset("captureFolder") == 309);
static_assert(SettingsFieldOffset("imageSize") == 653);

}  // namespace kirameki
