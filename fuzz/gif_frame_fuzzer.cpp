// Any bytes as a captured frame read back for the animation: decoding never crashes, never
// takes more than a frame of its size can hold, and what it accepts can be written again.
#include <cstdint>
#include <string>
#include <vector>

#include "output/gif_files.h"
#include "output/indexed_image.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kirameki;
    const std::vector<std::uint8_t> bytes(data, data + size);
    for (const FrameSize expected : {FrameSize{}, FrameSize{32, 32}}) {
        IndexedImage image;
        if (!DecodeGifBytes(bytes, expected, image).empty())
            continue;
        if (image.width > kMaxPictureSide || image.height > kMaxPictureSide ||
            image.pixels.size() != std::size_t(image.width) * std::size_t(image.height) ||
            (expected.width > 0 && image.width != expected.width))
            __builtin_trap();
        if (!IndexedImageProblem(image).empty())
            __builtin_trap();
    }
    return 0;
}
