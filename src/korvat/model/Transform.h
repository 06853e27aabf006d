// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/formats/Shape.h"

#include <array>
#include <cstddef>

/// The space is left-handed, in metres: X right, Y up, Z forward. Vectors are rows that multiply
/// matrices from the left, so that "first A, then B" is A * B.
namespace korvat {

constexpr Vec3 operator+(Vec3 a, Vec3 b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
constexpr Vec3 operator-(Vec3 a, Vec3 b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
constexpr Vec3 operator*(Vec3 a, float factor)
{
    return {a.x * factor, a.y * factor, a.z * factor};
}
constexpr float Dot(Vec3 a, Vec3 b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
constexpr Vec3 Cross(Vec3 a, Vec3 b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
float Length(Vec3 v);
/// Returns the vector scaled to length 1. A vector whose length is zero or not finite is returned
/// unchanged.
Vec3 Normalised(Vec3 v);

/// A matrix of four rows and columns: a place in the world, or a projection.
struct Transform
{
    std::array<float, 16> m{};

    constexpr float &At(int row, int column) { return m[place(row, column)]; }
    constexpr float At(int row, int column) const { return m[place(row, column)]; }
    friend bool operator==(const Transform &, const Transform &) = default;

private:
    static constexpr std::size_t place(int row, int column)
    {
        return static_cast<std::size_t>(row) * 4 + static_cast<std::size_t>(column);
    }
};

Transform Identity();
Transform Translation(Vec3 by);
Transform Scaling(Vec3 by);
/// Returns a rotation about the vertical axis; a quarter turn takes Z to X.
Transform RotationY(float radians);
Transform operator*(const Transform &a, const Transform &b);

/// Returns the transformation from the world to the space of a camera at `eye`: X right, Y up, Z
/// away from the camera. For a camera that looks straight up or down, the world's Z is on its
/// right.
Transform LookAt(Vec3 eye, Vec3 target);
/// Returns a perspective projection with this vertical field of view. Depth runs from -1 at
/// `nearest` to 1 at `farthest`.
Transform Perspective(float verticalRadians, float widthByHeight, float nearest, float farthest);

/// Return the point moved by the matrix, and the direction rotated by it.
Vec3 TransformPoint(Vec3 point, const Transform &matrix);
Vec3 TransformDirection(Vec3 direction, const Transform &matrix);

/// The part of the world that a camera sees.
class Frustum
{
public:
    explicit Frustum(const Transform &viewProjection);
    /// Returns false only for a sphere that is wholly outside.
    bool Sees(const Sphere &sphere) const;

private:
    struct Plane
    {
        Vec3 normal;
        float distance = 0;
    };
    std::array<Plane, 6> m_planes;
};

} // namespace korvat
