// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/draw/Device.h"

#include <array>
#include <span>
#include <vector>

namespace korvat {

/// An object that casts shadows: the box and the bounding sphere of its model, and its place.
struct Caster
{
    Bounds box;
    Sphere bounds; ///< in the world
    Transform world;
};

/// The shadow maps of a frame, and the positions of the casters that each of them must draw.
struct ShadowFit
{
    std::array<ShadowMap, kShadowMaps> maps;
    std::array<std::vector<std::size_t>, kShadowMaps> casters;
};

/// Fits shadow maps to the part of the casters that the camera sees, so that their pixels are as
/// small as possible. A map covers all shadows between its distances, also those of casters beside
/// or behind the camera. There are no shadows in the densest part of the haze.
ShadowFit FitShadows(const FrameSetup &setup, std::span<const Caster> casters);

} // namespace korvat
