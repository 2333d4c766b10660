#include "output/webp_animation.h"

#include <gtest/gtest.h>
#include <unistd.h>
#include <webp/demux.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace kirameki {
namespace {

// Frames of 24 x 16 pixels with their own palettes: together more colours than one GIF holds.
std::vector<IndexedImage> Frames(int count) {
    std::vector<IndexedImage> frames;
    for (int f = 0; f < count; ++f) {
        IndexedImage frame;
        frame.width = 24;
        frame.height = 16;
        for (std::uint32_t c = 0; c < 200; ++c)
            frame.palette.push_back(((c + std::uint32_t(f) * 37) & 0xff) | (c << 8) |
                                    ((255 - c) << 16));
        for (int i = 0; i < frame.width * frame.height; ++i)
            frame.pixels.push_back(std::uint8_t((i * 7 + f) % 200));
        frames.push_back(frame);
    }
    return frames;
}

struct Decoded {
    int frames = 0, loops = -1;
    std::vector<int> timestamps;
    std::vector<std::vector<std::uint8_t>> rgba;
};

Decoded Decode(const std::string& path) {
    Decoded decoded;
    std::string bytes;
    if (std::FILE* file = std::fopen(path.c_str(), "rb")) {
        char buffer[4096];
        std::size_t n = 0;
        while ((n = std::fread(buffer, 1, sizeof buffer, file)) > 0)
            bytes.append(buffer, n);
        std::fclose(file);
    }
    WebPData data{reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()};
    WebPAnimDecoderOptions options;
    WebPAnimDecoderOptionsInit(&options);
    options.color_mode = MODE_RGBA;
    WebPAnimDecoder* decoder = WebPAnimDecoderNew(&data, &options);
    if (decoder == nullptr)
        return decoded;
    WebPAnimInfo info;
    WebPAnimDecoderGetInfo(decoder, &info);
    decoded.frames = int(info.frame_count);
    decoded.loops = int(info.loop_count);
    while (WebPAnimDecoderHasMoreFrames(decoder)) {
        std::uint8_t* pixels = nullptr;
        int timestamp = 0;
        if (!WebPAnimDecoderGetNext(decoder, &pixels, &timestamp))
            break;
        decoded.timestamps.push_back(timestamp);
        decoded.rgba.emplace_back(pixels, pixels + info.canvas_width * info.canvas_height * 4);
    }
    WebPAnimDecoderDelete(decoder);
    return decoded;
}

class WebPAnimation : public ::testing::Test {
  protected:
    void SetUp() override {
        path_ = (std::filesystem::temp_directory_path() /
                 ("kirameki-webp-" + std::to_string(getpid()) + ".webp"))
                    .string();
    }
    void TearDown() override { std::filesystem::remove(path_); }
    std::string path_;
};

TEST_F(WebPAnimation, LosslessKeepsEveryPixelOfEveryFrameAndLoopsForEver) {
    const auto frames = Frames(3);
    std::string error;
    ASSERT_TRUE(WriteAnimatedWebP(path_, frames, 7, -1, error)) << error;
    const Decoded decoded = Decode(path_);
    ASSERT_EQ(decoded.frames, 3);
    EXPECT_EQ(decoded.loops, 0);
    EXPECT_EQ(decoded.timestamps, (std::vector<int>{70, 140, 210}));
    for (std::size_t f = 0; f < frames.size(); ++f)
        for (std::size_t i = 0; i < frames[f].pixels.size(); ++i) {
            const std::uint32_t colour = frames[f].palette[frames[f].pixels[i]];
            ASSERT_EQ(decoded.rgba[f][4 * i], colour & 0xff) << f << " " << i;
            ASSERT_EQ(decoded.rgba[f][4 * i + 1], (colour >> 8) & 0xff) << f << " " << i;
            ASSERT_EQ(decoded.rgba[f][4 * i + 2], (colour >> 16) & 0xff) << f << " " << i;
        }
}

TEST_F(WebPAnimation, LossyAtAQualityAndRefusals) {
    std::string error;
    ASSERT_TRUE(WriteAnimatedWebP(path_, Frames(2), 0, 50, error)) << error;
    const Decoded decoded = Decode(path_);
    EXPECT_EQ(decoded.frames, 2);
    EXPECT_EQ(decoded.timestamps.front(), 1);  // a zero delay is the shortest the format has

    auto uneven = Frames(2);
    uneven[1].width = 12;
    uneven[1].pixels.resize(12 * 16);
    EXPECT_FALSE(WriteAnimatedWebP(path_ + ".2", uneven, 4, -1, error));
    EXPECT_NE(error.find("size"), std::string::npos) << error;
    EXPECT_FALSE(WriteAnimatedWebP(path_ + ".2", {}, 4, -1, error));
    EXPECT_FALSE(std::filesystem::exists(path_ + ".2"));
}

}  // namespace
}  // namespace kirameki
