#include "output/picture_writers.h"

#include <png.h>

#include <algorithm>
#include <csetjmp>
#include <cstdio>
#include <functional>
#include <vector>

#include "output/atomic_file.h"
#include "output/gif_files.h"
#include "output/palette_reduction.h"

namespace kirameki {

namespace {

bool Refuse(const std::string& path, const std::string& why, std::string& error) {
    error = "Cannot write " + path + ": " + why;
    return false;
}

bool WriteBytes(const std::string& path, const std::vector<std::uint8_t>& bytes,
                std::string& error) {
    return WriteFileAtomically(
        path,
        [&](std::FILE* file) {
            return std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
        },
        error);
}

// ---- BMP: file header (14 bytes), info header (40 bytes), palette, bottom-up rows ----

constexpr std::uint32_t kBiRgb = 0, kBiRle8 = 1;

void Put16(std::vector<std::uint8_t>& out, std::uint32_t v) {
    out.push_back(std::uint8_t(v));
    out.push_back(std::uint8_t(v >> 8));
}
void Put32(std::vector<std::uint8_t>& out, std::uint32_t v) {
    Put16(out, v & 0xffff);
    Put16(out, v >> 16);
}

// The headers and, for 8-bit pictures, a palette of 256 entries (blue, green, red, 0).
std::vector<std::uint8_t> BmpHeaders(int width, int height, int bits, std::uint32_t compression,
                                     std::size_t imageBytes,
                                     const std::vector<std::uint32_t>* palette = nullptr) {
    const std::uint32_t colours = palette != nullptr ? 256 : 0;
    const std::uint32_t offset = 14 + 40 + 4 * colours;
    std::vector<std::uint8_t> out;
    out.reserve(offset + imageBytes);
    out.push_back('B');
    out.push_back('M');
    Put32(out, std::uint32_t(offset + imageBytes));
    Put32(out, 0);
    Put32(out, offset);
    Put32(out, 40);
    Put32(out, std::uint32_t(width));
    Put32(out, std::uint32_t(height));  // positive: rows bottom-up
    Put16(out, 1);
    Put16(out, std::uint32_t(bits));
    Put32(out, compression);
    Put32(out, std::uint32_t(imageBytes));
    Put32(out, 2835);  // 72 dots per inch
    Put32(out, 2835);
    Put32(out, colours);
    Put32(out, 0);
    for (std::uint32_t i = 0; i < colours; ++i) {
        const std::uint32_t c = i < palette->size() ? (*palette)[i] : 0;
        out.insert(out.end(),
                   {std::uint8_t(BlueOf(c)), std::uint8_t(GreenOf(c)), std::uint8_t(RedOf(c)), 0});
    }
    return out;
}

// The picture's own bytes already are 24-bit bottom-up rows padded to 4 bytes.
std::vector<std::uint8_t> Bmp24(const FrameImage& image) {
    std::vector<std::uint8_t> out =
        BmpHeaders(image.Width(), image.Height(), 24, kBiRgb, image.Bytes().size());
    out.insert(out.end(), image.Bytes().begin(), image.Bytes().end());
    return out;
}

// 16 bits a pixel, 0RRRRRGGGGGBBBBB little-endian, of a picture already reduced to 5-5-5.
std::vector<std::uint8_t> Bmp16(const FrameImage& image) {
    const int w = image.Width(), h = image.Height(), stride = (2 * w + 3) / 4 * 4;
    std::vector<std::uint8_t> out = BmpHeaders(w, h, 16, kBiRgb, std::size_t(stride) * h);
    for (int y = h - 1; y >= 0; --y) {
        const std::uint8_t* bgr = image.Row(y);
        for (int x = 0; x < w; ++x, bgr += 3)
            Put16(out, std::uint32_t(bgr[2] >> 3) << 10 | std::uint32_t(bgr[1] >> 3) << 5 |
                           std::uint32_t(bgr[0] >> 3));
        out.resize(out.size() + stride - 2 * w, 0);
    }
    return out;
}

std::vector<std::uint8_t> Bmp8(const IndexedImage& image) {
    const int w = image.width, h = image.height, stride = (w + 3) / 4 * 4;
    std::vector<std::uint8_t> out =
        BmpHeaders(w, h, 8, kBiRgb, std::size_t(stride) * h, &image.palette);
    for (int y = h - 1; y >= 0; --y) {
        const auto row = image.pixels.begin() + std::ptrdiff_t(y) * w;
        out.insert(out.end(), row, row + w);
        out.resize(out.size() + stride - w, 0);
    }
    return out;
}

// One row in BI_RLE8: runs of 2 to 255 equal bytes as (count, value); stretches of 3 to 255
// bytes without such runs in absolute mode (0, count, bytes, padded to an even length); a
// stretch of 1 or 2 bytes as runs of one.
void EncodeRle8Row(const std::uint8_t* row, int w, std::vector<std::uint8_t>& out) {
    const auto runAt = [&](int x) {
        int n = 1;
        while (x + n < w && n < 255 && row[x + n] == row[x])
            ++n;
        return n;
    };
    int x = 0;
    while (x < w) {
        if (const int run = runAt(x); run >= 2) {
            out.insert(out.end(), {std::uint8_t(run), row[x]});
            x += run;
            continue;
        }
        int n = 1;
        while (x + n < w && n < 255 && runAt(x + n) < 2)
            ++n;
        if (n < 3) {
            for (int i = 0; i < n; ++i)
                out.insert(out.end(), {1, row[x + i]});
        } else {
            out.insert(out.end(), {0, std::uint8_t(n)});
            out.insert(out.end(), row + x, row + x + n);
            if (n % 2 != 0)
                out.push_back(0);
        }
        x += n;
    }
}

std::vector<std::uint8_t> Bmp8Rle(const IndexedImage& image) {
    std::vector<std::uint8_t> data;
    for (int y = image.height - 1; y >= 0; --y) {
        EncodeRle8Row(image.pixels.data() + std::size_t(y) * image.width, image.width, data);
        data.insert(data.end(), {0, 0});  // end of line
    }
    data.insert(data.end(), {0, 1});  // end of bitmap
    std::vector<std::uint8_t> out =
        BmpHeaders(image.width, image.height, 8, kBiRle8, data.size(), &image.palette);
    out.insert(out.end(), data.begin(), data.end());
    return out;
}

// ---- PNG ----

struct PngLayout {
    int width = 0, height = 0;
    int colourType = PNG_COLOR_TYPE_RGB;
    const std::vector<std::uint32_t>* palette = nullptr;  // for PNG_COLOR_TYPE_PALETTE
    bool fiveBitChannels = false;                         // records the 5-5-5 reduction
};

bool EncodePng(std::FILE* file, const PngLayout& layout,
               const std::function<void(int y, png_byte* row)>& fillRow) {
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    if (png == nullptr)
        return false;
    png_infop info = png_create_info_struct(png);
    const int channels = layout.colourType == PNG_COLOR_TYPE_PALETTE ? 1 : 3;
    std::vector<png_byte> row(std::size_t(layout.width) * channels);
    std::vector<png_color> colours;
    if (layout.palette != nullptr)
        for (const std::uint32_t c : *layout.palette)
            colours.push_back(
                png_color{png_byte(RedOf(c)), png_byte(GreenOf(c)), png_byte(BlueOf(c))});
    if (info == nullptr || setjmp(png_jmpbuf(png))) {
        png_destroy_write_struct(&png, &info);
        return false;
    }
    png_init_io(png, file);
    png_set_IHDR(png, info, layout.width, layout.height, 8, layout.colourType, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    if (!colours.empty())
        png_set_PLTE(png, info, colours.data(), int(colours.size()));
    if (layout.fiveBitChannels) {
        png_color_8 significant{};
        significant.red = significant.green = significant.blue = 5;
        png_set_sBIT(png, info, &significant);
    }
    png_write_info(png, info);
    for (int y = 0; y < layout.height; ++y) {
        fillRow(y, row.data());
        png_write_row(png, row.data());
    }
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    return true;
}

bool WritePngRgb(const std::string& path, const FrameImage& image, bool fiveBitChannels,
                 std::string& error) {
    if (image.Empty())
        return Refuse(path, "the picture is empty", error);
    const PngLayout layout{image.Width(), image.Height(), PNG_COLOR_TYPE_RGB, nullptr,
                           fiveBitChannels};
    const auto fillRow = [&](int y, png_byte* row) {
        const std::uint8_t* bgr = image.Row(y);
        for (int x = 0; x < image.Width(); ++x, bgr += 3, row += 3) {
            row[0] = bgr[2];
            row[1] = bgr[1];
            row[2] = bgr[0];
        }
    };
    return WriteFileAtomically(
        path, [&](std::FILE* file) { return EncodePng(file, layout, fillRow); }, error);
}

bool WritePng8(const std::string& path, const IndexedImage& image, std::string& error) {
    const PngLayout layout{image.width, image.height, PNG_COLOR_TYPE_PALETTE, &image.palette};
    const auto fillRow = [&](int y, png_byte* row) {
        std::copy_n(image.pixels.begin() + std::ptrdiff_t(y) * image.width, image.width, row);
    };
    return WriteFileAtomically(
        path, [&](std::FILE* file) { return EncodePng(file, layout, fillRow); }, error);
}

bool WriteIndexed(const std::string& path, const FrameImage& image, PictureFormat format,
                  std::uint32_t background, std::string& error) {
    IndexedImage indexed;
    if (!ReduceTo256Colours(image, indexed, error))
        return false;
    RepairBackground(indexed, background);
    if (format == PictureFormat::kBmp8)
        return WriteBytes(path, Bmp8(indexed), error);
    if (format == PictureFormat::kPng8)
        return WritePng8(path, indexed, error);
    return WriteGif(path, indexed, error);
}

}  // namespace

std::optional<PictureFormat> PictureFormatForExtension(std::string_view extension) {
    if (const auto dot = extension.rfind('.'); dot != std::string_view::npos)
        extension.remove_prefix(dot + 1);
    std::string lower(extension);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return char(c >= 'A' && c <= 'Z' ? c + 32 : c); });
    if (lower == "bmp")
        return PictureFormat::kBmp24;
    if (lower == "png")
        return PictureFormat::kPng24;
    if (lower == "gif")
        return PictureFormat::kGif8;
    return std::nullopt;
}

