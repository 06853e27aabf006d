// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/draw/Device.h"

#include <span>

namespace korvat {

/// Turns the light and the sky of a frame into those of a clear night with a high moon. Of the
/// cones, takes as many as a frame can hold.
void Darken(FrameSetup &setup, std::span<const LightCone> cones);

} // namespace korvat
