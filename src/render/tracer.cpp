#include "render/tracer.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "render/lighting.h"
#include "render/optics.h"

namespace kirameki {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// Stone colours are absorption coefficients per ten model units: over a path as long as
// the girdle diameter a "Red" stone keeps about half of its green and blue, enough to read
// clearly red after a few internal reflections, while "Light Yellow" barely tints.
constexpr double kAbsorptionScale = 25.0;

// Below this throughput a path adds nothing visible and is dropped.
constexpr double kNegligible = 1e-4;

// Candidate distances of one ray to every face plane, kept so that the face that gave the
// extreme can be found again from the very same numbers.
struct PlaneDistances {
    alignas(64) std::array<double, TracerFaceArea::kCapacity> t;
};

// A ray from outside enters the convex solid at the last plane it crosses inward and leaves
// it at the first plane it crosses outward; it hits when it enters before it leaves. A ray
// parallel to a plane and outside it never gets in.
__attribute__((target_clones("avx2", "default"))) double EnteringDistance(
    const TracerFaceArea& area, Vec3 o, Vec3 d, PlaneDistances& entering, double& leaving,
    double& parallelOutside) {
    double tIn = -kInfinity, tOut = kInfinity, outside = kInfinity;
    const int n = area.paddedCount;
    for (int i = 0; i < n; ++i) {
        const double a = area.nx[i] * o.x + area.ny[i] * o.y + area.nz[i] * o.z - area.offset[i];
        const double b = area.nx[i] * d.x + area.ny[i] * d.y + area.nz[i] * d.z;
        const double t = -a / (b != 0.0 ? b : 1.0);
        const double in = b > 0.0 ? t : -kInfinity;
        entering.t[i] = in;
        tIn = std::max(tIn, in);
        tOut = std::min(tOut, b < 0.0 ? t : kInfinity);
        outside = std::min(outside, b == 0.0 ? a : kInfinity);
    }
    leaving = tOut;
    parallelOutside = outside;
    return tIn;
}

// From a point inside (or on the surface of) the solid, the ray leaves at the nearest plane
// it crosses outward. Planes the ray runs along or away from, among them the face it starts
// on after a reflection, are never candidates, so no face is hit twice in a row.
__attribute__((target_clones("avx2", "default"))) double LeavingDistance(
    const TracerFaceArea& area, Vec3 o, Vec3 d, PlaneDistances& leaving) {
    double tOut = kInfinity;
    const int n = area.paddedCount;
    for (int i = 0; i < n; ++i) {
        const double a = area.nx[i] * o.x + area.ny[i] * o.y + area.nz[i] * o.z - area.offset[i];
        const double b = area.nx[i] * d.x + area.ny[i] * d.y + area.nz[i] * d.z;
        // Rounding can put the start a hair outside a plane: count it as on the plane.
        const double t = std::max(a, 0.0) / (b < 0.0 ? -b : 1.0);
        const double out = b < 0.0 ? t : kInfinity;
        leaving.t[i] = out;
        tOut = std::min(tOut, out);
    }
    return tOut;
}

int IndexOf(const PlaneDistances& distances, int count, double value) {
    for (int i = 0; i < count; ++i)
        if (distances.t[i] == value) return i;
    return -1;
}

Vec3 PlaneNormal(const TracerFaceArea& area, int i) { return {area.nx[i], area.ny[i], area.nz[i]}; }

}  // namespace

void PrepareTracer(TraceScene& scene) {
    TracerFaceArea& area = scene.work->faces;
    const int count = std::clamp(scene.faceCount, 0, kMaxFaces);
    for (int i = 0; i < count; ++i) {
        const FaceRecord& face = scene.faceTable[i];
        const Vec3 n = face.Normal();
        area.nx[i] = n.x;
        area.ny[i] = n.y;
        area.nz[i] = n.z;
        area.offset[i] = Dot(n, scene.viewVertices[face.Index[0]]);
    }
    area.faceCount = count;
    area.paddedCount = (count + 7) / 8 * 8;
    for (int i = count; i < area.paddedCount; ++i) {
        area.nx[i] = area.ny[i] = area.nz[i] = 0.0;
        area.offset[i] = -1.0;
    }
}

