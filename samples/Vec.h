// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>

namespace samples {

struct Vec2
{
    float x = 0;
    float y = 0;
};

/// A point or vector in metres. Left-handed: X is right, Y up, Z forward.
struct Vec3
{
    float x = 0;
    float y = 0;
    float z = 0;

    friend Vec3 operator+(Vec3 a, Vec3 b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
    friend Vec3 operator-(Vec3 a, Vec3 b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
    friend Vec3 operator*(Vec3 a, float factor)
    {
        return {a.x * factor, a.y * factor, a.z * factor};
    }
};

inline float Dot(const Vec3 &a, const Vec3 &b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

inline Vec3 Cross(const Vec3 &a, const Vec3 &b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

/// Returns the vector scaled to length 1; upwards for the zero vector.
inline Vec3 Normalised(const Vec3 &a)
{
    const float length = std::sqrt(Dot(a, a));
    return length > 0 ? a * (1 / length) : Vec3{0, 1, 0};
}

} // namespace samples
