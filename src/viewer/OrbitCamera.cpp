// SPDX-License-Identifier: MIT
#include "viewer/OrbitCamera.h"

#include "viewer/Numbers.h"

#include <algorithm>
#include <cmath>
#include <numbers>

using korvat::Length;
using korvat::Vec3;

namespace viewer {
namespace {

constexpr float kRadiansPerX = 1 / 200.0f, kRadiansPerY = 1 / 100.0f;
constexpr float kRadiansOverPerY = 1 / 200.0f, kMetresPerY = 1 / 100.0f;
constexpr float kSteepest = std::numbers::pi_v<float> / 2 - 0.001f; ///< radians above the target
constexpr float kBeside = 0.001f; ///< tolerance for rounding, relative to the distance
constexpr float kStep = 0.9f;     ///< factor of the distance for one step forward
constexpr float kClosest = 1.0f, kFarthest = 500.0f; ///< metres; the haze ends at 600

float signOf(float value)
{
    return value > 0 ? 1.0f : value < 0 ? -1.0f : 0.0f;
}

bool isBeside(const Vec3 &offset)
{
    return std::hypot(offset.y, offset.z) <= kBeside * std::abs(offset.x);
}

/// Changes how steeply the camera looks down on the target; keeps its distance and its side of the
/// target.
void tiltOver(float dy, Vec3 &offset)
{
    const float across = std::hypot(offset.x, offset.z), distance = Length(offset);
    const float steepness =
        std::clamp(std::atan2(offset.y, across) - dy * kRadiansOverPerY, -kSteepest, kSteepest);
    const float left = distance * std::cos(steepness);
    offset.x = across > 0 ? offset.x * left / across : left;
    offset.z = across > 0 ? offset.z * left / across : 0;
    offset.y = distance * std::sin(steepness);
}

} // namespace

void RotateInPlane(float angle, float &p, float &q)
{
    const float c = std::cos(angle), s = std::sin(angle);
    const float turnedP = p * c - q * s;
    q = p * s + q * c;
    p = turnedP;
}

korvat::Vec3 OrbitCamera::offset() const
{
    return {m_pose.CamX - m_pose.LookAtX, m_pose.CamY - m_pose.LookAtY,
            m_pose.CamZ - m_pose.LookAtZ};
}

void OrbitCamera::changeOffset(const Vec3 &offset)
{
    CameraPose pose = m_pose;
    pose.CamX = pose.LookAtX + offset.x;
    pose.CamY = pose.LookAtY + offset.y;
    pose.CamZ = pose.LookAtZ + offset.z;
    change(pose);
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
    Vec3 offset = this->offset();
    RotateInPlane(dx * kRadiansPerX, offset.x, offset.z);
    if (isBeside(offset))
        tiltOver(dy, offset);
    else // in the plane of Y and Z, not about the camera's own axis
        RotateInPlane(dy * kRadiansPerY, offset.y, offset.z);
    changeOffset(offset);
}

void OrbitCamera::OrbitOver(float dx, float dy)
{
    Vec3 offset = this->offset();
    RotateInPlane(dx * kRadiansPerX, offset.x, offset.z);
    tiltOver(dy, offset);
    changeOffset(offset);
}

bool OrbitCamera::IsBesideTarget() const
{
    return isBeside(offset());
}

void OrbitCamera::Pan(float dx, float dy)
{
    CameraPose pose = m_pose;
    const float rise = dy * kMetresPerY, s = signOf(dx);
    const Vec3 offset = this->offset();
    const float across = std::hypot(offset.x, offset.z);
    const float mx = across > 0 ? s * std::abs(offset.z) / across : 0;
    const float mz = across > 0 ? s * std::abs(offset.x) / across : s;
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
    pose.CamZ = z + offset().z;
    pose.LookAtZ = z;
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
    const Vec3 offset = this->offset();
    const float distance = Length(offset);
    if (distance == 0)
        return;
    const float wanted = std::clamp(distance * std::pow(kStep, steps), kClosest, kFarthest);
    changeOffset(offset * (wanted / distance));
}

} // namespace viewer
