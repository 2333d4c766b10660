#include <cmath>
#include <numbers>

#include "model/cut_generators.h"
#include "model/generator_tools.h"

namespace kirameki {

namespace {

bool SidesInRange(int sides) {
    return sides >= 3 && sides <= 16;
}

// Base radius and half height of a prism or pyramid whose base ring lies on the unit sphere.
void PrismShape(int heightRatio, double& radius, double& halfHeight) {
    radius = std::sqrt(10000.0 - double(heightRatio) * heightRatio) * 0.01;
    halfHeight = heightRatio / 100.0;
}

}  // namespace

void GenerateEllipsoid(GemModel& model, int surfaces, int rows, double diameterRatio,
                       double compression) {
    // The dialog keeps these in range; a damaged settings file must still not overrun the
    // fixed storage, so such a request leaves the previous model as it was. The product is
    // formed in 64 bits: rows + 1 of a 32-bit row count near its limit would wrap.
    const long long vertexCount =
        static_cast<long long>(surfaces) * (static_cast<long long>(rows) + 1);
    if (surfaces < 3 || rows < 2 || vertexCount > kMaxVertices)
        return;
    SetCounts(model, surfaces * (rows + 1), surfaces * rows);
    const double a = diameterRatio;
    const double b = compression;
    for (int i = 0; i < surfaces; ++i) {
        const double phi = i * 2.0 * std::numbers::pi / surfaces;
        for (int j = 0; j <= rows; ++j) {
            const double psi = (rows * 0.5 - j) * std::numbers::pi / rows;
            model.ModelVertices[i * (rows + 1) + j] = {a * std::cos(psi) * std::cos(phi),
                                                       std::sin(psi),
                                                       a * b * std::cos(psi) * std::sin(phi)};
        }
    }
    for (int face = 0; face < model.FaceCount; ++face) {
        const int base = (face / rows) * (rows + 1) + (face % rows);
        const int corners[4] = {base, base + 1, (base + rows + 2) % model.VertexCount,
                                (base + rows + 1) % model.VertexCount};
        // The lower half is stored from the opposite corner so that its winding stays
        // consistent; the pole faces stay quads with two coinciding corners.
        const int shift = (face % rows < rows / 2) ? 0 : 2;
        FaceRecord& record = model.FaceTable[face];
        record.Count = 4;
        for (int k = 0; k < 4; ++k)
            record.Index[(k + shift) % 4] = corners[k];
    }
}

void GeneratePrism(GemModel& model, int sides, int heightRatio) {
    if (!SidesInRange(sides))
        return;
    const int n = sides;
    SetCounts(model, 2 * n, n + 2);
    double r = 0.0, e = 0.0;
    PrismShape(heightRatio, r, e);
    for (int i = 0; i < n; ++i) {
        const double theta = i * 2.0 * std::numbers::pi / n;
        const Vec3 base = {-e, r * std::cos(theta), r * std::sin(theta)};
        model.ModelVertices[i] = base;
        model.ModelVertices[((n - i) % n) + n] = {e, base.y, base.z};
    }
    FaceRecord& bottom = model.FaceTable[0];
    FaceRecord& top = model.FaceTable[1];
    bottom.Count = top.Count = n;
    for (int i = 0; i < n; ++i) {
        bottom.Index[i] = i;
        top.Index[i] = n + i;
    }
    for (int i = 0; i < n; ++i)
        SetFace(model.FaceTable, i + 2, {(n - i) % n, n - 1 - i, ((i + 1) % n) + n, i + n});
}

void GeneratePyramid(GemModel& model, int sides, int heightRatio) {
    if (!SidesInRange(sides))
        return;
    const int n = sides;
    SetCounts(model, n + 1, n + 1);
    double r = 0.0, e = 0.0;
    PrismShape(heightRatio, r, e);
    for (int i = 0; i < n; ++i) {
        const double theta = i * 2.0 * std::numbers::pi / n;
        model.ModelVertices[i] = {-e, r * std::cos(theta), r * std::sin(theta)};
    }
    // The apex lies inside the sphere at distance e: the pyramid's height is 2e.
    model.ModelVertices[n] = {e, 0.0, 0.0};
    FaceRecord& base = model.FaceTable[0];
    base.Count = n;
    for (int i = 0; i < n; ++i)
        base.Index[i] = i;
    for (int i = 0; i < n; ++i)
        SetFace(model.FaceTable, i + 1, {(n - i) % n, n - 1 - i, n});
}

}  // namespace kirameki
