#pragma once

#include <array>
#include <cstdint>

#include "model/gem_model.h"
#include "render/lighting.h"
#include "render/plane_search.h"

namespace kirameki {

// The face planes in structure-of-arrays form for the intersection loop, copied once per
// frame from the face table: in double precision for the geometry, and in single precision
// for the search over all planes, which runs eight planes to a vector. Padding planes
// (normal 0, offset -1) never limit a ray.
struct TracerFaceArea {
    static constexpr int kCapacity = kMaxFaces + 16;
    alignas(64) std::array<double, kCapacity> nx{};
    alignas(64) std::array<double, kCapacity> ny{};
    alignas(64) std::array<double, kCapacity> nz{};
    alignas(64) std::array<double, kCapacity> offset{};  // n . v0: inside means n . p >= offset
    alignas(64) std::array<float, kCapacity> fx{};
    alignas(64) std::array<float, kCapacity> fy{};
    alignas(64) std::array<float, kCapacity> fz{};
    alignas(64) std::array<float, kCapacity> foffset{};
    int faceCount = 0;
    double reach2 = 0.0;  // the squared distance of the farthest corner from the origin
    int paddedCount = 0;  // a multiple of 16
    PlaneSearch search;
};

// The edges of every face, as lines in the face's plane: a point of the plane lies inside
// the face when it is on the inner side of each of them. Edge j of face i is entry
// first[i] + j. With them a guessed face is confirmed far more cheaply than by searching
// all the planes.
struct TracerEdgeArea {
    static constexpr int kCapacity = kMaxFaces * kMaxFaceVertices;
    struct Line {
        double x, y, z;  // unit, in the face's plane, pointing into the face
        double offset;   // inside: m . p >= offset
    };
    std::array<std::int32_t, kMaxFaces + 1> first{};
    std::array<Line, kCapacity> lines{};
    // The same lines four to a block, for testing them side by side in one vector; most
    // faces of a cut have three or four edges and take one block. Padding lines
    // (0, 0, 0, -1) hold every point inside.
    static constexpr int kBlockLines = 4;
    static constexpr int kBlocksPerFace = (kMaxFaceVertices + kBlockLines - 1) / kBlockLines;
    struct Block {
        alignas(32) std::array<double, kBlockLines> x;
        std::array<double, kBlockLines> y, z, offset;
    };
    std::array<std::int32_t, kMaxFaces + 1> firstBlock{};
    std::array<Block, kMaxFaces * kBlocksPerFace> blocks{};
};

// The faces the last ray of one thread met, in order: neighbouring pixels and the three
// fire samples of a pixel mostly take the same path, so each face is first guessed from
// here and confirmed against its edges; only a wrong or doubtful guess searches all planes.
// The results are those of the full search.
struct TracerPathMemory {
    // One remembered path per refractive index, so that each fire sample is guessed from
    // the same sample of the pixel before.
    struct Path {
        double stoneIndex = 0.0;
        int entryFace = -1;
        int exitCount = 0;
        std::array<int, 24> exitFaces{};
    };
    std::array<Path, 4> paths{};
    int next = 0;  // the slot a new index takes

