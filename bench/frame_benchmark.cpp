// Frame rendering speed on the default scene and its variants, on one thread and on all.
#include <benchmark/benchmark.h>

#include <memory>
#include <thread>

#include "model/model_builder.h"
#include "model/stone_tables.h"
#include "render/frame_renderer.h"
#include "render/optics.h"
#include "render/preview_geometry.h"
#include "render/view_state.h"

namespace kirameki {
namespace {

class NullSink : public RenderSink {
  public:
    void RenderStarted() override {}
    void RenderProgress(int) override {}
    void RowsRendered(const FrameImage&, int, int) override {}
    void RenderFinished() override {}
};

struct Scene {
    std::unique_ptr<GemModel> model = std::make_unique<GemModel>();
    std::unique_ptr<TracerWorkAreas> work = std::make_unique<TracerWorkAreas>();
    ViewState view = InitialViewState();
    RenderParameters parameters;

    Scene() {
        BuildModel(0, kDefaultModelParameters, *model);
        TransformVertices(view, *model);
        WriteAllFaceData(*model);
        parameters.stoneColour = Colours()[0].absorption;
        parameters.stoneIndex = 2.42;
        parameters.fireSpread = Stones()[0].coefficient;
    }

    // Rays and tracer segments of one frame, counted once on the side.
    void Count(const RenderGeometry& g, double& rays, double& segments) {
        TraceScene scene;
        scene.lightDirection = view.LightDirection;
        scene.faceCount = model->FaceCount;
        scene.faceTable = model->FaceTable.data();
        scene.work = work.get();
        scene.vertexCount = model->VertexCount;
        scene.viewVertices = model->ViewVertices.data();
        scene.depth = parameters.depth;
        scene.lightVolumes = parameters.lightVolumes;
        PrepareTracer(scene);
        const int f = parameters.highQuality ? 2 : 1, size = g.size * f;
        const double s = g.scale * f, r0 = optics::NormalReflectance(1.0, parameters.stoneIndex);
        rays = segments = 0;
        for (int y = 0; y < size; ++y)
            for (int x = 0; x < size; ++x)
                for (int i = 0; i < (parameters.fire ? 3 : 1); ++i) {
                    TraceResults r;
                    rays += 1;
                    const double factor =
                        parameters.fire ? 1.0 + (i - 1) * parameters.fireSpread : 1;
                    if (!Trace_TraceVector({(x - size / 2) / s, -(y - size / 2) / s, -1.1},
                                           {0, 0, 1}, 1.0, parameters.stoneIndex * factor, 0, r0,
                                           scene, r))
                        break;
                    segments += 1 + r.segments;
                }
    }
};

void RunFrame(benchmark::State& state, bool fire, int depth, bool hq, int size) {
    Scene scene;
    scene.parameters.fire = fire;
    scene.parameters.depth = depth;
    scene.parameters.highQuality = hq;
    scene.parameters.threads = int(state.range(0));
    const RenderGeometry geometry{size, ScaleForSize(size)};
    FrameImage image;
    NullSink sink;
    for (auto _ : state)
        RenderFrame(scene.parameters, *scene.model, scene.view.LightDirection, geometry,
                    *scene.work, image, sink, {});
    double rays = 0, segments = 0;
    scene.Count(geometry, rays, segments);
    state.counters["rays/s"] =
        benchmark::Counter(rays * state.iterations(), benchmark::Counter::kIsRate);
    state.counters["segments/s"] =
        benchmark::Counter(segments * state.iterations(), benchmark::Counter::kIsRate);
}

const int kAllThreads = int(std::max(1u, std::thread::hardware_concurrency()));

#define FRAME_BENCHMARK(name, ...)       \
    void name(benchmark::State& state) { \
        RunFrame(state, __VA_ARGS__);    \
    }                                    \
    BENCHMARK(name)->Arg(1)->Arg(kAllThreads)->Unit(benchmark::kMillisecond)->UseRealTime()

FRAME_BENCHMARK(DefaultFrame, true, 8, false, 270);
FRAME_BENCHMARK(FireOff, false, 8, false, 270);
FRAME_BENCHMARK(Depth20, true, 20, false, 270);
FRAME_BENCHMARK(HighQuality, true, 8, true, 270);
FRAME_BENCHMARK(Size512, true, 8, false, 512);

}  // namespace
}  // namespace kirameki

BENCHMARK_MAIN();
