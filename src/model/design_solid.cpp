#include "model/design_solid.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>

namespace kirameki {

namespace {

// A number as a person reads it in a note: "12", "7.5", "3.2e-09".
std::string Figure(double value, int digits) {
    char text[32];
    const auto result =
        std::to_chars(text, text + sizeof text, value, std::chars_format::general, digits);
    return {text, result.ptr};
}

constexpr double kDegree = std::numbers::pi / 180.0;

using Polygon = std::vector<Vec3>;

// Keeps the part of the polygon where Dot(n, p) <= d.
Polygon Clip(const Polygon& polygon, Vec3 n, double d, double tolerance) {
    Polygon out;
    out.reserve(polygon.size() + 1);
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Vec3 a = polygon[i];
        const Vec3 b = polygon[(i + 1) % polygon.size()];
        const double da = Dot(n, a) - d, db = Dot(n, b) - d;
        if (da <= tolerance)
            out.push_back(a);
        if ((da < -tolerance && db > tolerance) || (da > tolerance && db < -tolerance))
            out.push_back(a + (b - a) * (da / (da - db)));
    }
    return out;
}

// A square of half-size `reach` in the plane, counter-clockwise about its normal.
Polygon PlaneSquare(const DesignPlane& plane, double reach) {
    const Vec3 n = plane.normal;
    const Vec3 helper = std::abs(n.y) < 0.9 ? Vec3{0, 1, 0} : Vec3{1, 0, 0};
    const Vec3 u = Normalized(Cross(helper, n));
    const Vec3 v = Cross(n, u);
    const Vec3 c = n * plane.distance;
    return {c + (u + v) * reach, c + (v - u) * reach, c - (u + v) * reach, c + (u - v) * reach};
}

// The point that best lies on every plane given (least squares), for corners where more
// than three facets meet or nearly meet.
Vec3 BestPoint(const std::vector<DesignPlane>& planes, const std::vector<int>& on, Vec3 guess) {
    std::array<double, 9> a{};
    std::array<double, 3> b{};
    for (const int i : on) {
        const Vec3 n = planes[std::size_t(i)].normal;
        const std::array<double, 3> m = {n.x, n.y, n.z};
        for (std::size_t r = 0; r < 3; ++r) {
            for (std::size_t c = 0; c < 3; ++c)
                a[3 * r + c] += m[r] * m[c];
            b[r] += m[r] * planes[std::size_t(i)].distance;
        }
    }
    const double det = a[0] * (a[4] * a[8] - a[5] * a[7]) - a[1] * (a[3] * a[8] - a[5] * a[6]) +
                       a[2] * (a[3] * a[7] - a[4] * a[6]);
    if (on.size() < 3 || std::abs(det) < 1e-12)
        return guess;
    const auto solve = [&](std::size_t column) {
        std::array<double, 9> m = a;
        for (std::size_t r = 0; r < 3; ++r)
            m[3 * r + column] = b[r];
        return (m[0] * (m[4] * m[8] - m[5] * m[7]) - m[1] * (m[3] * m[8] - m[5] * m[6]) +
                m[2] * (m[3] * m[7] - m[4] * m[6])) /
               det;
    };
    return {solve(0), solve(1), solve(2)};
}

bool IsCrown(const DesignTier& tier) {
    return !tier.below && tier.angle < 90.0;
}
bool IsPavilion(const DesignTier& tier) {
    return tier.below && tier.angle < 90.0;
}

std::string OpenSide(Vec3 far) {
    if (far.y > std::hypot(far.x, far.z))
        return "the design is open above the girdle: no crown facets close it";
    if (-far.y > std::hypot(far.x, far.z))
        return "the design is open below the girdle: no pavilion facets close it";
    return "the design is open at the girdle: a gap between its facets lets the stone run out";
}

}  // namespace

std::vector<DesignPlane> DesignPlanes(const Design& design) {
    std::vector<DesignPlane> planes;
    for (std::size_t t = 0; t < design.tiers.size(); ++t) {
        const DesignTier& tier = design.tiers[t];
        const double tilt = tier.angle * kDegree;
        for (std::size_t i = 0; i < tier.indices.size(); ++i) {
            const double azimuth = IndexAzimuth(design, tier.indices[i]) * kDegree;
            const double up = tier.below ? -std::cos(tilt) : std::cos(tilt);
            const Vec3 n = {std::sin(tilt) * std::cos(azimuth), up,
                            std::sin(tilt) * std::sin(azimuth)};
            planes.push_back({Normalized(n), tier.distance, int(t), int(i)});
        }
    }
    return planes;
}

