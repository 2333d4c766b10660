#include "output/picture_writers.h"

#include <gif_lib.h>
#include <gtest/gtest.h>
#include <png.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

#include "output/gif_files.h"
#include "output/palette_reduction.h"

namespace kirameki {
namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;

struct Decoded {
    int width = 0, height = 0, depth = 0, kind = 0;  // BMP: bits, compression; PNG: depth, type
    std::vector<std::uint32_t> rgb;                  // top-down
};

Bytes Read(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}
std::uint32_t U16(const Bytes& b, std::size_t at) {
    return b.at(at) | b.at(at + 1) << 8;
}
std::uint32_t U32(const Bytes& b, std::size_t at) {
    return U16(b, at) | U16(b, at + 2) << 16;
}

Decoded DecodeBmp(const std::string& path) {
    const Bytes b = Read(path);
    Decoded d{int(U32(b, 18)), int(U32(b, 22)), int(U16(b, 28)), int(U32(b, 30)), {}};
    const std::size_t data = U32(b, 10), stride = (d.width * d.depth / 8 + 3) / 4 * 4;
    const auto colour = [&](std::uint32_t i) {
        return PackRgb(b.at(54 + 4 * i + 2), b.at(54 + 4 * i + 1), b.at(54 + 4 * i));
    };
    std::vector<std::uint8_t> indices(std::size_t(d.width) * d.height);
    if (d.kind == 1) {  // BI_RLE8, rows bottom-up
        int x = 0, y = d.height - 1;
        for (std::size_t p = data; p + 1 < b.size();) {
            const int count = b[p], value = b[p + 1];
            p += 2;
            if (count > 0) {
                for (int i = 0; i < count; ++i)
                    indices.at(std::size_t(y) * d.width + x++) = std::uint8_t(value);
            } else if (value == 0) {
                x = 0, --y;
            } else if (value == 1) {
                break;
            } else {
                for (int i = 0; i < value; ++i)
                    indices.at(std::size_t(y) * d.width + x++) = b.at(p + i);
                p += (value + 1) / 2 * 2;
            }
        }
    }
    for (int y = 0; y < d.height; ++y)
        for (int x = 0; x < d.width; ++x) {
            const std::size_t p = data + (d.height - 1 - y) * stride + x * d.depth / 8;
            const std::uint32_t v = d.depth == 16 ? U16(b, p) : 0;
            const auto five = [&](int shift) {
                return int((v >> shift & 31) << 3 | (v >> shift & 31) >> 2);
            };
            d.rgb.push_back(d.depth == 24   ? PackRgb(b.at(p + 2), b.at(p + 1), b.at(p))
                            : d.depth == 16 ? PackRgb(five(10), five(5), five(0))
                            : d.kind == 1   ? colour(indices[std::size_t(y) * d.width + x])
                                            : colour(b.at(p)));
        }
    return d;
}

Decoded DecodePng(const std::string& path) {
    const Bytes b = Read(path);
    Decoded d{
        int(b.at(16) << 24 | b.at(17) << 16 | b.at(18) << 8 | b.at(19)), 0, b.at(24), b.at(25), {}};
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    EXPECT_TRUE(png_image_begin_read_from_file(&image, path.c_str()));
    image.format = PNG_FORMAT_RGB;
    std::vector<png_byte> rgb(PNG_IMAGE_SIZE(image));
    EXPECT_TRUE(png_image_finish_read(&image, nullptr, rgb.data(), 0, nullptr));
    d.height = int(image.height);
    for (std::size_t i = 0; i + 2 < rgb.size(); i += 3)
        d.rgb.push_back(PackRgb(rgb[i], rgb[i + 1], rgb[i + 2]));
    return d;
}

int Channel(std::uint32_t c, int i) {
    return int(c >> 8 * i & 0xff);
}

// A stone-like picture: flat background, a disc of smooth gradients with a few coloured sparks.
// The odd width exercises the row padding of every format.
FrameImage GemPicture(std::uint32_t background) {
    FrameImage image(61, 47);
    image.Fill(background);
    for (int y = 0; y < 47; ++y)
        for (int x = 0; x < 61; ++x)
            if ((x - 30) * (x - 30) + (y - 23) * (y - 23) < 400)
                image.SetPixel(x, y, PackRgb(120 + 2 * x, 90 + 3 * y, 200 - x - y));
    for (int i = 0; i < 6; ++i)
        image.SetPixel(22 + 3 * i, 20 + i, PackRgb(255 * (i % 2), 40 * i, 255 - 40 * i));
    return image;
}

class PictureFiles : public ::testing::Test {
  protected:
    void SetUp() override {
        dir_ = fs::temp_directory_path() /
               ("kirameki-pictures-" + std::to_string(::getpid()) +
                ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::create_directories(dir_);
    }
    void TearDown() override { fs::remove_all(dir_); }
    std::string Path(const char* name) const { return (dir_ / name).string(); }
    fs::path dir_;
};

TEST_F(PictureFiles, EveryFormatReadsBackAsWritten) {
    const std::uint32_t background = PackRgb(12, 20, 40);
    // The configured background differs by one step from the painted one, so the repair must
    // act on whatever colour the quantiser gave the corner.
    const FrameImage image = GemPicture(PackRgb(12, 21, 40));
    FrameImage reduced = image;
    ReduceTo555(reduced);
    for (const PictureFormatFilter& filter : kPictureFormatFilters) {
        const int number = int(filter.format);
        SCOPED_TRACE(filter.text);
        const std::string path = Path(&filter.pattern[1]);
        std::string error;
        ASSERT_TRUE(WritePicture(path, image, filter.format, background, error)) << error;
        Decoded d;
        if (number <= 3) {
            d = DecodeBmp(path);
            EXPECT_EQ(d.depth, number == 1 ? 24 : number == 2 ? 16 : 8);
            EXPECT_EQ(d.kind, 0);
        } else if (number <= 6) {
            d = DecodePng(path);
            EXPECT_EQ(d.depth, 8);
            EXPECT_EQ(d.kind, number == 6 ? PNG_COLOR_TYPE_PALETTE : PNG_COLOR_TYPE_RGB);
        } else {
            EXPECT_EQ(std::memcmp(Read(path).data(), "GIF89a", 6), 0);
            IndexedImage gif;
            ASSERT_TRUE(ReadGif(path, gif, error)) << error;
            d = Decoded{gif.width, gif.height, 8, 0, {}};
            for (const std::uint8_t i : gif.pixels)
                d.rgb.push_back(gif.palette.at(i));
        }
        ASSERT_EQ(d.width, 61);
        ASSERT_EQ(d.height, 47);
        ASSERT_EQ(d.rgb.size(), 61u * 47u);
        long totalError = 0;
        for (int i = 0; i < 61 * 47; ++i) {
            const std::uint32_t source = image.Pixel(i % 61, i / 61);
            if (number == 1 || number == 4) {
                ASSERT_EQ(d.rgb[i], source) << i;
            } else if (number == 2 || number == 5) {
                ASSERT_EQ(d.rgb[i], reduced.Pixel(i % 61, i / 61)) << i;
                for (int c = 0; c < 3; ++c)  // the nearest of the 32 levels
                    ASSERT_LE(std::abs(Channel(d.rgb[i], c) - Channel(source, c)), 4) << i;
            }
            for (int c = 0; c < 3; ++c)
                totalError += std::abs(Channel(d.rgb[i], c) - Channel(source, c));
        }
        EXPECT_LT(double(totalError) / (61.0 * 47 * 3), 3.0);
        if (number == 3 || number == 6 || number == 7) {
            EXPECT_EQ(d.rgb[0], background);
        }
    }
}

TEST(BackgroundRepair, RepaintsEveryEntryOfTheCornerColourOnly) {
    const std::uint32_t background = PackRgb(0, 0, 0), moved = PackRgb(1, 0, 0);
    IndexedImage image{2, 1, {2, 1}, {moved, PackRgb(9, 9, 9), moved}};
    RepairBackground(image, background);
    EXPECT_EQ(image.palette,
              (std::vector<std::uint32_t>{background, PackRgb(9, 9, 9), background}));
}

TEST(Trimming, TakesTheMarginsOffAndNeverLeavesNothing) {
    FrameImage image(270, 270);
    for (int y = 0; y < 270; ++y)
        for (int x = 0; x < 270; ++x)
            image.SetPixel(x, y, PackRgb(x % 256, y % 256, (x + y) % 256));
    const FrameImage t = Trimmed(image, 10, 20, 30, 40);
    ASSERT_EQ(t.Width(), 200);
    ASSERT_EQ(t.Height(), 240);
    EXPECT_EQ(t.Pixel(0, 0), image.Pixel(30, 10));
    EXPECT_EQ(t.Pixel(199, 239), image.Pixel(229, 249));
    const FrameImage all = Trimmed(image, 200, 200, 300, 300);
    EXPECT_EQ(all.Width() * all.Height(), 1);
    EXPECT_EQ(all.Pixel(0, 0), image.Pixel(269, 200));
    EXPECT_EQ(Trimmed(image, -5, 0, -1, 0).Width(), 270);
    EXPECT_TRUE(Trimmed(FrameImage(), 1, 1, 1, 1).Empty());
}

TEST_F(PictureFiles, RunLengthBitmapDecodesToThePixels) {
    // Long runs, literal stretches of odd and even length, and single bytes between runs.
    IndexedImage image{300, 3, {}, {PackRgb(1, 2, 3), PackRgb(4, 5, 6), PackRgb(7, 8, 9)}};
    for (int i = 0; i < 900; ++i)
        image.pixels.push_back(std::uint8_t(i < 290     ? 0
                                            : i < 400   ? i % 3
                                            : i % 7 < 4 ? 1
                                                        : i % 2 * 2));
    std::string error;
    ASSERT_TRUE(WriteBmp8Rle(Path("rle.bmp"), image, error)) << error;
    const Decoded d = DecodeBmp(Path("rle.bmp"));
    EXPECT_EQ(d.kind, 1);
    ASSERT_EQ(d.rgb.size(), 900u);
    for (int i = 0; i < 900; ++i)
        ASSERT_EQ(d.rgb[i], image.palette[image.pixels[i]]) << i;
}

TEST_F(PictureFiles, AnimatedGifLoopsAndKeepsEachFramesPaletteAndDelay) {
    std::vector<IndexedImage> frames;
    for (int f = 0; f < 3; ++f) {
        IndexedImage frame{8, 6, std::vector<std::uint8_t>(48), {}};
        for (int i = 0; i < 48; ++i)
            frame.pixels[i] = std::uint8_t((i + f) % (3 + 60 * f));
        for (int c = 0; c < 3 + 60 * f; ++c)
            frame.palette.push_back(PackRgb(c, 50 * f, 255 - c));
        frames.push_back(frame);
    }
    for (const auto& [delay, stored] : {std::pair{7, 7}, {100000, 65535}}) {
        std::string error;
        ASSERT_TRUE(WriteAnimatedGif(Path("ani.gif"), frames, delay, error)) << error;
        int code = 0;
        GifFileType* gif = DGifOpenFileName(Path("ani.gif").c_str(), &code);
        ASSERT_NE(gif, nullptr);
        ASSERT_EQ(DGifSlurp(gif), GIF_OK);
        ASSERT_EQ(gif->ImageCount, 3);
        const SavedImage& first = gif->SavedImages[0];
        bool loops = false;
        for (int e = 0; e + 1 < first.ExtensionBlockCount; ++e) {
            const ExtensionBlock& b = first.ExtensionBlocks[e];
            const ExtensionBlock& next = first.ExtensionBlocks[e + 1];
            loops |= b.Function == APPLICATION_EXT_FUNC_CODE && b.ByteCount == 11 &&
                     std::memcmp(b.Bytes, "NETSCAPE2.0", 11) == 0 && next.ByteCount == 3 &&
                     std::memcmp(next.Bytes, "\1\0\0", 3) == 0;
        }
        EXPECT_TRUE(loops);
        for (int f = 0; f < 3; ++f) {
            GraphicsControlBlock control{};
            ASSERT_EQ(DGifSavedExtensionToGCB(gif, f, &control), GIF_OK);
            EXPECT_EQ(control.DelayTime, stored);
            const ColorMapObject* map = gif->SavedImages[f].ImageDesc.ColorMap;
            ASSERT_NE(map, nullptr);
            for (std::size_t c = 0; c < frames[f].palette.size(); ++c)
                ASSERT_EQ(PackRgb(map->Colors[c].Red, map->Colors[c].Green, map->Colors[c].Blue),
                          frames[f].palette[c]);
            EXPECT_EQ(std::memcmp(gif->SavedImages[f].RasterBits, frames[f].pixels.data(), 48), 0);
        }
        DGifCloseFile(gif, &code);
    }
    IndexedImage back;
    std::string error;
    ASSERT_TRUE(ReadGif(Path("ani.gif"), back, error)) << error;
    EXPECT_EQ(back.pixels, frames[0].pixels);
}

TEST_F(PictureFiles, DamagedGifsAreRefusedWithoutCrashing) {
    std::string error;
    IndexedImage out;
    EXPECT_FALSE(ReadGif(Path("missing.gif"), out, error));
    EXPECT_NE(error.find("missing.gif"), std::string::npos);
    IndexedImage image;
    ASSERT_TRUE(ReduceTo256Colours(GemPicture(PackRgb(0, 0, 0)), image, error)) << error;
    ASSERT_TRUE(WriteGif(Path("good.gif"), image, error)) << error;
    const Bytes good = Read(Path("good.gif"));
    const auto tryBytes = [&](const Bytes& bytes) {
        std::ofstream(Path("bad.gif"), std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), std::streamsize(bytes.size()));
        return ReadGif(Path("bad.gif"), out, error);
    };
    // Everything but the final trailer byte is needed for the picture.
    for (std::size_t n = 0; n + 1 < good.size(); ++n)
        ASSERT_FALSE(tryBytes(Bytes(good.begin(), good.begin() + std::ptrdiff_t(n)))) << n;
    std::mt19937 random(7);
    for (int i = 0; i < 300; ++i) {
        Bytes bad = good;
        for (int k = 0; k < 4; ++k)
            bad[random() % bad.size()] = std::uint8_t(random());
        if (tryBytes(bad)) {
            EXPECT_EQ(out.pixels.size(), std::size_t(out.width) * out.height);
        }
    }
}

TEST_F(PictureFiles, AFailedWriteLeavesNoFile) {
    const FrameImage image = GemPicture(PackRgb(0, 0, 0));
    std::string error;
    for (const PictureFormatFilter& filter : kPictureFormatFilters) {
        EXPECT_FALSE(WritePicture(Path("no/such/dir/x"), image, filter.format, 0, error));
        EXPECT_NE(error.find("no/such/dir/x"), std::string::npos);
    }
    std::vector<IndexedImage> frames(2, IndexedImage{2, 2, {0, 0, 0, 0}, {0}});
    frames[1].width = 4;
    frames[1].pixels.resize(8);
    EXPECT_FALSE(WriteAnimatedGif(Path("ani.gif"), frames, 4, error));
    EXPECT_FALSE(WritePicture(Path("empty.png"), FrameImage(), PictureFormat::kPng24, 0, error));
    EXPECT_TRUE(fs::is_empty(dir_));
}

}  // namespace
}  // namespace kirameki
