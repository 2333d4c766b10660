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

// A full turn of the default stone: captured into a fresh folder, or only traced.
class Turn {
  public:
    Turn() {
        run_.stem = (dir_ / "Gem").string();
        run_.frameCount = kFrames;
        run_.start = scene_.view;
        run_.parameters = scene_.parameters;
        run_.geometry = {kSize, ScaleForSize(kSize)};
    }
    ~Turn() { fs::remove_all(dir_); }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

    void ClearFolder() const {
        fs::remove_all(dir_);
        fs::create_directories(dir_);
    }
    void Capture() {
        ViewState view = run_.start;
        RunCapture(run_, *scene_.model, view, *scene_.work, image_, sink_, {}, observer_, threads_);
    }
    void Trace() {
        for (int k = 0; k < kFrames; ++k) {
            scene_.Turn(FrameOrientation(run_.start, k, kFrames, false));
            scene_.Render(kSize, image_, threads_);
        }
    }

  private:
    BenchScene scene_;
    const fs::path dir_ = fs::temp_directory_path() / "kirameki-capture-benchmark";
    CaptureRun run_;
    RenderThreads threads_;
    FrameImage image_;
    SilentRenderSink sink_;
    SilentObserver observer_;
};

void Capture128(benchmark::State& state) {
    Turn turn;
    for (auto _ : state) {
        state.PauseTiming();
        turn.ClearFolder();
        state.ResumeTiming();
        turn.Capture();
    }
}
BENCHMARK(Capture128)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void Trace128(benchmark::State& state) {
    Turn turn;
    for (auto _ : state)
        turn.Trace();
}
BENCHMARK(Trace128)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

// The two side by side, alternating, so that both see the same state of the machine: the
// fastest of three captures against the fastest of three tracings of the same frames.
void CaptureOverTracing(benchmark::State& state) {
    Turn turn;
    using Clock = std::chrono::steady_clock;
    const auto seconds = [](Clock::time_point from) {
        return std::chrono::duration<double>(Clock::now() - from).count();
    };
    double capture = 1e9, trace = 1e9;
    for (auto _ : state) {
        for (int round = 0; round < 3; ++round) {
            turn.ClearFolder();
            auto start = Clock::now();
            turn.Capture();
            capture = std::min(capture, seconds(start));
            start = Clock::now();
            turn.Trace();
            trace = std::min(trace, seconds(start));
        }
    }
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
