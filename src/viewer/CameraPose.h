// SPDX-License-Identifier: MIT
#pragma once

namespace viewer {

/// The position of a camera and the point that it looks at, in metres.
struct CameraPose
{
    float CamX = 0, CamY = 0, CamZ = 0;
    float LookAtX = 0, LookAtY = 0, LookAtZ = 0;

    friend bool operator==(const CameraPose &, const CameraPose &) = default;
};

} // namespace viewer
