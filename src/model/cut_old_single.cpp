#include <cmath>

#include "model/cut_generators.h"
#include "model/generator_tools.h"

namespace kirameki {

// The old single cut: an octagonal table, 8 crown facets and 8 pavilion facets meeting in a
// culet point, over an 8-point knife-edge girdle. Table and girdle octagons share their
// corners' directions, so every crown facet is an isosceles trapezoid.
void GenerateOldSingleCut(GemModel& model) {
    SetCounts(model, 17, 17);
    VertexArray& v = model.ModelVertices;
    FaceArray& f = model.FaceTable;

    const double s = std::sqrt(2.0);
    const double G = 1.0;   // girdle radius (octagon corners)
    const double T = 0.55;  // table radius: a 55% table
    const double H = 0.29;  // crown height: crown facets at about 35 degrees
    const double P = 0.83;  // pavilion depth: pavilion facets at about 42 degrees

    v[0] = {0.0, H, T};
    v[1] = {-T / s, H, T / s};
    TurnVerticesQuarter(v, 2, 7, -2);
    v[8] = {0.0, 0.0, G};
    v[9] = {-G / s, 0.0, G / s};
    TurnVerticesQuarter(v, 10, 15, -2);
    v[16] = {0.0, -P, 0.0};

    SetFace(f, 0, {0, 1, 2, 3, 4, 5, 6, 7});
    for (int i = 0; i < 8; ++i) {
        const int next = (i + 1) % 8;
        SetFace(f, i + 1, {next, i, i + 8, next + 8});
        SetFace(f, i + 9, {next + 8, i + 8, 16});
    }
}

}  // namespace kirameki
