// The live view during a scripted drag of 200 steps (a degree each about the vertical axis):
// frames per second of the quick pass (every second pixel) and of the full picture, each
// traced at every step as the worker traces them, on kept render threads.
#include <benchmark/benchmark.h>

#include <numbers>

#include "bench_scene.h"
#include "render/render_threads.h"
#include "render/rotation_steps.h"

namespace kirameki {
namespace {

void LiveDrag200Steps(benchmark::State& state) {
    const bool quick = state.range(0) == 1;
    BenchScene scene;
    RenderThreads threads;
    FrameImage image;
    const auto step = StepFrame({TurnAxis::kY, 1, false}, std::numbers::pi / 180.0);
    const int size = quick ? (270 + 1) / 2 : 270;
    SilentRenderSink sink;
    for (auto _ : state) {
        ViewState view = InitialViewState();
        for (int i = 0; i < 200; ++i) {
            RotationStep(view.view, *step);
            scene.Turn(view);
            RenderFrame(scene.parameters, *scene.model, scene.view.LightDirection,
                        {size, quick ? ScaleForSize(270) / 2 : ScaleForSize(270)}, *scene.work,
                        image, sink, {}, threads);
        }
    }
    state.counters["frames/s"] =
        benchmark::Counter(200.0 * double(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(LiveDrag200Steps)
    ->Arg(1)
    ->Arg(0)
    ->ArgName("quick")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
}  // namespace kirameki

BENCHMARK_MAIN();
