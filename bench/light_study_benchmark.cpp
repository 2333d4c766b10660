// A light study of the default stone (57 facets and a girdle) at 270 px with a tilt study of
// 13 angles: every picture the figures, their pictures and the tilt plot need.
#include <benchmark/benchmark.h>

#include "bench_scene.h"
#include "render/light_study.h"

namespace kirameki {
namespace {

void LightStudy270With13Tilts(benchmark::State& state) {
    BenchScene scene;
    LightStudySetup setup;
    setup.parameters = scene.parameters;
    setup.size = 270;
    setup.tiltSteps = 13;
    LightStudy study;
    for (auto _ : state) {
        RunLightStudy(setup, *scene.model, scene.view.LightDirection, *scene.work, study, {}, {});
        benchmark::DoNotOptimize(study.faceUp.isoBrightness);
    }
}
BENCHMARK(LightStudy270With13Tilts)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(3.0);

// One spectral-fire frame of eight wavelengths against the three-sample fire frame.
void SpectralFrame(benchmark::State& state) {
    BenchScene scene;
    scene.parameters.spectralSamples = int(state.range(0));
    RenderThreads threads;
    FrameImage image;
    for (auto _ : state)
        scene.Render(270, image, threads);
}
BENCHMARK(SpectralFrame)->Arg(0)->Arg(8)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace kirameki

BENCHMARK_MAIN();
