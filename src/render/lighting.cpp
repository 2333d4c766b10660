#include "render/lighting.h"

#include <numbers>

namespace kirameki {

namespace {

constexpr double kDegree = std::numbers::pi / 180.0;

}  // namespace

void Lighting::SetUp(const LightSetup& setup) {
    model_ = setup.model;
    headShadowOn_ = setup.headShadow > 0.0;
    cosHead_ = std::cos(std::clamp(setup.headShadow, 0.0, 90.0) * kDegree);
    sinLow_ = std::sin(std::clamp(setup.asetLow, 0.0, 90.0) * kDegree);
    sinHigh_ = std::sin(std::clamp(setup.asetHigh, setup.asetLow, 90.0) * kDegree);
    regions_ = setup.regions;
    if (IsClassic())
        return;
    // The mean over the sphere, from a Fibonacci lattice of directions: light whose path is
    // not followed to its end counts as arriving from anywhere.
    constexpr int kDirections = 4096;
    const double golden = std::numbers::pi * (3.0 - std::sqrt(5.0));
    environmentAverage_ = {};
    for (int i = 0; i < kDirections; ++i) {
        const double z = 1.0 - (2.0 * i + 1.0) / kDirections;
        const double r = std::sqrt(1.0 - z * z);
        const Vec3 e = {r * std::cos(golden * i), r * std::sin(golden * i), z};
        const std::array<double, 3> light = Environment(e, true);
        for (int c = 0; c < 3; ++c)
            environmentAverage_[c] += light[c] / kDirections;
    }
}

std::array<double, 3> Lighting::Environment(Vec3 e, bool lamp) const {
    const unsigned region = RegionOf(e);
    const double unit = kEnvironmentUnit;
    switch (model_) {
        case LightingModel::kClassic:
            if (region == kSkyHead)
                return {0.0, 0.0, 0.0};
            return lamp ? ClassicRadiance(e) : ClassicSurroundings(e);
        case LightingModel::kIso:
            if (region & (kSkyLow | kSkyMid | kSkyHigh))
                return {unit, unit, unit};
            return {0.0, 0.0, 0.0};
        case LightingModel::kCos:
            if (region & (kSkyLow | kSkyMid | kSkyHigh))
                return {unit * -e.z, unit * -e.z, unit * -e.z};
            return {0.0, 0.0, 0.0};
        case LightingModel::kAset:
            if (region == kSkyLow)
                return {0.0, unit, 0.0};
            if (region == kSkyMid)
                return {unit, 0.0, 0.0};
            if (region & (kSkyHigh | kSkyHead))
                return {0.0, 0.0, unit};
            return {0.0, 0.0, 0.0};
        case LightingModel::kRegions:
            if (region & regions_)
                return {unit, unit, unit};
            return {0.0, 0.0, 0.0};
    }
    return {0.0, 0.0, 0.0};
}

}  // namespace kirameki
