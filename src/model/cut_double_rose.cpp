#include <cmath>
#include <numbers>

#include "model/cut_generators.h"
#include "model/generator_tools.h"

namespace kirameki {

// The double Dutch rose: two six-fold domes of 24 triangles back to back on a knife-edge
// girdle of 12 points. Each dome has 6 star facets round its apex, 6 cross facets hanging
// from the edges of the ring of 6 below them and 12 girdle facets. The facets steepen
// towards the girdle (star 25, cross 41, girdle 46 degrees) and each dome is 0.7 high.
void GenerateDoubleRoseCut(GemModel& model) {
    SetCounts(model, 26, 48);
    VertexArray& v = model.ModelVertices;
    FaceArray& f = model.FaceTable;

    const double pi = std::numbers::pi;
    const double A = 0.7;  // apex height
    const double R = 0.5;  // radius of the ring of 6
    const double H = 0.5;  // height of the ring of 6

    // Apex 0, ring 1..6 every 60 degrees, girdle points 7..12 every 30 degrees from the first
    // ring point; the reflection gives girdle points 13..18 (continuing round the circle), the
    // lower ring 19..24 and the lower apex 25.
    v[0] = {0.0, A, 0.0};
    for (int i = 0; i < 6; ++i) {
        const double theta = i * pi / 3.0;
        v[1 + i] = {R * std::cos(theta), H, R * std::sin(theta)};
        v[7 + i] = {std::cos(theta / 2.0), 0.0, std::sin(theta / 2.0)};
    }
    MirrorVertices(v, 26);

    // Girdle point m (0..11, every 30 degrees) is slot 7 + m or, past half way, its reflection.
    auto girdle = [](int m) { return m < 6 ? 7 + m : 24 - m; };
    for (int i = 0; i < 6; ++i) {
        const int ring = 1 + i, nextRing = 1 + (i + 1) % 6;
        SetFace(f, 4 * i, {0, ring, nextRing});
        SetFace(f, 4 * i + 1, {nextRing, ring, girdle(2 * i + 1)});
        SetFace(f, 4 * i + 2, {ring, girdle(2 * i), girdle(2 * i + 1)});
        SetFace(f, 4 * i + 3, {nextRing, girdle(2 * i + 1), girdle((2 * i + 2) % 12)});
    }
    MirrorFaces(f, 26, 48);
}

}  // namespace kirameki
