#include <cmath>

#include "model/cut_generators.h"
#include "model/generator_tools.h"

namespace kirameki {

// The modern round brilliant: table, 8 star, 8 bezel and 16 upper girdle facets on the
// crown; 16 lower girdle facets and 8 pavilion mains below a knife-edge girdle.
void GenerateBrilliantCut(GemModel& model) {
    SetCounts(model, 41, 57);
    VertexArray& v = model.ModelVertices;
    FaceArray& f = model.FaceTable;

    const double s = std::sqrt(2.0);
    const double c = std::sqrt(2.0 + s) / 2.0;  // cos 22.5 degrees
    const double k = std::sqrt(2.0 - s) / 2.0;  // sin 22.5 degrees
    const double G = 1.0;                       // girdle radius
    const double T = 0.56;                      // table radius
    const double H = 0.324;                     // crown height
    const double S = 2.0 * 0.1;                 // star point height
    const double L = 2.0 * 0.3;                 // lower girdle point depth
    const double P = 2.0 * 0.431;               // pavilion depth

    v[0] = {0.0, H, T};
    v[1] = {-T / s, H, T / s};
    TurnVerticesQuarter(v, 2, 7, -2);

    // The crown cone's radius at the star height, pushed out so the bezel kite is planar.
    const double d = (G * (H - S) + T * S) / (H * c);
    v[8] = {-d * k, S, d * c};
    v[9] = {-d * c, S, d * k};
    TurnVerticesQuarter(v, 10, 15, -2);

    v[16] = {0.0, 0.0, G};
    v[17] = {-G * k, 0.0, G * c};
    v[18] = {-G / s, 0.0, G / s};
    v[19] = {-G * c, 0.0, G * k};
    TurnVerticesQuarter(v, 20, 31, -4);

    const double d2 = G * (P - L) / (P * c);
    v[32] = {-d2 * k, -L, d2 * c};
    v[33] = {-d2 * c, -L, d2 * k};
    TurnVerticesQuarter(v, 34, 39, -2);

    v[40] = {0.0, -P, 0.0};

    SetFace(f, 0, {0, 1, 2, 3, 4, 5, 6, 7});
    for (int i = 0; i < 8; ++i) {
        SetFace(f, i + 1, {(i + 1) % 8, i, i + 8});
        SetFace(f, i + 9, {i + 8, i, ((i + 7) % 8) + 8, 2 * i + 16});
        SetFace(f, 2 * i + 17, {i + 8, 2 * i + 16, 2 * i + 17});
        SetFace(f, 2 * i + 18, {i + 8, 2 * i + 17, ((2 * i + 2) % 16) + 16});
        SetFace(f, i + 49, {2 * i + 16, ((i + 7) % 8) + 32, 40, i + 32});
    }
    for (int i = 0; i < 16; ++i)
        SetFace(f, i + 33, {i + 16, (i / 2) + 32, ((i + 1) % 16) + 16});
}

}  // namespace kirameki
