#include "render/tracer.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <limits>

#include "render/bundle_walk.h"
#include "render/lighting.h"
#include "render/optics.h"
#include "render/plane_search.h"

namespace kirameki {

namespace {

// Stone colours are absorption coefficients per 1/25 of the girdle radius: over a path as
// long as the girdle diameter a "Red" stone keeps a quarter of its green and blue, so it
// reads clearly red after a few internal reflections, while "Light Yellow" barely tints.
constexpr double kAbsorptionScale = 25.0;

// A path whose remaining light could change no pixel by half a level is ended there; the
// light it still carries is counted as the average light of the surroundings.
constexpr double kNegligible = 1e-3;

// A guessed face is taken only when the point lies this far inside all its edges (in
// girdle radii): near an edge the full search decides, so a guess never chooses otherwise
// than the search would.
constexpr double kGuessMargin = 1e-4;

Vec3 PlaneNormal(const TracerFaceArea& area, int i) {
    return {area.nx[i], area.ny[i], area.nz[i]};
}

// Signed distance of p above plane i (positive inside) and the ray's rate toward it.
double Height(const TracerFaceArea& area, int i, Vec3 p) {
    return Dot(PlaneNormal(area, i), p) - area.offset[i];
}

// The reflectance of one kind of crossing (into or out of the stone), with the parts that
// depend only on the two indices worked out once per ray.
class Crossing {
  public:
    Crossing(double from, double to, double lift)
        : from_(from), to_(to), lift_(lift), ratio_(from / to) {}
    // Splits unit direction d at a surface whose unit normal n points into the new medium.
    optics::Split At(Vec3 d, Vec3 n) const {
        optics::Split split = optics::SplitAt(d, n, from_, to_, ratio_);
        split.reflectance += lift_ * (1.0 - split.reflectance);
        return split;
    }

