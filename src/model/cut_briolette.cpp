#include <cmath>

#include "model/cut_generators.h"
#include "model/generator_tools.h"

namespace kirameki {

// The briolette: a faceted drop with no table, its point at +Y and its widest ring (radius
// 1.0) at y = 0. Eightfold: from the point 8 long kites, then two rows of triangles meeting
// in a zigzag at the widest ring, then 8 kites rounding in below to a small bottom facet.
// Kites are planar because their side corners sit where their mirror-midpoint lies on the
// kite's centre line (pushed out by 1 / cos 22.5 degrees). Inside the unit sphere a convex
// outline from the point to the widest ring is at best a 90-degree cone; the facets here
// rise from 40 degrees (to the girdle plane) at the point to 63 at the widest ring.
void GenerateBrioletteCut(GemModel& model) {
    SetCounts(model, 41, 57);
    VertexArray& v = model.ModelVertices;
    FaceArray& f = model.FaceTable;

    const double c = std::cos(22.5 * kDegree);  // half a sector
    const double tip = 1.0;                     // the point of the drop
    const double y1 = 0.8;                      // side corners of the point kites
    const double y2 = 0.4, r2 = 0.72;           // lower corners of the point kites
    const double y4 = -0.5;                     // side corners of the bottom kites
    const double y5 = -0.85, r5 = 0.3;          // corners of the bottom facet

    const double r1 = r2 * (tip - y1) / ((tip - y2) * c);
    const double r4 = (1.0 + (r5 - 1.0) * y4 / y5) / c;

    v[0] = {0.0, tip, 0.0};
    for (int i = 0; i < 8; ++i) {
        const double a = 45.0 * i;
        v[i + 1] = AtAngle(r1, a + 22.5, y1);
        v[i + 9] = AtAngle(r2, a, y2);
        v[i + 17] = AtAngle(1.0, a + 22.5, 0.0);
        v[i + 25] = AtAngle(r4, a, y4);
        v[i + 33] = AtAngle(r5, a + 22.5, y5);
    }

    for (int i = 0; i < 8; ++i) {
        const int next = (i + 1) % 8, prev = (i + 7) % 8;
        SetFace(f, 7 * i, {0, prev + 1, i + 9, i + 1});
        SetFace(f, 7 * i + 1, {i + 1, i + 9, next + 9});
        SetFace(f, 7 * i + 2, {next + 9, i + 9, i + 17});
        SetFace(f, 7 * i + 3, {i + 9, prev + 17, i + 17});
        SetFace(f, 7 * i + 4, {i + 17, prev + 17, i + 25});
        SetFace(f, 7 * i + 5, {i + 17, i + 25, i + 33, next + 25});
        SetFace(f, 7 * i + 6, {i + 25, prev + 33, i + 33});
    }
    SetFace(f, 56, {40, 39, 38, 37, 36, 35, 34, 33});
}

}  // namespace kirameki
