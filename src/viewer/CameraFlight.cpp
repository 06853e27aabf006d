// SPDX-License-Identifier: MIT
#include "viewer/CameraFlight.h"

#include <cmath>
#include <numbers>

namespace viewer {
namespace {

constexpr float kTurn = 2 * std::numbers::pi_v<float>;

} // namespace

CameraFlight::CameraFlight(const CameraPose &from, const CameraPose &to)
    : m_from(from)
    , m_to(to)
    , m_start(orbitOf(from))
    , m_end(orbitOf(to))
{
    m_end.azimuth -= kTurn * std::round((m_end.azimuth - m_start.azimuth) / kTurn);
}

CameraFlight::Orbit CameraFlight::orbitOf(const CameraPose &pose)
{
    const float x = pose.CamX - pose.LookAtX, y = pose.CamY - pose.LookAtY,
                z = pose.CamZ - pose.LookAtZ;
    return {std::hypot(x, y, z), std::atan2(x, z), std::atan2(y, std::hypot(x, z))};
}

CameraPose CameraFlight::At(float part) const
{
    if (part >= 1)
        return m_to;
    if (part <= 0)
        return m_from;
    const float t = part * part * (3 - 2 * part);
    const float distance = std::lerp(m_start.distance, m_end.distance, t);
    const float azimuth = std::lerp(m_start.azimuth, m_end.azimuth, t);
    const float elevation = std::lerp(m_start.elevation, m_end.elevation, t);
    CameraPose pose;
    pose.LookAtX = std::lerp(m_from.LookAtX, m_to.LookAtX, t);
    pose.LookAtY = std::lerp(m_from.LookAtY, m_to.LookAtY, t);
    pose.LookAtZ = std::lerp(m_from.LookAtZ, m_to.LookAtZ, t);
    pose.CamX = pose.LookAtX + distance * std::cos(elevation) * std::sin(azimuth);
    pose.CamY = pose.LookAtY + distance * std::sin(elevation);
    pose.CamZ = pose.LookAtZ + distance * std::cos(elevation) * std::cos(azimuth);
    return pose;
}

} // namespace viewer
