#include "output/palette_remap.h"

#include <algorithm>
#include <array>

#include "output/nearest_colour.h"

namespace kirameki {

namespace {

// The squared distance (about five levels) beyond which a miss counts as large.
constexpr int kLargeMiss = 24;

// Flat areas repeat one colour: the exact-match answer is kept from pixel to pixel.
class ExactMatches {
  public:
    explicit ExactMatches(const NearestColour& nearest) : nearest_(nearest) {}
    int Of(std::uint32_t colour) {
        if (colour != lastColour_) {
            lastColour_ = colour;
            lastExact_ = nearest_.Exact(colour);
        }
        return lastExact_;
    }

  private:
    const NearestColour& nearest_;
    std::uint32_t lastColour_ = ~0u;
    int lastExact_ = -1;
};

// The sums of the pixels drawn in each entry.
class Means {
  public:
    void Add(int index, const std::uint8_t* bgr, const std::vector<std::uint32_t>& palette) {
        Sum& s = sums_[std::size_t(index)];
        s.r += bgr[2];
        s.g += bgr[1];
        s.b += bgr[0];
        ++s.count;
        s.exact |= PackRgb(bgr[2], bgr[1], bgr[0]) == (palette[std::size_t(index)] & 0xffffff);
    }
    void MoveEntries(std::vector<std::uint32_t>& palette) const {
        const auto mean = [](std::int64_t sum, std::int64_t count) {
            return int((2 * sum + count) / (2 * count));
        };
        for (std::size_t i = 0; i < palette.size() && i < sums_.size(); ++i)
            if (const Sum& s = sums_[i]; s.count > 0 && !s.exact)
                palette[i] = PackRgb(mean(s.r, s.count), mean(s.g, s.count), mean(s.b, s.count));
    }

  private:
    struct Sum {
        std::int64_t r = 0, g = 0, b = 0, count = 0;
        bool exact = false;
    };
    std::array<Sum, 256> sums_{};
};

bool Drawable(const FrameImage& image, const std::vector<std::uint32_t>& palette,
              std::vector<std::uint8_t>& pixels) {
    pixels.assign(std::size_t(image.Width()) * std::size_t(image.Height()), 0);
    return !palette.empty() && !image.Empty();
}

}  // namespace

void RemapDithered(const FrameImage& image, const std::vector<std::uint32_t>& palette,
                   std::vector<std::uint8_t>& pixels) {
    if (!Drawable(image, palette, pixels))
        return;
    const int w = image.Width(), h = image.Height();
    NearestColour nearest(palette);
    ExactMatches exact(nearest);
    // Errors in 64ths of a level, three channels a pixel, one pixel of margin each side: the
    // row being drawn and the row below it.
    std::vector<int> here(std::size_t(w + 2) * 3, 0), below(here.size(), 0);
    for (int y = 0; y < h; ++y) {
        const std::uint8_t* bgr = image.Row(y);
        std::uint8_t* out = pixels.data() + std::size_t(y) * std::size_t(w);
        const int step = y % 2 == 0 ? 1 : -1;
        std::fill(below.begin(), below.end(), 0);
        for (int i = 0; i < w; ++i) {
            const int x = step > 0 ? i : w - 1 - i;
            const int r = bgr[3 * x + 2], g = bgr[3 * x + 1], b = bgr[3 * x];
            if (const int found = exact.Of(PackRgb(r, g, b)); found >= 0) {
                out[x] = std::uint8_t(found);
                continue;
            }
            int* e = &here[std::size_t(x + 1) * 3];
            const int want[3] = {std::clamp(r + ((e[0] + 32) >> 6), 0, 255),
                                 std::clamp(g + ((e[1] + 32) >> 6), 0, 255),
                                 std::clamp(b + ((e[2] + 32) >> 6), 0, 255)};
            const int index = nearest.Nearest(want[0], want[1], want[2]);
            out[x] = std::uint8_t(index);
            const std::uint32_t got = palette[std::size_t(index)];
            int miss[3] = {want[0] - RedOf(got), want[1] - GreenOf(got), want[2] - BlueOf(got)};
            // A large miss passed on whole swings the next pixels to entries of another hue,
            // which shows as coloured specks on flat facets: it is carried at three quarters.
            const int carry =
                miss[0] * miss[0] + miss[1] * miss[1] + miss[2] * miss[2] > kLargeMiss ? 3 : 4;
            for (int& m : miss)
                m *= carry;
            int* ahead = e + 3 * step;
            int* under = &below[std::size_t(x + 1) * 3];
            for (int c = 0; c < 3; ++c) {
                ahead[c] += 7 * miss[c];
                under[c - 3 * step] += 3 * miss[c];
                under[c] += 5 * miss[c];
                under[c + 3 * step] += miss[c];
            }
        }
        std::swap(here, below);
    }
}

void MoveEntriesToMeans(const FrameImage& image, const std::vector<std::uint8_t>& pixels,
                        std::vector<std::uint32_t>& palette) {
    const int w = image.Width(), h = image.Height();
    if (pixels.size() != std::size_t(w) * std::size_t(h) || palette.empty())
        return;
    Means means;
    for (int y = 0; y < h; ++y) {
        const std::uint8_t* bgr = image.Row(y);
        const std::uint8_t* in = pixels.data() + std::size_t(y) * std::size_t(w);
        for (int x = 0; x < w; ++x, bgr += 3)
            if (in[x] < palette.size())
                means.Add(in[x], bgr, palette);
    }
    means.MoveEntries(palette);
}

void MoveEntriesToNearestMeans(const FrameImage& image, std::vector<std::uint32_t>& palette,
                               int step) {
    if (image.Empty() || palette.empty() || step < 1)
        return;
    NearestColour nearest(palette);
    ExactMatches exact(nearest);
    Means means;
    for (int y = 0; y < image.Height(); y += step) {
        const std::uint8_t* bgr = image.Row(y);
        for (int x = 0; x < image.Width(); x += step, bgr += 3 * step) {
            const int found = exact.Of(PackRgb(bgr[2], bgr[1], bgr[0]));
            means.Add(found >= 0 ? found : nearest.Nearest(bgr[2], bgr[1], bgr[0]), bgr, palette);
        }
    }
    means.MoveEntries(palette);
}

}  // namespace kirameki
