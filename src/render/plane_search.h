#pragma once

#include "model/vec3.h"

namespace kirameki {

struct TracerFaceArea;
struct BundleWalk;

// The face arrays are padded with planes that never limit a ray to a multiple of this.
constexpr int kPlanePadding = 16;

// The faces a ray from outside crosses: the last plane crossed inward and the first plane
// crossed outward (-1: none), and whether it runs parallel to a plane outside it.
struct EntryFaces {
    int in;
    int out;
    bool parallelOutside;
};

// The search over all face planes, the tracer's hot loop, in the best copy this processor
// runs: one compiled for AVX2 and FMA, one for any x86-64.
struct PlaneSearch {
    EntryFaces (*entry)(const TracerFaceArea& area, Vec3 origin, Vec3 direction) = nullptr;
    int (*exit)(const TracerFaceArea& area, Vec3 origin, Vec3 direction) = nullptr;
    // The walk of a bundle of rays inside the stone (none: trace ray by ray).
    void (*walk)(BundleWalk& walk) = nullptr;
};

PlaneSearch SelectPlaneSearch();

namespace plane_search_avx2 {
EntryFaces FindEntryFaces(const TracerFaceArea& area, Vec3 o, Vec3 d);
int FindExitFace(const TracerFaceArea& area, Vec3 o, Vec3 d);
}  // namespace plane_search_avx2

namespace bundle_walk_avx2 {
void Walk(BundleWalk& walk);
}  // namespace bundle_walk_avx2

namespace plane_search_generic {
EntryFaces FindEntryFaces(const TracerFaceArea& area, Vec3 o, Vec3 d);
int FindExitFace(const TracerFaceArea& area, Vec3 o, Vec3 d);
}  // namespace plane_search_generic

}  // namespace kirameki