SolidBuild BuildDesignSolid(const Design& design) {
    SolidBuild build;
    const std::vector<DesignPlane> planes = DesignPlanes(design);
    double size = 0.0;
    for (const DesignPlane& plane : planes)
        size = std::max(size, plane.distance);
    if (planes.size() < 4 || !(size > 0.0)) {
        build.error = "line 1: a design needs at least four facets to close a stone";
        return build;
    }
    const double reach = 1000.0 * size, tolerance = 1e-12 * size;
    DesignSolid& solid = build.solid;
    solid.touching.assign(planes.size(), false);

    // Each plane's face: a large square in the plane, clipped by every other plane.
    std::vector<Polygon> polygons(planes.size());
    for (std::size_t i = 0; i < planes.size(); ++i) {
        Polygon polygon = PlaneSquare(planes[i], reach);
        for (std::size_t j = 0; j < planes.size() && polygon.size() >= 3; ++j) {
            if (j == i)
                continue;
            const bool same = Length(planes[j].normal - planes[i].normal) < 1e-12 &&
                              std::abs(planes[j].distance - planes[i].distance) < tolerance;
            if (same && j > i)
                continue;  // a facet cut twice: the first one makes the face
            polygon = Clip(polygon, planes[j].normal, planes[j].distance, tolerance);
        }
        for (const Vec3& p : polygon)
            if (Length(p) > 0.5 * reach) {
                const DesignTier& tier = design.tiers[std::size_t(planes[i].tier)];
                build.error = "line " + std::to_string(tier.line) + ": " + OpenSide(p);
                return build;
            }
        polygons[i] = std::move(polygon);
    }

    // Corners shared by neighbouring faces are one vertex; corners closer than the merge
    // distance are one too, and said to be.
    const double merge = 1e-7 * size;
    std::vector<std::vector<int>> onPlanes;
    for (std::size_t i = 0; i < planes.size(); ++i) {
        std::vector<int> face;
        for (const Vec3& p : polygons[i]) {
            int found = -1;
            double nearest = merge;
            for (std::size_t v = 0; v < solid.vertices.size(); ++v) {
                const double gap = Length(solid.vertices[v] - p);
                if (gap <= nearest) {
                    nearest = gap;
                    found = int(v);
                }
            }
            if (found < 0) {
                found = int(solid.vertices.size());
                solid.vertices.push_back(p);
                onPlanes.emplace_back();
            } else if (nearest > 1e-10 * size && solid.notes.size() < 20) {
                solid.notes.push_back(
                    "corners " + Figure(nearest / size, 3) + " apart merged at facet of line " +
                    std::to_string(design.tiers[std::size_t(planes[i].tier)].line));
            }
            if (face.empty() || (face.back() != found && face.front() != found))
                face.push_back(found);
        }
        if (face.size() < 3)
            continue;
        for (const int v : face)
            onPlanes[std::size_t(v)].push_back(int(i));
        std::reverse(face.begin(), face.end());  // inward winding
        solid.faces.push_back(std::move(face));
        solid.facePlane.push_back(int(i));
        solid.touching[i] = true;
    }
    for (std::size_t v = 0; v < solid.vertices.size(); ++v)
        if (onPlanes[v].size() > 3)
            solid.vertices[v] = BestPoint(planes, onPlanes[v], solid.vertices[v]);
    for (std::size_t i = 0; i < planes.size(); ++i)
        if (!solid.touching[i]) {
            const DesignTier& tier = design.tiers[std::size_t(planes[i].tier)];
            solid.notes.push_back("line " + std::to_string(tier.line) + ": the facet at index " +
                                  Figure(tier.indices[std::size_t(planes[i].position)], 6) +
                                  " does not touch the stone");
        }

    // The models' frame: the girdle's middle at Y = 0, the largest radius 1 within the sphere.
    double crownLow = 1e300, pavilionHigh = -1e300;
    for (std::size_t f = 0; f < solid.faces.size(); ++f) {
        const DesignTier& tier =
            design.tiers[std::size_t(planes[std::size_t(solid.facePlane[f])].tier)];
        for (const int v : solid.faces[f]) {
            const double y = solid.vertices[std::size_t(v)].y;
            if (IsCrown(tier))
                crownLow = std::min(crownLow, y);
            if (IsPavilion(tier))
                pavilionHigh = std::max(pavilionHigh, y);
        }
    }
    const double girdle =
        crownLow < 1e300 && pavilionHigh > -1e300 ? 0.5 * (crownLow + pavilionHigh) : 0.0;
    double radius = 0.0, extent = 0.0;
    for (Vec3& p : solid.vertices) {
        p.y -= girdle;
        radius = std::max(radius, std::hypot(p.x, p.z));
    }
    for (const Vec3& p : solid.vertices)
        extent = std::max(extent, Length(p) / radius);
    solid.lift = girdle;
    solid.scale = 1.0 / (radius * std::max(1.0, extent));
    for (Vec3& p : solid.vertices)
        p = p * solid.scale;
    build.ok = true;
    return build;
}

