#include <cmath>
#include <numbers>

#include "model/cut_generators.h"
#include "model/generator_tools.h"

namespace kirameki {

// The emerald cut: an octagonal step cut 1.4 times as long as wide with corners cut back a
// quarter of the half width. Seven rings: the table (65% of the width), two crown steps and
// the knife-edge girdle, then three pavilion steps, and a keel line along Z. Within a row the
// long sides and ends share one slope (each ring is set in by the same distance on both) and
// the corner facets shrink with the ring, so every facet is a trapezoid. Crown rows from the
// girdle up at 42, 33 and 24 degrees; pavilion rows down at 52, 46, 42 and 39 degrees to the
// keel, which is as long as the last ring's ends are set in from its sides.
void GenerateEmeraldCut(GemModel& model) {
    SetCounts(model, 58, 57);
    VertexArray& v = model.ModelVertices;
    FaceArray& f = model.FaceTable;

    const double degree = std::numbers::pi / 180.0;
    // The girdle's farthest points, the ends of the corner facets on the short sides, lie at 1.
    const double W = 1.0 / std::sqrt(0.75 * 0.75 + 1.4 * 1.4);  // half width
    const double L = 1.4 * W;                                   // half length
    const double C = 0.25 * W;                                  // corner cut

    // From the table (ring 0) down to the last pavilion ring (6): the set-in from the girdle,
    // measured on the long sides, and the slope of the row above each ring's lower edge.
    const double crownStep = 0.35 * W / 3.0;
    const double crownSlope[3] = {24.0, 33.0, 42.0};
    const double pavilionStep[4] = {0.14, 0.15, 0.16, 0.0};
    const double pavilionSlope[4] = {52.0, 46.0, 42.0, 39.0};

    double inset[7], height[7];
    inset[3] = height[3] = 0.0;
    for (int r = 2; r >= 0; --r) {
        inset[r] = inset[r + 1] + crownStep;
        height[r] = height[r + 1] + crownStep * std::tan(crownSlope[r] * degree);
    }
    for (int r = 4; r <= 6; ++r) {
        inset[r] = inset[r - 1] + pavilionStep[r - 4];
        height[r] = height[r - 1] - pavilionStep[r - 4] * std::tan(pavilionSlope[r - 4] * degree);
    }
    for (int r = 0; r < 7; ++r) {
        const double w = W - inset[r];
        StepRing(v, 8 * r, w, L - inset[r], C * w / W, height[r]);
    }
    const double lastWidth = W - inset[6];
    const double keelDepth = height[6] - lastWidth * std::tan(pavilionSlope[3] * degree);
    const double keelEnd = L - inset[6] - lastWidth;
    v[56] = {0.0, keelDepth, keelEnd};
    v[57] = {0.0, keelDepth, -keelEnd};

    SetFace(f, 0, {0, 1, 2, 3, 4, 5, 6, 7});
    for (int r = 0; r < 6; ++r)
        for (int j = 0; j < 8; ++j) {
            const int next = (j + 1) % 8;
            SetFace(f, 1 + 8 * r + j, {8 * r + next, 8 * r + j, 8 * r + 8 + j, 8 * r + 8 + next});
        }
    // The last row: the long sides run to both keel ends, the +Z end and its corners to the
    // keel's +Z end and the -Z ones to its -Z end.
    for (int j = 0; j < 8; ++j) {
        const int a = 48 + j, b = 48 + (j + 1) % 8;
        if (j == 3) {
            SetFace(f, 49 + j, {b, a, 56, 57});
        } else if (j == 7) {
            SetFace(f, 49 + j, {b, a, 57, 56});
        } else {
            SetFace(f, 49 + j, {b, a, j < 3 ? 56 : 57});
        }
    }
}

}  // namespace kirameki