bool WritePicture(const std::string& path, const FrameImage& image, PictureFormat format,
                  std::uint32_t background, std::string& error) {
    if (image.Empty())
        return Refuse(path, "the picture is empty", error);
    switch (format) {
        case PictureFormat::kBmp24:
            return WriteBytes(path, Bmp24(image), error);
        case PictureFormat::kBmp16:
        case PictureFormat::kPng16: {
            FrameImage reduced = image;
            ReduceTo555(reduced);
            if (format == PictureFormat::kBmp16)
                return WriteBytes(path, Bmp16(reduced), error);
            return WritePngRgb(path, reduced, true, error);
        }
        case PictureFormat::kPng24:
            return WritePngRgb(path, image, false, error);
        case PictureFormat::kBmp8:
        case PictureFormat::kPng8:
        case PictureFormat::kGif8:
            return WriteIndexed(path, image, format, background, error);
    }
    return Refuse(path, "unknown picture format", error);
}

bool WritePng24(const std::string& path, const FrameImage& image, std::string& error) {
    return WritePngRgb(path, image, false, error);
}

bool WriteBmp8Rle(const std::string& path, const IndexedImage& image, std::string& error) {
    if (const std::string problem = IndexedImageProblem(image); !problem.empty())
        return Refuse(path, problem, error);
    return WriteBytes(path, Bmp8Rle(image), error);
}

}  // namespace kirameki
