#include <cmath>

#include "model/cut_generators.h"
#include "model/generator_tools.h"

namespace kirameki {

// A tenfold brilliant (10-sided table): 10 stars, 10 bezels and 20 upper girdle facets on
// the crown; below the 20-point girdle 20 lower girdle facets, 10 pavilion mains that stop
// short of the culet, and 10 culet facets between them, kites turned half a sector.
void GenerateBrilliantCut2(GemModel& model) {
    SetCounts(model, 61, 81);
    VertexArray& v = model.ModelVertices;
    FaceArray& f = model.FaceTable;

    const double c = std::cos(18.0 * kDegree);     // half a sector
    const double G = 1.0;                          // girdle radius
    const double T = 0.56;                         // table radius
    const double H = 0.32;                         // crown height: bezels at about 36 degrees
    const double S = 0.6 * H;                      // star point height
    const double P = 0.86;                         // culet depth
    const double L = 0.55;                         // lower girdle point depth
    const double main = std::tan(41.2 * kDegree);  // pavilion mains at 41.2 degrees

    // Star points on the crown cone, pushed out so that the bezel kites are planar.
    const double d = (G * (H - S) + T * S) / (H * c);
    // Lower girdle points where the mains' centre line passes at their depth, pushed out.
    const double d2 = (G - L / main) / c;
    // The culet facet (culet, two main bottoms, a lower girdle point) is planar when the main
    // bottoms' mirror-midpoint lies on the line from the culet to the lower girdle point;
    // the main bottom Q (depth q, radius G - q / main) satisfies that linear condition.
    const double m = d2 / (P - L);
    const double q = (m * P - c * G) / (m - c / main);
    const double rq = G - q / main;

    for (int i = 0; i < 10; ++i) {
        v[i] = AtAngle(T, 36.0 * i, H);
        v[i + 10] = AtAngle(d, 36.0 * i + 18.0, S);
        v[2 * i + 20] = AtAngle(G, 36.0 * i, 0.0);
        v[2 * i + 21] = AtAngle(G, 36.0 * i + 18.0, 0.0);
        v[i + 40] = AtAngle(d2, 36.0 * i + 18.0, -L);
        v[i + 50] = AtAngle(rq, 36.0 * i, -q);
    }
    v[60] = {0.0, -P, 0.0};

    SetFace(f, 0, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9});
    for (int i = 0; i < 10; ++i) {
        const int next = (i + 1) % 10, prev = (i + 9) % 10;
        SetFace(f, i + 1, {next, i, i + 10});
        SetFace(f, i + 11, {i + 10, i, prev + 10, 2 * i + 20});
        SetFace(f, 2 * i + 21, {i + 10, 2 * i + 20, 2 * i + 21});
        SetFace(f, 2 * i + 22, {i + 10, 2 * i + 21, 2 * next + 20});
        SetFace(f, 2 * i + 41, {2 * i + 20, i + 40, 2 * i + 21});
        SetFace(f, 2 * i + 42, {2 * i + 21, i + 40, 2 * next + 20});
        SetFace(f, i + 61, {2 * i + 20, prev + 40, i + 50, i + 40});
        SetFace(f, i + 71, {i + 40, i + 50, 60, next + 50});
    }
}

// An eightfold brilliant with a 32-point girdle. Crown: table, 8 stars, 8 bezels reaching
// the girdle, and between the bezels a kite from each star point down to the middle girdle
// point, flanked by three split upper girdle facets on either side. Pavilion: 8 mains
// stopping short of the culet, 8 culet facets, and between the mains a fan of four lower
// girdle facets around a break point, over two inner lower girdle facets.
void GenerateBrilliantCut3(GemModel& model) {
    SetCounts(model, 89, 137);
    VertexArray& v = model.ModelVertices;
    FaceArray& f = model.FaceTable;

    const double c = std::cos(22.5 * kDegree);     // half a sector
    const double G = 1.0;                          // girdle radius
    const double T = 0.56;                         // table radius
    const double H = 0.33;                         // crown height: bezels at about 37 deg
    const double S = 0.6 * H;                      // star point height
    const double U = 0.07;                         // height of the split upper girdle points
    const double spread = 7.0;                     // their angle either side of the star
    const double P = 0.86;                         // culet depth
    const double L = 0.55;                         // lower girdle point depth
    const double main = std::tan(41.0 * kDegree);  // pavilion mains at 41 degrees
    const double R = 0.2;                          // depth of the lower girdle break points
    const double fan = std::tan(48.0 * kDegree);   // below the middle girdle point at 48 deg

    const double d = (G * (H - S) + T * S) / (H * c);
    // The star kite is planar when the mirror-midpoint of its side corners lies on the line
    // from the star point to the middle girdle point. The break points' window is narrow:
    // further in and the inner lower girdle facets fold inward at the girdle, further out
    // and the fan folds over the lower girdle points.
    const double du = (G + (d - G) * U / S) / std::cos(spread * kDegree);
    const double d2 = (G - L / main) / c;
    const double m = d2 / (P - L);
    const double q = (m * P - c * G) / (m - c / main);
    const double rq = G - q / main;
    const double dr = G - R / fan;

    for (int i = 0; i < 8; ++i) {
        const double a = 45.0 * i;
        v[i] = AtAngle(T, a, H);
        v[i + 8] = AtAngle(d, a + 22.5, S);
        v[2 * i + 16] = AtAngle(du, a + 22.5 - spread, U);
        v[2 * i + 17] = AtAngle(du, a + 22.5 + spread, U);
        for (int k = 0; k < 4; ++k)
            v[4 * i + k + 32] = AtAngle(G, a + 11.25 * k, 0.0);
        v[i + 64] = AtAngle(d2, a + 22.5, -L);
        v[i + 72] = AtAngle(rq, a, -q);
        v[i + 80] = AtAngle(dr, a + 22.5, -R);
    }
    v[88] = {0.0, -P, 0.0};

    SetFace(f, 0, {0, 1, 2, 3, 4, 5, 6, 7});
    for (int i = 0; i < 8; ++i) {
        const int next = (i + 1) % 8, prev = (i + 7) % 8;
        const int g = 4 * i + 32, gNext = 4 * next + 32, u = 2 * i + 16;
        SetFace(f, i + 1, {next, i, i + 8});
        SetFace(f, i + 9, {i + 8, i, prev + 8, g});
        SetFace(f, i + 17, {i + 8, u, g + 2, u + 1});
        SetFace(f, 6 * i + 25, {i + 8, g, u});
        SetFace(f, 6 * i + 26, {u, g, g + 1});
        SetFace(f, 6 * i + 27, {u, g + 1, g + 2});
        SetFace(f, 6 * i + 28, {u + 1, g + 2, g + 3});
        SetFace(f, 6 * i + 29, {u + 1, g + 3, gNext});
        SetFace(f, 6 * i + 30, {i + 8, u + 1, gNext});
        SetFace(f, 6 * i + 73, {g, i + 64, i + 80});
        for (int k = 0; k < 4; ++k)
            SetFace(f, 6 * i + 74 + k, {g + k, i + 80, k == 3 ? gNext : g + k + 1});
        SetFace(f, 6 * i + 78, {i + 80, i + 64, gNext});
        SetFace(f, i + 121, {g, prev + 64, i + 72, i + 64});
        SetFace(f, i + 129, {i + 64, i + 72, 88, next + 72});
    }
}

}  // namespace kirameki
