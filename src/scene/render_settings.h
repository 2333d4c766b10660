#pragma once

#include <cstdint>

#include "output/app_settings.h"
#include "render/frame_renderer.h"

namespace kirameki {

// The render parameters the settings give: the colour's absorption, the index, the stone's
// fire spread, depth, high quality, fire, back colour, light volumes (kept within 0..200)
// and the narrow main light. The stone and colour must be in their tables (SceneProblem).
RenderParameters RenderParametersFor(const AppSettings& settings);

// The back colour packed red | green << 8 | blue << 16, each kept within a byte.
std::uint32_t BackgroundColourOf(const AppSettings& settings);

// The picture's size and the pixel scale of the stone in it.
RenderGeometry GeometryFor(const AppSettings& settings);

}  // namespace kirameki
