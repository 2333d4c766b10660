#include <cmath>
#include <numbers>

#include "model/cut_generators.h"
#include "model/generator_tools.h"

namespace kirameki {

// Five pyramids on each face of the dodecahedron, which is built in place first and keeps
// slots 0..19. The solid is the dual of the truncated icosahedron, so an apex stands over
// its face centre at the ratio of that solid's face distances to the dodecahedron's
// vertices (about 0.974; those stay on the unit sphere): with the truncated icosahedron's
// vertices at (0, ±1, ±3 phi) and their kin, its hexagons lie at sqrt(3) phi^2 from the
// centre and its pentagons at (4 + 3 phi) / sqrt(1 + phi^2).
void GeneratePentakisDodecahedron(GemModel& model) {
    GenerateDodecahedron(model);
    int pentagons[12][5];
    for (int face = 0; face < 12; ++face)
        for (int j = 0; j < 5; ++j)
            pentagons[face][j] = model.FaceTable[face].Index[j];

    SetCounts(model, 32, 60);
    VertexArray& v = model.ModelVertices;
    const double phi = (1.0 + std::sqrt(5.0)) / 2.0;
    const double apex = std::sqrt(3.0) * phi * phi * std::sqrt(1.0 + phi * phi) / (4.0 + 3.0 * phi);
    for (int face = 0; face < 12; ++face) {
        Vec3 centre;
        for (int j = 0; j < 5; ++j)
            centre = centre + v[pentagons[face][j]];
        v[20 + face] = Normalized(centre) * apex;
        for (int j = 0; j < 5; ++j)
            SetFace(model.FaceTable, 5 * face + j,
                    {pentagons[face][j], pentagons[face][(j + 1) % 5], 20 + face});
    }
}

// The icosahedron of the regular solids with every edge cut at its thirds, stood on a
// pentagon. Upper half, all at angles 72k about Y (k = 0..4): the top pentagon A (0..4), the
// points B (5..9) below them on the edges to the upper ring, then for each upper ring point
// its neighbours on the ring edges C (10 + 2k towards ring point k+1, 11 + 2k towards k-1)
// and on the edges down to the lower ring D (20 + 2k, 21 + 2k). The lower half is the point
// reflection.
void GenerateTruncatedIcosahedron(GemModel& model) {
    SetCounts(model, 60, 32);
    VertexArray& v = model.ModelVertices;
    FaceArray& f = model.FaceTable;
    const double pi = std::numbers::pi;
    const double r = 2.0 / std::sqrt(5.0), h = 1.0 / std::sqrt(5.0);
    const Vec3 pole = {0.0, 1.0, 0.0};
    auto upper = [&](int k) {
        const double theta = k * 2.0 * pi / 5.0;
        return Vec3{r * std::cos(theta), h, r * std::sin(theta)};
    };
    auto lower = [&](int k) {
        const double theta = (k + 0.5) * 2.0 * pi / 5.0;
        return Vec3{r * std::cos(theta), -h, r * std::sin(theta)};
    };
    // The point a third of the way from a to b, on the unit sphere.
    auto third = [](Vec3 a, Vec3 b) { return Normalized(a * (2.0 / 3.0) + b * (1.0 / 3.0)); };
    for (int k = 0; k < 5; ++k) {
        v[k] = third(pole, upper(k));
        v[5 + k] = third(upper(k), pole);
        v[10 + 2 * k] = third(upper(k), upper(k + 1));
        v[11 + 2 * k] = third(upper(k), upper(k + 4));
        v[20 + 2 * k] = third(upper(k), lower(k));
        v[21 + 2 * k] = third(upper(k), lower(k + 4));
    }
    MirrorVertices(v, 60);

    SetFace(f, 0, {0, 1, 2, 3, 4});
    for (int k = 0; k < 5; ++k) {
        const int next = (k + 1) % 5;
        // Lower ring point k is the reflection of upper point k+3, so its points towards upper
        // points k and k+1 are reflections of that point's D points.
        const int m = (k + 3) % 5;
        SetFace(f, 1 + k, {next, k, 5 + k, 10 + 2 * k, 11 + 2 * next, 5 + next});
        SetFace(f, 6 + k, {10 + 2 * k, 5 + k, 11 + 2 * k, 21 + 2 * k, 20 + 2 * k});
        SetFace(f, 11 + k,
                {11 + 2 * next, 10 + 2 * k, 20 + 2 * k, 38 - 2 * m, 39 - 2 * m, 21 + 2 * next});
    }
    MirrorFaces(f, 60, 32);
}

}  // namespace kirameki
