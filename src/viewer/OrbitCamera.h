// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/Transform.h"
#include "viewer/CameraPose.h"

namespace viewer {

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
    /// Moves the camera towards the target (positive steps) or away from it, by a tenth of the
    /// distance per step. The camera neither reaches the target nor leaves the scene.
    void Approach(float steps);

private:
    /// Returns the vector from the target to the camera.
    korvat::Vec3 offset() const;
    void changeOffset(const korvat::Vec3 &offset);
    void change(const CameraPose &pose);

    CameraPose &m_pose;
};

/// Rotates (p, q) in their plane by an angle in radians.
void RotateInPlane(float angle, float &p, float &q);

} // namespace viewer
