#pragma once

#include <cmath>

namespace kirameki {

// A point or direction in double precision; the whole geometry is sized against a
// circumsphere of radius 1.0.
struct Vec3 {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

constexpr Vec3 operator+(Vec3 a, Vec3 b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
constexpr Vec3 operator-(Vec3 a, Vec3 b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
constexpr Vec3 operator-(Vec3 a) {
    return {-a.x, -a.y, -a.z};
}
constexpr Vec3 operator*(Vec3 a, double s) {
    return {a.x * s, a.y * s, a.z * s};
}
constexpr Vec3 operator*(double s, Vec3 a) {
    return a * s;
}
constexpr double Dot(Vec3 a, Vec3 b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
constexpr Vec3 Cross(Vec3 a, Vec3 b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline double Length(Vec3 a) {
    return std::sqrt(Dot(a, a));
}
inline Vec3 Normalized(Vec3 a) {
    return a * (1.0 / Length(a));
}

}  // namespace kirameki
