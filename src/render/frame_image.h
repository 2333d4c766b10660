#pragma once

#include <cstdint>
#include <vector>

namespace kirameki {

// A square (or any) 24-bit picture laid out as a device-independent bitmap: bytes blue,
// green, red; each row padded to a multiple of 4 bytes; rows stored bottom-up, so image
// row y (from the top) is stored row height-1-y. Colours are handed in and out packed as
// red | green << 8 | blue << 16. Memory is allocated only when the size changes.
class FrameImage {
  public:
    FrameImage() = default;
    FrameImage(int width, int height) { Create(width, height); }

    void Create(int width, int height);
    int Width() const { return width_; }
    int Height() const { return height_; }
    int Stride() const { return stride_; }
    bool Empty() const { return width_ == 0 || height_ == 0; }

    // Writes nothing and answers false outside the picture.
    bool SetPixel(int x, int y, std::uint32_t rgb);
    std::uint32_t Pixel(int x, int y) const;
    void Fill(std::uint32_t rgb);

    // The stored bytes of image row y (from the top).
    std::uint8_t* Row(int y) { return bytes_.data() + std::size_t(height_ - 1 - y) * stride_; }
    const std::uint8_t* Row(int y) const {
        return bytes_.data() + std::size_t(height_ - 1 - y) * stride_;
    }
    const std::vector<std::uint8_t>& Bytes() const { return bytes_; }

    // Halves the picture by averaging each 2 x 2 block (the high-quality reduction).
    void ReduceByHalf(FrameImage& out) const;

  private:
    int width_ = 0;
    int height_ = 0;
    int stride_ = 0;
    std::vector<std::uint8_t> bytes_;
};

constexpr std::uint32_t PackRgb(int r, int g, int b) {
    return std::uint32_t(r) | std::uint32_t(g) << 8 | std::uint32_t(b) << 16;
}
constexpr int RedOf(std::uint32_t rgb) {
    return rgb & 0xff;
}
constexpr int GreenOf(std::uint32_t rgb) {
    return (rgb >> 8) & 0xff;
}
constexpr int BlueOf(std::uint32_t rgb) {
    return (rgb >> 16) & 0xff;
}

}  // namespace kirameki