bool FillModel(const DesignSolid& solid, GemModel& model, std::string& error) {
    if (solid.vertices.size() > std::size_t(kMaxVertices) ||
        solid.faces.size() > std::size_t(kMaxFaces)) {
        error = "the design has " + std::to_string(solid.vertices.size()) + " corners and " +
                std::to_string(solid.faces.size()) + " facets; the model holds " +
                std::to_string(kMaxVertices) + " and " + std::to_string(kMaxFaces);
        return false;
    }
    for (const auto& face : solid.faces)
        if (face.size() > std::size_t(kMaxFaceVertices)) {
            error = "a facet of the design has " + std::to_string(face.size()) +
                    " corners; the model holds " + std::to_string(kMaxFaceVertices);
            return false;
        }
    model.VertexCount = int(solid.vertices.size());
    model.FaceCount = int(solid.faces.size());
    std::copy(solid.vertices.begin(), solid.vertices.end(), model.ModelVertices.begin());
    std::copy(solid.vertices.begin(), solid.vertices.end(), model.ViewVertices.begin());
    for (std::size_t f = 0; f < solid.faces.size(); ++f) {
        FaceRecord& record = model.FaceTable[f];
        record.Count = int(solid.faces[f].size());
        std::copy(solid.faces[f].begin(), solid.faces[f].end(), record.Index.begin());
    }
    return true;
}

DesignProportions MeasureProportions(const Design& design, const DesignSolid& solid) {
    DesignProportions p;
    if (solid.vertices.empty())
        return p;
    const std::vector<DesignPlane> planes = DesignPlanes(design);
    Vec3 low = solid.vertices[0], high = solid.vertices[0];
    for (const Vec3& v : solid.vertices) {
        low = {std::min(low.x, v.x), std::min(low.y, v.y), std::min(low.z, v.z)};
        high = {std::max(high.x, v.x), std::max(high.y, v.y), std::max(high.z, v.z)};
    }
    const double width = std::min(high.x - low.x, high.z - low.z);
    const double length = std::max(high.x - low.x, high.z - low.z);
    if (!(width > 0.0))
        return p;
    const bool wideAlongX = high.x - low.x <= high.z - low.z;
    double crownLow = high.y, pavilionHigh = low.y, tableWidth = 0.0, volume = 0.0;
    for (std::size_t f = 0; f < solid.faces.size(); ++f) {
        const DesignTier& tier =
            design.tiers[std::size_t(planes[std::size_t(solid.facePlane[f])].tier)];
        const auto& face = solid.faces[f];
        double faceLow = 1e300, faceHigh = -1e300;
        for (const int v : face) {
            const Vec3 q = solid.vertices[std::size_t(v)];
            if (IsCrown(tier))
                crownLow = std::min(crownLow, q.y);
            if (IsPavilion(tier))
                pavilionHigh = std::max(pavilionHigh, q.y);
            const double across = wideAlongX ? q.x : q.z;
            faceLow = std::min(faceLow, across);
            faceHigh = std::max(faceHigh, across);
        }
        if (!tier.below && tier.angle == 0.0)
            tableWidth = std::max(tableWidth, faceHigh - faceLow);
        // Divergence theorem over a fan of the face: the signed volume of each tetrahedron.
        const Vec3 a = solid.vertices[std::size_t(face[0])];
        for (std::size_t k = 1; k + 1 < face.size(); ++k)
            volume -= Dot(a, Cross(solid.vertices[std::size_t(face[k])],
                                   solid.vertices[std::size_t(face[k + 1])])) /
                      6.0;
    }
    p.lengthToWidth = length / width;
    p.table = tableWidth / width;
    p.crownHeight = (high.y - crownLow) / width;
    p.pavilionDepth = (pavilionHigh - low.y) / width;
    p.totalDepth = (high.y - low.y) / width;
    p.girdleThickness = std::max(0.0, crownLow - pavilionHigh) / width;
    p.volume = std::abs(volume) / (width * width * width);
    return p;
}

}  // namespace kirameki
