#include "render/frame_image.h"

namespace kirameki {

void FrameImage::Create(int width, int height) {
    width_ = width > 0 ? width : 0;
    height_ = height > 0 ? height : 0;
    stride_ = (3 * width_ + 3) / 4 * 4;
    bytes_.assign(std::size_t(stride_) * height_, 0);
}

bool FrameImage::SetPixel(int x, int y, std::uint32_t rgb) {
    if (x < 0 || x >= width_ || y < 0 || y >= height_)
        return false;
    std::uint8_t* p = Row(y) + 3 * x;
    p[0] = std::uint8_t(BlueOf(rgb));
    p[1] = std::uint8_t(GreenOf(rgb));
    p[2] = std::uint8_t(RedOf(rgb));
    return true;
}

std::uint32_t FrameImage::Pixel(int x, int y) const {
    if (x < 0 || x >= width_ || y < 0 || y >= height_)
        return 0;
    const std::uint8_t* p = Row(y) + 3 * x;
    return PackRgb(p[2], p[1], p[0]);
}

void FrameImage::Fill(std::uint32_t rgb) {
    for (int y = 0; y < height_; ++y)
        for (int x = 0; x < width_; ++x)
            SetPixel(x, y, rgb);
}

void FrameImage::ReduceByHalf(FrameImage& out) const {
    const int w = width_ / 2, h = height_ / 2;
    if (out.width_ != w || out.height_ != h)
        out.Create(w, h);
    for (int y = 0; y < h; ++y) {
        const std::uint8_t* a = Row(2 * y);
        const std::uint8_t* b = Row(2 * y + 1);
        std::uint8_t* o = out.Row(y);
        for (int x = 0; x < 3 * w; ++x) {
            const int i = (x / 3) * 6 + x % 3;
            o[x] = std::uint8_t((a[i] + a[i + 3] + b[i] + b[i + 3] + 2) / 4);
        }
    }
}

}  // namespace kirameki
