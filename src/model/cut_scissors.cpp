#include <cmath>
#include <numbers>

#include "model/cut_generators.h"
#include "model/generator_tools.h"

namespace kirameki {

// The scissors cut: a rectangular step cut, 1.15 times as long as wide with small cut
// corners, whose middle crown row is crossed on every side. There the row above (20
// degrees) and the row below (48 degrees) are carried on until they meet, and the middle
// row (33 degrees) is left as two triangles at the ends of the side, so that their edges
// cross like the blades of a pair of scissors, pinned at a short bar where the rows meet.
// Table 56% of the width, crown 15% and pavilion 50% of it; the pavilion falls in two
// rows, 50 degrees and then 40 degrees to a keel along Z.
void GenerateScissorsCut(GemModel& model) {
    SetCounts(model, 50, 45);
    VertexArray& v = model.ModelVertices;
    FaceArray& f = model.FaceTable;
    const double degree = std::numbers::pi / 180.0;

    // The ends of the girdle's short sides lie at 1.0.
    const double W = 1.0 / std::hypot(0.85, 1.15);  // half width
    const double L = 1.15 * W;                      // half length
    const double C = 0.15 * W;                      // corner cut
    // Crown rows from the table out: widths and slopes.
    const double outer = 0.12 * W, inner = 0.2 * W;
    const double upper = std::tan(20.0 * degree), middle = std::tan(33.0 * degree);
    const double lower = std::tan(48.0 * degree);
    const double pavilionStep = 0.45 * W;
    const double pavilion = std::tan(50.0 * degree), keel = std::tan(40.0 * degree);

    // Rings, each set in on every side by the rows outside it: table 0..7, crown rings
    // 8..15 and 16..23, girdle 24..31, pavilion ring 32..39.
    auto ring = [&](int first, double inset, double y) {
        const double w = W - inset;
        StepRing(v, first, w, L - inset, C * w / W, y);
    };
    const double tableInset = 2.0 * outer + inner;
    const double y2 = outer * lower, y1 = y2 + inner * middle, y0 = y1 + outer * upper;
    const double yP = -pavilionStep * pavilion;
    ring(0, tableInset, y0);
    ring(8, outer + inner, y1);
    ring(16, outer, y2);
    ring(24, 0.0, 0.0);
    ring(32, pavilionStep, yP);

    // Where the upper and the lower crown rows meet, measured in from the girdle, and the
    // half length of the bar there.
    const double meet = (y0 - tableInset * upper) / (lower - upper);
    const double yMeet = meet * lower;
    const double bar = 0.04;
    // Bars 40..47: two points per side, in the order of the ring slots they lie next to.
    v[40] = {W - meet, yMeet, -bar};
    v[41] = {W - meet, yMeet, bar};
    v[42] = {bar, yMeet, L - meet};
    v[43] = {-bar, yMeet, L - meet};
    v[44] = {-(W - meet), yMeet, bar};
    v[45] = {-(W - meet), yMeet, -bar};
    v[46] = {-bar, yMeet, -(L - meet)};
    v[47] = {bar, yMeet, -(L - meet)};

    const double lastWidth = W - pavilionStep;
    const double keelEnd = L - pavilionStep - lastWidth;
    v[48] = {0.0, yP - lastWidth * keel, keelEnd};
    v[49] = {0.0, yP - lastWidth * keel, -keelEnd};

    SetFace(f, 0, {0, 1, 2, 3, 4, 5, 6, 7});
    int face = 1;
    for (int j = 0; j < 8; ++j) {
        const int a = j, b = (j + 1) % 8;
        if (j % 2 == 0) {
            // A corner: three plain trapezoids down to the girdle.
            for (int r = 0; r < 24; r += 8)
                SetFace(f, face++, {r + b, r + a, r + 8 + a, r + 8 + b});
            continue;
        }
        // A side, slots a and b at its ends; its bar points pa (next to a) and pb.
        const int pa = 40 + 2 * ((j / 2 + 1) % 4), pb = pa + 1;
        SetFace(f, face++, {b, a, 8 + a, pa, pb, 8 + b});
        SetFace(f, face++, {8 + a, 16 + a, pa});
        SetFace(f, face++, {8 + b, pb, 16 + b});
        SetFace(f, face++, {16 + b, pb, pa, 16 + a, 24 + a, 24 + b});
    }
    for (int j = 0; j < 8; ++j) {
        const int a = 24 + j, b = 24 + (j + 1) % 8;
        SetFace(f, face++, {b, a, a + 8, b + 8});
    }
    for (int j = 0; j < 8; ++j) {
        const int a = 32 + j, b = 32 + (j + 1) % 8;
        if (j == 3) {
            SetFace(f, face++, {b, a, 48, 49});
        } else if (j == 7) {
            SetFace(f, face++, {b, a, 49, 48});
        } else {
            SetFace(f, face++, {b, a, j < 3 ? 48 : 49});
        }
    }
}

}  // namespace kirameki
