#include "render/frame_renderer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <vector>

#include "model/model_builder.h"
#include "render/optics.h"
#include "render/preview_geometry.h"
#include "render/view_state.h"

namespace kirameki {
namespace {

TEST(MapPixel, FloorsAndCapsAsTheColourMappingSays) {
    const std::array<std::int32_t, 3> back = {10, 20, 30};
    EXPECT_EQ(MapPixel(true, 0.0, 0.0, 0.0, 0.0, back), PackRgb(40, 40, 40));
    // The colour part stops at 240; with the highlight floor added, 255 at most.
    EXPECT_EQ(MapPixel(true, 0.0, 1.0, 0.1, 0.0, back), PackRgb(255, 200, 40));
    EXPECT_EQ(MapPixel(true, 0.1, 1.0, 0.0, 0.0, back), PackRgb(255, 140, 140));
    EXPECT_EQ(MapPixel(false, 5.0, 1.0, 1.0, 1.0, back), PackRgb(10, 20, 30));
    // A damaged back colour is kept within a byte.
    EXPECT_EQ(MapPixel(false, 0, 0, 0, 0, {300, -5, 0}), PackRgb(255, 0, 0));
}

TEST(MapPixel, RoundsEveryLevelAsTheLibraryRoundsIt) {
    // Intensities that land on each level, on each half between two levels and a hair to
    // either side of it.
    const std::array<std::int32_t, 3> back = {0, 0, 0};
    for (int level = 0; level < 220; ++level)
        for (double offset : {0.0, 0.5, 0.25, 0.75}) {
            const double target = level + offset;
            for (double v : {target, std::nextafter(target, 0.0), std::nextafter(target, 256.0)}) {
                const double intensity = (v - 20.0) / 1600.0;
                const double mapped =
                    std::min(std::max(intensity * 1600.0 + 20.0, 0.0), 240.0) + 20.0;
                const int expected = int(std::lround(std::min(mapped, 255.0)));
                EXPECT_EQ(MapPixel(true, 0.0, intensity, 0.0, 0.0, back) & 0xff,
                          std::uint32_t(expected))
                    << v;
            }
        }
}

TEST(FirePixel, AMissOnTheLastSampleGivesTheBackColour) {
    const std::array<std::int32_t, 3> back = {1, 2, 3};
    std::vector<double> indices;
    const auto thirdMisses = [&](double index, TraceResults& r) {
        indices.push_back(index);
        r.colour[0] = r.colour[1] = r.colour[2] = 0.05;
        return indices.size() < 3;
    };
    EXPECT_EQ(FirePixel(thirdMisses, 2.0, 0.025, back), PackRgb(1, 2, 3));
    ASSERT_EQ(indices.size(), 3u);
    EXPECT_DOUBLE_EQ(indices[0], 2.0 * 0.975);
    EXPECT_DOUBLE_EQ(indices[2], 2.0 * 1.025);
    // A first miss stops sampling at once.
    int calls = 0;
    const auto firstMisses = [&](double, TraceResults&) { return ++calls > 5; };
    EXPECT_EQ(FirePixel(firstMisses, 2.0, 0.025, back), PackRgb(1, 2, 3));
    EXPECT_EQ(calls, 1);
    // All hit: each channel's weights sum to one, so equal samples give the plain pixel.
    const auto allHit = [&](double, TraceResults& r) {
        r.highlight = 0.0;
        r.colour[0] = r.colour[1] = r.colour[2] = 0.05;
        return true;
    };
    EXPECT_EQ(FirePixel(allHit, 2.0, 0.025, back), MapPixel(true, 0.0, 0.05, 0.05, 0.05, back));
}

// Records the notifications of one render.
class RecordingSink : public RenderSink {
  public:
    std::vector<int> progress;
    int started = 0, finished = 0, rowsShown = 0, lastRowShown = -1;
    bool rowsInOrder = true;