    Path& For(double stoneIndex) {
        for (Path& path : paths)
            if (path.stoneIndex == stoneIndex)
                return path;
        Path& path = paths[next];
        next = (next + 1) % int(paths.size());
        path = Path{};
        path.stoneIndex = stoneIndex;
        return path;
    }
};

// The caller-owned work areas, zero-initialised, living as long as the program.
struct TracerWorkAreas {
    TracerFaceArea faces;
    Lighting lighting;  // the lights of the frame, worked out once
    TracerEdgeArea edges;
};

// Everything a ray is traced against that stays the same for a whole frame.
struct TraceScene {
    Vec3 lightDirection;  // the direction the main light travels, unit length
    std::int32_t faceCount = 0;
    const FaceRecord* faceTable = nullptr;
    TracerWorkAreas* work = nullptr;
    std::int32_t vertexCount = 0;
    const Vec3* viewVertices = nullptr;
    std::int32_t depth = 8;                      // recursion depth, 1..20
    std::array<double, 3> stoneColour{};         // absorption of red, green, blue
    std::array<std::int32_t, 3> backColour{};    // 0..255
    std::array<std::int32_t, 3> lightVolumes{};  // main, back, fill, percent 0..200
    std::int32_t narrowMainLight = 0;
    LightSetup light;                    // the lighting model
    TracerPathMemory* memory = nullptr;  // one per thread; none: every face is searched
};

// What one ray brings back.
struct TraceResults {
    double distance = 0.0;   // along the ray to the stone's surface (0 on a miss)
    int entryFace = -1;      // the face the ray entered through (-1 on a miss)
    int segments = 0;        // the number of segments traced inside the stone
    double highlight = 0.0;  // the main light's white highlight, reflected at the entry face
    std::array<double, 3> colour{};  // red, green and blue light leaving toward the eye
    double pathLength = 0.0;         // total path length inside the stone
};

// Copies the face planes of the current orientation and the lights into the work area.
// Run once per frame, after the face data have been written for that orientation, and
// again whenever the scene changes.
void PrepareTracer(TraceScene& scene);

// Traces one ray against the stone. Returns non-zero when the ray enters the stone and 0
// when it misses; the results are written in both cases. outerIndex and stoneIndex are the
// refractive indices outside and inside; normalReflectance the reflectance at normal
// incidence; startLevel the recursion level the ray starts at.
int Trace_TraceVector(Vec3 origin, Vec3 direction, double outerIndex, double stoneIndex,
                      int startLevel, double normalReflectance, const TraceScene& scene,
                      TraceResults& results);

// Up to four rays of one direction traced side by side from level 0: the three fire samples
// of a pixel (one origin, three indices) or neighbouring pixels of a row (one index). Where
// the processor has AVX2 the rays run in the lanes of one vector, sharing the work of
// finding faces they have in common; each ray's results are exactly those
// Trace_TraceVector gives it.
inline constexpr int kBundleRays = 4;
struct RayBundle {
    int count = 0;
    Vec3 direction = {0.0, 0.0, 1.0};
    std::array<Vec3, kBundleRays> origins{};
    std::array<double, kBundleRays> stoneIndices{};
};

// The paths the rays of the last bundle took, to guess the faces of the next bundle from
// (one per thread).
struct TracerBundleMemory {
    // The faces each ray of the last bundles took, lane by lane: the face it entered through
    // and the face it left through at each level, a row of four lanes to a level so that the
    // lanes are compared at once. Where the last path ended sooner, an older path's face
    // stands: a guess, confirmed like any other.
    static constexpr int kLevels = 24;  // deeper walks trace ray by ray
    std::array<int, kBundleRays> entryFaces = {-1, -1, -1, -1};
    alignas(16) std::array<std::array<std::int32_t, kBundleRays>, kLevels> exitFaces = [] {
        std::array<std::array<std::int32_t, kBundleRays>, kLevels> none{};
        for (auto& row : none)
            row.fill(-1);
        return none;
    }();
    TracerPathMemory single;  // for tracing ray by ray where there is no AVX2

    // What each lane's crossings into and out of the stone share, worked out again only when
    // its indices change (a frame traces the same few indices in every bundle).
    struct Crossings {
        double outerIndex = 0.0, stoneIndex = 0.0, normalReflectance = -1.0;
        double lift = 0.0;     // the lift of the Fresnel curve
        double inward = 0.0;   // outer index / stone index
        double outward = 0.0;  // stone index / outer index
    };
    std::array<Crossings, kBundleRays> crossings{};

    // Where a ray that has left the paths remembered above is guessed to go next: the face
    // the last such ray went on to from the same two faces before (-1: none yet), in a small
    // hashed table. A wrong guess costs one confirmation; the full search decides. On
    // designs of hundreds of facets it spares about half the full searches.
    static constexpr std::size_t kFollowSize = 4096;
    std::array<std::int16_t, kFollowSize> follow = [] {
        std::array<std::int16_t, kFollowSize> empty{};
        empty.fill(-1);
        return empty;
    }();
    static std::size_t FollowKey(int before, int last) {
        return (std::size_t(unsigned(before + 1)) * 2654435761u ^ std::size_t(unsigned(last))) &
               (kFollowSize - 1);
    }
};

struct BundleResults {
    std::array<TraceResults, kBundleRays> rays{};
    std::array<int, kBundleRays> hits{};  // non-zero where the ray entered the stone
};

// Results past bundle.count are left as they are.
void TraceBundle(const RayBundle& bundle, double outerIndex, double normalReflectance,
                 const TraceScene& scene, TracerBundleMemory& memory, BundleResults& results);

}  // namespace kirameki