int Trace_TraceVector(Vec3 origin, Vec3 direction, double outerIndex, double stoneIndex,
                      int startLevel, double normalReflectance, const TraceScene& scene,
                      TraceResults& results) {
    results = TraceResults{};
    results.out2 = -1.0;
    const TracerFaceArea& area = scene.work->faces;
    if (area.faceCount == 0) return 0;
    const Vec3 d0 = Normalized(direction);

    PlaneDistances distances;
    double leaving = 0.0, parallelOutside = 0.0;
    const double tIn = EnteringDistance(area, origin, d0, distances, leaving, parallelOutside);
    if (parallelOutside < 0.0 || !(tIn < leaving) || tIn <= 0.0) return 0;
    const int entryFace = IndexOf(distances, area.paddedCount, tIn);
    if (entryFace < 0) return 0;

    const Lighting lighting(scene);
    Vec3 p = origin + d0 * tIn;
    Vec3 n = PlaneNormal(area, entryFace);  // into the stone
    results.out1 = tIn;
    results.out2 = entryFace;

    // At the entry face the light splits by Fresnel's law: the reflected part shows the main
    // light's highlight and the surroundings, the rest is refracted into the stone.
    const double cosEntry = Dot(d0, n);
    double r = optics::ReflectanceWithR0(cosEntry, outerIndex, stoneIndex, normalReflectance);
    const Vec3 reflected = optics::Reflect(d0, n);
    results.out4 = r * lighting.Highlight(reflected);
    std::array<double, 3> light = lighting.Surroundings(reflected);
    for (double& channel : light) channel *= r;

    Vec3 d;
    if (!optics::Refract(d0, n, outerIndex / stoneIndex, d)) {
        results.out5 = light[0];
        results.out6 = light[1];
        results.out7 = light[2];
        return 1;
    }
    std::array<double, 3> throughput = {1.0 - r, 1.0 - r, 1.0 - r};

    // Inside, the ray runs from face to face. Along each segment the stone colour absorbs
    // by Beer-Lambert, exp(-absorption * length); at each face the part that Fresnel lets
    // through leaves toward the lights and the rest reflects on. Beyond the critical angle
    // everything reflects (total internal reflection) and the ray goes on undimmed.
    const double eta = stoneIndex / outerIndex;
    int level = startLevel;
    int segments = 0;
    double pathLength = 0.0;
    for (; level < scene.depth; ++level) {
        const double t = LeavingDistance(area, p, d, distances);
        const int face = IndexOf(distances, area.paddedCount, t);
        if (face < 0 || !std::isfinite(t)) break;
        ++segments;
        pathLength += t;
        p = p + d * t;
        for (int c = 0; c < 3; ++c)
            throughput[c] *= std::exp(-scene.stoneColour[c] * kAbsorptionScale * t);
        const Vec3 outward = -PlaneNormal(area, face);
        r = optics::ReflectanceWithR0(Dot(d, outward), stoneIndex, outerIndex,
                                      normalReflectance);
        Vec3 out;
        if (optics::Refract(d, outward, eta, out)) {
            const std::array<double, 3> seen = lighting.Radiance(out);
            for (int c = 0; c < 3; ++c) light[c] += throughput[c] * (1.0 - r) * seen[c];
        }
        d = optics::Reflect(d, outward);
        for (double& channel : throughput) channel *= r;
        if (std::max({throughput[0], throughput[1], throughput[2]}) < kNegligible) break;
    }
    // Light still inside when the depth runs out is not followed further; it is counted as
    // the average light of the surroundings rather than left black.
    if (level >= scene.depth) {
        const std::array<double, 3> average = lighting.Average();
        for (int c = 0; c < 3; ++c) light[c] += throughput[c] * average[c];
    }
    results.out3 = segments;
    results.out5 = light[0];
    results.out6 = light[1];
    results.out7 = light[2];
    results.out8 = pathLength;
    return 1;
}

}  // namespace kirameki
