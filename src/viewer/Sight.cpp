// SPDX-License-Identifier: MIT
#include "viewer/Sight.h"

#include "korvat/draw/Renderer.h"
#include "viewer/Numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>

using korvat::Dot;
using korvat::Vec3;

namespace viewer {
namespace {

constexpr float kMargin = 0.92f;   ///< the part of the canvas that points may take
constexpr float kClearance = 0.5f; ///< metres between the camera and the nearest point

/// The two lines of sight that just enclose all points, in the plane of one axis of the canvas and
/// the depth.
struct Wedge
{
    void Add(float across, float depth, float slope)
    {
        right = std::max(right, across - slope * depth);
        left = std::max(left, -across - slope * depth);
    }
    /// Returns the depth at which the lines meet.
    float Depth(float slope) const { return -(right + left) / (2 * slope); }
    float Across() const { return (right - left) / 2; }

    float right = -std::numeric_limits<float>::max(), left = right;
};

} // namespace

Sight::Sight(const CameraPose &pose, float width, float height)
    : m_width(std::max(width, 1.0f))
    , m_height(std::max(height, 1.0f))
    , m_slopeX(0)
    , m_slopeY(std::tan(DegToRad(korvat::Renderer::kVerticalDegrees / 2)))
    , m_eye{pose.CamX, pose.CamY, pose.CamZ}
{
    m_slopeX = m_slopeY * m_width / m_height;
    const korvat::Transform view =
        korvat::LookAt(m_eye, {pose.LookAtX, pose.LookAtY, pose.LookAtZ});
    const auto axis = [&view](int column) {
        return Vec3{view.At(0, column), view.At(1, column), view.At(2, column)};
    };
    m_right = axis(0);
    m_up = axis(1);
    m_forward = axis(2);
}

Vec3 Sight::Through(float x, float y) const
{
    return m_forward + m_right * ((2 * x / m_width - 1) * m_slopeX) +
           m_up * ((1 - 2 * y / m_height) * m_slopeY);
}

Vec3 Sight::PointAt(float x, float y, float depth) const
{
    return m_eye + Through(x, y) * depth;
}

float Sight::DepthOf(const Vec3 &point) const
{
    return Dot(point - m_eye, m_forward);
}

Vec3 Sight::Across(float dx, float dy, float depth) const
{
    return (m_right * (2 * dx / m_width * m_slopeX) - m_up * (2 * dy / m_height * m_slopeY)) *
           depth;
}

Vec3 Sight::NearestEye(std::span<const Vec3> points) const
{
    const float slopeX = m_slopeX * kMargin, slopeY = m_slopeY * kMargin;
    Wedge across, along;
    float nearest = std::numeric_limits<float>::max();
    for (const Vec3 &point : points) {
        const Vec3 from = point - m_eye;
        const float depth = Dot(from, m_forward);
        across.Add(Dot(from, m_right), depth, slopeX);
        along.Add(Dot(from, m_up), depth, slopeY);
        nearest = std::min(nearest, depth);
    }
    const float depth = std::min({across.Depth(slopeX), along.Depth(slopeY), nearest - kClearance});
    return m_eye + m_right * across.Across() + m_up * along.Across() + m_forward * depth;
}

} // namespace viewer
