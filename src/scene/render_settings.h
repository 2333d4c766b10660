#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "output/app_settings.h"
#include "output/companion_settings.h"
#include "render/frame_renderer.h"

namespace kirameki {

// The render parameters the settings give: the colour's absorption, the index, the stone's
// fire spread, depth, high quality, fire, back colour, light volumes (kept within 0..200)
// and the narrow main light. The stone and colour must be in their tables (SceneProblem).
RenderParameters RenderParametersFor(const AppSettings& settings);

// The light a picture is seen in beyond the settings file: the lighting model, the head's
// shadow and spectral fire (the viewer keeps them in its companion settings).
struct PictureLight {
    LightSetup light;
    int spectralSamples = 0;  // 0: the three fire samples as the settings say
};

// "classic", "iso", "cos" or "aset"; nothing for another name.
std::optional<LightingModel> LightingModelNamed(const std::string& name);

// The viewer's choices as a picture's light; a name it does not know is the classic light.
PictureLight PictureLightOf(const CompanionSettings& companion);

// The render parameters with the picture's light.
RenderParameters WithLight(RenderParameters parameters, const PictureLight& light);

// The back colour packed red | green << 8 | blue << 16, each kept within a byte.
std::uint32_t BackgroundColourOf(const AppSettings& settings);

// The picture's size and the pixel scale of the stone in it.
RenderGeometry GeometryFor(const AppSettings& settings);

}  // namespace kirameki
