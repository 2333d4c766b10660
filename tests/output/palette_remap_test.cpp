#include "output/palette_remap.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "output/nearest_colour.h"
#include "output/palette_reduction.h"

namespace kirameki {
namespace {

int BruteNearest(const std::vector<std::uint32_t>& palette, int r, int g, int b) {
    int best = -1, bestDistance = 0;
    for (std::size_t i = 0; i < palette.size(); ++i) {
        const int dr = RedOf(palette[i]) - r, dg = GreenOf(palette[i]) - g,
                  db = BlueOf(palette[i]) - b;
        const int d = dr * dr + dg * dg + db * db;
        if (best < 0 || d < bestDistance) {
            best = int(i);
            bestDistance = d;
        }
    }
    return best;
}

std::vector<std::uint32_t> RandomPalette(std::mt19937& random, int size, int spread) {
    std::vector<std::uint32_t> palette;
    const int centre = int(random() % 256);
    for (int i = 0; i < size; ++i) {
        // Clustered palettes (greys of a colourless stone) give long candidate lists.
        const auto channel = [&] {
            return std::clamp(centre + int(random() % (2 * spread + 1)) - spread, 0, 255);
        };
        palette.push_back(PackRgb(channel(), channel(), channel()));
    }
    if (size > 3)
        palette[std::size_t(size) - 1] = palette[1];  // a repeated entry: the first one wins
    return palette;
}

TEST(NearestColour, AgreesWithASearchOfTheWholePalette) {
    std::mt19937 random(11);
    for (const int size : {1, 2, 3, 5, 17, 64, 255, 256})
        for (const int spread : {4, 40, 128}) {
            const std::vector<std::uint32_t> palette = RandomPalette(random, size, spread);
            NearestColour nearest(palette);
            const auto check = [&](int r, int g, int b) {
                ASSERT_EQ(nearest.Nearest(r, g, b), BruteNearest(palette, r, g, b))
                    << size << " entries, spread " << spread << ", colour " << r << ',' << g << ','
                    << b;
            };
            for (int i = 0; i < 3000; ++i)
                check(int(random() % 256), int(random() % 256), int(random() % 256));
            // The corners of cells of every size, where the cell bounds decide.
            for (const int v : {0, 7, 8, 15, 16, 31, 32, 127, 128, 247, 248, 255})
                for (const int u : {0, 8, 128, 255})
                    check(v, u, 255 - v);
        }
}

TEST(NearestColour, FindsExactColoursOnly) {
    const std::vector<std::uint32_t> palette = {PackRgb(0, 0, 0), PackRgb(10, 20, 30),
                                                PackRgb(10, 20, 30), PackRgb(255, 255, 255)};
    const NearestColour nearest(palette);
    EXPECT_EQ(nearest.Exact(PackRgb(0, 0, 0)), 0);
    EXPECT_EQ(nearest.Exact(PackRgb(10, 20, 30)), 1);
    EXPECT_EQ(nearest.Exact(PackRgb(255, 255, 255)), 3);
    EXPECT_EQ(nearest.Exact(PackRgb(10, 20, 31)), -1);
    EXPECT_EQ(nearest.Exact(PackRgb(1, 0, 0)), -1);
}

// Left half the background, right half a ramp that the palette does not hold.
FrameImage BackgroundBesideRamp(std::uint32_t background) {
    FrameImage image(64, 32);
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 64; ++x)
            image.SetPixel(x, y, x < 32 ? background : PackRgb(3 * x + 2, 2 * y + 41, 150 - x));
    return image;
}

TEST(RemapDithered, KeepsExactColoursAndTheAverageOfAFlatArea) {
    // A flat grey between two entries is drawn in both, averaging to it.
    FrameImage flat(64, 64);
    flat.Fill(PackRgb(101, 101, 101));
    const std::vector<std::uint32_t> greys = {PackRgb(100, 100, 100), PackRgb(104, 104, 104)};
    std::vector<std::uint8_t> pixels;
    RemapDithered(flat, greys, pixels);
    ASSERT_EQ(pixels.size(), 64u * 64u);
    double sum = 0.0;
    for (const std::uint8_t index : pixels)
        sum += RedOf(greys.at(index));
    EXPECT_NEAR(sum / double(pixels.size()), 101.0, 0.1);

    // The background is in the palette: none of the ramp's error reaches it.
    const std::uint32_t background = PackRgb(0, 0, 0);
    const FrameImage picture = BackgroundBesideRamp(background);
    const std::vector<std::uint32_t> palette = {PackRgb(90, 60, 100), background,
                                                PackRgb(180, 90, 110), PackRgb(60, 100, 130)};
    RemapDithered(picture, palette, pixels);
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 32; ++x)
            ASSERT_EQ(pixels[std::size_t(y) * 64 + std::size_t(x)], 1) << x << ',' << y;

    RemapDithered(picture, {}, pixels);
    EXPECT_EQ(pixels, std::vector<std::uint8_t>(64u * 32u, 0));
}

TEST(MoveEntriesToMeans, MovesDrawnEntriesButNotExactOnes) {
    FrameImage image(4, 1);
    image.SetPixel(0, 0, PackRgb(10, 10, 10));
    image.SetPixel(1, 0, PackRgb(20, 30, 40));
    image.SetPixel(2, 0, PackRgb(200, 200, 200));
    image.SetPixel(3, 0, PackRgb(210, 210, 210));
    std::vector<std::uint32_t> palette = {PackRgb(10, 10, 10), PackRgb(205, 0, 205),
                                          PackRgb(7, 7, 7)};
    MoveEntriesToMeans(image, {0, 0, 1, 1}, palette);
    EXPECT_EQ(palette[0], PackRgb(10, 10, 10));     // matched exactly by pixel 0
    EXPECT_EQ(palette[1], PackRgb(205, 205, 205));  // the mean of its two pixels
    EXPECT_EQ(palette[2], PackRgb(7, 7, 7));        // drawn nowhere

    palette = {PackRgb(0, 0, 0), PackRgb(255, 255, 255)};
    MoveEntriesToNearestMeans(image, palette, 1);
    EXPECT_EQ(palette[0], PackRgb(15, 20, 25));
    EXPECT_EQ(palette[1], PackRgb(205, 205, 205));
}

TEST(ReduceTo256Colours, DrawsABackgroundBesideAGemExactlyAndEveryPixelInThePalette) {
    const std::uint32_t background = PackRgb(0, 0, 64);
    const FrameImage picture = BackgroundBesideRamp(background);
    IndexedImage reduced;
    std::string error;
    ASSERT_TRUE(ReduceTo256Colours(picture, reduced, error)) << error;
    ASSERT_EQ(IndexedImageProblem(reduced), "");
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 32; ++x)
            ASSERT_EQ(reduced.palette[reduced.pixels[std::size_t(y) * 64 + std::size_t(x)]],
                      background);
}

}  // namespace
}  // namespace kirameki
