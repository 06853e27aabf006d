// SPDX-License-Identifier: MIT
#pragma once

namespace viewer {

/// The commands that move the camera of a 3D view.
enum class CameraCommand
{
    ShowAll,
    FromFront,
    FromRear,
    FromAbove,
    FromOtherSide
};

} // namespace viewer