  private:
    double from_, to_, lift_, ratio_;
};

// True when the ray from p along d meets the plane of the face, entering the stone through
// it (entering) or leaving through it, at a point well inside the face: then that face is
// the one the ray crosses, since a line meets a convex solid's surface once going in and
// once going out. t receives the distance.
inline bool ConfirmFace(const TracerWorkAreas& work, int face, Vec3 p, Vec3 d, bool entering,
                        double& t) {
    const TracerFaceArea& area = work.faces;
    if (face < 0 || face >= area.faceCount)
        return false;
    const double b = Dot(PlaneNormal(area, face), d);
    if (entering ? !(b > 0.0) : !(b < 0.0))
        return false;
    const double h = Height(area, face, p);
    // The crossing lies at t = num / den along the ray. Each edge is tested at that point
    // multiplied through by den (> 0), p * den + d * num, so the tests need not wait for the
    // division.
    const double num = entering ? -h : std::max(h, 0.0);
    const double den = entering ? b : -b;
    t = num / den;
    if (entering && !(t > 0.0))
        return false;
    const Vec3 q = {p.x * den + d.x * num, p.y * den + d.y * num, p.z * den + d.z * num};
    // The nearest edge decides; taking the least over all edges keeps the loop free of
    // branches that would be guessed wrong half the time.
    const TracerEdgeArea& edges = work.edges;
    double nearest = kGuessMargin * den;
    for (int e = edges.first[face]; e < edges.first[face + 1]; ++e) {
        const TracerEdgeArea::Line& line = edges.lines[e];
        nearest = std::min(nearest, line.x * q.x + line.y * q.y + line.z * q.z - line.offset * den);
    }
    return nearest >= kGuessMargin * den;
}

// The edges of every face as inward lines of its plane.
void PrepareEdges(const TraceScene& scene, int count) {
    TracerEdgeArea& edges = scene.work->edges;
    int next = 0;
    for (int i = 0; i < count; ++i) {
        const FaceRecord& face = scene.faceTable[i];
        edges.first[i] = next;
        const Vec3 n = face.Normal();
        Vec3 centre;
        for (int j = 0; j < face.Count; ++j)
            centre = centre + scene.viewVertices[face.Index[j]];
        centre = centre * (1.0 / face.Count);
        for (int j = 0; j < face.Count; ++j, ++next) {
            const Vec3 a = scene.viewVertices[face.Index[j]];
            const Vec3 b = scene.viewVertices[face.Index[(j + 1) % face.Count]];
            Vec3 m = Cross(n, b - a);
            const double length = Length(m);
            if (length < 1e-12) {  // coinciding corners: no edge to test
                edges.lines[next] = {0.0, 0.0, 0.0, -1.0};
                continue;
            }
            m = m * (1.0 / length);
            if (Dot(m, centre - a) < 0.0)
                m = -m;
            edges.lines[next] = {m.x, m.y, m.z, Dot(m, a)};
        }
    }
    edges.first[count] = next;
    // The blocks of eight.
    constexpr int kLines = TracerEdgeArea::kBlockLines;
    int block = 0;
    for (int i = 0; i < count; ++i) {
        edges.firstBlock[std::size_t(i)] = block;
        const int first = edges.first[std::size_t(i)],
                  lines = edges.first[std::size_t(i) + 1] - first;
        const int blocks = std::max(1, (lines + kLines - 1) / kLines);
        for (int k = 0; k < blocks * kLines; ++k) {
            TracerEdgeArea::Block& b = edges.blocks[std::size_t(block) + std::size_t(k / kLines)];
            const std::size_t lane = std::size_t(k % kLines);
            const TracerEdgeArea::Line line = k < lines
                                                  ? edges.lines[std::size_t(first) + std::size_t(k)]
                                                  : TracerEdgeArea::Line{0, 0, 0, -1};
            b.x[lane] = line.x;
            b.y[lane] = line.y;
            b.z[lane] = line.z;
            b.offset[lane] = line.offset;
        }
        block += blocks;
    }
    edges.firstBlock[std::size_t(count)] = block;
}

}  // namespace

void PrepareTracer(TraceScene& scene) {
    TracerFaceArea& area = scene.work->faces;
    // The planes and edges are read from the face table's corners: the counts must be those
    // of a well-formed model.
    assert(scene.faceCount >= 0 && scene.faceCount <= kMaxFaces);
    assert(scene.vertexCount >= 0 && scene.vertexCount <= kMaxVertices);
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
    area.reach2 = 0.0;
    for (int i = 0; i < std::clamp(scene.vertexCount, 0, kMaxVertices); ++i)
        area.reach2 = std::max(area.reach2, Dot(scene.viewVertices[i], scene.viewVertices[i]));
    area.search = SelectPlaneSearch();
    PrepareEdges(scene, count);
    scene.work->lighting = Lighting(scene.lightDirection, scene.lightVolumes, scene.backColour,
                                    scene.narrowMainLight != 0, scene.light);
    area.paddedCount = (count + kPlanePadding - 1) / kPlanePadding * kPlanePadding;
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
    results.entryFace = -1;
    const TracerFaceArea& area = scene.work->faces;
    if (area.faceCount == 0)
        return 0;
    const Vec3 d0 = Normalized(direction);
    // A ray that passes the sphere around every corner cannot meet the stone.
    const double along = Dot(origin, d0);
    if (Dot(origin, origin) - along * along > area.reach2 * (1.0 + 1e-9) + 1e-12)
        return 0;

    TracerPathMemory::Path* memory = scene.memory ? &scene.memory->For(stoneIndex) : nullptr;
    int entryFace = -1;
    double tIn = 0.0;
    if (!memory || !ConfirmFace(*scene.work, memory->entryFace, origin, d0, true, tIn)) {
        const EntryFaces entry = area.search.entry(area, origin, d0);
        if (entry.parallelOutside || entry.in < 0)
            return 0;
        tIn = -Height(area, entry.in, origin) / Dot(PlaneNormal(area, entry.in), d0);
        if (entry.out >= 0) {
            const double tOut =
                -Height(area, entry.out, origin) / Dot(PlaneNormal(area, entry.out), d0);
            if (!(tIn < tOut))
                return 0;
        }
        if (!(tIn > 0.0))
            return 0;
        entryFace = entry.in;
    } else {
        entryFace = memory->entryFace;
    }
    const int guesses = memory ? memory->exitCount : 0;
    if (memory) {
        memory->entryFace = entryFace;
        memory->exitCount = 0;
    }

    const Lighting& lighting = scene.work->lighting;
    // Reflectance at normal incidence is the same both ways; the exact Fresnel curve is
    // lifted to start at the given one and still end at 1.
    const double f0 = optics::NormalReflectance(outerIndex, stoneIndex);
    const double lift = f0 < 1.0 ? (normalReflectance - f0) / (1.0 - f0) : 0.0;
    const Crossing entering(outerIndex, stoneIndex, lift);
    const Crossing leaving(stoneIndex, outerIndex, lift);
    Vec3 p = origin + d0 * tIn;
    const Vec3 n = PlaneNormal(area, entryFace);  // into the stone
    results.distance = tIn;
    results.entryFace = entryFace;

    // At the entry face the light splits by Fresnel's law: the reflected part shows the main
    // light's highlight and the surroundings, the rest is refracted into the stone.
    const optics::Split in = entering.At(d0, n);
    double r = in.reflectance;
    const Vec3 reflected = optics::Reflect(d0, n);
    results.highlight = r * lighting.Highlight(reflected);
    std::array<double, 3> light = lighting.Surroundings(reflected);
    for (double& channel : light)
        channel *= r;

    Vec3 d = in.direction;
    if (!in.refracted) {
        results.colour[0] = light[0];
        results.colour[1] = light[1];
        results.colour[2] = light[2];
        return 1;
    }
    std::array<double, 3> throughput = {1.0 - r, 1.0 - r, 1.0 - r};
    std::array<double, 3> absorption{};
    for (int c = 0; c < 3; ++c)
        absorption[c] = scene.stoneColour[c] * kAbsorptionScale;

    // Inside, the ray runs from face to face. Along each segment the stone colour absorbs
    // by Beer-Lambert, exp(-absorption * length); at each face the part that Fresnel lets
    // through leaves toward the lights and the rest reflects on. Beyond the critical angle
    // everything reflects (total internal reflection) and the ray goes on undimmed.
    int segments = 0;
    double pathLength = 0.0;
    for (int level = startLevel; level < scene.depth; ++level) {
        int face = -1;
        double t = 0.0;
        if (segments < guesses &&
            ConfirmFace(*scene.work, memory->exitFaces[segments], p, d, false, t)) {
            face = memory->exitFaces[segments];
        } else {
            face = area.search.exit(area, p, d);
            if (face < 0)
                break;
            const double rate = Dot(PlaneNormal(area, face), d);
            if (!(rate < 0.0))
                break;
            t = std::max(Height(area, face, p), 0.0) / -rate;
        }
        assert(face >= 0 && face < area.faceCount);
        if (memory && segments < int(memory->exitFaces.size())) {
            memory->exitFaces[segments] = face;
            memory->exitCount = segments + 1;
        }
        const Vec3 inward = PlaneNormal(area, face);
        ++segments;
        pathLength += t;
        p = p + d * t;
        for (int c = 0; c < 3; ++c)
            if (absorption[c] != 0.0)
                throughput[c] *= std::exp(-absorption[c] * t);
        const Vec3 outward = -inward;
        const optics::Split out = leaving.At(d, outward);
        r = out.reflectance;
        if (out.refracted) {
            const std::array<double, 3> seen = lighting.Radiance(out.direction);
            for (int c = 0; c < 3; ++c)
                light[c] += throughput[c] * (1.0 - r) * seen[c];
        }
        d = optics::Reflect(d, outward);
        for (double& channel : throughput)
            channel *= r;
        if (std::max({throughput[0], throughput[1], throughput[2]}) < kNegligible)
            break;
    }
    // Light still inside when the path is ended (the depth ran out, or too little is left to
    // matter) is counted as the average light of the surroundings rather than lost.
    const std::array<double, 3> average = lighting.Average();
    for (int c = 0; c < 3; ++c)
        light[c] += throughput[c] * average[c];
    results.segments = segments;
    results.colour[0] = light[0];
    results.colour[1] = light[1];
    results.colour[2] = light[2];
    results.pathLength = pathLength;
    return 1;
}

}  // namespace kirameki

