#include <cmath>
#include <numbers>

#include "model/cut_generators.h"
#include "model/generator_tools.h"

namespace kirameki {

namespace {

// A ring of five points about Y, every 72 degrees from angle start.
void FiveRing(VertexArray& v, int first, double radius, double y, double start) {
    for (int k = 0; k < 5; ++k) {
        const double theta = start + k * 2.0 * std::numbers::pi / 5.0;
        v[first + k] = {radius * std::cos(theta), y, radius * std::sin(theta)};
    }
}

}  // namespace

// The cube on the unit circumsphere: the first half built, the second by point reflection.
void GenerateCube(GemModel& model) {
    SetCounts(model, 8, 6);
    VertexArray& v = model.ModelVertices;
    const double a = 1.0 / std::sqrt(3.0);
    v[0] = {a, a, a};
    v[1] = {-a, a, a};
    v[2] = {-a, a, -a};
    v[3] = {a, a, -a};
    MirrorVertices(v, 8);  // 4 = -v3, 5 = -v2, 6 = -v1, 7 = -v0
    FaceArray& f = model.FaceTable;
    SetFace(f, 0, {0, 1, 2, 3});  // y = +a
    SetFace(f, 1, {0, 5, 4, 1});  // z = +a
    SetFace(f, 2, {0, 3, 6, 5});  // x = +a
    MirrorFaces(f, 8, 6);
}

// Stood on a vertex: the pole, an upper ring of five at height 1/sqrt(5) and, by point
// reflection, the lower ring turned by 36 degrees and the other pole. The first ten faces are
// the five round the upper pole and the five below the upper ring's edges.
void GenerateIcosahedron(GemModel& model) {
    SetCounts(model, 12, 20);
    VertexArray& v = model.ModelVertices;
    FaceArray& f = model.FaceTable;
    v[0] = {0.0, 1.0, 0.0};
    FiveRing(v, 1, 2.0 / std::sqrt(5.0), 1.0 / std::sqrt(5.0), 0.0);
    MirrorVertices(v, 12);
    for (int k = 0; k < 5; ++k) {
        const int next = (k + 1) % 5;
        // The lower ring point below the middle of edge k is the reflection of upper point k+3.
        const int below = 10 - (k + 3) % 5;
        SetFace(f, k, {0, 1 + k, 1 + next});
        SetFace(f, k + 5, {1 + next, 1 + k, below});
    }
    MirrorFaces(f, 12, 20);
}

// The dual of the icosahedron above: its vertices are the directions of the icosahedron's
// face centres, five over the upper cap (the top pentagon) and five over the faces below the
// upper ring; the other ten by point reflection.
void GenerateDodecahedron(GemModel& model) {
    SetCounts(model, 20, 12);
    VertexArray& v = model.ModelVertices;
    FaceArray& f = model.FaceTable;
    const double s = std::sqrt(5.0);
    const double pi = std::numbers::pi;
    // Centroids of (pole, ring k, ring k+1) and of (ring k, ring k+1, lower point k) of that
    // icosahedron, as (distance from the axis, height), all at the angle 36 + 72k degrees.
    const double r = 2.0 / s, h = 1.0 / s, c = std::cos(pi / 5.0);
    const Vec3 cap = Normalized(Vec3{2.0 * r * c, 1.0 + 2.0 * h, 0.0});
    const Vec3 band = Normalized(Vec3{r * (2.0 * c + 1.0), h, 0.0});
    FiveRing(v, 0, cap.x, cap.y, pi / 5.0);
    FiveRing(v, 5, band.x, band.y, pi / 5.0);
    MirrorVertices(v, 20);
    SetFace(f, 0, {0, 1, 2, 3, 4});
    for (int k = 0; k < 5; ++k) {
        const int prev = (k + 4) % 5;
        SetFace(f, k + 1, {k, prev, 5 + prev, 14 - (k + 2) % 5, 5 + k});
    }
    MirrorFaces(f, 20, 12);
}

// Stood on a vertex: the six points on the axes, the upper four faces reflected below.
void GenerateOctahedron(GemModel& model) {
    SetCounts(model, 6, 8);
    VertexArray& v = model.ModelVertices;
    FaceArray& f = model.FaceTable;
    v[0] = {0.0, 1.0, 0.0};
    v[1] = {1.0, 0.0, 0.0};
    v[2] = {0.0, 0.0, 1.0};
    MirrorVertices(v, 6);  // 3 = -z, 4 = -x, 5 = -y
    SetFace(f, 0, {0, 1, 2});
    SetFace(f, 1, {0, 2, 4});
    SetFace(f, 2, {0, 4, 3});
    SetFace(f, 3, {0, 3, 1});
    MirrorFaces(f, 6, 8);
}

// Every other corner of the cube; it has no centre of symmetry, so it is written out whole.
void GenerateTetrahedron(GemModel& model) {
    SetCounts(model, 4, 4);
    VertexArray& v = model.ModelVertices;
    FaceArray& f = model.FaceTable;
    const double a = 1.0 / std::sqrt(3.0);
    v[0] = {a, a, a};
    v[1] = {a, -a, -a};
    v[2] = {-a, a, -a};
    v[3] = {-a, -a, a};
    SetFace(f, 0, {0, 2, 1});  // opposite vertex 3, and so on
    SetFace(f, 1, {0, 1, 3});
    SetFace(f, 2, {0, 3, 2});
    SetFace(f, 3, {1, 2, 3});
}

}  // namespace kirameki
