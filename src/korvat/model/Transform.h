// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/formats/Shape.h"

#include <array>
#include <cstddef>

/// The space is left-handed: X right, Y up, Z forward, metres. Vectors are rows and multiply
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
/// The vector made one long; one without a length (or without a finite one) stays as it is.
Vec3 Normalised(Vec3 v);

/// Four rows of four: a place in the world, or the way into a picture.
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
/// A turn about the vertical axis; a quarter turn takes Z to X.
Transform RotationY(float radians);
Transform operator*(const Transform &a, const Transform &b);

/// Takes the world into the space of a camera at `eye`: X right, Y up, Z away from it. A camera
/// that looks straight up or down has Z of the world to its right.
Transform LookAt(Vec3 eye, Vec3 target);
/// A perspective with this vertical field of view. Depth runs from -1 at `nearest` to 1 at
/// `farthest`.
Transform Perspective(float verticalRadians, float widthByHeight, float nearest, float farthest);

/// The point moved by the matrix, and the direction turned by it.
Vec3 TransformPoint(Vec3 point, const Transform &matrix);
Vec3 TransformDirection(Vec3 direction, const Transform &matrix);

/// The part of the world that a camera sees.
class Frustum
{
public:
    explicit Frustum(const Transform &viewProjection);
    /// False only for a sphere that lies wholly outside.
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
