#pragma once

#include <array>
#include <cstdint>

#include "render/tracer.h"

namespace kirameki {

// The rays of a bundle from where they meet the stone, one lane each, handed from the tracer
// to the walk (compiled for AVX2) and back: the walk splits each ray at its entry face as
// the tracer does and follows the part that goes in. The tracer sets every lane of the
// entry before the walk, so nothing is initialised here.
struct BundleWalk {
    static constexpr int kLanes = kBundleRays;
    using Lanes = std::array<double, kLanes>;

    const TracerWorkAreas* work;
    TracerBundleMemory* memory;
    int depth;  // at most TracerBundleMemory::kLevels: a row of remembered faces a level
    double outerIndex;
    std::array<double, 3> absorption;
    std::array<double, 3> direction;  // of every ray, unit length

    // In: each ray's origin, its distance to the entry face, the face's normal (into the
    // stone), and the highlight and the surroundings seen along its mirror direction there.
    alignas(32) Lanes ox;
    alignas(32) Lanes oy;
    alignas(32) Lanes oz;
    alignas(32) Lanes entryDistance;
    alignas(32) Lanes nx;
    alignas(32) Lanes ny;
    alignas(32) Lanes nz;
    alignas(32) Lanes mirrorHighlight;
    alignas(32) std::array<Lanes, 3> mirrorLight;
    alignas(32) Lanes stone;               // the stone index of each ray
    alignas(32) Lanes inward;              // outer index / stone index
    alignas(32) Lanes eta;                 // stone index / outer index
    alignas(32) Lanes lift;                // the lift of the Fresnel curve
    std::array<std::int64_t, kLanes> hit;  // -1 where the ray meets the stone, 0 elsewhere

    // Out, for the rays that meet the stone: the highlight, the light gathered and what is
    // left inside when the path ends, whether the ray went in (-1) or was all reflected (0),
    // and the path inside.
    alignas(32) Lanes highlight;
    alignas(32) std::array<Lanes, 3> light;
    alignas(32) std::array<Lanes, 3> throughput;
    alignas(32) Lanes pathLength;
    std::array<std::int64_t, kLanes> inside;
    std::array<int, kLanes> segments;

    // Makes every lane a ray that misses, with harmless values. Array by array: cleared as
    // one block, the lanes compile to a string store that costs more than the stores do.
    void ClearLanes() {
        for (Lanes* lanes : {&ox, &oy, &oz, &entryDistance, &nx, &ny, &nz, &mirrorHighlight,
                             &mirrorLight[0], &mirrorLight[1], &mirrorLight[2], &lift})
            *lanes = Lanes{};
        stone = inward = eta = Lanes{1.0, 1.0, 1.0, 1.0};
        hit = {};
    }
};

}  // namespace kirameki
