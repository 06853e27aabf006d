// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/Transform.h"
#include "viewer/CameraPose.h"
#include "viewer/Sight.h"

#include <span>

namespace viewer {

/// The sides from which a camera can look at a train.
enum class Side
{
    Front,
    Rear,
    Above
};

/// Moves a camera for the mouse, the wheel and the scroll bars. Mouse distances are in the canvas's
/// units (pixels that do not depend on the screen's density), everything else is in metres. Throws
/// error 6, and changes nothing, if the result of a move is not finite.
class OrbitCamera
{
public:
    /// The pose must outlive this object.
    explicit OrbitCamera(CameraPose &pose)
        : m_pose(pose)
    {
    }

    /// Shows a train from the side: the camera is ten metres beside its middle, two above the rail.
    void Reset(float trainMiddle);
    /// Turns the camera about the target: 200 to the right is a radian about the vertical axis, 100
    /// down is a radian in the plane of Y and Z. A camera level with the target and beside it would
    /// not move in that plane, so in that position vertical movement works as in OrbitOver.
    void Orbit(float dx, float dy);
    /// Turns the camera about the target: 200 to the right is a radian about the vertical axis, 200
    /// up is a radian over the target. The camera stops just short of the point above or below the
    /// target.
    void OrbitOver(float dx, float dy);
    /// True if the camera is level with the target and in the plane through it across the train.
    bool IsBesideTarget() const;
    /// Slides camera and target: 100 down raises both by a metre; sideways, both move one metre,
    /// whatever dx is.
    void Pan(float dx, float dy);
    /// Moves the target to this place along the train, and the camera by the same distance.
    void MoveAlong(float z);
    /// Moves the camera to this height; the target stays.
    void SetHeight(float height);
    /// Moves camera and target towards a point that the camera sees (positive steps) or away from
    /// it, by a tenth of the distance per step. The point keeps its place in the picture. The
    /// camera reaches neither the point nor the target, and gets no farther from the target than
    /// `farthest`.
    void ApproachPoint(const korvat::Vec3 &point, float steps, float farthest = kFarthest);
    /// Slides camera and target.
    void Slide(const korvat::Vec3 &by);
    /// Moves the target to a point, and the camera by the same distance.
    void MoveTarget(const korvat::Vec3 &target);
    /// Moves the camera about the target to one side of it. Above, the train's front is on the
    /// right.
    void LookFrom(Side side);
    /// Moves the camera about the target to the opposite side, at the same height.
    void LookFromOtherSide();
    /// Moves the camera, without turning it, as near as it can be to see all of the points on a
    /// canvas of this size. The new target is in the middle of the picture, in the depth of
    /// `middle`. Without points, does nothing.
    void ShowAll(std::span<const korvat::Vec3> points, const korvat::Vec3 &middle, float width,
                 float height);
    float Distance() const;

    static constexpr float kFarthest = 500; ///< metres from the target, unless it is farther

private:
    /// Returns the vector from the target to the camera.
    korvat::Vec3 offset() const;
    void changeOffset(const korvat::Vec3 &offset);
    void changeBoth(const korvat::Vec3 &eye, const korvat::Vec3 &target);
    void change(const CameraPose &pose);

    CameraPose &m_pose;
};

/// Rotates (p, q) in their plane by an angle in radians.
void RotateInPlane(float angle, float &p, float &q);

} // namespace viewer
