#pragma once

#include <string>
#include <vector>

#include "output/indexed_image.h"

namespace kirameki {

// Writes one picture as a GIF89a file with a global colour map holding its palette (padded
// with black to a power of two). Answers false with one line in error, leaving no file, when
// the picture is not writable or the file cannot be written.
bool WriteGif(const std::string& path, const IndexedImage& image, std::string& error);

// Reads the first picture of a GIF file, with the colour map that applies to it (its own, else
// the global one) as palette. Interlaced pictures are read in their true row order. A first
// picture that does not cover the whole logical screen is refused, as is any file that is
// missing, short, corrupt or names colours outside its map: false with one line in error.
bool ReadGif(const std::string& path, IndexedImage& out, std::string& error);

// Writes the frames as one animated GIF that loops forever: a looping application extension
// (loop count 0), then every frame with a graphics control extension carrying the delay in
// hundredths of a second (clamped into 0..65535) and its own local colour map, so each frame
// keeps its exact palette. The frames must be writable and all of one size.
bool WriteAnimatedGif(const std::string& path, const std::vector<IndexedImage>& frames,
                      int delayHundredths, std::string& error);

}  // namespace kirameki
