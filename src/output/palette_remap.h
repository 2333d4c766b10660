#pragma once

#include <cstdint>
#include <vector>

#include "render/frame_image.h"

namespace kirameki {

// Drawing a picture in the colours of a palette of 1 to 256 packed rgb entries. "Nearest" is
// the squared distance in RGB, the lowest index on a tie; a pixel whose own colour is in the
// palette is always drawn in exactly that entry. The pixels come out one index a pixel, rows
// top-down.

// One step of k-means over the undithered picture, sampled at every step-th pixel of every
// step-th row: each entry nearest to some sampled pixel moves to the mean colour of those
// pixels, unless one of them is exactly its colour.
void MoveEntriesToNearestMeans(const FrameImage& image, std::vector<std::uint32_t>& palette,
                               int step);

// Every pixel in the entry nearest to it plus what its neighbours missed: each pixel's miss is
// spread over the neighbours not yet drawn (Floyd-Steinberg, rows drawn alternately left to
// right and right to left), a large miss at three quarters. A pixel drawn exactly takes no
// error from its neighbours, so a flat background stays clean up to the edge of the stone.
void RemapDithered(const FrameImage& image, const std::vector<std::uint32_t>& palette,
                   std::vector<std::uint8_t>& pixels);

// One step of k-means over a drawing: each entry drawn somewhere moves to the mean colour of
// the picture's pixels drawn in it, which lowers the squared error of that drawing. Entries
// that some pixel matches exactly stay where they are (the background stays the background).
void MoveEntriesToMeans(const FrameImage& image, const std::vector<std::uint8_t>& pixels,
                        std::vector<std::uint32_t>& palette);

}  // namespace kirameki
