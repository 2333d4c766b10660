#pragma once

#include <string>

#include "render/frame_image.h"

namespace kirameki {

// Writes the picture as a 24-bit PNG (through a temporary file).
bool WritePng24(const std::string& path, const FrameImage& image, std::string& error);

}  // namespace kirameki
