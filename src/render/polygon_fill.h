#pragma once

#include <cstdint>

#include "render/frame_image.h"
#include "render/preview_geometry.h"

namespace kirameki {

// Fills a convex polygon, its edges included, as a pen and brush of one colour would.
void FillConvexPolygon(FrameImage& image, const ScreenPoint* points, int count, std::uint32_t rgb);

// Paints a whole preview (background first) into the image.
void PaintPreview(FrameImage& image, const PreviewPolygons& preview, std::uint32_t background);

}  // namespace kirameki
