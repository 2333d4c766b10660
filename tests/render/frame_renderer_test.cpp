#include "render/frame_renderer.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "model/model_builder.h"
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

}  // namespace
}  // namespace kirameki
