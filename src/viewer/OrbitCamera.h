// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/Transform.h"
#include "viewer/CameraPose.h"

namespace viewer {

/// Moves a camera as the mouse, the wheel and the scroll bars ask for. Mouse distances are in the
/// canvas's own units (pixels that do not depend on the screen's density), everything else is in
/// metres. A move whose result is not a finite number is error 6 and changes nothing.
class OrbitCamera
{
public:
    /// The pose must outlive this object.
    explicit OrbitCamera(CameraPose &pose)
        : m_pose(pose)
    {
    }

    /// The side view of a train: ten metres beside its middle, two above the rail.
    void Reset(float trainMiddle);
    /// Turns about the target: 200 to the right are a radian about the vertical axis, 100 down are
    /// one in the plane of Y and Z. That plane holds no movement for a camera that is beside the
    /// target and level with it; there vertical movement turns it as OrbitOver does.
    void Orbit(float dx, float dy);
    /// Turns about the target: 200 to the right are a radian about the vertical axis, 200 up are
    /// one over the target. The camera stops just short of the point above or below the target.
    void OrbitOver(float dx, float dy);
    /// True if the camera is level with the target and in the plane through it across the train.
    bool IsBesideTarget() const;
    /// Slides camera and target: 100 down raise both by a metre; sideways, both move one metre
    /// whatever dx is.
    void Pan(float dx, float dy);
    /// Moves the target to this place along the train, and the camera as far.
    void MoveAlong(float z);
    /// The camera to this height; the target stays.
    void SetHeight(float height);
    /// Towards the target with positive steps, away from it with negative ones, a tenth of the
    /// distance each; neither into the target nor out of the scene.
    void Approach(float steps);

private:
    /// From the target to the camera.
    korvat::Vec3 offset() const;
    void changeOffset(const korvat::Vec3 &offset);
    void change(const CameraPose &pose);

    CameraPose &m_pose;
};

/// Turns (p, q) by an angle in radians in their plane.
void RotateInPlane(float angle, float &p, float &q);

} // namespace viewer
