#include <cmath>

#include "model/cut_generators.h"
#include "model/generator_tools.h"

namespace kirameki {

// The mazarin, an old cushion-shaped double-cut brilliant. The girdle is a square with cut
// corners (long sides facing the axes). The crown has a table, 8 triangles standing on the
// table's edges and 8 standing on the girdle's sides: 17 facets. The pavilion has 16: on each
// long side a lower girdle facet and two mains meeting at a break point, and one corner
// facet from each cut corner down to the culet.
void GenerateMazarinCut(GemModel& model) {
    SetCounts(model, 21, 33);
    VertexArray& v = model.ModelVertices;
    FaceArray& f = model.FaceTable;

    const double side = 30.0;  // the long sides span +-30 degrees, the cut corners 30
    const double Ta = 0.45;    // table radius toward the long sides
    const double Td = 0.50;    // table radius toward the corners
    const double H = 0.36;     // high crown of the old cuts: main crown facets at 38-41 deg
    const double P = 0.84;     // culet depth: corner facets at about 41 degrees
    const double Bd = 0.40;    // depth of the break points under the long sides
    const double Br = 0.47;    // their distance from the axis: lower girdle facets at 45 deg

    for (int k = 0; k < 4; ++k) {
        v[2 * k] = AtAngle(Ta, 90.0 * k, H);
        v[2 * k + 1] = AtAngle(Td, 90.0 * k + 45.0, H);
        v[2 * k + 8] = AtAngle(1.0, 90.0 * k + side, 0.0);
        v[2 * k + 9] = AtAngle(1.0, 90.0 * k + 90.0 - side, 0.0);
        v[k + 16] = AtAngle(Br, 90.0 * k, -Bd);
    }
    v[20] = {0.0, -P, 0.0};

    SetFace(f, 0, {0, 1, 2, 3, 4, 5, 6, 7});
    for (int j = 0; j < 8; ++j) {
        SetFace(f, j + 1, {(j + 1) % 8, j, j + 8});
        SetFace(f, j + 9, {j, ((j + 7) % 8) + 8, j + 8});
    }
    for (int k = 0; k < 4; ++k) {
        const int left = ((2 * k + 7) % 8) + 8, right = 2 * k + 8, corner = 2 * k + 9;
        SetFace(f, 4 * k + 17, {right, left, k + 16});
        SetFace(f, 4 * k + 18, {left, 20, k + 16});
        SetFace(f, 4 * k + 19, {right, k + 16, 20});
        SetFace(f, 4 * k + 20, {corner, right, 20});
    }
}

}  // namespace kirameki