namespace kirameki {

namespace {

bool SamePoint(Vec3 a, Vec3 b) {
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

// Where one ray of a bundle enters the stone, found as Trace_TraceVector finds it: false
// when it misses. The face is first guessed from the ray's last path, then from the ray
// before it in the bundle.
bool FindEntry(const TracerWorkAreas& work, Vec3 origin, Vec3 d0, int guess, int neighbour,
               int& face, double& tIn) {
    const TracerFaceArea& area = work.faces;
    const double along = Dot(origin, d0);
    if (Dot(origin, origin) - along * along > area.reach2 * (1.0 + 1e-9) + 1e-12)
        return false;
    if (ConfirmFace(work, guess, origin, d0, true, tIn)) {
        face = guess;
        return true;
    }
    if (neighbour != guess && ConfirmFace(work, neighbour, origin, d0, true, tIn)) {
        face = neighbour;
        return true;
    }
    const EntryFaces entry = area.search.entry(area, origin, d0);
    if (entry.parallelOutside || entry.in < 0)
        return false;
    tIn = -Height(area, entry.in, origin) / Dot(PlaneNormal(area, entry.in), d0);
    if (entry.out >= 0) {
        const double tOut =
            -Height(area, entry.out, origin) / Dot(PlaneNormal(area, entry.out), d0);
        if (!(tIn < tOut))
            return false;
    }
    if (!(tIn > 0.0))
        return false;
    face = entry.in;
    return true;
}

}  // namespace

void TraceBundle(const RayBundle& bundle, double outerIndex, double normalReflectance,
                 const TraceScene& scene, TracerBundleMemory& memory, BundleResults& results) {
    const std::size_t n = std::size_t(std::clamp(bundle.count, 0, kBundleRays));
    // Each ray's results start as a miss. Field by field: a whole-struct clear of the bundle
    // compiles to a string store whose start-up costs more than the stores themselves.
    for (std::size_t l = 0; l < n; ++l) {
        TraceResults& out = results.rays[l];
        out.distance = 0.0;
        out.entryFace = -1;
        out.segments = 0;
        out.highlight = 0.0;
        out.colour[0] = out.colour[1] = out.colour[2] = 0.0;
        out.pathLength = 0.0;
        results.hits[l] = 0;
    }
    const TracerWorkAreas& work = *scene.work;
    const TracerFaceArea& area = work.faces;
    if (area.faceCount == 0 || n == 0)
        return;
    if (!area.search.walk || scene.depth > TracerBundleMemory::kLevels) {
        // No vector walk on this processor, or deeper than it remembers: ray by ray.
        TraceScene single = scene;
        single.memory = &memory.single;
        for (std::size_t l = 0; l < n; ++l)
            results.hits[l] = Trace_TraceVector(bundle.origins[l], bundle.direction, outerIndex,
                                                bundle.stoneIndices[l], 0, normalReflectance,
                                                single, results.rays[l]);
        return;
    }
    const Lighting& lighting = work.lighting;
    // A unit direction, as the frames give, is its own normal: Normalized would return it.
    const Vec3 d0 = Dot(bundle.direction, bundle.direction) == 1.0 ? bundle.direction
                                                                   : Normalized(bundle.direction);

    BundleWalk walk;
    walk.work = &work;
    walk.memory = &memory;
    walk.depth = scene.depth;
    walk.outerIndex = outerIndex;
    walk.direction = {d0.x, d0.y, d0.z};
    for (std::size_t c = 0; c < 3; ++c)
        walk.absorption[c] = scene.stoneColour[c] * kAbsorptionScale;
    // Every lane starts as a ray that misses, with harmless values.
    walk.ClearLanes();

    // Where each ray enters the stone, as Trace_TraceVector finds it; the split there is
    // the walk's first step.
    for (std::size_t l = 0; l < n; ++l) {
        TraceResults& out = results.rays[l];
        const Vec3 origin = bundle.origins[l];
        const double stoneIndex = bundle.stoneIndices[l];
        const bool sameRay = l > 0 && SamePoint(origin, bundle.origins[l - 1]);
        int face = -1;
        double tIn = 0.0;
        if (sameRay) {
            // The entry does not depend on the index: the ray before says it all.
            if (!results.hits[l - 1])
                continue;
            face = results.rays[l - 1].entryFace;
            tIn = results.rays[l - 1].distance;
        } else if (!FindEntry(work, origin, d0, memory.entryFaces[l],
                              l > 0 ? results.rays[l - 1].entryFace : -1, face, tIn)) {
            continue;
        }
        memory.entryFaces[l] = face;
        out.distance = tIn;
        out.entryFace = face;
        results.hits[l] = 1;

        TracerBundleMemory::Crossings& crossings = memory.crossings[l];
        if (crossings.outerIndex != outerIndex || crossings.stoneIndex != stoneIndex ||
            crossings.normalReflectance != normalReflectance) {
            const double f0 = optics::NormalReflectance(outerIndex, stoneIndex);
            crossings = {outerIndex,
                         stoneIndex,
                         normalReflectance,
                         f0 < 1.0 ? (normalReflectance - f0) / (1.0 - f0) : 0.0,
                         outerIndex / stoneIndex,
                         stoneIndex / outerIndex};
        }
        walk.ox[l] = origin.x;
        walk.oy[l] = origin.y;
        walk.oz[l] = origin.z;
        walk.entryDistance[l] = tIn;
        walk.nx[l] = area.nx[std::size_t(face)];
        walk.ny[l] = area.ny[std::size_t(face)];
        walk.nz[l] = area.nz[std::size_t(face)];
        walk.stone[l] = stoneIndex;
        walk.inward[l] = crossings.inward;
        walk.eta[l] = crossings.outward;
        walk.lift[l] = crossings.lift;
        walk.hit[l] = -1;
        // The highlight and the surroundings depend only on the mirror direction, the same
        // for rays from one origin.
        if (!sameRay) {
            const Vec3 reflected = optics::Reflect(d0, PlaneNormal(area, face));
            walk.mirrorHighlight[l] = lighting.Highlight(reflected);
            const std::array<double, 3> seen = lighting.Surroundings(reflected);
            for (std::size_t c = 0; c < 3; ++c)
                walk.mirrorLight[c][l] = seen[c];
        } else {
            walk.mirrorHighlight[l] = walk.mirrorHighlight[l - 1];
            for (std::size_t c = 0; c < 3; ++c)
                walk.mirrorLight[c][l] = walk.mirrorLight[c][l - 1];
        }
    }

    area.search.walk(walk);

    // Light still inside when a path ends is counted as the average of the surroundings.
    const std::array<double, 3> average = lighting.Average();
    for (std::size_t l = 0; l < n; ++l) {
        if (!results.hits[l])
            continue;
        TraceResults& out = results.rays[l];
        out.highlight = walk.highlight[l];
        if (!walk.inside[l]) {
            out.colour = {walk.light[0][l], walk.light[1][l], walk.light[2][l]};
            continue;
        }
        for (std::size_t c = 0; c < 3; ++c)
            out.colour[c] = walk.light[c][l] + walk.throughput[c][l] * average[c];
        out.segments = walk.segments[l];
        out.pathLength = walk.pathLength[l];
    }
}

}  // namespace kirameki
