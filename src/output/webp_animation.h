#pragma once

#include <string>
#include <vector>

#include "output/indexed_image.h"

namespace kirameki {

// Writes the frames as one animated WebP that loops forever, delayHundredths per frame (at
// least one millisecond a frame, as the format needs), in full colour: lossless when quality
// is negative, else lossy at quality 0..100. The frames must be writable and all of one size.
// Answers false with one line in error, leaving no file.
bool WriteAnimatedWebP(const std::string& path, const std::vector<IndexedImage>& frames,
                       int delayHundredths, int quality, std::string& error);

}  // namespace kirameki
