// The automatic capture end to end: 128 frames at 270 pixels traced, reduced to their
// palettes and written, against the time of tracing the same frames alone.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string>

#include "bench_scene.h"
#include "output/capture_loop.h"
#include "output/indexed_image.h"
#include "output/palette_reduction.h"

namespace kirameki {
namespace {

namespace fs = std::filesystem;

constexpr int kFrames = 128;
constexpr int kSize = 270;

class SilentObserver : public CaptureObserver {
  public:
    void FrameStarted(int, int) override {}
    void Turned(const GemModel&, const ViewState&) override {}
};

// A full turn of the scene's stone, its frames in dir.
CaptureRun TurnOf(const BenchScene& scene, const fs::path& dir) {
    CaptureRun run;
    run.stem = (dir / "Gem").string();
    run.frameCount = kFrames;
    run.start = scene.view;
    run.parameters = scene.parameters;
    run.geometry = {kSize, ScaleForSize(kSize)};
    return run;
}

void Capture128(benchmark::State& state) {
    BenchScene scene;
    const fs::path dir = fs::temp_directory_path() / "kirameki-capture-benchmark";
    const CaptureRun run = TurnOf(scene, dir);
    RenderThreads threads;
    FrameImage image;
    SilentRenderSink sink;
    SilentObserver observer;
    for (auto _ : state) {
        state.PauseTiming();
        fs::remove_all(dir);
        fs::create_directories(dir);
        state.ResumeTiming();
        ViewState view = run.start;
        RunCapture(run, *scene.model, view, *scene.work, image, sink, {}, observer, threads);
    }
    fs::remove_all(dir);
}
BENCHMARK(Capture128)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void Trace128(benchmark::State& state) {
    BenchScene scene;
    const ViewState start = scene.view;
    RenderThreads threads;
    FrameImage image;
    for (auto _ : state)
        for (int k = 0; k < kFrames; ++k) {
            scene.Turn(FrameOrientation(start, k, kFrames, false));
            scene.Render(kSize, image, threads);
        }
}
BENCHMARK(Trace128)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

// The two side by side, alternating, so that both see the same state of the machine: the
// fastest of three captures against the fastest of three tracings of the same frames.
void CaptureOverTracing(benchmark::State& state) {
    BenchScene scene;
    const fs::path dir = fs::temp_directory_path() / "kirameki-capture-benchmark";
    const CaptureRun run = TurnOf(scene, dir);
    RenderThreads threads;
    FrameImage image;
    SilentRenderSink sink;
    SilentObserver observer;
    using Clock = std::chrono::steady_clock;
    const auto seconds = [](Clock::time_point from) {
        return std::chrono::duration<double>(Clock::now() - from).count();
    };
    double capture = 1e9, trace = 1e9;
    for (auto _ : state) {
        for (int round = 0; round < 3; ++round) {
            fs::remove_all(dir);
            fs::create_directories(dir);
            auto start = Clock::now();
            ViewState view = run.start;
            RunCapture(run, *scene.model, view, *scene.work, image, sink, {}, observer, threads);
            capture = std::min(capture, seconds(start));
            start = Clock::now();
            for (int k = 0; k < kFrames; ++k) {
                scene.Turn(FrameOrientation(run.start, k, kFrames, false));
                scene.Render(kSize, image, threads);
            }
            trace = std::min(trace, seconds(start));
        }
    }
    fs::remove_all(dir);
    state.counters["capture s"] = capture;
    state.counters["trace s"] = trace;
    state.counters["ratio"] = capture / trace;
}
BENCHMARK(CaptureOverTracing)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

// One frame's palette reduction, as each captured frame has it.
void PaletteReduction(benchmark::State& state) {
    BenchScene scene;
    RenderThreads threads;
    FrameImage image;
    scene.Render(kSize, image, threads);
    IndexedImage indexed;
    std::string error;
    for (auto _ : state)
        ReduceTo256Colours(image, indexed, error);
}
BENCHMARK(PaletteReduction)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace kirameki

BENCHMARK_MAIN();
