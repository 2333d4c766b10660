#include "render/preview_geometry.h"

#include <gtest/gtest.h>

#include <memory>

#include "model/model_builder.h"
#include "render/frame_image.h"
#include "render/view_state.h"

namespace kirameki {
namespace {

const std::array<double, 3> kWhite = {1.0, 1.0, 1.0};

TEST(PreviewShading, DiffuseAndHighlightStayInTheirRanges) {
    EXPECT_EQ(DiffuseValue(-1.0), 64);  // turned away from the light: never black
    EXPECT_EQ(DiffuseValue(0.0), 128);
    EXPECT_EQ(DiffuseValue(1.0), 255);  // 268 limited
    // A face reflecting the light straight at the eye gets the full highlight.
    const Vec3 n = {0, 0, 1}, light = {0, 0, 1};
    EXPECT_EQ(HighlightValue(n, light, 1.0), 255);
    EXPECT_EQ(HighlightValue(n, {1, 0, 0}, 0.0), 0);
    EXPECT_EQ(FaceColour(200, 100, {1.0, 0.5, 0.0}), PackRgb(255, 200, 100));
}

TEST(FaceData, PlaneCoefficientsPutEveryCornerOnThePlane) {
    auto model = std::make_unique<GemModel>();
    BuildModel(0, kDefaultModelParameters, *model);
    TransformVertices(InitialViewState(), *model);
    WriteAllFaceData(*model);
    for (int f = 0; f < model->FaceCount; ++f) {
        const FaceRecord& face = model->FaceTable[f];
        EXPECT_NEAR(Length(face.Normal()), 1.0, 1e-12);
        EXPECT_EQ(face.PlaneFlag(), 1.0);
        for (int j = 0; j < face.Count; ++j)
            EXPECT_NEAR(Dot(face.Plane(), model->ViewVertices[face.Index[j]]), -1.0, 1e-9);
    }
}

TEST(FaceData, APlaneThroughTheOriginKeepsItsNormalAndFlagZero) {
    VertexArray v{};
    v[0] = {0, 0, 0};
    v[1] = {1, 0, 0};
    v[2] = {1, 1, 0};
    FaceRecord face;
    face.Count = 3;
    face.Index = {0, 1, 2};
    WriteFaceData(face, v);
    EXPECT_EQ(face.PlaneFlag(), 0.0);
    EXPECT_EQ(face.Plane().z, face.Normal().z);
    EXPECT_EQ(face.Normal().z, 1.0);
}

TEST(ComputePreview, DrawsFacesFacingTheEyeAndThoseSeenEdgeOn) {
    auto model = std::make_unique<GemModel>();
    BuildModel(20, kDefaultModelParameters, *model);  // the cube, seen square on
    auto preview = std::make_unique<PreviewPolygons>();
    ComputePreview(*model, {0, 0, 1}, kWhite, {100, 100, 50}, *preview);
    EXPECT_EQ(preview->facesDrawn, 5);  // the front face and four edge-on sides
    // A lone triangle wound away from the eye is not drawn at all.
    model->FaceCount = 1;
    model->FaceTable[0].Count = 3;
    model->FaceTable[0].Index = {0, 1, 2};
    model->ViewVertices[0] = {0, 0, 0};
    model->ViewVertices[1] = {0, 1, 0};
    model->ViewVertices[2] = {1, 1, 0};
    ComputePreview(*model, {0, 0, 1}, kWhite, {100, 100, 50}, *preview);
    EXPECT_EQ(preview->facesDrawn, 0);
}

}  // namespace
}  // namespace kirameki
