#include "output/capture_info.h"

#include <gtest/gtest.h>

#include <memory>

#include "model/model_builder.h"
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
    from.settings.trim = {1, 2, 3, 4, 1, 7};
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

TEST(CaptureInfo, SolidParametersThatDoNotFitAreRefusedAndTheRestTaken) {
    // A row count near the 32-bit limit once wrapped the size check and overran the model.
    const std::pair<int, std::int32_t> damaged[] = {
        {kEllipsoidRows, 2147483647}, {kEllipsoidSurfaces, -5}, {kEllipsoidRows, 600}};
    for (const auto& [parameter, value] : damaged) {
        Scene from;
        from.settings.model = 23;
        from.settings.imageSize = 200;
        from.settings.modelParameters[std::size_t(parameter)] = value;
        const auto bytes = CaptureInfoBytes(from.State());
        Scene to;
        SceneState state = to.State();
        EXPECT_NE(ReadCaptureInfoBytes(bytes.data(), bytes.size(), state, false), "") << value;
        EXPECT_EQ(to.settings.modelParameters, kDefaultModelParameters) << value;
        EXPECT_EQ(to.settings.imageSize, 200);
        EXPECT_EQ(to.settings.model, 23);
        // The same values met in a settings file are refused before anything is built.
        EXPECT_NE(SceneProblem(from.settings), "") << value;
        auto model = std::make_unique<GemModel>();
        BuildModel(23, from.settings.modelParameters, *model);
        EXPECT_EQ(model->VertexCount, 0) << value;
        EXPECT_TRUE(RepairModelParameters(from.settings.modelParameters));
        EXPECT_EQ(from.settings.modelParameters, kDefaultModelParameters);
    }
}

TEST(CaptureInfo, UnreadableFileChangesNothing) {
    Scene scene;
    SceneState state = scene.State();
    const RecordRead read = ReadCaptureInfo("/nonexistent/x.sqi", state, false);
    EXPECT_FALSE(read.opened);
    EXPECT_FALSE(read.error.empty());
    // A device is not read: /dev/zero would never end.
    const RecordRead device = ReadCaptureInfo("/dev/zero", state, false);
    EXPECT_FALSE(device.opened);
    EXPECT_NE(device.error.find("not a regular file"), std::string::npos) << device.error;
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
