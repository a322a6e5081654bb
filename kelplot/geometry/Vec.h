// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cmath>

namespace kelplot {

/// A point or direction in a plane.
struct Vec2 {
    double x = 0.0;
    double y = 0.0;

    friend Vec2 operator+(Vec2 a, Vec2 b) { return {a.x + b.x, a.y + b.y}; }
    friend Vec2 operator-(Vec2 a, Vec2 b) { return {a.x - b.x, a.y - b.y}; }
    friend Vec2 operator*(Vec2 a, double k) { return {a.x * k, a.y * k}; }
    friend bool operator==(Vec2 a, Vec2 b) { return a.x == b.x && a.y == b.y; }
    friend bool operator!=(Vec2 a, Vec2 b) { return !(a == b); }

    double length() const { return std::hypot(x, y); }
    bool isFinite() const { return std::isfinite(x) && std::isfinite(y); }
};

inline double dot(Vec2 a, Vec2 b) {
    return a.x * b.x + a.y * b.y;
}

/// Positive when `b` lies to the left of `a` in a frame with y upwards.
inline double cross(Vec2 a, Vec2 b) {
    return a.x * b.y - a.y * b.x;
}

/// `v` turned by a quarter to the left in a frame with y upwards.
inline Vec2 leftNormal(Vec2 v) {
    return {-v.y, v.x};
}

/// A point or direction in space.
struct Vec3 {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    friend Vec3 operator+(const Vec3& a, const Vec3& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
    friend Vec3 operator-(const Vec3& a, const Vec3& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
    friend Vec3 operator*(const Vec3& a, double k) { return {a.x * k, a.y * k, a.z * k}; }
    friend bool operator==(const Vec3& a, const Vec3& b) { return a.x == b.x && a.y == b.y && a.z == b.z; }

    double length() const { return std::hypot(x, y, z); }
};

inline double dot(const Vec3& a, const Vec3& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

inline Vec3 cross(const Vec3& a, const Vec3& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

} // namespace kelplot
