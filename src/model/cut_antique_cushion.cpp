#include <cmath>

#include "model/cut_generators.h"
#include "model/generator_tools.h"

namespace kirameki {

namespace {

// Distance from the axis of the girdle outline |x|^n + |z|^n = const, scaled so that the
// corners (45 degrees) lie on the unit circle and the sides come in to 2^(1/n - 1/2).
double OutlineRadius(double degrees, double n) {
    const double c = std::abs(std::cos(degrees * kDegree));
    const double s = std::abs(std::sin(degrees * kDegree));
    return std::pow(2.0, 1.0 / n - 0.5) * std::pow(std::pow(c, n) + std::pow(s, n), -1.0 / n);
}

}  // namespace

// The antique cushion: the round brilliant's 57 facets (table, 8 stars, 8 bezels, 16 upper
// girdle, 16 lower girdle, 8 pavilion mains) over a rounded-square girdle. Kites at the
// sides and at the corners must stay planar, so the star and lower girdle points are placed
// where both kites of their sector allow: their mirror-midpoints lie on the kites' centre
// lines, which puts them about 30 degrees from the sides rather than halfway.
void GenerateAntiqueCushionCut(GemModel& model) {
    SetCounts(model, 41, 57);
    VertexArray& v = model.ModelVertices;
    FaceArray& f = model.FaceTable;

    const double n = 3.0;                     // outline exponent: softly rounded square
    const double Ga = OutlineRadius(0.0, n);  // girdle radius at the middle of a side
    const double Gd = 1.0;                    // girdle radius at a corner
    const double t = 0.52;                    // table: 52% of the girdle, the same outline
    const double H = 0.34;                    // high crown of the old cuts
    const double S = 0.55 * H;                // star point height
    const double P = 0.86;                    // culet depth: mains at about 42-44 degrees
    const double L = 0.72 * P;                // lower girdle point depth

    // Star and lower girdle points in a sector's own frame: u along the side's normal, w
    // toward the corner. Their projections on the side and corner directions are those of
    // the kites' centre lines at their height.
    const double shrink = 1.0 + (t - 1.0) * S / H;
    const double su = Ga * shrink, sw = std::sqrt(2.0) * Gd * shrink - su;
    const double lu = Ga * (1.0 - L / P), lw = std::sqrt(2.0) * Gd * (1.0 - L / P) - lu;
    const double starAngle = std::atan2(sw, su) / kDegree;
    const double lowerAngle = std::atan2(lw, lu) / kDegree;

    v[0] = AtAngle(t * Ga, 0.0, H);
    v[1] = AtAngle(t * Gd, 45.0, H);
    TurnVerticesQuarter(v, 2, 7, -2);
    v[8] = AtAngle(std::hypot(su, sw), starAngle, S);
    v[9] = AtAngle(std::hypot(su, sw), 90.0 - starAngle, S);
    TurnVerticesQuarter(v, 10, 15, -2);
    v[16] = AtAngle(Ga, 0.0, 0.0);
    v[17] = AtAngle(OutlineRadius(starAngle, n), starAngle, 0.0);
    v[18] = AtAngle(Gd, 45.0, 0.0);
    v[19] = AtAngle(OutlineRadius(starAngle, n), 90.0 - starAngle, 0.0);
    TurnVerticesQuarter(v, 20, 31, -4);
    v[32] = AtAngle(std::hypot(lu, lw), lowerAngle, -L);
    v[33] = AtAngle(std::hypot(lu, lw), 90.0 - lowerAngle, -L);
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
