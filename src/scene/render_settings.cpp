#include "scene/render_settings.h"

#include <algorithm>

#include "model/stone_dispersion.h"
#include "model/stone_tables.h"

namespace kirameki {

RenderParameters RenderParametersFor(const AppSettings& s) {
    RenderParameters p;
    p.stoneColour = Colours()[s.stoneColour].absorption;
    p.stoneIndex = s.refractiveIndex;
    p.fireSpread = Stones()[s.stone].coefficient;
    p.depth = std::clamp(s.recursionDepth, 1, 20);
    p.highQuality = s.highQuality != 0;
    p.fire = s.fire != 0;
    p.backColour = {s.backColour[0], s.backColour[1], s.backColour[2]};
    p.lightVolumes = {std::clamp(s.mainLightVolume, 0, 200), std::clamp(s.backLightVolume, 0, 200),
                      std::clamp(s.fillLightVolume, 0, 200)};
    p.narrowMainLight = s.narrowMainLight;
    p.dispersion = KnownDispersion(s.stone).value_or(kDefaultDispersion);
    return p;
}

std::uint32_t BackgroundColourOf(const AppSettings& s) {
    return PackRgb(std::clamp<int>(s.backColour[0], 0, 255),
                   std::clamp<int>(s.backColour[1], 0, 255),
                   std::clamp<int>(s.backColour[2], 0, 255));
}

RenderGeometry GeometryFor(const AppSettings& s) {
    return {s.imageSize, ScaleForSize(s.imageSize)};
}

}  // namespace kirameki
