// SPDX-License-Identifier: MIT
#pragma once

#include "viewer/CameraPose.h"

namespace viewer {

/// What the user's hands do to a camera. Mouse distances are in the canvas's own units (pixels that
/// do not depend on the screen's density), everything else is in metres. A move whose result is no
/// finite number is error 6 and changes nothing.
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
    /// one in the plane of Y and Z.
    void Orbit(float dx, float dy);
    /// Slides camera and target: 100 down raise both by a metre; to the side both go one step, how
    /// far the mouse went does not matter.
    void Pan(float dx, float dy);
    /// Camera and target to this place along the train.
    void MoveAlong(float z);
    /// The camera to this height; the target stays.
    void SetHeight(float height);
    /// Towards the target with positive steps, away from it with negative ones, a tenth of the
    /// distance each; neither into the target nor out of the scene.
    void Approach(float steps);

private:
    void change(const CameraPose &pose);

    CameraPose &m_pose;
};

/// Turns (p, q) by an angle in radians in their plane.
void RotateInPlane(float angle, float &p, float &q);

} // namespace viewer
