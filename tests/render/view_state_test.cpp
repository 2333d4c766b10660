#include "render/view_state.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "render/rotation_steps.h"

namespace kirameki {
namespace {

double Distance(Vec3 a, Vec3 b) {
    return Length(a - b);
}

TEST(Decompose, ChoosesTheSteepVariantOnlyBeyondTheDiagonal) {
    EXPECT_EQ(MakeFrame({0, 1, 0}, {1, 0, 0}).FrameFlag, 1);
    const double h = 1.0 / std::sqrt(2.0);
    EXPECT_EQ(MakeFrame({h, h, 0}, {h, -h, 0}).FrameFlag, std::abs(h) > h ? 1 : 0);
    EXPECT_EQ(MakeFrame({0, 0, -1}, {1, 0, 0}).FrameFlag, 0);
}

TEST(Decompose, AppliedFrameCarriesTheViewAxisOntoAxisA) {
    std::mt19937 random(7);
    std::normal_distribution<double> normal;
    for (int i = 0; i < 1000; ++i) {
        const Vec3 a = Normalized({normal(random), normal(random), normal(random)});
        const Vec3 b = Normalized(Cross(a, {normal(random), normal(random), normal(random)}));
        const OrientationFrame frame = MakeFrame(a, b);
        EXPECT_LT(Distance(ApplyFrame(frame, {0, 0, -1}), a), 1e-12);
        // The frame is a rotation: lengths and angles are kept.
        const Vec3 x = ApplyFrame(frame, {1, 0, 0}), y = ApplyFrame(frame, {0, 1, 0});
        EXPECT_NEAR(Length(x), 1.0, 1e-12);
        EXPECT_NEAR(Dot(x, y), 0.0, 1e-12);
        EXPECT_NEAR(Dot(Cross(x, y), ApplyFrame(frame, {0, 0, 1})), 1.0, 1e-12);
    }
}

TEST(RotationStep, FramesStayOrthonormalOverThousandsOfRandomSteps) {
    std::mt19937 random(11);
    std::uniform_int_distribution<int> identifier(1006, 1011);
    OrientationFrame object = InitialViewState().object, view;
    for (int i = 0; i < 5000; ++i) {
        const auto step = StepFrame(ClassifyRotation(identifier(random)));
        ASSERT_TRUE(step);
        RotationStep(view, *step);
        LocalRotationStep(object, *step);
    }
    for (const OrientationFrame& f : {object, view}) {
        EXPECT_NEAR(Length(f.AxisA), 1.0, 1e-12);
        EXPECT_NEAR(Length(f.AxisB), 1.0, 1e-12);
        EXPECT_NEAR(Dot(f.AxisA, f.AxisB), 0.0, 1e-10);
    }
}

TEST(RotationStep, HundredTwentyEightRoundsMakeAFullTurn) {
    const OrientationFrame start = InitialViewState().object;
    for (int id = 1006; id <= 1015; ++id) {
        const auto step = StepFrame(ClassifyRotation(id));
        ASSERT_TRUE(step) << id;
        OrientationFrame world = start, local = start;
        for (int round = 0; round < 128; ++round) {
            RotationStep(world, *step);
            LocalRotationStep(local, *step);
        }
        EXPECT_LT(Distance(world.AxisA, start.AxisA), 1e-12) << id;
        EXPECT_LT(Distance(world.AxisB, start.AxisB), 1e-12) << id;
        EXPECT_LT(Distance(local.AxisA, start.AxisA), 1e-12) << id;
        // Half way round a turn is not back at the start.
        OrientationFrame half = start;
        for (int round = 0; round < 64; ++round)
            RotationStep(half, *step);
        EXPECT_GT(Distance(half.AxisA, start.AxisA) + Distance(half.AxisB, start.AxisB), 0.5);
    }
}

TEST(RotationStep, TurnsTheShownStoneRigidlyByTheStep) {
    std::mt19937 random(5);
    std::uniform_int_distribution<int> identifier(1006, 1011);
    OrientationFrame world = InitialViewState().object, local = world;
    for (int i = 0; i < 200; ++i) {
        const OrientationFrame step = *StepFrame(ClassifyRotation(identifier(random)));
        const OrientationFrame worldBefore = world, localBefore = local;
        RotationStep(world, step);
        LocalRotationStep(local, step);
        for (Vec3 v : {Vec3{1, 0, 0}, Vec3{0, 1, 0}, Vec3{0.3, -0.2, 0.9}}) {
            EXPECT_LT(Distance(ApplyFrame(world, v), ApplyFrame(step, ApplyFrame(worldBefore, v))),
                      1e-12);
            EXPECT_LT(Distance(ApplyFrame(local, v), ApplyFrame(localBefore, ApplyFrame(step, v))),
                      1e-12);
        }
    }
}

TEST(RotationStep, ExactZerosStayExactlyZero) {
    OrientationFrame frame;  // the identity: A = (0, 0, -1), B = (1, 0, 0)
    const auto step = StepFrame(ClassifyRotation(1006));  // about Y
    for (int i = 0; i < 300; ++i)
        RotationStep(frame, *step);
    EXPECT_EQ(frame.AxisA.y, 0.0);
    EXPECT_EQ(frame.AxisB.y, 0.0);
    EXPECT_EQ(frame.FrameSin[0], 0.0);
}

TEST(RotationIdentifiers, PairOppositeSensesAndSendTheRestToRedrawOnly) {
    for (int id : {1006, 1008, 1010, 1012, 1014}) {
        const RotationKind a = ClassifyRotation(id), b = ClassifyRotation(id + 1);
        EXPECT_EQ(a.axis, b.axis);
        EXPECT_EQ(a.sense, -b.sense);
        EXPECT_NE(a.axis, TurnAxis::kNone);
    }
    EXPECT_TRUE(ClassifyRotation(1012).light);
    EXPECT_EQ(ClassifyRotation(1125).axis, ClassifyRotation(1008).axis);
    for (int id : {1205, 1005, 1016, 0})
        EXPECT_FALSE(StepFrame(ClassifyRotation(id))) << id;
}

TEST(InitialViewState, ShowsTheCrownTowardTheEyeLitFromTheFront) {
    const ViewState state = InitialViewState();
    const Vec3 crown = ApplyFrame(state.object, {0, 1, 0});
    EXPECT_LT(crown.z, -0.8);  // toward the eye
    EXPECT_GT(crown.y, 0.3);   // leaning back so the crown facets read
    EXPECT_NEAR(Length(state.LightDirection), 1.0, 1e-12);
    EXPECT_GT(state.LightDirection.z, 0.0);  // the light travels away from the viewer
}

}  // namespace
}  // namespace kirameki
