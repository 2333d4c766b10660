// Frame rendering speed on the default scene and its variants, on one thread and on all.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "bench_scene.h"
#include "model/design.h"
#include "model/design_solid.h"
#include "render/optics.h"

namespace kirameki {
namespace {

struct Scene : BenchScene {
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
    RenderThreads threads;  // kept from frame to frame, as the viewer keeps them
    for (auto _ : state)
        scene.Render(size, image, threads);
    double rays = 0, segments = 0;
    scene.Count(geometry, rays, segments);
    state.counters["rays/s"] =
        benchmark::Counter(rays * double(state.iterations()), benchmark::Counter::kIsRate);
    state.counters["segments/s"] =
        benchmark::Counter(segments * double(state.iterations()), benchmark::Counter::kIsRate);
}

// A 401-facet design (examples/designs/many_facets.asc) in place of the default cut.
void ManyFacets(benchmark::State& state) {
    std::ifstream file(std::string(KIRAMEKI_EXAMPLES_DIR) + "/designs/many_facets.asc");
    std::stringstream text;
    text << file.rdbuf();
    const DesignRead read = ReadDesignText(text.str());
    const SolidBuild build = read.ok ? BuildDesignSolid(read.design) : SolidBuild{};
    Scene scene;
    std::string error;
    if (!build.ok || !FillModel(build.solid, *scene.model, error)) {
        state.SkipWithError("the 401-facet design could not be built");
        return;
    }
    scene.Turn(scene.view);
    scene.parameters.threads = int(state.range(0));
    FrameImage image;
    RenderThreads threads;
    for (auto _ : state)
        scene.Render(270, image, threads);
    state.counters["faces"] = scene.model->FaceCount;
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
BENCHMARK(ManyFacets)->Arg(1)->Arg(kAllThreads)->Unit(benchmark::kMillisecond)->UseRealTime();

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values.empty() ? 0.0 : values[values.size() / 2];
}

// The plain scalar tracer's median milliseconds per frame, read from its report (negative
// when it could not be run).
double ReftraceMilliseconds(const std::string& program, int threads) {
    const std::string command = program + " --repeat 3 --threads " + std::to_string(threads);
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe)
        return -1.0;
    double median = -1.0;
    char line[512];
    while (std::fgets(line, sizeof line, pipe))
        if (const char* found = std::strstr(line, " median "))
            median = std::atof(found + 8);
    return pclose(pipe) == 0 ? median : -1.0;
}

// Our default frame's median milliseconds over three frames, threads kept.
double OwnMilliseconds(int threads) {
    Scene scene;
    scene.parameters.threads = threads;
    RenderThreads pool;
    FrameImage image;
    scene.Render(270, image, pool);
    std::vector<double> times;
    for (int i = 0; i < 3; ++i) {
        const auto start = std::chrono::steady_clock::now();
        scene.Render(270, image, pool);
        times.push_back(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
                .count());
    }
    return Median(times);
}

// Speed is compared with the plain scalar tracer side by side, in alternating rounds on
// the same threads, since the ratio is what holds from machine to machine.
void CompareWithReftrace(const std::string& program) {
    for (int threads : {1, kAllThreads}) {
        std::vector<double> plain, own;
        for (int round = 0; round < 5; ++round) {
            plain.push_back(ReftraceMilliseconds(program, threads));
            own.push_back(OwnMilliseconds(threads));
        }
        const double p = Median(plain), o = Median(own);
        if (p <= 0.0) {
            std::printf("reftrace: %s could not be run\n", program.c_str());
            return;
        }
        std::printf(
            "reftrace ratio, default frame, %d thread%s: plain %.1f ms, ours %.1f ms, "
            "%.2fx\n",
            threads, threads == 1 ? "" : "s", p, o, p / o);
    }
}

}  // namespace
}  // namespace kirameki

// KIRAMEKI_REFTRACE names the plain scalar tracer's program; with it, the ratio of its time
// to ours is printed after the benchmarks.
int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    if (const char* reftrace = std::getenv("KIRAMEKI_REFTRACE"))
        kirameki::CompareWithReftrace(reftrace);
    return 0;
}
