// SPDX-License-Identifier: MIT
#include "korvat/draw/Night.h"

#include <algorithm>

namespace korvat {
namespace {

/// The share of the daylight that the sky keeps.
constexpr Tint kSkyShare = {0.085f, 0.095f, 0.15f, 1};

Tint darker(const Tint &colour)
{
    return {colour.r * kSkyShare.r, colour.g * kSkyShare.g, colour.b * kSkyShare.b, colour.a};
}

} // namespace

void Darken(FrameSetup &setup, std::span<const LightCone> cones)
{
    setup.toSun = Normalised({0.35f, 0.86f, 0.36f});
    setup.sun = {0.14f, 0.16f, 0.22f};
    setup.ambient = {0.115f, 0.13f, 0.185f};
    setup.ambientBelow = {0.07f, 0.075f, 0.09f};
    for (Tint *colour : {&setup.zenith, &setup.horizon, &setup.nadir})
        *colour = darker(*colour);
    setup.coneCount = std::min(cones.size(), kLightCones);
    std::copy_n(cones.begin(), setup.coneCount, setup.cones.begin());
}

} // namespace korvat
