// The palette reduction of a captured frame: time against the error of the reduced picture,
// over sixteen frames of a turn of a colourless, a blue and an orange stone (one thread, as
// the capture runs it). Three ways side by side: the library's own dithered remapping at two
// speed settings, and the reduction the program uses (the library's palette, refined by
// k-means steps, drawn by our own dithering).
#include <benchmark/benchmark.h>
#include <libimagequant.h>
#include <omp.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "bench_scene.h"
#include "model/stone_tables.h"
#include "output/capture_loop.h"
#include "output/indexed_image.h"
#include "output/palette_reduction.h"

namespace kirameki {
namespace {

constexpr int kSize = 270;

std::vector<FrameImage> CaptureFrames(int colour) {
    BenchScene scene;
    scene.parameters.stoneColour = Colours()[colour].absorption;
    const ViewState start = scene.view;
    RenderThreads threads;
    std::vector<FrameImage> frames;
    for (int k = 0; k < 128; k += 8) {
        scene.Turn(FrameOrientation(start, k, 128, false));
        scene.Render(kSize, frames.emplace_back(), threads);
    }
    return frames;
}

const std::vector<FrameImage>& Frames(int colour) {
    static const std::vector<FrameImage> colourless = CaptureFrames(0), blue = CaptureFrames(3),
                                         orange = CaptureFrames(6);
    return colour == 0 ? colourless : colour == 3 ? blue : orange;
}

// The library's own remapping, as the capture did before: quantise and remap dithered.
IndexedImage LibraryReduction(const FrameImage& image, int speed) {
    std::vector<unsigned char> rgba(std::size_t(kSize) * kSize * 4);
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x) {
            const std::uint32_t c = image.Pixel(x, y);
            unsigned char* o = &rgba[(std::size_t(y) * kSize + std::size_t(x)) * 4];
            o[0] = std::uint8_t(RedOf(c));
            o[1] = std::uint8_t(GreenOf(c));
            o[2] = std::uint8_t(BlueOf(c));
            o[3] = 255;
        }
    liq_attr* attr = liq_attr_create();
    liq_set_max_colors(attr, 256);
    liq_set_speed(attr, speed);
    liq_set_quality(attr, 0, 100);
    liq_image* input = liq_image_create_rgba(attr, rgba.data(), kSize, kSize, 0);
    liq_result* result = nullptr;
    IndexedImage out{kSize, kSize, {}, {}};
    if (liq_image_quantize(input, attr, &result) == LIQ_OK) {
        liq_set_dithering_level(result, 1.0f);
        out.pixels.resize(std::size_t(kSize) * kSize);
        if (liq_write_remapped_image(result, input, out.pixels.data(), out.pixels.size()) ==
            LIQ_OK) {
            const liq_palette* palette = liq_get_palette(result);
            for (unsigned i = 0; i < palette->count; ++i)
                out.palette.push_back(
                    PackRgb(palette->entries[i].r, palette->entries[i].g, palette->entries[i].b));
        }
        liq_result_destroy(result);
    }
    liq_image_destroy(input);
    liq_attr_destroy(attr);
    return out;
}

IndexedImage ProgramReduction(const FrameImage& image) {
    IndexedImage out;
    std::string error;
    ReduceTo256Colours(image, out, error);
    return out;
}

struct Errors {
    double mean = 0.0;   // squared error per channel
    double worst = 0.0;  // of the 1 pixel in 1000 drawn worst, the least squared error per pixel
};

Errors SquaredErrors(const FrameImage& image, const IndexedImage& reduced) {
    if (!IndexedImageProblem(reduced).empty())
        return {-1.0, -1.0};
    double sum = 0.0;
    std::vector<int> perPixel;
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x) {
            const std::uint32_t want = image.Pixel(x, y);
            const std::uint32_t got = reduced.palette[reduced.pixels[std::size_t(y) * kSize + x]];
            const int d[3] = {RedOf(want) - RedOf(got), GreenOf(want) - GreenOf(got),
                              BlueOf(want) - BlueOf(got)};
            perPixel.push_back(d[0] * d[0] + d[1] * d[1] + d[2] * d[2]);
            sum += perPixel.back();
        }
    const auto worst = perPixel.end() - std::ptrdiff_t(perPixel.size() / 1000);
    std::nth_element(perPixel.begin(), worst, perPixel.end());
    return {sum / (3.0 * kSize * kSize), double(*worst)};
}

template <typename Reduce>
void Measure(benchmark::State& state, Reduce reduce) {
    omp_set_num_threads(1);
    const std::vector<FrameImage>& frames = Frames(int(state.range(0)));
    double mse = 0.0, worst = 0.0;
    for (const FrameImage& frame : frames) {
        const Errors errors = SquaredErrors(frame, reduce(frame));
        mse += errors.mean / double(frames.size());
        worst += errors.worst / double(frames.size());
    }
    std::size_t next = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(reduce(frames[next++ % frames.size()]));
    state.counters["MSE"] = mse;
    state.counters["PSNR dB"] = 10.0 * std::log10(255.0 * 255.0 / mse);
    state.counters["worst 0.1%"] = worst;
}

void LibraryRemapSpeed5(benchmark::State& state) {
    Measure(state, [](const FrameImage& f) { return LibraryReduction(f, 5); });
}
void LibraryRemapSpeed8(benchmark::State& state) {
    Measure(state, [](const FrameImage& f) { return LibraryReduction(f, 8); });
}
void ProgramPaletteReduction(benchmark::State& state) {
    Measure(state, ProgramReduction);
}
BENCHMARK(LibraryRemapSpeed5)->Arg(0)->Arg(3)->Arg(6)->Unit(benchmark::kMillisecond);
BENCHMARK(LibraryRemapSpeed8)->Arg(0)->Arg(3)->Arg(6)->Unit(benchmark::kMillisecond);
BENCHMARK(ProgramPaletteReduction)->Arg(0)->Arg(3)->Arg(6)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kirameki

BENCHMARK_MAIN();
