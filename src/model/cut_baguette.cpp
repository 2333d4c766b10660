#include <cmath>
#include <numbers>

#include "model/cut_generators.h"
#include "model/generator_tools.h"

namespace kirameki {

// The baguette: a 2.5 : 1 rectangle with its long axis along Z, a table of two thirds of the
// width, one row of crown facets at 35 degrees and one row of pavilion facets at 43 degrees
// that stop at a narrow flat culet. Every facet of a row has the same slope, so each ring is
// the girdle rectangle set in by the same distance on all four sides.
void GenerateBaguetteCut(GemModel& model) {
    SetCounts(model, 12, 10);
    VertexArray& v = model.ModelVertices;
    FaceArray& f = model.FaceTable;

    const double degree = std::numbers::pi / 180.0;
    const double W = 1.0 / std::sqrt(1.0 + 2.5 * 2.5);      // half width; the corners reach 1.0
    const double L = 2.5 * W;                               // half length
    const double crownInset = W / 3.0;                      // table 2/3 of the width
    const double H = crownInset * std::tan(35.0 * degree);  // crown height
    const double culetInset = W - 0.04;                     // culet 0.08 wide
    const double P = culetInset * std::tan(43.0 * degree);  // pavilion depth

    // Table 0..3, girdle 4..7, culet 8..11, each ring clockwise seen from above the table,
    // starting at the +X +Z corner.
    const double sx[4] = {1.0, -1.0, -1.0, 1.0};
    const double sz[4] = {1.0, 1.0, -1.0, -1.0};
    for (int i = 0; i < 4; ++i) {
        v[i] = {sx[i] * (W - crownInset), H, sz[i] * (L - crownInset)};
        v[i + 4] = {sx[i] * W, 0.0, sz[i] * L};
        v[i + 8] = {sx[i] * (W - culetInset), -P, sz[i] * (L - culetInset)};
    }

    SetFace(f, 0, {0, 1, 2, 3});
    for (int i = 0; i < 4; ++i) {
        const int next = (i + 1) % 4;
        SetFace(f, i + 1, {next, i, i + 4, next + 4});
        SetFace(f, i + 5, {next + 4, i + 4, i + 8, next + 8});
    }
    SetFace(f, 9, {11, 10, 9, 8});
}

}  // namespace kirameki
