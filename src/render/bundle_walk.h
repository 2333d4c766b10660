#pragma once

#include <array>
#include <cstdint>

#include "render/tracer.h"

namespace kirameki {

// The rays of a bundle inside the stone, one lane each, handed from the tracer to the walk
// (compiled for AVX2) and back. Lanes that are not alive are left as they are. The tracer
// sets every lane before the walk, so nothing is initialised here.
struct BundleWalk {
    static constexpr int kLanes = kBundleRays;
    using Lanes = std::array<double, kLanes>;

    const TracerWorkAreas* work;
    TracerBundleMemory* memory;
    int depth;
    double outerIndex;
    std::array<double, 3> absorption;
    alignas(32) Lanes px;
    alignas(32) Lanes py;
    alignas(32) Lanes pz;
    alignas(32) Lanes dx;
    alignas(32) Lanes dy;
    alignas(32) Lanes dz;
    alignas(32) Lanes stone;  // the stone index of each ray
    alignas(32) Lanes eta;    // stone index / outer index
    alignas(32) Lanes lift;   // the lift of the Fresnel curve
    alignas(32) std::array<Lanes, 3> throughput;
    alignas(32) std::array<Lanes, 3> light;
    alignas(32) Lanes pathLength;
    std::array<std::int64_t, kLanes> alive;  // -1 alive, 0 ended
    std::array<int, kLanes> segments;        // set by the walk

    // Makes every lane a ray that has ended, with harmless values. Array by array: cleared as
    // one block, the lanes compile to a string store that costs more than the stores do.
    void ClearLanes() {
        for (Lanes* lanes : {&px, &py, &pz, &dx, &dy, &dz, &lift, &pathLength, &throughput[0],
                             &throughput[1], &throughput[2], &light[0], &light[1], &light[2]})
            *lanes = Lanes{};
        stone = eta = Lanes{1.0, 1.0, 1.0, 1.0};
        alive = {};
    }
};

}  // namespace kirameki
