#include "output/capture_loop.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "model/model_builder.h"
#include "output/gif_compiler.h"
#include "output/gif_files.h"
#include "output/path_block.h"

namespace kirameki {
namespace {

namespace fs = std::filesystem;

class CountingSink : public RenderSink {
  public:
    int renders = 0;
    void RenderStarted() override { ++renders; }
    void RenderProgress(int) override {}
    void RowsRendered(const FrameImage&, int, int) override {}
    void RenderFinished() override {}
};

class RecordingObserver : public CaptureObserver {
  public:
    std::vector<int> frames;
    void FrameStarted(int index, int) override { frames.push_back(index); }
    void Turned(const GemModel&, const ViewState&) override {}
};

class Capture : public ::testing::Test {
  protected:
    void SetUp() override {
        dir_ = fs::temp_directory_path() /
               ("kirameki-capture-" +
                std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
        fs::remove_all(dir_);
        fs::create_directories(dir_);
        BuildModel(0, kDefaultModelParameters, *model_);
        run_.stem = (dir_ / "Gem").string();
        run_.frameCount = 6;
        run_.start = InitialViewState();
        run_.geometry = {32, ScaleForSize(32)};
        run_.parameters.fire = false;
        run_.parameters.depth = 2;
    }
    void TearDown() override { fs::remove_all(dir_); }

    int Run(const AbortPoll& poll = {}) {
        view_ = run_.start;
        outcome_ = RunCapture(run_, *model_, view_, *work_, image_, sink_, poll, observer_);
        return outcome_.framesDone;
    }
    std::string FramePath(int frame) const {
        return FrameFileName(run_.stem, frame, run_.frameCount);
    }
    bool Exists(int frame) const {
        return fs::exists(FrameFileName(run_.stem, frame, run_.frameCount));
    }

    fs::path dir_;
    std::unique_ptr<GemModel> model_ = std::make_unique<GemModel>();
    std::unique_ptr<TracerWorkAreas> work_ = std::make_unique<TracerWorkAreas>();
    ViewState view_;
    FrameImage image_;
    CountingSink sink_;
    RecordingObserver observer_;
    CaptureRun run_;
    CaptureOutcome outcome_;
};

TEST_F(Capture, RendersEveryFrameThenTurnsBackToTheStart) {
    EXPECT_EQ(Run(), 6);
    for (int k = 0; k < 6; ++k)
        EXPECT_TRUE(Exists(k)) << k;
    EXPECT_EQ(observer_.frames, (std::vector<int>{0, 1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(view_.object.AxisA.x, run_.start.object.AxisA.x);
    // Frame 3 of 6 is half a turn: different from frame 0, and frame 6 would be frame 0.
    const ViewState half = FrameOrientation(run_.start, 3, 6, false);
    const ViewState full = FrameOrientation(run_.start, 6, 6, false);
    EXPECT_GT(Length(half.object.AxisB - run_.start.object.AxisB), 1.0);
    EXPECT_LT(Length(full.object.AxisB - run_.start.object.AxisB), 1e-12);
}

TEST_F(Capture, AnAbortDropsTheFrameUnderRenderingAndAResumeCompletesTheSet) {
    int polls = 0;
    // 32 rows a frame: the 10th poll of frame 3 aborts.
    EXPECT_EQ(Run([&] { return ++polls == 3 * 32 + 10; }), 3);
    EXPECT_TRUE(Exists(2));
    EXPECT_FALSE(Exists(3));
    run_.firstFrame = 3;
    sink_.renders = 0;
    EXPECT_EQ(Run(), 6);
    EXPECT_EQ(sink_.renders, 3);
    for (int k = 0; k < 6; ++k)
        EXPECT_TRUE(Exists(k)) << k;
    // The existence check walks every frame and renders only what is missing.
    fs::remove(FrameFileName(run_.stem, 4, 6));
    run_.firstFrame = 0;
    run_.existenceCheck = true;
    sink_.renders = 0;
    EXPECT_EQ(Run(), 6);
    EXPECT_EQ(sink_.renders, 1);
    EXPECT_TRUE(Exists(4));
    // A frame that is there but does not decode is drawn again, not skipped.
    fs::resize_file(FramePath(1), 100);
    sink_.renders = 0;
    EXPECT_EQ(Run(), 6);
    EXPECT_EQ(sink_.renders, 1);
    IndexedImage frame;
    std::string error;
    EXPECT_TRUE(ReadGif(FramePath(1), frame, error)) << error;
}

TEST_F(Capture, AFrameThatCannotBeWrittenStopsTheRunThere) {
    // A frame the file system refuses: a folder stands where frame 2 goes.
    fs::create_directories(FramePath(2));
    EXPECT_EQ(Run(), 2);
    EXPECT_EQ(outcome_.end, CaptureOutcome::End::kFailed);
    EXPECT_NE(outcome_.error.find(FramePath(2)), std::string::npos) << outcome_.error;
    EXPECT_FALSE(Exists(3));
    // Frame 3 was traced while frame 2 was being written; the run still ends turned to 2.
    const ViewState two = FrameOrientation(run_.start, 2, 6, false);
    EXPECT_EQ(Length(view_.object.AxisB - two.object.AxisB), 0.0);
    // A stem so long that no frame name fits: nothing is written and nothing is claimed.
    run_.stem = (dir_ / std::string(250, 'g')).string();
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(outcome_.end, CaptureOutcome::End::kFailed);
    EXPECT_NE(outcome_.error.find("too long"), std::string::npos) << outcome_.error;
}

TEST_F(Capture, CompilesTheFramesInEitherDirectionAndRefusesAGap) {
    run_.frameCount = 4;
    ASSERT_EQ(Run(), 4);
    const std::string out = (dir_ / "Gem_ANI.gif").string();
    std::string message;
    std::vector<int> progress;
    ASSERT_EQ(
        CompileAnimatedGif(
            run_.stem, 4, {32, 32}, 4, 1, out, [&](int i, int) { progress.push_back(i); }, message),
        GifCompiled::kSaved)
        << message;
    EXPECT_EQ(progress, (std::vector<int>{0, 1, 2, 3, 4}));
    EXPECT_NE(message.find(out), std::string::npos);
    // The first frame of the clockwise animation is the last captured frame.
    IndexedImage first, last;
    std::string error;
    ASSERT_TRUE(ReadGif(out, first, error)) << error;
    ASSERT_TRUE(ReadGif(FrameFileName(run_.stem, 3, 4), last, error));
    EXPECT_EQ(first.pixels, last.pixels);

    fs::remove(out);
    // A frame of another size than the record's is damaged, not missing.
    EXPECT_EQ(CompileAnimatedGif(run_.stem, 4, {30, 32}, 4, 0, out, {}, message),
              GifCompiled::kFrameProblem);
    EXPECT_NE(message.find("damaged"), std::string::npos) << message;
    fs::resize_file(FramePath(1), 60);
    EXPECT_EQ(CompileAnimatedGif(run_.stem, 4, {}, 4, 0, out, {}, message),
              GifCompiled::kFrameProblem);
    EXPECT_NE(message.find("damaged"), std::string::npos) << message;
    EXPECT_NE(message.find(FramePath(1)), std::string::npos) << message;
    // Clockwise, the first frame loaded that is missing is named: 2 before 1.
    fs::remove(FramePath(2));
    EXPECT_EQ(CompileAnimatedGif(run_.stem, 4, {}, 4, 1, out, {}, message),
              GifCompiled::kFrameProblem);
    EXPECT_NE(message.find("may not exist"), std::string::npos) << message;
    EXPECT_NE(message.find(FramePath(2)), std::string::npos);
    EXPECT_FALSE(fs::exists(out));
    // A damaged record's frame count is not taken as a promise of memory.
    EXPECT_EQ(CompileAnimatedGif(run_.stem, 2147483647, {}, 4, 0, out, {}, message),
              GifCompiled::kFrameProblem);
}

}  // namespace
}  // namespace kirameki
