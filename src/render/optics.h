#pragma once

#include <cmath>

#include "model/vec3.h"

namespace kirameki::optics {

// Fresnel reflectance of unpolarised light going from index n1 into index n2, for the cosine
// of the angle of incidence. Beyond the critical angle all light is reflected (returns 1).
// Transmittance is 1 minus this: what is not reflected is refracted, nothing is lost.
inline double FresnelReflectance(double cosIncidence, double n1, double n2) {
    const double eta = n1 / n2;
    const double sin2t = eta * eta * (1.0 - cosIncidence * cosIncidence);
    if (sin2t >= 1.0)
        return 1.0;
    const double cosT = std::sqrt(1.0 - sin2t);
    const double rs = (n1 * cosIncidence - n2 * cosT) / (n1 * cosIncidence + n2 * cosT);
    const double rp = (n1 * cosT - n2 * cosIncidence) / (n1 * cosT + n2 * cosIncidence);
    return 0.5 * (rs * rs + rp * rp);
}

// Reflectance at normal incidence, ((n1 - n2) / (n1 + n2))^2.
inline double NormalReflectance(double n1, double n2) {
    const double r = (n1 - n2) / (n1 + n2);
    return r * r;
}

// Fresnel reflectance made to agree with a given reflectance at normal incidence: the exact
// curve is lifted so that it starts at r0 and still reaches 1 at grazing incidence and
// beyond the critical angle (the fire samples trace at a scaled index but share one r0).
inline double ReflectanceWithR0(double cosIncidence, double n1, double n2, double r0) {
    const double exact = FresnelReflectance(cosIncidence, n1, n2);
    const double f0 = NormalReflectance(n1, n2);
    if (f0 >= 1.0)
        return exact;
    return exact + (r0 - f0) * (1.0 - exact) / (1.0 - f0);
}

// Mirror reflection of direction d about a unit normal n (either orientation).
inline Vec3 Reflect(Vec3 d, Vec3 n) {
    return d - n * (2.0 * Dot(d, n));
}

// Snell's law: the refracted direction of unit d entering through a surface whose unit
// normal n points into the new medium (d . n > 0), eta = n1 / n2. False on total internal
// reflection.
inline bool Refract(Vec3 d, Vec3 n, double eta, Vec3& out) {
    const double cosI = Dot(d, n);
    const double sin2t = eta * eta * (1.0 - cosI * cosI);
    if (sin2t >= 1.0)
        return false;
    const double cosT = std::sqrt(1.0 - sin2t);
    out = d * eta + n * (cosT - eta * cosI);
    return true;
}

// One crossing of a surface by unit direction d, n the unit normal pointing into the new
// medium: Fresnel's reflectance and, unless all light reflects, Snell's refracted direction,
// sharing one square root.
struct Split {
    double reflectance = 1.0;
    bool refracted = false;
    Vec3 direction;
};

// The same with eta = n1 / n2 worked out by the caller, for rays that cross between the same
// two indices again and again.
inline Split SplitAt(Vec3 d, Vec3 n, double n1, double n2, double eta) {
    const double cosI = Dot(d, n);
    const double sin2t = eta * eta * (1.0 - cosI * cosI);
    Split split;
    if (sin2t >= 1.0)
        return split;
    const double cosT = std::sqrt(1.0 - sin2t);
    // rs = (a - b) / (a + b) and rp = (c - d) / (c + d), summed over one common divisor.
    const double a = n1 * cosI, b = n2 * cosT, c = n1 * cosT, e = n2 * cosI;
    const double sumS = a + b, sumP = c + e, diffS = a - b, diffP = c - e;
    split.reflectance = 0.5 * (diffS * diffS * sumP * sumP + diffP * diffP * sumS * sumS) /
                        (sumS * sumS * sumP * sumP);
    split.refracted = true;
    split.direction = d * eta + n * (cosT - eta * cosI);
    return split;
}

inline Split SplitAt(Vec3 d, Vec3 n, double n1, double n2) {
    return SplitAt(d, n, n1, n2, n1 / n2);
}

}  // namespace kirameki::optics
