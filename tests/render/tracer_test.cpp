#include "render/tracer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "model/model_builder.h"
#include "render/lighting.h"
#include "render/optics.h"
#include "render/plane_search.h"
#include "render/preview_geometry.h"
#include "render/rotation_steps.h"
#include "render/view_state.h"

namespace kirameki {
namespace {

constexpr double kPi = 3.14159265358979323846;

TEST(Optics, FresnelStartsAtR0AndReflectsEverythingPastTheCriticalAngle) {
    const double n = 2.42;
    EXPECT_NEAR(optics::FresnelReflectance(1.0, n, 1.0), optics::NormalReflectance(n, 1.0), 1e-15);
    EXPECT_NEAR(optics::NormalReflectance(1.0, n), 0.1724, 1e-4);
    const double critical = std::asin(1.0 / n);  // 24.4 degrees
    EXPECT_NEAR(critical * 180.0 / kPi, 24.4, 0.05);
    EXPECT_LT(optics::FresnelReflectance(std::cos(critical - 1e-3), n, 1.0), 1.0);
    EXPECT_EQ(optics::FresnelReflectance(std::cos(critical + 1e-3), n, 1.0), 1.0);
    // Lifted to a given R0, the curve still starts there and ends at 1.
    EXPECT_NEAR(optics::ReflectanceWithR0(1.0, 1.0, 2.3, 0.1724), 0.1724, 1e-12);
    EXPECT_NEAR(optics::ReflectanceWithR0(1e-9, 1.0, 2.3, 0.1724), 1.0, 1e-6);
}

TEST(Optics, SnellsLawBendsTowardTheNormalAndSplitAgreesWithTheParts) {
    const Vec3 n = {0, 0, 1};
    const double angle = 40.0 * kPi / 180.0;
    const Vec3 d = {std::sin(angle), 0, std::cos(angle)};
    Vec3 refracted;
    ASSERT_TRUE(optics::Refract(d, n, 1.0 / 1.5, refracted));
    EXPECT_NEAR(refracted.x, std::sin(angle) / 1.5, 1e-15);  // sin t = sin i / 1.5
    EXPECT_NEAR(Length(refracted), 1.0, 1e-15);
    const optics::Split split = optics::SplitAt(d, n, 1.0, 1.5);
    EXPECT_NEAR(split.reflectance, optics::FresnelReflectance(std::cos(angle), 1.0, 1.5), 1e-15);
    EXPECT_NEAR(split.direction.x, refracted.x, 1e-15);
    EXPECT_FALSE(optics::Refract({0.9, 0, std::sqrt(1 - 0.81)}, n, 2.42, refracted));
}

// A stone in view coordinates with its face data written, ready for the tracer.
struct Stone {
    std::unique_ptr<GemModel> model = std::make_unique<GemModel>();
    std::unique_ptr<TracerWorkAreas> work = std::make_unique<TracerWorkAreas>();
    TraceScene scene;

