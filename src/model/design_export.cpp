#include "model/design_export.h"

#include <cmath>
#include <cstdio>
#include <numbers>

namespace kirameki {

namespace {

constexpr double kDegree = std::numbers::pi / 180.0;

// The face's outward unit normal (Newell's method, robust for any planar polygon) and its
// distance from the centre.
void FacePlane(const GemModel& model, const FaceRecord& face, Vec3& normal, double& distance) {
    Vec3 n, centre;
    for (int j = 0; j < face.Count; ++j) {
        const Vec3 a = model.ModelVertices[std::size_t(face.Index[std::size_t(j)])];
        const Vec3 b =
            model.ModelVertices[std::size_t(face.Index[std::size_t((j + 1) % face.Count)])];
        n = n + Cross(a, b);
        centre = centre + a;
    }
    // The models wind their faces inward: the polygon's own normal points into the solid.
    normal = Normalized(-n);
    distance = Dot(normal, centre * (1.0 / face.Count));
}

bool Near(double a, double b) {
    return std::abs(a - b) <= 1e-9 * std::max(1.0, std::abs(a));
}

}  // namespace

Design DesignFromModel(const GemModel& model, int gear, const std::string& title,
                       std::vector<std::string>& notes) {
    Design design;
    design.gear = gear;
    design.titles.push_back(title);
    for (int f = 0; f < model.FaceCount; ++f) {
        Vec3 n;
        double distance = 0.0;
        FacePlane(model, model.FaceTable[std::size_t(f)], n, distance);
        const double across = std::hypot(n.x, n.z);
        const double angle = std::atan2(across, std::abs(n.y)) / kDegree;
        const bool below = n.y < 0.0 && across < std::abs(n.y) * 1e12;
        double index = 0.0;
        if (across > 1e-12) {
            const double azimuth = std::atan2(n.z, n.x) / kDegree;
            index = std::fmod(azimuth / 360.0 * gear + gear, double(gear));
            const double tooth = std::round(index);
            if (std::abs(index - tooth) < 1e-6)
                index = tooth == gear ? 0.0 : tooth;
            else if (notes.size() < 40) {
                char text[96];
                std::snprintf(text, sizeof text,
                              "facet %d lies at index %.4f, between the teeth of a %d gear", f,
                              index, gear);
                notes.emplace_back(text);
            }
        }
        DesignTier* tier = nullptr;
        for (DesignTier& t : design.tiers)
            if (t.below == below && Near(t.angle, angle) && Near(t.distance, distance))
                tier = &t;
        if (tier == nullptr) {
            design.tiers.push_back({angle, below, distance, {}, {}, {}, 0});
            tier = &design.tiers.back();
        }
        tier->indices.push_back(index);
        tier->names.emplace_back();
    }
    return design;
}

}  // namespace kirameki
