#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "output/indexed_image.h"
#include "render/frame_image.h"

namespace kirameki {

// Reduces the picture to a palette of at most 256 colours, chosen by libimagequant and refined
// by k-means, dithered so that the smooth gradients of a stone do not band. Colours that the
// palette holds exactly (the background) are drawn exactly. Answers false with one line in error
// when the picture is empty or the quantiser fails; out is then left empty.
bool ReduceTo256Colours(const FrameImage& image, IndexedImage& out, std::string& error);

// The background repair of every 256-colour picture: the quantiser may have moved the flat
// background to a neighbouring colour, so if the colour of pixel (0, 0) is not exactly the
// background colour, every palette entry of that colour becomes the background colour.
void RepairBackground(IndexedImage& image, std::uint32_t background);

// Reduces every channel to 5 bits ("16-bit HighColor"), rounding to the nearest of the 32
// levels, and stores each level expanded back to 8 bits as (v5 << 3) | (v5 >> 2), the
// expansion image readers use; so v >> 3 of a result is its 5-bit value.
void ReduceTo555(FrameImage& image);

// The rectangle starting at (left, top) of size (width - left - right) x
// (height - top - bottom). Negative margins count as 0; margins that would leave nothing are
// cut back (left and top first, then right and bottom) so that a non-empty picture always
// gives at least 1 x 1 pixels, read from inside it. An empty picture gives an empty picture.
FrameImage Trimmed(const FrameImage& image, int top, int bottom, int left, int right);

// The width and height Trimmed gives a picture of this size (the size itself when trimming
// is off); margins are top, bottom, left, right.
std::array<int, 2> TrimmedSize(int width, int height, bool trimming,
                               const std::array<std::int32_t, 4>& margins);

}  // namespace kirameki
