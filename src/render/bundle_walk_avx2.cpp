// The walk of a bundle of rays inside the stone, four rays in the lanes of one AVX2 vector.
// Compiled with AVX2 but without fused multiply-adds (-ffp-contract=off): every lane works
// out exactly the sums and products the tracer works out for one ray, in the same order, so
// the results are the same to the last bit.
#include <immintrin.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "render/bundle_walk.h"
#include "render/lighting.h"

namespace kirameki::bundle_walk_avx2 {

namespace {

typedef double D4 __attribute__((vector_size(32)));
typedef long long M4 __attribute__((vector_size(32)));

constexpr double kNegligible = 1e-3;   // as the tracer's
constexpr double kGuessMargin = 1e-4;  // as the tracer's
constexpr int kLanes = BundleWalk::kLanes;
static_assert(kLanes == 4, "one AVX2 vector of doubles");

inline D4 Load(const BundleWalk::Lanes& a) {
    D4 v;
    std::memcpy(&v, a.data(), sizeof v);
    return v;
}
inline void Store(BundleWalk::Lanes& a, D4 v) {
    std::memcpy(a.data(), &v, sizeof v);
}
// A broadcast, not D4{} + v: without contraction the compiler must keep that addition.
inline D4 Splat(double v) {
    return reinterpret_cast<D4>(_mm256_set1_pd(v));
}
// Every lane of a mask is all ones or all zeros, so the blend's sign test picks as the mask.
inline D4 Select(M4 m, D4 yes, D4 no) {
    return reinterpret_cast<D4>(_mm256_blendv_pd(reinterpret_cast<__m256d>(no),
                                                 reinterpret_cast<__m256d>(yes),
                                                 reinterpret_cast<__m256d>(m)));
}
inline D4 Sqrt(D4 v) {
    return reinterpret_cast<D4>(_mm256_sqrt_pd(reinterpret_cast<__m256d>(v)));
}
// std::max(a, b) and std::min(a, b), lane by lane, with their exact choice.
inline D4 Max(D4 a, D4 b) {
    return Select(a < b, b, a);
}
inline D4 Min(D4 a, D4 b) {
    return Select(b < a, b, a);
}
inline int Bits(M4 m) {
    return _mm256_movemask_pd(reinterpret_cast<__m256d>(m));
}

// The mask of each lane alone.
constexpr M4 kLane[kLanes] = {{-1, 0, 0, 0}, {0, -1, 0, 0}, {0, 0, -1, 0}, {0, 0, 0, -1}};

// The lanes of each set of lane bits, as masks of four 32-bit lanes. A constant table:
// nothing in this file may run before the processor is known to have AVX2.
struct LaneMasks32 {
    alignas(16) std::int32_t lanes[16][4];
};
constexpr LaneMasks32 kLaneMasks32 = [] {
    LaneMasks32 masks{};
    for (int bits = 0; bits < 16; ++bits)
        for (int l = 0; l < 4; ++l)
            masks.lanes[bits][l] = -(bits >> l & 1);
    return masks;
}();
inline __m128i Lanes32(int bits) {
    return _mm_load_si128(reinterpret_cast<const __m128i*>(kLaneMasks32.lanes[bits]));
}

// One crossing of every lane, as optics::SplitAt has it and lifted: for the cosine of the
// angle of incidence and sin2t = eta^2 (1 - cos^2), from and to the indices on either side,
// the reflectance (1 where all light reflects) and the cosine of the refracted angle.
struct LaneSplit {
    D4 reflectance;
    D4 cosT;
};
inline LaneSplit SplitLanes(D4 cosI, D4 sin2t, M4 reflects, D4 from, D4 to, D4 lift) {
    const D4 zero = Splat(0.0), one = Splat(1.0);
    const D4 cosT = Sqrt(Select(reflects, zero, one - sin2t));
    const D4 a = from * cosI, b = to * cosT, c = from * cosT, e = to * cosI;
    const D4 sumS = a + b, sumP = c + e, diffS = a - b, diffP = c - e;
    const D4 split = Splat(0.5) * (diffS * diffS * sumP * sumP + diffP * diffP * sumS * sumS) /
                     (sumS * sumS * sumP * sumP);
    const D4 fresnel = Select(reflects, one, split);
    return {fresnel + lift * (one - fresnel), cosT};
}

struct Ray {
    double px, py, pz, dx, dy, dz;
};

// The tracer's ConfirmFace for a ray leaving the stone, its edges tested four at a time:
// true when the ray leaves through the face at a point well inside all its edges. The
// edges are tested at the crossing multiplied through by den (> 0), p * den + d * num, so
// the tests need not wait for the division. Rounded otherwise than the tracer's test, it
// can differ from it only within a rounding of the margin, where the crossing is still far
// inside the face: a face it confirms is the face the full search finds.
inline bool ConfirmExit(const TracerWorkAreas& work, int face, const Ray& r, double& t) {
    const TracerFaceArea& area = work.faces;
    if (face < 0 || face >= area.faceCount)
        return false;
    const std::size_t f = std::size_t(face);
    const double b = area.nx[f] * r.dx + area.ny[f] * r.dy + area.nz[f] * r.dz;
    if (!(b < 0.0))
        return false;
    const double h = area.nx[f] * r.px + area.ny[f] * r.py + area.nz[f] * r.pz - area.offset[f];
    const double num = std::max(h, 0.0), den = -b;
    t = num / den;
    const D4 qx = Splat(r.px * den + r.dx * num), qy = Splat(r.py * den + r.dy * num),
             qz = Splat(r.pz * den + r.dz * num);
    const D4 vden = Splat(den), margin = Splat(kGuessMargin * den);
    D4 nearest = margin;
    const TracerEdgeArea& edges = work.edges;
    static_assert(TracerEdgeArea::kBlockLines == kLanes, "one block of edges to a vector");
    for (int k = edges.firstBlock[f]; k < edges.firstBlock[f + 1]; ++k) {
        const TracerEdgeArea::Block& block = edges.blocks[std::size_t(k)];
        D4 x, y, z, offset;
        std::memcpy(&x, block.x.data(), sizeof x);
        std::memcpy(&y, block.y.data(), sizeof y);
        std::memcpy(&z, block.z.data(), sizeof z);
        std::memcpy(&offset, block.offset.data(), sizeof offset);
        nearest = Min(nearest, x * qx + y * qy + z * qz - offset * vden);
    }
    return Bits(nearest >= margin) == 0xf;
}

// ConfirmExit for every lane and one face, the lanes side by side: the lanes (as bits) whose
// ray leaves through the face well inside all its edges, with their distances in t, worked
// out exactly as ConfirmExit works them out.
inline int ConfirmExitTogether(const TracerWorkAreas& work, int face, D4 px, D4 py, D4 pz, D4 dx,
                               D4 dy, D4 dz, D4& t) {
    t = Splat(0.0);
    const TracerFaceArea& area = work.faces;
    if (face < 0 || face >= area.faceCount)
        return 0;
    const std::size_t f = std::size_t(face);
    const D4 nx = Splat(area.nx[f]), ny = Splat(area.ny[f]), nz = Splat(area.nz[f]);
    const D4 b = nx * dx + ny * dy + nz * dz;
    const D4 h = nx * px + ny * py + nz * pz - Splat(area.offset[f]);
    const D4 num = Max(h, Splat(0.0)), den = -b;
    t = num / den;
    const D4 qx = px * den + dx * num, qy = py * den + dy * num, qz = pz * den + dz * num;
    const D4 margin = Splat(kGuessMargin) * den;
    D4 nearest = margin;
    const TracerEdgeArea& edges = work.edges;
    for (int e = edges.first[f]; e < edges.first[f + 1]; ++e) {
        const TracerEdgeArea::Line& line = edges.lines[std::size_t(e)];
        nearest = Min(nearest, Splat(line.x) * qx + Splat(line.y) * qy + Splat(line.z) * qz -
                                   Splat(line.offset) * den);
    }
    const M4 confirmed = (b < Splat(0.0)) & (nearest >= margin);
    t = Select(confirmed, t, Splat(0.0));  // lanes not confirmed move by nothing
    return Bits(confirmed);
}

// The full search for the face a ray leaves through, as the tracer does it: -1 when the
// path ends.
inline int SearchExit(const TracerFaceArea& area, const Ray& r, double& t) {
    const int face = area.search.exit(area, {r.px, r.py, r.pz}, {r.dx, r.dy, r.dz});
    if (face < 0)
        return -1;
    const std::size_t f = std::size_t(face);
    const double rate = area.nx[f] * r.dx + area.ny[f] * r.dy + area.nz[f] * r.dz;
    if (!(rate < 0.0))
        return -1;
    const double height =
        area.nx[f] * r.px + area.ny[f] * r.py + area.nz[f] * r.pz - area.offset[f];
    t = std::max(height, 0.0) / -rate;
    return face;
}

// The face a ray leaves through when neither its own nor its neighbour's remembered face
// fits: the face that followed the same two faces the last time a ray got here this way,
// or else the full search, whose answer is then kept for the next ray.
inline int FollowOrSearch(const TracerWorkAreas& work, TracerBundleMemory& memory, std::size_t lane,
                          int level, int own, int before, int failed, const Ray& ray, double& t) {
    const auto faceAt = [&](int l) {
        return l < 0 ? memory.entryFaces[lane] : memory.exitFaces[std::size_t(l)][lane];
    };
    const std::size_t key =
        TracerBundleMemory::FollowKey(level >= 1 ? faceAt(level - 2) : -1, faceAt(level - 1));
    const int next = memory.follow[key];
    if (next != own && next != before && next != failed && ConfirmExit(work, next, ray, t))
        return next;
    const int found = SearchExit(work.faces, ray, t);
    memory.follow[key] = std::int16_t(found);
    return found;
}

}  // namespace

void Walk(BundleWalk& w) {
    const TracerWorkAreas& work = *w.work;
    const TracerFaceArea& area = work.faces;
    TracerBundleMemory& memory = *w.memory;
    __m128i segments = _mm_setzero_si128();  // of each lane: less a mask of -1 counts one
    const Lighting::Terms light = work.lighting.RadianceTerms();
    const bool classic = work.lighting.IsClassic();
    const D4 zero = Splat(0.0), one = Splat(1.0);
    const D4 n1 = Load(w.stone), eta = Load(w.eta), lift = Load(w.lift);
    const D4 n2 = Splat(w.outerIndex);

    // Into the stone: Fresnel's reflectance and Snell's direction at the entry face, as
    // optics::SplitAt has them, lifted; what is reflected shows the highlight and the
    // surroundings, the rest goes in.
    const D4 dirX = Splat(w.direction[0]), dirY = Splat(w.direction[1]),
             dirZ = Splat(w.direction[2]);
    const D4 enterX = Load(w.nx), enterY = Load(w.ny), enterZ = Load(w.nz);
    const D4 distance = Load(w.entryDistance), inward = Load(w.inward);
    D4 px = Load(w.ox) + dirX * distance, py = Load(w.oy) + dirY * distance,
       pz = Load(w.oz) + dirZ * distance;
    D4 thr[3], lit[3];
    M4 alive;
    std::memcpy(&alive, w.hit.data(), sizeof alive);
    D4 dx, dy, dz;
    {
        const D4 cosI = dirX * enterX + dirY * enterY + dirZ * enterZ;
        const D4 sin2t = inward * inward * (one - cosI * cosI);
        const M4 reflects = sin2t >= one;
        const auto [r, cosT] = SplitLanes(cosI, sin2t, reflects, n2, n1, lift);
        const D4 bend = cosT - inward * cosI;
        dx = dirX * inward + enterX * bend;
        dy = dirY * inward + enterY * bend;
        dz = dirZ * inward + enterZ * bend;
        Store(w.highlight, r * Load(w.mirrorHighlight));
        for (int ch = 0; ch < 3; ++ch) {
            lit[ch] = Load(w.mirrorLight[std::size_t(ch)]) * r;
            thr[ch] = one - r;
        }
        alive &= ~reflects;
    }
    std::memcpy(w.inside.data(), &alive, sizeof alive);
    D4 pathLength = zero;
    // The lanes still moving: alive but for the last test of the light left, which waits on
    // the Fresnel division. The search for the next faces goes by this mask, so that it need
    // not wait for that division. Every lane moves and turns with the others: a lane that
    // has ended is moved by nothing, or on a path whose place and direction nobody reads.
    M4 moving = alive;
    const bool absorbs = w.absorption[0] != 0.0 || w.absorption[1] != 0.0 || w.absorption[2] != 0.0;

    for (int level = 0; level < w.depth; ++level) {
        const int live = Bits(alive);
        const int open = Bits(moving);
        if (live == 0)
            break;
        // Each ray's face: the one it took at this level the time before (or the one the
        // ray before it takes now), confirmed as the tracer confirms it; the full search
        // only when neither fits. Mostly the rays remember the same face: then it is
        // confirmed for all of them at once.
        std::array<std::int32_t, kLanes>& faces = memory.exitFaces[std::size_t(level)];
        const __m128i own = _mm_load_si128(reinterpret_cast<const __m128i*>(faces.data()));
        const int leader = __builtin_ctz(unsigned(open));  // open holds every live lane
        const int shared = faces[std::size_t(leader)];
        const int sharers =
            _mm_movemask_ps(_mm_castsi128_ps(_mm_cmpeq_epi32(own, _mm_set1_epi32(shared)))) & open;
        // The shared face is tried for every ray, not only for those that remember it: where
        // the paths of the rays part and meet again, it serves the others too.
        D4 sharedT = Splat(0.0);
        int confirmed = 0;  // lanes the shared face is confirmed for
        int tested = 0;     // lanes whose own face the shared test has already tried
        int failed = -1;    // the face the shared test found wrong for the others
        if (shared >= 0 && (open & (open - 1)) != 0) {
            confirmed = ConfirmExitTogether(work, shared, px, py, pz, dx, dy, dz, sharedT) & open;
            tested = sharers;
            failed = shared;
        }
        D4 t, ox, oy, oz;
        if ((confirmed & live) == live) {
            // Every ray leaves through the shared face: its normal serves them all.
            _mm_store_si128(reinterpret_cast<__m128i*>(faces.data()),
                            _mm_blendv_epi8(own, _mm_set1_epi32(shared), Lanes32(live)));
            t = sharedT;
            const std::size_t f = std::size_t(shared);
            ox = Splat(-area.nx[f]);
            oy = Splat(-area.ny[f]);
            oz = Splat(-area.nz[f]);
        } else {
            t = sharedT;
            std::array<int, kLanes> face{};
            int before = -1;
            for (int l = 0; l < kLanes; ++l) {
                const std::size_t i = std::size_t(l);
                face[i] = 0;  // a placeholder for lanes that have ended
                if (!(live >> l & 1))
                    continue;
                const int guess = faces[i];
                int found = -1;
                if (confirmed >> l & 1) {
                    found = shared;
                } else {
                    const Ray ray = {px[l], py[l], pz[l], dx[l], dy[l], dz[l]};
                    double lane = 0.0;
                    if (!(tested >> l & 1) && ConfirmExit(work, guess, ray, lane))
                        found = guess;
                    else if (before != guess && before != failed &&
                             ConfirmExit(work, before, ray, lane))
                        found = before;
                    else
                        found = FollowOrSearch(work, memory, i, level, guess, before, failed, ray,
                                               lane);
                    // Blended in place: four lone stores read back as one vector would stall.
                    t = Select(kLane[l], Splat(lane), t);
                }
                if (found < 0) {
                    alive[l] = moving[l] = 0;  // the path ends here, as when the depth runs out
                    continue;
                }
                face[i] = faces[i] = before = found;
            }
            const auto gather = [&face](const auto& normal) {
                return -D4{normal[std::size_t(face[0])], normal[std::size_t(face[1])],
                           normal[std::size_t(face[2])], normal[std::size_t(face[3])]};
            };
            ox = gather(area.nx);
            oy = gather(area.ny);
            oz = gather(area.nz);
        }

        segments = _mm_sub_epi32(segments, Lanes32(Bits(alive)));

        // Along the segment and out through the face: every lane side by side.
        pathLength = Select(alive, pathLength + t, pathLength);
        px = px + dx * t;
        py = py + dy * t;
        pz = pz + dz * t;
        if (absorbs)
            for (int c = 0; c < 3; ++c)
                if (w.absorption[std::size_t(c)] != 0.0)
                    for (int l = 0; l < kLanes; ++l)
                        if (alive[l])
                            thr[c][l] *= std::exp(-w.absorption[std::size_t(c)] * t[l]);

        // Fresnel's reflectance and Snell's direction as optics::SplitAt has them, lifted.
        const D4 cosI = dx * ox + dy * oy + dz * oz;
        const D4 sin2t = eta * eta * (one - cosI * cosI);
        const M4 reflects = sin2t >= one;
        const M4 leaves = alive & ~reflects;
        const D4 twice = Splat(2.0) * cosI;
        const D4 rx = dx - ox * twice, ry = dy - oy * twice, rz = dz - oz * twice;
        // Where every ray with light left is reflected totally, its reflectance is exactly 1:
        // nothing leaves, and its light and what is left of it stay as they are.
        if (Bits(leaves) != 0) {
            const auto [r, cosT] = SplitLanes(cosI, sin2t, reflects, n1, n2, lift);
            const D4 bend = cosT - eta * cosI;
            const D4 ex = dx * eta + ox * bend, ey = dy * eta + oy * bend,
                     ez = dz * eta + oz * bend;

            // The light seen along the refracted direction, as Lighting::Radiance has it:
            // the classic lights side by side, the others ray by ray through it.
            D4 seen[3];
            if (classic) {
                const D4 facing = Max(ex * Splat(light.toLight.x) + ey * Splat(light.toLight.y) +
                                          ez * Splat(light.toLight.z),
                                      zero);
                const D4 f2 = facing * facing;
                const D4 key = Splat(light.main) * f2 * f2 * f2;
                const D4 back = Select(ez > zero, ez * ez, zero);
                const D4 fill = Splat(0.5) + Splat(0.5) * Max(ey, zero);
                const D4 even = Splat(light.back) * back + Splat(light.fill) * fill;
                for (int ch = 0; ch < 3; ++ch)
                    seen[ch] = even + Splat(light.backColour[std::size_t(ch)]) + key;
            } else {
                alignas(32) std::array<BundleWalk::Lanes, 3> lanes{};
                const int leaving = Bits(leaves);
                for (int l = 0; l < kLanes; ++l)
                    if (leaving >> l & 1) {
                        const std::array<double, 3> radiance =
                            work.lighting.Radiance({ex[l], ey[l], ez[l]});
                        for (std::size_t ch = 0; ch < 3; ++ch)
                            lanes[ch][std::size_t(l)] = radiance[ch];
                    }
                for (std::size_t ch = 0; ch < 3; ++ch)
                    seen[ch] = Load(lanes[ch]);
            }
            for (int ch = 0; ch < 3; ++ch)
                lit[ch] = Select(leaves, lit[ch] + thr[ch] * (one - r) * seen[ch], lit[ch]);
            for (D4& channel : thr)
                channel = Select(alive, channel * r, channel);
        }
        dx = rx;
        dy = ry;
        dz = rz;
        moving = alive;
        alive &= ~(Max(Max(thr[0], thr[1]), thr[2]) < Splat(kNegligible));
    }
    for (int ch = 0; ch < 3; ++ch) {
        Store(w.throughput[std::size_t(ch)], thr[ch]);
        Store(w.light[std::size_t(ch)], lit[ch]);
    }
    Store(w.pathLength, pathLength);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(w.segments.data()), segments);
}

}  // namespace kirameki::bundle_walk_avx2
