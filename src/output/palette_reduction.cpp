#include "output/palette_reduction.h"

#include <libimagequant.h>
#if KIRAMEKI_OPENMP
#include <omp.h>
#endif

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <vector>

#include "output/palette_remap.h"

namespace kirameki {

namespace {

// Gem pictures are smooth gradients plus small saturated sparks. The library chooses the
// palette (speed 8, from every second row); two k-means steps over every pixel refine it, and
// our own dithering draws the picture, about twice as fast as the library's remapping, so
// that reducing frame k on one core keeps up with tracing frame k + 1 on the other. Measured
// over sixteen frames of a turn of a colourless, a blue and an orange stone
// (bench/palette_benchmark): about 6 ms a 270-pixel frame against 10-12 ms for the library's
// own remapping at speed 8, with a squared error per channel of 4.6, 2.5 and 1.6 against 6.2,
// 3.6 and 2.2 (about 1.4 dB better; speed 5 takes 28 ms for 3.3, 1.8 and 1.0). The quality
// range never refuses a picture.
constexpr int kSpeed = 8;
constexpr int kMeansSampleStep = 2;
constexpr int kQuantiserRowStep = 2;

struct AttrDeleter {
    void operator()(liq_attr* p) const { liq_attr_destroy(p); }
};
struct ImageDeleter {
    void operator()(liq_image* p) const { liq_image_destroy(p); }
};
struct ResultDeleter {
    void operator()(liq_result* p) const { liq_result_destroy(p); }
};

const char* LiqErrorText(liq_error code) {
    switch (code) {
        case LIQ_QUALITY_TOO_LOW:
            return "quality too low";
        case LIQ_VALUE_OUT_OF_RANGE:
            return "value out of range";
        case LIQ_OUT_OF_MEMORY:
            return "out of memory";
        case LIQ_ABORTED:
            return "aborted";
        default:
            return "internal error";
    }
}

constexpr int Expand5(int v5) {
    return (v5 << 3) | (v5 >> 2);
}

constexpr std::array<std::uint8_t, 256> MakeNearest555() {
    std::array<std::uint8_t, 256> table{};
    for (int v = 0; v < 256; ++v) {
        int best = 0;
        for (int v5 = 1; v5 < 32; ++v5) {
            const int d = Expand5(v5) - v, bestD = Expand5(best) - v;
            if (d * d < bestD * bestD)
                best = v5;
        }
        table[v] = std::uint8_t(Expand5(best));
    }
    return table;
}

constexpr std::array<std::uint8_t, 256> kNearest555 = MakeNearest555();

}  // namespace

bool ReduceTo256Colours(const FrameImage& image, IndexedImage& out, std::string& error) {
    out = IndexedImage{};
    if (image.Empty()) {
        error = "Cannot reduce the colours of an empty picture";
        return false;
    }
    const int w = image.Width(), h = image.Height();
    // The library chooses the palette from every second row; the k-means steps below see them
    // all.
    const int sampledRows = (h + kQuantiserRowStep - 1) / kQuantiserRowStep;
    std::vector<std::uint8_t> rgba(std::size_t(w) * std::size_t(sampledRows) * 4);
    for (int row = 0; row < sampledRows; ++row) {
        const std::uint8_t* bgr = image.Row(row * kQuantiserRowStep);
        std::uint8_t* o = rgba.data() + std::size_t(row) * std::size_t(w) * 4;
        for (int x = 0; x < w; ++x, bgr += 3, o += 4) {
            o[0] = bgr[2];
            o[1] = bgr[1];
            o[2] = bgr[0];
            o[3] = 255;
        }
    }
#if KIRAMEKI_OPENMP
    // One thread: the reduction runs beside the tracer (setting this thread's count only).
    omp_set_num_threads(1);
#endif
    std::unique_ptr<liq_attr, AttrDeleter> attr(liq_attr_create());
    if (!attr) {
        error = "Palette reduction failed: out of memory";
        return false;
    }
    liq_set_max_colors(attr.get(), 256);
    liq_set_speed(attr.get(), kSpeed);
    liq_set_quality(attr.get(), 0, 100);
    std::unique_ptr<liq_image, ImageDeleter> input(
        liq_image_create_rgba(attr.get(), rgba.data(), w, sampledRows, 0));
    if (!input) {
        error = "Palette reduction failed: the picture was not accepted";
        return false;
    }
    liq_result* raw = nullptr;
    liq_error code = liq_image_quantize(input.get(), attr.get(), &raw);
    std::unique_ptr<liq_result, ResultDeleter> result(raw);
    if (code != LIQ_OK) {
        error = std::string("Palette reduction failed: ") + LiqErrorText(code);
        return false;
    }
    const liq_palette* palette = liq_get_palette(result.get());
    for (unsigned i = 0; i < palette->count; ++i)
        out.palette.push_back(
            PackRgb(palette->entries[i].r, palette->entries[i].g, palette->entries[i].b));
    // One k-means step over the undithered picture, then the dithered drawing, then its own
    // k-means step.
    MoveEntriesToNearestMeans(image, out.palette, kMeansSampleStep);
    RemapDithered(image, out.palette, out.pixels);
    MoveEntriesToMeans(image, out.pixels, out.palette);
    out.width = w;
    out.height = h;
    return true;
}

void RepairBackground(IndexedImage& image, std::uint32_t background) {
    if (image.pixels.empty() || image.pixels[0] >= image.palette.size())
        return;
    const std::uint32_t found = image.palette[image.pixels[0]];
    if (found == background)
        return;
    std::replace(image.palette.begin(), image.palette.end(), found, background);
}

void ReduceTo555(FrameImage& image) {
    for (int y = 0; y < image.Height(); ++y) {
        std::uint8_t* row = image.Row(y);
        for (int i = 0; i < 3 * image.Width(); ++i)
            row[i] = kNearest555[row[i]];
    }
}

namespace {

// Margins kept within the picture so that at least one pixel stays.
std::array<int, 4> ClampedMargins(int w, int h, int top, int bottom, int left, int right) {
    left = std::clamp(left, 0, w - 1);
    right = std::clamp(right, 0, w - 1 - left);
    top = std::clamp(top, 0, h - 1);
    bottom = std::clamp(bottom, 0, h - 1 - top);
    return {top, bottom, left, right};
}

}  // namespace

std::array<int, 2> TrimmedSize(int width, int height, bool trimming,
                               const std::array<std::int32_t, 4>& m) {
    if (!trimming)
        return {width, height};
    const auto [top, bottom, left, right] = ClampedMargins(width, height, m[0], m[1], m[2], m[3]);
    return {width - left - right, height - top - bottom};
}

FrameImage Trimmed(const FrameImage& image, int top, int bottom, int left, int right) {
    const int w = image.Width(), h = image.Height();
    if (image.Empty())
        return {};
    const auto [t, b, l, r] = ClampedMargins(w, h, top, bottom, left, right);
    FrameImage out(w - l - r, h - t - b);
    for (int y = 0; y < out.Height(); ++y)
        std::copy_n(image.Row(y + t) + 3 * l, 3 * out.Width(), out.Row(y));
    return out;
}

}  // namespace kirameki