    void RenderStarted() override { ++started; }
    void RenderProgress(int percent) override { progress.push_back(percent); }
    void RowsRendered(const FrameImage&, int first, int last) override {
        rowsInOrder = rowsInOrder && first == lastRowShown + 1 && last >= first;
        lastRowShown = last;
        rowsShown += last - first + 1;
    }
    void RenderFinished() override { ++finished; }
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
        parameters.backColour = {0, 0, 90};
    }
    int Render(FrameImage& image, RecordingSink& sink, const AbortPoll& poll = {}, int size = 64) {
        return RenderFrame(parameters, *model, view.LightDirection, {size, ScaleForSize(size)},
                           *work, image, sink, poll);
    }
    int Render(FrameImage& image, RecordingSink& sink, RenderThreads& threads,
               const AbortPoll& poll = {}, int size = 64) {
        return RenderFrame(parameters, *model, view.LightDirection, {size, ScaleForSize(size)},
                           *work, image, sink, poll, threads);
    }
};

TEST(RenderFrame, ReportsProgressUpTo100AndShowsEveryRowInOrder) {
    Scene scene;
    FrameImage image;
    RecordingSink sink;
    EXPECT_EQ(scene.Render(image, sink), 1);
    EXPECT_EQ(sink.started, 1);
    EXPECT_EQ(sink.finished, 1);
    ASSERT_GE(sink.progress.size(), 2u);
    EXPECT_EQ(sink.progress.front(), 0);
    EXPECT_EQ(sink.progress.back(), 100);
    for (size_t i = 1; i < sink.progress.size(); ++i)
        EXPECT_GT(sink.progress[i], sink.progress[i - 1]);
    EXPECT_EQ(sink.rowsShown, 64);
    EXPECT_TRUE(sink.rowsInOrder);
    // The corner is background, the centre is stone.
    EXPECT_EQ(image.Pixel(0, 0), PackRgb(0, 0, 90));
    EXPECT_NE(image.Pixel(32, 32), PackRgb(0, 0, 90));
}

TEST(RenderFrame, AnAbortBeforeTheFirstRowPostsOnlyZeroThenFinished) {
    Scene scene;
    FrameImage image;
    RecordingSink sink;
    int polls = 0;
    EXPECT_EQ(scene.Render(image, sink, [&] { return ++polls == 1; }), 0);
    EXPECT_EQ(polls, 1);
    EXPECT_EQ(sink.progress, std::vector<int>{0});
    EXPECT_EQ(sink.finished, 1);
    EXPECT_EQ(sink.rowsShown, 0);
}

TEST(RenderFrame, AnAbortMidwayStopsPollingAndKeepsThePartialPicture) {
    Scene scene;
    FrameImage image;
    RecordingSink sink;
    int polls = 0;
    EXPECT_EQ(scene.Render(image, sink, [&] { return ++polls == 20; }), 0);
    EXPECT_EQ(polls, 20);  // once per row until the abort
    EXPECT_LT(sink.progress.back(), 100);
    EXPECT_GE(sink.rowsShown, 19);
    EXPECT_EQ(image.Pixel(0, 63), PackRgb(0, 0, 0));  // the rows below were never drawn
}

TEST(RenderFrame, ThePictureIsTheSameOnAnyNumberOfThreads) {
    Scene scene;
    FrameImage one, two, five;
    RecordingSink sink;
    scene.parameters.threads = 1;
    scene.Render(one, sink, {}, 96);
    scene.parameters.threads = 2;
    scene.Render(two, sink, {}, 96);
    scene.parameters.threads = 5;
    scene.Render(five, sink, {}, 96);
    EXPECT_EQ(one.Bytes(), two.Bytes());
    EXPECT_EQ(one.Bytes(), five.Bytes());
    // Threads kept from frame to frame, through an abort and a change of count.
    RenderThreads threads;
    for (int count : {2, 5, 1, 2}) {
        FrameImage kept, partial;
        scene.parameters.threads = count;
        int polls = 0;
        EXPECT_EQ(scene.Render(
                      partial, sink, threads, [&] { return ++polls == 30; }, 96),
                  0);
        EXPECT_EQ(scene.Render(kept, sink, threads, {}, 96), 1);
        EXPECT_EQ(one.Bytes(), kept.Bytes()) << count;
    }
}

TEST(RenderFrame, HighQualityRendersTwiceTheSizeAndShowsThePictureAtTheEnd) {
    Scene scene;
    scene.parameters.highQuality = true;
    FrameImage image;
    RecordingSink sink;
    int polls = 0;
    EXPECT_EQ(scene.Render(image, sink,
                           [&] {
                               ++polls;
                               return false;
                           }),
              1);
    EXPECT_EQ(polls, 128);  // one per row of the double-size picture
    EXPECT_EQ(image.Width(), 64);
    EXPECT_EQ(sink.rowsShown, 64);
    EXPECT_EQ(sink.progress.back(), 100);
}

// The frame as the plain per-ray rule makes it: every pixel's rays traced one by one with
// Trace_TraceVector, searching every face, then the fire rule, the colour mapping and the
// high-quality reduction.
FrameImage PlainFrame(const Scene& scene, int size) {
    const RenderParameters& p = scene.parameters;
    auto work = std::make_unique<TracerWorkAreas>();
    TraceScene trace;
    trace.lightDirection = scene.view.LightDirection;
    trace.faceCount = scene.model->FaceCount;
    trace.faceTable = scene.model->FaceTable.data();
    trace.work = work.get();
    trace.vertexCount = scene.model->VertexCount;
    trace.viewVertices = scene.model->ViewVertices.data();
    trace.depth = p.depth;
    trace.stoneColour = p.stoneColour;
    trace.backColour = p.backColour;
    trace.lightVolumes = p.lightVolumes;
    trace.narrowMainLight = p.narrowMainLight;
    PrepareTracer(trace);
    const int f = p.highQuality ? 2 : 1, n = size * f;
    const double s = double(std::lround(ScaleForSize(size) * double(f)));
    const long centre = std::lround(n * 0.5);
    const double r0 = optics::NormalReflectance(p.outerIndex, p.stoneIndex);
    FrameImage picture(n, n);
    for (int y = 0; y < n; ++y)
        for (int x = 0; x < n; ++x) {
            const Vec3 origin = {double(x - centre) / s, -double(y - centre) / s, -1.1};
            const auto trace1 = [&](double index, TraceResults& r) {
                return Trace_TraceVector(origin, {0, 0, 1}, p.outerIndex, index, 0, r0, trace, r) !=
                       0;
            };
            if (p.fire) {
                picture.SetPixel(x, y, FirePixel(trace1, p.stoneIndex, p.fireSpread, p.backColour));
                continue;
            }
            TraceResults r;
            const bool hit = trace1(p.stoneIndex, r);
            picture.SetPixel(
                x, y,
                MapPixel(hit, r.highlight, r.colour[0], r.colour[1], r.colour[2], p.backColour));
        }
    if (f == 1)
        return picture;
    FrameImage half;
    half.Create(size, size);
    picture.ReduceByHalf(half);
    return half;
}

TEST(RenderFrame, ThePictureIsExactlyThatOfTracingEveryRayAlone) {
    // The renderer traces rays in bundles that share work; pixel for pixel its pictures
    // must be those of the plain rule, with fire and without, deep, coloured and doubled.
    Scene scene;
    scene.parameters.threads = 2;
    scene.parameters.fireSpread = 0.025;
    RecordingSink sink;
    for (int variant = 0; variant < 5; ++variant) {
        Scene& s = scene;
        s.parameters.fire = variant != 1;
        s.parameters.depth = variant == 2 ? 20 : 8;
        s.parameters.highQuality = variant == 3;
        s.parameters.stoneColour =
            variant == 4 ? std::array<double, 3>{0.02, 0.0, 0.04} : std::array<double, 3>{};
        const int size = variant == 3 ? 70 : 131;
        FrameImage rendered;
        s.Render(rendered, sink, {}, size);
        const FrameImage plain = PlainFrame(s, size);
        ASSERT_EQ(rendered.Width(), plain.Width());
        int differing = 0;
        for (int y = 0; y < size; ++y)
            for (int x = 0; x < size; ++x)
                differing += rendered.Pixel(x, y) != plain.Pixel(x, y);
        EXPECT_EQ(differing, 0) << "variant " << variant;
    }
}

}  // namespace
}  // namespace kirameki