    Stone(int entry, const ViewState& view, Vec3 light = {0, 0, 1}) {
        BuildModel(entry, kDefaultModelParameters, *model);
        TransformVertices(view, *model);
        WriteAllFaceData(*model);
        scene.lightDirection = light;
        scene.faceCount = model->FaceCount;
        scene.faceTable = model->FaceTable.data();
        scene.work = work.get();
        scene.vertexCount = model->VertexCount;
        scene.viewVertices = model->ViewVertices.data();
        scene.lightVolumes = {100, 100, 100};
        PrepareTracer(scene);
    }
    int Trace(double x, double y, double index, TraceResults& r) const {
        return Trace_TraceVector({x, y, -1.1}, {0, 0, 1}, 1.0, index, 0,
                                 optics::NormalReflectance(1.0, index), scene, r);
    }
};

TEST(Tracer, WithEvenLightNoEnergyIsLostWhateverTheDepth) {
    // Only the back colour lights the scene, the same from everywhere: whatever the ray does
    // inside a clear stone, reflected plus transmitted light must add up to exactly that.
    Stone stone(0, InitialViewState());
    stone.scene.lightVolumes = {0, 0, 0};
    stone.scene.backColour = {255, 255, 255};
    PrepareTracer(stone.scene);
    const double even = stone.work->lighting.Radiance({0, 0, -1})[0];
    for (int depth : {1, 2, 8, 20}) {
        stone.scene.depth = depth;
        for (double x = -0.9; x <= 0.9; x += 0.05)
            for (double y = -0.9; y <= 0.9; y += 0.07) {
                TraceResults r;
                if (!stone.Trace(x, y, 2.42, r))
                    continue;
                ASSERT_NEAR(r.colour[0], even, 1e-12) << depth << " " << x << " " << y;
                ASSERT_NEAR(r.colour[2], even, 1e-12);
            }
    }
}

TEST(Tracer, AStoneOfIndexOneWithNoColourLetsTheRayStraightThrough) {
    Stone stone(20, ViewState{});  // the cube, square on
    TraceResults r;
    ASSERT_EQ(stone.Trace(0.1, 0.2, 1.0, r), 1);
    const std::array<double, 3> behind = stone.work->lighting.Radiance({0, 0, 1});
    EXPECT_NEAR(r.colour[0], behind[0], 1e-12);
    EXPECT_NEAR(r.colour[1], behind[1], 1e-12);
    EXPECT_EQ(r.segments, 1);                                // one segment inside
    EXPECT_NEAR(r.pathLength, 2.0 / std::sqrt(3.0), 1e-12);  // the cube's thickness
    EXPECT_EQ(r.highlight, 0.0);                             // no reflection at index 1
}

TEST(Tracer, ColourAbsorbsMoreOverALongerPath) {
    Stone stone(20, ViewState{});
    stone.scene.lightVolumes = {0, 0, 0};
    stone.scene.backColour = {255, 255, 255};
    stone.scene.stoneColour = {0.0, 0.03, 0.03};  // "Red"
    PrepareTracer(stone.scene);
    TraceResults thick, thin;
    ASSERT_TRUE(stone.Trace(0.0, 0.0, 1.0, thick));
    EXPECT_EQ(thick.colour[0], stone.work->lighting.Radiance({0, 0, 1})[0]);  // red passes
    // Straight through, green keeps exp(-absorption * 25 * length) of the light.
    EXPECT_NEAR(thick.colour[1] / thick.colour[0], std::exp(-0.03 * 25.0 * thick.pathLength),
                1e-12);
    Stone octahedron(19, ViewState{});  // thinner toward its edge
    octahedron.scene = stone.scene;
    octahedron.scene.work = octahedron.work.get();
    octahedron.scene.faceTable = octahedron.model->FaceTable.data();
    octahedron.scene.viewVertices = octahedron.model->ViewVertices.data();
    octahedron.scene.faceCount = octahedron.model->FaceCount;
    PrepareTracer(octahedron.scene);
    ASSERT_TRUE(octahedron.Trace(0.5, 0.0, 1.0, thin));
    EXPECT_LT(thin.pathLength, thick.pathLength);
    EXPECT_GT(thin.colour[1], thick.colour[1]);
}

TEST(Tracer, RaysThroughEdgesAndCornersGiveFiniteLightAndMissesReportZero) {
    for (int entry : {0, 7, 12, 15, 20}) {
        Stone stone(entry, InitialViewState(), Normalized({0.3, -0.5, 0.8}));
        int hits = 0;
        // Aim at every vertex exactly, and at a fine grid across the whole stone.
        for (int i = 0; i < stone.model->VertexCount; ++i) {
            TraceResults r;
            const Vec3 v = stone.model->ViewVertices[i];
            stone.Trace(v.x, v.y, 2.42, r);
            for (double value :
                 {r.distance, r.highlight, r.colour[0], r.colour[1], r.colour[2], r.pathLength})
                ASSERT_TRUE(std::isfinite(value)) << entry;
        }
        for (double x = -1.2; x <= 1.2; x += 0.013)
            for (double y = -1.2; y <= 1.2; y += 0.017) {
                TraceResults r;
                const int hit = stone.Trace(x, y, 2.42, r);
                hits += hit;
                ASSERT_TRUE(std::isfinite(r.colour[0]) && r.colour[0] >= 0.0) << entry;
                if (!hit) {
                    EXPECT_EQ(r.colour[0], 0.0);
                    EXPECT_EQ(r.entryFace, -1);
                }
                if (x * x + y * y > 1.0001) {
                    ASSERT_EQ(hit, 0) << "outside the unit sphere";
                }
            }
        EXPECT_GT(hits, 1000) << entry;
    }
}

TEST(Tracer, GuessingFacesFromThePreviousPathNeverChangesAResult) {
    // Every face a remembered path suggests is confirmed or searched for: the results must be
    // exactly those of tracing without memory, however the rays follow one another.
    for (int entry : {0, 4, 7, 12}) {
        Stone stone(entry, InitialViewState(), Normalized({0.3, -0.5, 0.8}));
        TracerPathMemory memory;
        TraceScene guessing = stone.scene;
        guessing.memory = &memory;
        for (double y = -1.0; y <= 1.0; y += 0.031)
            for (double x = -1.0; x <= 1.0; x += 0.0123)
                for (double index : {2.42 * 0.975, 2.42, 2.42 * 1.025}) {
                    TraceResults plain, guessed;
                    const double r0 = optics::NormalReflectance(1.0, index);
                    const int a = Trace_TraceVector({x, y, -1.1}, {0, 0, 1}, 1.0, index, 0, r0,
                                                    stone.scene, plain);
                    const int b = Trace_TraceVector({x, y, -1.1}, {0, 0, 1}, 1.0, index, 0, r0,
                                                    guessing, guessed);
                    ASSERT_EQ(a, b);
                    ASSERT_EQ(plain.colour[0], guessed.colour[0]) << entry << " " << x << " " << y;
                    ASSERT_EQ(plain.highlight, guessed.highlight);
                    ASSERT_EQ(plain.pathLength, guessed.pathLength);
                }
    }
}

TEST(Tracer, ThePlainAndTheAvx2PlaneSearchGiveTheSamePictures) {
    // The tracer picks the AVX2 copy on this processor; the copy for any x86-64 must trace
    // the same stone, so it is run here too, against the one chosen.
    for (int entry : {0, 8, 12}) {
        Stone stone(entry, InitialViewState(), Normalized({0.3, -0.5, 0.8}));
        TraceScene plainScene = stone.scene;
        auto plainWork = std::make_unique<TracerWorkAreas>();
        plainScene.work = plainWork.get();
        PrepareTracer(plainScene);
        plainWork->faces.search = {plane_search_generic::FindEntryFaces,
                                   plane_search_generic::FindExitFace};
        int rays = 0, differing = 0;
        for (double y = -1.0; y <= 1.0; y += 0.029)
            for (double x = -1.0; x <= 1.0; x += 0.031) {
                TraceResults chosen, plain;
                const double r0 = optics::NormalReflectance(1.0, 2.42);
                const int a = Trace_TraceVector({x, y, -1.1}, {0, 0, 1}, 1.0, 2.42, 0, r0,
                                                stone.scene, chosen);
                const int b =
                    Trace_TraceVector({x, y, -1.1}, {0, 0, 1}, 1.0, 2.42, 0, r0, plainScene, plain);
                ASSERT_EQ(a, b) << entry << " " << x << " " << y;
                ++rays;
                // Fused multiply-adds may move a ray that grazes an edge onto its neighbour.
                differing += std::abs(chosen.colour[1] - plain.colour[1]) > 1e-9;
            }
        EXPECT_LE(differing * 1000, rays) << entry << ": " << differing << " of " << rays;
    }
}

// Traces rays in bundles and one by one (without memory, every face searched) and expects
// every result of every ray to be the same to the last bit.
void ExpectBundlesTraceAsSingleRays(const Stone& stone, bool vectorWalk) {
    TraceScene scene = stone.scene;
    auto work = std::make_unique<TracerWorkAreas>();
    scene.work = work.get();
    PrepareTracer(scene);
    if (!vectorWalk)
        work->faces.search.walk = nullptr;
    TracerBundleMemory memory;
    const double r0 = optics::NormalReflectance(1.0, 2.42);
    int hits = 0;
    for (double y = -1.0; y <= 1.0; y += 0.027)
        for (double x = -1.0; x <= 1.0; x += 0.0137)
            for (bool fire : {true, false}) {
                // The three fire samples of one pixel, or four neighbouring pixels.
                RayBundle bundle;
                bundle.count = fire ? 3 : 4;
                for (int i = 0; i < bundle.count; ++i) {
                    bundle.origins[std::size_t(i)] = {fire ? x : x + 0.004 * i, y, -1.1};
                    bundle.stoneIndices[std::size_t(i)] = fire ? 2.42 * (0.975 + 0.025 * i) : 2.42;
                }
                BundleResults bundled;
                TraceBundle(bundle, 1.0, r0, scene, memory, bundled);
                for (int i = 0; i < bundle.count; ++i) {
                    const std::size_t k = std::size_t(i);
                    TraceResults alone;
                    const int hit =
                        Trace_TraceVector(bundle.origins[k], bundle.direction, 1.0,
                                          bundle.stoneIndices[k], 0, r0, stone.scene, alone);
                    const TraceResults& b = bundled.rays[k];
                    ASSERT_EQ(hit, bundled.hits[k]) << x << " " << y << " " << i;
                    hits += hit;
                    ASSERT_EQ(alone.entryFace, b.entryFace) << x << " " << y << " " << i;
                    ASSERT_EQ(alone.segments, b.segments) << x << " " << y << " " << i;
                    ASSERT_EQ(alone.distance, b.distance);
                    ASSERT_EQ(alone.highlight, b.highlight);
                    ASSERT_EQ(alone.colour, b.colour) << x << " " << y << " " << i;
                    ASSERT_EQ(alone.pathLength, b.pathLength);
                }
            }
    EXPECT_GT(hits, 10000);
}

TEST(Tracer, RaysTracedInBundlesGiveExactlyTheResultsOfRaysTracedAlone) {
    // Clear and coloured stones, the full depth, several cuts and a turned view; the vector
    // walk and the ray-by-ray one it falls back to where there is no AVX2.
    for (int entry : {0, 8, 12}) {
        ViewState turned = InitialViewState();
        LocalRotationStep(turned.object, *StepFrame({TurnAxis::kX, 1, false}, 0.7));
        for (const ViewState& view : {InitialViewState(), turned}) {
            Stone stone(entry, view, Normalized({0.3, -0.5, 0.8}));
            stone.scene.depth = entry == 8 ? 20 : 8;
            stone.scene.stoneColour =
                entry == 12 ? std::array<double, 3>{0.0, 0.03, 0.05} : std::array<double, 3>{};
            PrepareTracer(stone.scene);
            ExpectBundlesTraceAsSingleRays(stone, true);
            if (entry == 0)
                ExpectBundlesTraceAsSingleRays(stone, false);
        }
    }
}

TEST(Tracer, BundlesUnderTheStandardLightsGiveExactlyTheResultsOfRaysTracedAlone) {
    // The light leaving the stone is looked up ray by ray there; the walk must hand each
    // ray's own direction to it.
    for (const LightSetup& light :
         {LightSetup{LightingModel::kIso, 0.0}, LightSetup{LightingModel::kAset, 0.0},
          LightSetup{LightingModel::kClassic, 12.0}, LightSetup{LightingModel::kCos, 8.0}}) {
        Stone stone(7, InitialViewState(), Normalized({0.3, -0.5, 0.8}));
        stone.scene.light = light;
        PrepareTracer(stone.scene);
        ExpectBundlesTraceAsSingleRays(stone, true);
    }
}

TEST(Tracer, TotalInternalReflectionKeepsTheLightInsideTheStone) {
    // Face on, a round brilliant's pavilion sends the light back up by total internal
    // reflection: the table must not come out dark at the default depth.
    ViewState faceUp;
    faceUp.object = MakeFrame({0, -1, 0}, {1, 0, 0});  // crown toward the eye
    Stone stone(0, faceUp, Normalized({0.0, -0.4, 1.0}));
    TraceResults r;
    ASSERT_TRUE(stone.Trace(0.05, 0.1, 2.42, r));
    EXPECT_GE(r.segments, 2.0);
    EXPECT_GT(r.colour[0], 0.02);
}

}  // namespace
}  // namespace kirameki
