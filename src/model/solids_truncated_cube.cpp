#include <algorithm>
#include <cmath>

#include "model/cut_generators.h"
#include "model/generator_tools.h"

namespace kirameki {

namespace {

// A third of a turn about the cube diagonal (1, 1, 1): +X goes to +Z, +Z to +Y, +Y to +X.
Vec3 TurnThird(Vec3 p) {
    return {p.y, p.z, p.x};
}

}  // namespace

// A cube of half edge 1 with each corner cut off by a plane through the points at distance
// t = ratio / 100 from the corner along its three edges: 100% would let the triangles meet
// (the cuboctahedron), a small ratio leaves nearly the whole cube. Slots 0, 3, .., 15 run
// round the octagon on the +X face from the corner (1, 1, 1); the two slots after each are
// its turns onto the +Z and +Y faces. The slots 9..14 land on the corners whose triangles
// belong to the reflected half, where they coincide with reflected slots.
void GenerateHedron14(GemModel& model, int cornerRatio) {
    SetCounts(model, 36, 14);
    VertexArray& v = model.ModelVertices;
    const double t = std::clamp(cornerRatio, 5, 95) / 100.0;
    const double s = 1.0 / std::sqrt(2.0 + (1.0 - t) * (1.0 - t));  // every vertex on the sphere
    const double a = s, b = s * (1.0 - t);
    v[0] = {a, a, b};
    v[3] = {a, a, -b};
    v[6] = {a, b, -a};
    v[9] = {a, -b, -a};
    v[12] = {a, -a, -b};
    v[15] = {a, -a, b};
    for (int i = 0; i < 18; i += 3) {
        v[i + 1] = TurnThird(v[i]);
        v[i + 2] = TurnThird(v[i + 1]);
    }
    MirrorVertices(v, 36);

    FaceArray& f = model.FaceTable;
    for (int i = 0; i < 3; ++i) {
        const int next = (i + 1) % 3;
        SetFace(f, i, {i, i + 3, i + 6, i + 9, i + 12, i + 15, next + 3, next});
        SetFace(f, i + 3, {i + 3, ((i + 2) % 3) + 15, i + 6});
    }
    SetFace(f, 6, {0, 1, 2});
    MirrorFaces(f, 36, 14);
}

// A cube with its edges and corners bevelled: the vertices are the points (±a, ±a, ±1) and
// their turns, a = stored ratio / 100, so the ratio the dialog shows (100 minus the stored
// one, 13 by default) is how far the bevels reach into each face, as a share of its half
// edge. Slots 4k .. 4k+3 are the corners of the square on the +X, +Z, +Y face (k = 0, 1, 2);
// the other half is the point reflection. The first half of the faces is the triangle at
// (1, 1, 1) and, for each of the three faces, its square, the bevel towards the next face,
// the bevel towards the opposite of the next face and the triangle between those bevels.
void GenerateHedron26(GemModel& model, int storedRatio) {
    SetCounts(model, 24, 26);
    VertexArray& v = model.ModelVertices;
    const double a = std::clamp(storedRatio, 5, 95) / 100.0;
    const double s = 1.0 / std::sqrt(1.0 + 2.0 * a * a);
    v[0] = {s, a * s, a * s};
    v[1] = {s, -a * s, a * s};
    v[2] = {s, -a * s, -a * s};
    v[3] = {s, a * s, -a * s};
    for (int i = 4; i < 12; ++i)
        v[i] = TurnThird(v[i - 4]);
    MirrorVertices(v, 24);

    // The slot that a vertex slot moves to under TurnThird.
    auto turn = [](int i) {
        const auto upper = [](int j) { return (j + 4) % 12; };
        return i < 12 ? upper(i) : 23 - upper(23 - i);
    };
    FaceArray& f = model.FaceTable;
    SetFace(f, 0, {0, 4, 8});
    int square[4] = {0, 3, 2, 1};
    int bevel[4] = {0, 1, 7, 4};
    int bevelBelow[4] = {2, 3, 17, 18};
    int corner[3] = {3, 9, 17};
    for (int k = 0; k < 3; ++k) {
        SetFace(f, 4 * k + 1, {square[0], square[1], square[2], square[3]});
        SetFace(f, 4 * k + 2, {bevel[0], bevel[1], bevel[2], bevel[3]});
        SetFace(f, 4 * k + 3, {bevelBelow[0], bevelBelow[1], bevelBelow[2], bevelBelow[3]});
        SetFace(f, 4 * k + 4, {corner[0], corner[1], corner[2]});
        for (int j = 0; j < 4; ++j) {
            square[j] = turn(square[j]);
            bevel[j] = turn(bevel[j]);
            bevelBelow[j] = turn(bevelBelow[j]);
            if (j < 3)
                corner[j] = turn(corner[j]);
        }
    }
    MirrorFaces(f, 24, 26);
}

}  // namespace kirameki
