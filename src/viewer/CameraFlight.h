// SPDX-License-Identifier: MIT
#pragma once

#include "viewer/CameraPose.h"

namespace viewer {

/// A smooth way for a camera from one pose to another. The camera turns about its target, and both
/// start and end slowly.
class CameraFlight
{
public:
    CameraFlight() = default;
    CameraFlight(const CameraPose &from, const CameraPose &to);

    /// Returns the pose after a part of the time, 0 at the start to 1 at the end.
    CameraPose At(float part) const;

private:
    /// A camera as seen from its target.
    struct Orbit
    {
        float distance = 0, azimuth = 0, elevation = 0;
    };
    static Orbit orbitOf(const CameraPose &pose);

    CameraPose m_from, m_to;
    Orbit m_start, m_end; ///< the azimuths differ by half a turn at most
};

} // namespace viewer
