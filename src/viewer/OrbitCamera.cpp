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
constexpr float kBeside = 0.001f;       ///< tolerance for rounding, relative to the distance
constexpr float kStep = 0.9f;           ///< factor of the distance for one step forward
constexpr float kClosest = 1.0f;        ///< metres from the target
constexpr float kClosestToPoint = 0.5f; ///< metres from what is under the mouse

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

void OrbitCamera::changeBoth(const Vec3 &eye, const Vec3 &target)
{
    change({eye.x, eye.y, eye.z, target.x, target.y, target.z});
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

void OrbitCamera::ApproachPoint(const Vec3 &point, float steps, float farthest)
{
    const Vec3 eye{m_pose.CamX, m_pose.CamY, m_pose.CamZ};
    const Vec3 target{m_pose.LookAtX, m_pose.LookAtY, m_pose.LookAtZ};
    const float distance = Length(offset()), toPoint = Length(eye - point);
    if (distance == 0 || toPoint == 0)
        return;
    const float least = std::max(kClosest / distance, kClosestToPoint / toPoint);
    const float factor = std::clamp(std::pow(kStep, steps), std::min(least, 1.0f),
                                    std::max(farthest / distance, 1.0f));
    changeBoth(point + (eye - point) * factor, point + (target - point) * factor);
}

void OrbitCamera::Slide(const Vec3 &by)
{
    changeBoth(Vec3{m_pose.CamX, m_pose.CamY, m_pose.CamZ} + by,
               Vec3{m_pose.LookAtX, m_pose.LookAtY, m_pose.LookAtZ} + by);
}

void OrbitCamera::MoveTarget(const Vec3 &target)
{
    changeBoth(target + offset(), target);
}

void OrbitCamera::LookFrom(Side side)
{
    const float distance = Length(offset());
    switch (side) {
    case Side::Front:
        return changeOffset({0, 0, distance});
    case Side::Rear:
        return changeOffset({0, 0, -distance});
    case Side::Above:
        break;
    }
    changeOffset({distance * std::cos(kSteepest), distance * std::sin(kSteepest), 0});
}

void OrbitCamera::LookFromOtherSide()
{
    const Vec3 offset = this->offset();
    changeOffset({-offset.x, offset.y, -offset.z});
}

void OrbitCamera::ShowAll(std::span<const Vec3> points, const Vec3 &middle, float width,
                          float height)
{
    if (points.empty())
        return;
    const Sight sight(m_pose, width, height);
    const Vec3 eye = sight.NearestEye(points);
    const float depth = std::max(korvat::Dot(middle - eye, sight.Forward()), kClosest);
    changeBoth(eye, eye + sight.Forward() * depth);
}

float OrbitCamera::Distance() const
{
    return Length(offset());
}

} // namespace viewer
