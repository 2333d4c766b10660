#include "output/capture_info.h"

#include <gtest/gtest.h>

#include "output/path_block.h"

namespace kirameki {
namespace {

struct Scene {
    AppSettings settings;
    ViewState view = InitialViewState();
    CaptureState capture;
    Scene() { LoadDefaults(settings, {"/s/", "/c/"}); }
    SceneState State() { return {settings, view, capture}; }
};

TEST(CaptureInfo, RecordSizeFollowsTheModel) {
    Scene scene;
    const std::pair<int, std::size_t> sizes[] = {{0, 272},  {14, 272}, {23, 288}, {24, 280},
                                                 {25, 280}, {26, 276}, {27, 276}};
    for (const auto& [model, size] : sizes) {
        scene.settings.model = model;
        EXPECT_EQ(CaptureInfoBytes(scene.State()).size(), size) << model;
    }
}

TEST(CaptureInfo, ReadsBackTheWholeSceneFromTheSameBytes) {
    Scene from;
    from.settings.model = 23;
    from.settings.stone = 4;
    from.settings.modelParameters[kEllipsoidSurfaces] = 12;
    from.settings.trimming = {1, 2, 3, 4, 1, 7};
    from.capture = {17, 1, 0};
    from.settings.captureFrames = 64;
    RotationStep(from.view.view,
                 MakeFrame({0.1, 0.0, -std::sqrt(0.99)}, {std::sqrt(0.99), 0, 0.1}));
    const auto bytes = CaptureInfoBytes(from.State());
    Scene to;
    SceneState state = to.State();
    EXPECT_EQ(ReadCaptureInfoBytes(bytes.data(), bytes.size(), state, false), "");
    EXPECT_EQ(CaptureInfoBytes(to.State()), bytes);
    EXPECT_EQ(to.settings.modelParameters[kEllipsoidSurfaces], 12);
    EXPECT_EQ(to.view.view.FrameCos, from.view.view.FrameCos);
    EXPECT_EQ(to.capture.framesCaptured, 17);
}

TEST(CaptureInfo, HeaderOnlyAndShortRecordsChangeOnlyTheCounts) {
    Scene from;
    from.settings.captureFrames = 32;
    from.capture.framesCaptured = 9;
    from.settings.stone = 5;
    const auto bytes = CaptureInfoBytes(from.State());
    for (const bool headerOnly : {true, false}) {
        Scene to;
        const auto before = CaptureInfoBytes(to.State());
        SceneState state = to.State();
        // Header only reads two fields of a whole record; a record of 8 bytes has only those.
        ReadCaptureInfoBytes(bytes.data(), headerOnly ? bytes.size() : 8, state, headerOnly);
        EXPECT_EQ(to.settings.captureFrames, 32);
        EXPECT_EQ(to.capture.framesCaptured, 9);
        auto after = CaptureInfoBytes(to.State());
        std::copy(before.begin(), before.begin() + 8, after.begin());
        EXPECT_EQ(after, before) << "header only: " << headerOnly;
    }
}

TEST(CaptureInfo, DamagedValuesAreRefusedWithoutLosingTheRest) {
    Scene from;
    from.settings.stone = 99;
    from.settings.stoneColour = -3;
    from.settings.imageSize = 128;
    from.view.light.AxisA = {0.0, 0.0, 0.0};  // no rotation can be made of it
    auto bytes = CaptureInfoBytes(from.State());
    Scene to;
    const ViewState lightBefore = to.view;
    SceneState state = to.State();
    EXPECT_NE(ReadCaptureInfoBytes(bytes.data(), bytes.size(), state, false), "");
    EXPECT_EQ(to.view.light.AxisA.x, lightBefore.light.AxisA.x);  // kept
    EXPECT_EQ(to.settings.imageSize, 128);                        // the rest taken
    EXPECT_NE(SceneProblem(to.settings).find("99"), std::string::npos);
    to.settings.stone = 0;
    EXPECT_NE(SceneProblem(to.settings).find("-3"), std::string::npos);
    to.settings.stoneColour = 0;
    EXPECT_EQ(SceneProblem(to.settings), "");
}

TEST(CaptureInfo, UnreadableFileChangesNothing) {
    Scene scene;
    SceneState state = scene.State();
    const RecordRead read = ReadCaptureInfo("/nonexistent/x.sqi", state, false);
    EXPECT_FALSE(read.opened);
    EXPECT_FALSE(read.error.empty());
}

TEST(PathBlock, SplitsAtTheLastSlashAndDotAndNamesFramesWithTheirWidth) {
    PathBlock block;
    ChoosePath("/home/宝石/カット.v2/Gem.sqi", block);
    EXPECT_EQ(block.directory, "/home/宝石/カット.v2/");
    EXPECT_EQ(block.name, "Gem");
    EXPECT_EQ(block.extension, ".sqi");
    EXPECT_EQ(block.fullPath, "/home/宝石/カット.v2/Gem");
    EXPECT_EQ(block.initialFolder, block.directory);
    ChoosePath("/caps.d/noext", block);
    EXPECT_EQ(block.extension, "");
    EXPECT_EQ(block.fullPath, "/caps.d/noext");
    EXPECT_EQ(FrameFileName("/c/Gem", 127, 128), "/c/Gem_F[127].gif");
    EXPECT_EQ(FrameFileName("/c/Gem", 5, 128), "/c/Gem_F[005].gif");
    EXPECT_EQ(FrameFileName("/c/Gem", 0, 1), "/c/Gem_F[0].gif");
    EXPECT_EQ(FrameFileName("/c/Gem", 9, 10), "/c/Gem_F[9].gif");
    EXPECT_EQ(FrameFileName("/c/Gem", 0, 11), "/c/Gem_F[00].gif");
    EXPECT_EQ(FrameFileName("/c/Gem", 10000, 10001), "/c/Gem_F[10000].gif");  // over the field
}

}  // namespace
}  // namespace kirameki
