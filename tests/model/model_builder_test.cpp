#include "model/model_builder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "model/generator_tools.h"
#include "polyhedron_checks.h"

namespace kirameki {
namespace {

struct Entry {
    int index;
    int vertices;  // 0: set by the parameters
    int faces;
};

void PrintTo(const Entry& entry, std::ostream* out) {
    *out << "entry " << entry.index;
}

// The cut list's entries with the counts every generator must produce.
constexpr Entry kEntries[] = {
    {0, 41, 57},  {1, 41, 57},  {2, 61, 81},    {3, 61, 81},  {4, 89, 137},   {5, 89, 137},
    {6, 41, 57},  {7, 58, 57},  {8, 50, 45},    {9, 21, 33},  {10, 17, 17},   {11, 41, 57},
    {12, 26, 48}, {13, 12, 10}, {14, 144, 128}, {15, 32, 60}, {16, 60, 32},   {17, 12, 20},
    {18, 20, 12}, {19, 6, 8},   {20, 8, 6},     {21, 4, 4},   {23, 144, 128}, {24, 12, 8},
    {25, 7, 7},   {26, 36, 14}, {27, 24, 26},
};

std::unique_ptr<GemModel> Build(int index, const ModelParameters& p = kDefaultModelParameters) {
    auto model = std::make_unique<GemModel>();
    BuildModel(index, p, *model);
    return model;
}

class EveryEntry : public ::testing::TestWithParam<Entry> {};

TEST_P(EveryEntry, IsAValidStoneWithTheListedCounts) {
    const Entry entry = GetParam();
    auto model = Build(entry.index);
    EXPECT_EQ(model->VertexCount, entry.vertices);
    EXPECT_EQ(model->FaceCount, entry.faces);
    for (const std::string& problem : testing::CheckPolyhedron(*model))
        ADD_FAILURE() << problem;
    for (int i = 0; i < model->VertexCount; ++i) {
        EXPECT_EQ(model->ViewVertices[i].x, model->ModelVertices[i].x);
        EXPECT_EQ(model->ViewVertices[i].z, model->ModelVertices[i].z);
    }
    if (entry.index <= 13) {
        // Cuts: girdle radius 1.0 about the Y axis (the ovals keep it along Z).
        double girdle = 0.0;
        for (int i = 0; i < model->VertexCount; ++i)
            girdle =
                std::max(girdle, std::hypot(model->ModelVertices[i].x, model->ModelVertices[i].z));
        EXPECT_NEAR(girdle, 1.0, 1e-9);
    }
}

INSTANTIATE_TEST_SUITE_P(CutList, EveryEntry, ::testing::ValuesIn(kEntries), [](const auto& entry) {
    return "Entry" + std::to_string(entry.param.index);
});

TEST(BuildModel, SeparatorAndOutOfRangeEntriesChangeNothing) {
    auto model = Build(0);
    model->ViewVertices[3] = {9.0, 9.0, 9.0};
    for (int index : {22, -1, 28, 1000}) {
        BuildModel(index, kDefaultModelParameters, *model);
        EXPECT_EQ(model->VertexCount, 41);
        EXPECT_EQ(model->FaceCount, 57);
        EXPECT_EQ(model->ViewVertices[3].x, 9.0) << "the view copy was refreshed for " << index;
    }
}

TEST(BuildModel, OvalEntriesAreTheRoundOnesSquashedInX) {
    for (int round : {0, 2, 4}) {
        auto r = Build(round), o = Build(round + 1);
        ASSERT_EQ(r->VertexCount, o->VertexCount);
        ASSERT_EQ(r->FaceCount, o->FaceCount);
        for (int i = 0; i < r->VertexCount; ++i) {
            EXPECT_EQ(o->ModelVertices[i].x, r->ModelVertices[i].x * 0.8);
            EXPECT_EQ(o->ModelVertices[i].y, r->ModelVertices[i].y);
            EXPECT_EQ(o->ModelVertices[i].z, r->ModelVertices[i].z);
        }
        for (int f = 0; f < r->FaceCount; ++f)
            EXPECT_EQ(o->FaceTable[f].Index, r->FaceTable[f].Index);
    }
}

TEST(BrilliantCut, HasTheProportionsAndFacetsOfTheRoundBrilliant) {
    auto m = Build(0);
    const Vec3 culet = m->ModelVertices[40], table = m->ModelVertices[0];
    EXPECT_EQ(culet.x, 0.0);
    EXPECT_DOUBLE_EQ(culet.y, -0.862);
    EXPECT_DOUBLE_EQ(table.y, 0.324);
    EXPECT_DOUBLE_EQ(table.z, 0.56);
    for (int i = 16; i < 32; ++i) {
        EXPECT_EQ(m->ModelVertices[i].y, 0.0);
        EXPECT_NEAR(std::hypot(m->ModelVertices[i].x, m->ModelVertices[i].z), 1.0, 1e-15);
    }
    EXPECT_EQ(m->FaceTable[0].Count, 8);
    for (int f = 1; f < 57; ++f) {
        const bool quad = (f >= 9 && f <= 16) || f >= 49;
        const bool triangle = (f >= 1 && f <= 8) || (f >= 33 && f <= 48) || (f >= 17 && f <= 32);
        if (quad) {
            EXPECT_EQ(m->FaceTable[f].Count, 4) << f;
        }
        if (triangle) {
            EXPECT_EQ(m->FaceTable[f].Count, 3) << f;
        }
    }
    // Spot checks of the face lists: a bezel, an upper girdle and a pavilion main.
    EXPECT_EQ(m->FaceTable[9].Index[2], 15);
    EXPECT_EQ(m->FaceTable[32].Index[2], 16);
    EXPECT_EQ(m->FaceTable[49].Index[1], 39);
}

TEST(SymmetricSolids, CubeIsBuiltOnTheUnitSphereByPointReflection) {
    auto m = Build(20);
    const double a = 1.0 / std::sqrt(3.0);
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(std::abs(m->ModelVertices[i].x), a);
        EXPECT_EQ(m->ModelVertices[7 - i].y, -m->ModelVertices[i].y);
    }
}

TEST(TransformableSolids, PrismAndPyramidRefuseSidesOutsideTheRange) {
    for (int entry : {24, 25}) {
        const int sides = entry == 24 ? kPrismSides : kPyramidSides;
        for (int bad : {2, 17}) {
            auto model = Build(0);
            ModelParameters p = kDefaultModelParameters;
            p[sides] = bad;
            BuildModel(entry, p, *model);
            EXPECT_EQ(model->VertexCount, 41);
            EXPECT_EQ(model->FaceCount, 57);
        }
    }
}

TEST(TransformableSolids, PyramidApexLiesInsideTheSphere) {
    ModelParameters p = kDefaultModelParameters;
    p[kPyramidHeight] = 95;
    auto m = Build(25, p);
    EXPECT_DOUBLE_EQ(m->ModelVertices[p[kPyramidSides]].x, 0.95);
    EXPECT_DOUBLE_EQ(m->ModelVertices[0].x, -0.95);
    EXPECT_NEAR(std::hypot(m->ModelVertices[0].y, m->ModelVertices[0].z), 0.3122, 1e-4);
}

TEST(TransformableSolids, EveryParameterInTheDialogRangesGivesAValidSolid) {
    for (int sides = 3; sides <= 16; ++sides)
        for (int height : {5, 50, 95}) {
            ModelParameters p = kDefaultModelParameters;
            p[kPrismSides] = p[kPyramidSides] = sides;
            p[kPrismHeight] = p[kPyramidHeight] = height;
            for (int entry : {24, 25}) {
                auto m = Build(entry, p);
                EXPECT_TRUE(testing::CheckPolyhedron(*m).empty()) << entry << " " << sides;
            }
        }
    for (int ratio = 5; ratio <= 95; ratio += 5) {
        ModelParameters p = kDefaultModelParameters;
        p[kHedron14Ratio] = p[kHedron26StoredRatio] = ratio;
        for (int entry : {26, 27}) {
            auto m = Build(entry, p);
            for (const std::string& problem : testing::CheckPolyhedron(*m))
                ADD_FAILURE() << "entry " << entry << " ratio " << ratio << ": " << problem;
        }
    }
}

TEST(TransformableSolids, EllipsoidFollowsItsParametersAndRefusesOverflow) {
    ModelParameters p = kDefaultModelParameters;
    p[kEllipsoidSurfaces] = 10;
    p[kEllipsoidRows] = 6;
    auto m = Build(23, p);
    EXPECT_EQ(m->VertexCount, 70);
    EXPECT_EQ(m->FaceCount, 60);
    EXPECT_TRUE(testing::CheckPolyhedron(*m).empty());
    p[kEllipsoidSurfaces] = 2000;  // from a damaged settings file
    BuildModel(23, p, *m);
    EXPECT_EQ(m->VertexCount, 70);
}

TEST(GeneratorTools, MirrorVerticesLeavesTheMiddleOfAnOddCount) {
    VertexArray v{};
    v[0] = {1, 2, 3};
    v[1] = {4, 5, 6};
    v[2] = {7, 8, 9};
    MirrorVertices(v, 5);
    EXPECT_EQ(v[2].x, 7.0);
    EXPECT_EQ(v[3].x, -4.0);
    EXPECT_EQ(v[4].z, -3.0);
}

}  // namespace
}  // namespace kirameki
