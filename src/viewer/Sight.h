// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/Transform.h"
#include "viewer/CameraPose.h"

#include <span>

namespace viewer {

/// What a camera sees on a canvas of a certain size. Places on the canvas are in its units, from
/// the upper left corner. Depths are metres along the direction in which the camera looks.
class Sight
{
public:
    Sight(const CameraPose &pose, float width, float height);

    /// Returns the direction from the camera to what is at a place on the canvas, with depth 1.
    korvat::Vec3 Through(float x, float y) const;
    /// Returns the point at a place on the canvas and in this depth.
    korvat::Vec3 PointAt(float x, float y, float depth) const;
    float DepthOf(const korvat::Vec3 &point) const;
    /// Returns how far a point in this depth moves in the world if it moves by (dx, dy) on the
    /// canvas.
    korvat::Vec3 Across(float dx, float dy, float depth) const;

    /// Returns the nearest position from which a camera that looks in the same direction sees all
    /// of the points, with a margin. `points` must not be empty.
    korvat::Vec3 NearestEye(std::span<const korvat::Vec3> points) const;

    const korvat::Vec3 &Eye() const { return m_eye; }
    const korvat::Vec3 &Forward() const { return m_forward; }

private:
    float m_width, m_height;
    float m_slopeX, m_slopeY; ///< half the canvas, seen in depth 1
    korvat::Vec3 m_eye, m_right, m_up, m_forward;
};

} // namespace viewer
