#pragma once

#include <array>
#include <cstdint>

#include "model/vec3.h"

namespace kirameki {

constexpr int kMaxVertices = 2400;
constexpr int kMaxFaces = 2400;
constexpr int kMaxFaceVertices = 64;  // a design's table may have many corners

// One face of the stone. The seven working doubles are written only by the preview
// geometry, on every redraw, for the current orientation; the builders never touch them.
struct FaceRecord {
    // 0..2 unit normal (into the solid), 3..5 plane coefficients n / d with
    // d = -(n . v0) (or n itself when d is 0), 6 plane flag (1.0 when d != 0).
    std::array<double, 7> Data{};
    std::int32_t Count = 0;  // number of valid entries of Index, 3..kMaxFaceVertices
    std::array<std::int32_t, kMaxFaceVertices> Index{};

    Vec3 Normal() const { return {Data[0], Data[1], Data[2]}; }
    Vec3 Plane() const { return {Data[3], Data[4], Data[5]}; }
    double PlaneFlag() const { return Data[6]; }
};

using VertexArray = std::array<Vec3, kMaxVertices>;
using FaceArray = std::array<FaceRecord, kMaxFaces>;

// The current stone as one convex polyhedron in fixed storage: nothing is allocated per
// build. ModelVertices hold the stone as its generator made it (girdle radius 1.0, Y the
// stone's axis, crown toward +Y); ViewVertices hold the same points turned into view
// coordinates (x right, y up, the eye looking along +z). Entries past the counts are stale.
struct GemModel {
    std::int32_t VertexCount = 0;
    std::int32_t FaceCount = 0;
    VertexArray ModelVertices{};
    VertexArray ViewVertices{};
    FaceArray FaceTable{};
};

// What the builders promise and the tracer and preview rely on: both counts within the
// fixed storage, every face of 3 to kMaxFaceVertices corners, every corner an index below
// VertexCount.
inline bool IsWellFormed(const GemModel& model) {
    if (model.VertexCount < 0 || model.VertexCount > kMaxVertices || model.FaceCount < 0 ||
        model.FaceCount > kMaxFaces)
        return false;
    for (int f = 0; f < model.FaceCount; ++f) {
        const FaceRecord& face = model.FaceTable[std::size_t(f)];
        if (face.Count < 3 || face.Count > kMaxFaceVertices)
            return false;
        for (int j = 0; j < face.Count; ++j)
            if (face.Index[std::size_t(j)] < 0 || face.Index[std::size_t(j)] >= model.VertexCount)
                return false;
    }
    return true;
}

}  // namespace kirameki
