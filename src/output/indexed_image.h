#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kirameki {

// A picture of at most 256 colours: one palette index a pixel, rows top-down without padding.
// Palette entries are packed like FrameImage colours: red | green << 8 | blue << 16.
struct IndexedImage {
    int width = 0, height = 0;
    std::vector<std::uint8_t> pixels;    // top-down, width * height
    std::vector<std::uint32_t> palette;  // packed rgb, up to 256
};

// Empty when the image can be written: a non-empty size matching the pixels, 1 to 256 palette
// entries and every pixel naming one of them; otherwise what is wrong, as a short phrase.
inline std::string IndexedImageProblem(const IndexedImage& image) {
    if (image.width <= 0 || image.height <= 0)
        return "the picture is empty";
    if (image.pixels.size() != std::size_t(image.width) * std::size_t(image.height))
        return "the pixel count does not match the picture size";
    if (image.palette.empty() || image.palette.size() > 256)
        return "the palette must hold 1 to 256 colours";
    for (const std::uint8_t index : image.pixels)
        if (index >= image.palette.size())
            return "a pixel names a colour outside the palette";
    return {};
}

}  // namespace kirameki
