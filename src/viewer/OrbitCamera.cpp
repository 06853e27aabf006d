// SPDX-License-Identifier: MIT
#include "viewer/OrbitCamera.h"

#include "viewer/Numbers.h"

#include <algorithm>
#include <cmath>

namespace viewer {
namespace {

constexpr float kRadiansPerX = 1 / 200.0f, kRadiansPerY = 1 / 100.0f, kMetresPerY = 1 / 100.0f;
constexpr float kStep = 0.9f;                        ///< distance left after one step forward
constexpr float kClosest = 1.0f, kFarthest = 500.0f; ///< metres; the haze ends at 600

float signOf(float value)
{
    return value > 0 ? 1.0f : value < 0 ? -1.0f : 0.0f;
}

} // namespace

void RotateInPlane(float angle, float &p, float &q)
{
    const float c = std::cos(angle), s = std::sin(angle);
    const float turnedP = p * c - q * s;
    q = p * s + q * c;
    p = turnedP;
}

void OrbitCamera::change(const CameraPose &pose)
{
    for (const float value :
         {pose.CamX, pose.CamY, pose.CamZ, pose.LookAtX, pose.LookAtY, pose.LookAtZ})
        Finite(value);
    m_pose = pose;
}

void OrbitCamera::Reset(float trainMiddle)
{
    change({10, 2, trainMiddle, 0, 2, trainMiddle});
}

void OrbitCamera::Orbit(float dx, float dy)
{
    CameraPose pose = m_pose;
    float x = pose.CamX - pose.LookAtX, y = pose.CamY - pose.LookAtY, z = pose.CamZ - pose.LookAtZ;
    // The second turn is in the scene's plane and not about the camera's own axis.
    RotateInPlane(dx * kRadiansPerX, x, z);
    RotateInPlane(dy * kRadiansPerY, y, z);
    pose.CamX = pose.LookAtX + x;
    pose.CamY = pose.LookAtY + y;
    pose.CamZ = pose.LookAtZ + z;
    change(pose);
}

void OrbitCamera::Pan(float dx, float dy)
{
    CameraPose pose = m_pose;
    const float rise = dy * kMetresPerY, s = signOf(dx);
    const float ex = pose.CamX - pose.LookAtX, ez = pose.CamZ - pose.LookAtZ;
    float mx = s, mz = 0;
    if (ez == 0) {
        mx = 0;
        mz = s;
    } else if (ex != 0) {
        mz = s * std::abs(ex) / std::abs(ez);
    }
    pose.CamY += rise;
    pose.LookAtY += rise;
    pose.CamX -= mx;
    pose.LookAtX -= mx;
    pose.CamZ -= mz;
    pose.LookAtZ -= mz;
    change(pose);
}

void OrbitCamera::MoveAlong(float z)
{
    CameraPose pose = m_pose;
    pose.CamZ = pose.LookAtZ = z;
    change(pose);
}

void OrbitCamera::SetHeight(float height)
{
    CameraPose pose = m_pose;
    pose.CamY = height;
    change(pose);
}

void OrbitCamera::Approach(float steps)
{
    CameraPose pose = m_pose;
    const float x = pose.CamX - pose.LookAtX, y = pose.CamY - pose.LookAtY,
                z = pose.CamZ - pose.LookAtZ;
    const float distance = std::sqrt(x * x + y * y + z * z);
    if (distance == 0)
        return;
    const float wanted = std::clamp(distance * std::pow(kStep, steps), kClosest, kFarthest);
    const float factor = wanted / distance;
    pose.CamX = pose.LookAtX + x * factor;
    pose.CamY = pose.LookAtY + y * factor;
    pose.CamZ = pose.LookAtZ + z * factor;
    change(pose);
}

} // namespace viewer
