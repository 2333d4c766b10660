#include "render/tracer.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "render/lighting.h"
#include "render/optics.h"

namespace kirameki {

namespace {

// Stone colours are absorption coefficients per 1/25 of the girdle radius: over a path as
// long as the girdle diameter a "Red" stone keeps a quarter of its green and blue, so it
// reads clearly red after a few internal reflections, while "Light Yellow" barely tints.
constexpr double kAbsorptionScale = 25.0;

// A path whose remaining light could change no pixel by half a level is ended there; the
// light it still carries is counted as the average light of the surroundings.
constexpr double kNegligible = 1e-3;

// Eight planes at a time with the compiler's vector extensions (AVX2 where the processor
// has it, SSE2 pairs otherwise). The search only chooses the plane; distances are then
// computed again from the double-precision plane, so the geometry keeps full precision.
typedef float Lanes __attribute__((vector_size(32)));
typedef int Mask __attribute__((vector_size(32)));

inline Lanes Load(const float* p) { return *reinterpret_cast<const Lanes*>(p); }
inline Lanes Broadcast(float v) { return Lanes{v, v, v, v, v, v, v, v}; }
inline Mask Same(int v) { return Mask{v, v, v, v, v, v, v, v}; }
inline Lanes Select(Mask m, Lanes yes, Lanes no) {
    return reinterpret_cast<Lanes>((m & reinterpret_cast<Mask>(yes)) |
                                   (~m & reinterpret_cast<Mask>(no)));
}
inline Mask Select(Mask m, Mask yes, Mask no) { return (m & yes) | (~m & no); }

// The nearest (or farthest) plane seen so far in each lane.
struct LaneBest {
    Lanes t;
    Mask face;
};

// The winning plane of two groups of lanes.
template <bool kGreatest>
int Reduce(const LaneBest& a, const LaneBest& b) {
    const Mask takeB = kGreatest ? b.t > a.t : b.t < a.t;
    const Lanes t = Select(takeB, b.t, a.t);
    const Mask face = Select(takeB, b.face, a.face);
    float best = t[0];
    int bestFace = face[0];
    for (int lane = 1; lane < 8; ++lane) {
        if (kGreatest ? t[lane] > best : t[lane] < best) {
            best = t[lane];
            bestFace = face[lane];
        }
    }
    return bestFace;
}

struct RayLanes {
    Lanes ox, oy, oz, dx, dy, dz;
    RayLanes(Vec3 o, Vec3 d)
        : ox(Broadcast(float(o.x))),
          oy(Broadcast(float(o.y))),
          oz(Broadcast(float(o.z))),
          dx(Broadcast(float(d.x))),
          dy(Broadcast(float(d.y))),
          dz(Broadcast(float(d.z))) {}
};

struct EntryFaces {
    int in;   // the last plane crossed inward (-1: none)
    int out;  // the first plane crossed outward (-1: none)
    bool parallelOutside;
};

constexpr float kFar = std::numeric_limits<float>::infinity();

// A ray from outside enters the convex solid at the last plane it crosses inward and leaves
// it at the first plane it crosses outward; it hits when it enters before it leaves. A ray
// parallel to a plane and outside it never gets in. With the planes n . p >= offset, the
// ray reaches plane i at -a / b, a = n . o - offset, b = n . d. Lanes whose b has the wrong
// sign divide by whatever is there and are then masked out.
__attribute__((target_clones("arch=x86-64-v3", "default"))) EntryFaces FindEntryFaces(
    const TracerFaceArea& area, Vec3 o, Vec3 d) {
    const RayLanes ray(o, d);
    const Lanes zero = Broadcast(0.0f), far = Broadcast(kFar), near = Broadcast(-kFar);
    LaneBest in0{near, Same(-1)}, in1 = in0;
    LaneBest out0{far, Same(-1)}, out1 = out0;
    Mask parallelOutside = Same(0);
    Mask face0 = {0, 1, 2, 3, 4, 5, 6, 7}, face1 = face0 + Same(8);
    const auto visit = [&](int i, const Mask& face, LaneBest& in, LaneBest& out) {
        const Lanes nx = Load(&area.fx[i]), ny = Load(&area.fy[i]), nz = Load(&area.fz[i]);
        const Lanes a = nx * ray.ox + ny * ray.oy + nz * ray.oz - Load(&area.foffset[i]);
        const Lanes b = nx * ray.dx + ny * ray.dy + nz * ray.dz;
        const Mask inward = b > zero, outward = b < zero;
        const Lanes t = -a / b;
        const Mask later = inward & (t > in.t);
        in.t = Select(later, t, in.t);
        in.face = Select(later, face, in.face);
        const Mask sooner = outward & (t < out.t);
        out.t = Select(sooner, t, out.t);
        out.face = Select(sooner, face, out.face);
        parallelOutside |= ~(inward | outward) & (a < zero);
    };
    for (int i = 0; i < area.paddedCount; i += 16) {
        visit(i, face0, in0, out0);
        visit(i + 8, face1, in1, out1);
        face0 += Same(16);
        face1 += Same(16);
    }
    bool outside = false;
    for (int lane = 0; lane < 8; ++lane) outside |= parallelOutside[lane] != 0;
    return {Reduce<true>(in0, in1), Reduce<false>(out0, out1), outside};
}

// From a point inside (or on the surface of) the solid, the ray leaves at the nearest plane
// it crosses outward. Planes the ray runs along or away from, among them the face it starts
// on after a reflection, are never candidates, so no face is hit twice in a row. Two groups
// of lanes take alternate planes so that their comparisons do not wait on each other.
__attribute__((target_clones("arch=x86-64-v3", "default"))) int FindExitFace(
    const TracerFaceArea& area, Vec3 o, Vec3 d) {
    const RayLanes ray(o, d);
    const Lanes zero = Broadcast(0.0f), far = Broadcast(kFar);
    LaneBest best0{far, Same(-1)}, best1 = best0;
    Mask face0 = {0, 1, 2, 3, 4, 5, 6, 7}, face1 = face0 + Same(8);
    const auto visit = [&](int i, const Mask& face, LaneBest& best) {
        const Lanes nx = Load(&area.fx[i]), ny = Load(&area.fy[i]), nz = Load(&area.fz[i]);
        const Lanes a = nx * ray.ox + ny * ray.oy + nz * ray.oz - Load(&area.foffset[i]);
        const Lanes b = nx * ray.dx + ny * ray.dy + nz * ray.dz;
        // Rounding can put the start a hair outside a plane: count it as on the plane.
        const Lanes t = Select(a > zero, a, zero) / -b;
        const Mask sooner = (b < zero) & (t < best.t);
        best.t = Select(sooner, t, best.t);
        best.face = Select(sooner, face, best.face);
    };
    for (int i = 0; i < area.paddedCount; i += 16) {
        visit(i, face0, best0);
        visit(i + 8, face1, best1);
        face0 += Same(16);
        face1 += Same(16);
    }
    return Reduce<false>(best0, best1);
}

Vec3 PlaneNormal(const TracerFaceArea& area, int i) { return {area.nx[i], area.ny[i], area.nz[i]}; }

// Signed distance of p above plane i (positive inside) and the ray's rate toward it.
double Height(const TracerFaceArea& area, int i, Vec3 p) {
    return Dot(PlaneNormal(area, i), p) - area.offset[i];
}

// The reflectance of one kind of crossing (into or out of the stone), with the parts that
// depend only on the two indices worked out once per ray.
class Crossing {
public:
    Crossing(double from, double to, double r0)
        : from_(from), to_(to), f0_(optics::NormalReflectance(from, to)) {
        lift_ = f0_ < 1.0 ? (r0 - f0_) / (1.0 - f0_) : 0.0;
    }
    // Splits unit direction d at a surface whose unit normal n points into the new medium.
    optics::Split At(Vec3 d, Vec3 n) const {
        optics::Split split = optics::SplitAt(d, n, from_, to_);
        split.reflectance += lift_ * (1.0 - split.reflectance);
        return split;
    }

private:
    double from_, to_, f0_, lift_;
};

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
    area.paddedCount = (count + 15) / 16 * 16;
    for (int i = count; i < area.paddedCount; ++i) {
        area.nx[i] = area.ny[i] = area.nz[i] = 0.0;
        area.offset[i] = -1.0;
    }
    for (int i = 0; i < area.paddedCount; ++i) {
        area.fx[i] = float(area.nx[i]);
        area.fy[i] = float(area.ny[i]);
        area.fz[i] = float(area.nz[i]);
        area.foffset[i] = float(area.offset[i]);
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

    const EntryFaces entry = FindEntryFaces(area, origin, d0);
    if (entry.parallelOutside || entry.in < 0) return 0;
    const double tIn = -Height(area, entry.in, origin) / Dot(PlaneNormal(area, entry.in), d0);
    if (entry.out >= 0) {
        const double tOut =
            -Height(area, entry.out, origin) / Dot(PlaneNormal(area, entry.out), d0);
        if (!(tIn < tOut)) return 0;
    }
    if (!(tIn > 0.0)) return 0;

    const Lighting lighting(scene);
    const Crossing entering(outerIndex, stoneIndex, normalReflectance);
    const Crossing leaving(stoneIndex, outerIndex, normalReflectance);
    Vec3 p = origin + d0 * tIn;
    const Vec3 n = PlaneNormal(area, entry.in);  // into the stone
    results.out1 = tIn;
    results.out2 = entry.in;

    // At the entry face the light splits by Fresnel's law: the reflected part shows the main
    // light's highlight and the surroundings, the rest is refracted into the stone.
    const optics::Split in = entering.At(d0, n);
    double r = in.reflectance;
    const Vec3 reflected = optics::Reflect(d0, n);
    results.out4 = r * lighting.Highlight(reflected);
    std::array<double, 3> light = lighting.Surroundings(reflected);
    for (double& channel : light) channel *= r;

    Vec3 d = in.direction;
    if (!in.refracted) {
        results.out5 = light[0];
        results.out6 = light[1];
        results.out7 = light[2];
        return 1;
    }
    std::array<double, 3> throughput = {1.0 - r, 1.0 - r, 1.0 - r};
    std::array<double, 3> absorption{};
    for (int c = 0; c < 3; ++c) absorption[c] = scene.stoneColour[c] * kAbsorptionScale;

    // Inside, the ray runs from face to face. Along each segment the stone colour absorbs
    // by Beer-Lambert, exp(-absorption * length); at each face the part that Fresnel lets
    // through leaves toward the lights and the rest reflects on. Beyond the critical angle
    // everything reflects (total internal reflection) and the ray goes on undimmed.
    int segments = 0;
    double pathLength = 0.0;
    for (int level = startLevel; level < scene.depth; ++level) {
        const int face = FindExitFace(area, p, d);
        if (face < 0) break;
        const Vec3 inward = PlaneNormal(area, face);
        const double rate = Dot(inward, d);
        if (!(rate < 0.0)) break;
        const double t = std::max(Height(area, face, p), 0.0) / -rate;
        ++segments;
        pathLength += t;
        p = p + d * t;
        for (int c = 0; c < 3; ++c)
            if (absorption[c] != 0.0) throughput[c] *= std::exp(-absorption[c] * t);
        const Vec3 outward = -inward;
        const optics::Split out = leaving.At(d, outward);
        r = out.reflectance;
        if (out.refracted) {
            const std::array<double, 3> seen = lighting.Radiance(out.direction);
            for (int c = 0; c < 3; ++c) light[c] += throughput[c] * (1.0 - r) * seen[c];
        }
        d = optics::Reflect(d, outward);
        for (double& channel : throughput) channel *= r;
        if (std::max({throughput[0], throughput[1], throughput[2]}) < kNegligible) break;
    }
    // Light still inside when the path is ended (the depth ran out, or too little is left to
    // matter) is counted as the average light of the surroundings rather than lost.
    const std::array<double, 3> average = lighting.Average();
    for (int c = 0; c < 3; ++c) light[c] += throughput[c] * average[c];
    results.out3 = segments;
    results.out5 = light[0];
    results.out6 = light[1];
    results.out7 = light[2];
    results.out8 = pathLength;
    return 1;
}

}  // namespace kirameki
