// SPDX-License-Identifier: MIT
#include "korvat/model/Transform.h"

#include <cmath>

namespace korvat {

float Length(Vec3 v)
{
    return std::sqrt(Dot(v, v));
}

Vec3 Normalised(Vec3 v)
{
    const float length = Length(v);
    return length > 0 && std::isfinite(length) ? v * (1 / length) : v;
}

Transform Identity()
{
    Transform result;
    for (int i = 0; i < 4; ++i)
        result.At(i, i) = 1;
    return result;
}

Transform Translation(Vec3 by)
{
    Transform result = Identity();
    result.At(3, 0) = by.x;
    result.At(3, 1) = by.y;
    result.At(3, 2) = by.z;
    return result;
}

Transform Scaling(Vec3 by)
{
    Transform result = Identity();
    result.At(0, 0) = by.x;
    result.At(1, 1) = by.y;
    result.At(2, 2) = by.z;
    return result;
}

Transform RotationY(float radians)
{
    const float c = std::cos(radians), s = std::sin(radians);
    Transform result = Identity();
    result.At(0, 0) = c;
    result.At(0, 2) = -s;
    result.At(2, 0) = s;
    result.At(2, 2) = c;
    return result;
}

Transform operator*(const Transform &a, const Transform &b)
{
    Transform result;
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column) {
            float sum = 0;
            for (int i = 0; i < 4; ++i)
                sum += a.At(row, i) * b.At(i, column);
            result.At(row, column) = sum;
        }
    return result;
}

Transform LookAt(Vec3 eye, Vec3 target)
{
    const Vec3 gaze = target - eye;
    const Vec3 forward = Length(gaze) > 0 ? Normalised(gaze) : Vec3{0, 0, 1};
    Vec3 right = Cross({0, 1, 0}, forward);
    right = Length(right) > 1e-6f ? Normalised(right) : Vec3{0, 0, 1};
    const Vec3 up = Cross(forward, right);
    Transform result = Identity();
    const std::array<Vec3, 3> axes = {right, up, forward};
    for (int i = 0; i < 3; ++i) {
        const Vec3 axis = axes[static_cast<std::size_t>(i)];
        result.At(0, i) = axis.x;
        result.At(1, i) = axis.y;
        result.At(2, i) = axis.z;
        result.At(3, i) = -Dot(axis, eye);
    }
    return result;
}

Transform Perspective(float verticalRadians, float widthByHeight, float nearest, float farthest)
{
    const float scale = 1 / std::tan(verticalRadians / 2);
    Transform result;
    result.At(0, 0) = scale / widthByHeight;
    result.At(1, 1) = scale;
    result.At(2, 2) = (farthest + nearest) / (farthest - nearest);
    result.At(2, 3) = 1;
    result.At(3, 2) = -2 * farthest * nearest / (farthest - nearest);
    return result;
}

Vec3 TransformDirection(Vec3 d, const Transform &matrix)
{
    const auto column = [&](int i) {
        return d.x * matrix.At(0, i) + d.y * matrix.At(1, i) + d.z * matrix.At(2, i);
    };
    return {column(0), column(1), column(2)};
}

Vec3 TransformPoint(Vec3 point, const Transform &matrix)
{
    return TransformDirection(point, matrix) +
           Vec3{matrix.At(3, 0), matrix.At(3, 1), matrix.At(3, 2)};
}

Frustum::Frustum(const Transform &viewProjection)
{
    // A point is inside if -w <= x, y, z <= w: each limit is w plus or minus one column.
    for (std::size_t i = 0; i < m_planes.size(); ++i) {
        const int column = static_cast<int>(i / 2);
        const float sign = i % 2 ? -1.0f : 1.0f;
        const auto sum = [&](int row) {
            return viewProjection.At(row, 3) + sign * viewProjection.At(row, column);
        };
        const Vec3 normal{sum(0), sum(1), sum(2)};
        const float length = Length(normal);
        const float factor = length > 0 ? 1 / length : 1;
        m_planes[i] = {normal * factor, sum(3) * factor};
    }
}

bool Frustum::Sees(const Sphere &sphere) const
{
    for (const Plane &plane : m_planes)
        if (Dot(plane.normal, sphere.centre) + plane.distance < -sphere.radius)
            return false;
    return true;
}

} // namespace korvat
