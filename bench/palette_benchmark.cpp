// The palette reduction's speed setting: time per captured frame against the quality of the
// palette, over sixteen frames of a capture (one thread, as the capture runs it).
#include <benchmark/benchmark.h>
#include <libimagequant.h>
#include <omp.h>

#include <cmath>
#include <vector>

#include "bench_scene.h"
#include "output/capture_loop.h"

namespace kirameki {
namespace {

constexpr int kSize = 270;

std::vector<std::vector<unsigned char>> CaptureFrames() {
    BenchScene scene;
    const ViewState start = scene.view;
    RenderThreads threads;
    std::vector<std::vector<unsigned char>> frames;
    for (int k = 0; k < 128; k += 8) {
        scene.Turn(FrameOrientation(start, k, 128, false));
        FrameImage image;
        scene.Render(kSize, image, threads);
        std::vector<unsigned char> rgba(std::size_t(kSize) * kSize * 4);
        for (int y = 0; y < kSize; ++y)
            for (int x = 0; x < kSize; ++x) {
                const unsigned char* bgr = image.Row(y) + 3 * x;
                unsigned char* o = &rgba[(std::size_t(y) * kSize + std::size_t(x)) * 4];
                o[0] = bgr[2];
                o[1] = bgr[1];
                o[2] = bgr[0];
                o[3] = 255;
            }
        frames.push_back(std::move(rgba));
    }
    return frames;
}

// Reduces one frame as the capture does, at the given speed; returns the mean squared error
// of the dithered picture against the original, per channel.
double Reduce(std::vector<unsigned char>& rgba, int speed) {
    liq_attr* attr = liq_attr_create();
    liq_set_max_colors(attr, 256);
    liq_set_speed(attr, speed);
    liq_set_quality(attr, 0, 100);
    liq_image* input = liq_image_create_rgba(attr, rgba.data(), kSize, kSize, 0);
    liq_result* result = nullptr;
    double mse = -1.0;
    if (liq_image_quantize(input, attr, &result) == LIQ_OK) {
        liq_set_dithering_level(result, 1.0f);
        std::vector<unsigned char> pixels(std::size_t(kSize) * kSize);
        if (liq_write_remapped_image(result, input, pixels.data(), pixels.size()) == LIQ_OK) {
            const liq_palette* palette = liq_get_palette(result);
            double sum = 0.0;
            for (std::size_t i = 0; i < pixels.size(); ++i) {
                const liq_color c = palette->entries[pixels[i]];
                const int d[3] = {rgba[4 * i] - c.r, rgba[4 * i + 1] - c.g, rgba[4 * i + 2] - c.b};
                sum += d[0] * d[0] + d[1] * d[1] + d[2] * d[2];
            }
            mse = sum / double(pixels.size() * 3);
        }
        liq_result_destroy(result);
    }
    liq_image_destroy(input);
    liq_attr_destroy(attr);
    return mse;
}

void PaletteSpeed(benchmark::State& state) {
    omp_set_num_threads(1);
    static std::vector<std::vector<unsigned char>> frames = CaptureFrames();
    const int speed = int(state.range(0));
    double mse = 0.0;
    for (auto& frame : frames)
        mse += Reduce(frame, speed) / double(frames.size());
    std::size_t next = 0;
    for (auto _ : state)
        Reduce(frames[next++ % frames.size()], speed);
    state.counters["MSE"] = mse;
    state.counters["PSNR dB"] = 10.0 * std::log10(255.0 * 255.0 / mse);
}
BENCHMARK(PaletteSpeed)->DenseRange(1, 10)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kirameki

BENCHMARK_MAIN();
