// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/formats/Texture.h"

namespace korvat {

/// Adds the smaller levels to a compressed texture that has a single level, in the same format, so
/// that it does not shimmer in the distance. That adds a third to its data. Leaves other textures
/// unchanged: graphics devices make the smaller levels of uncompressed ones.
///
/// Levels of DXT1 with holes keep the share of solid pixels, so that fences neither vanish nor
/// become walls.
void MakeSmallerLevels(Texture &texture);

} // namespace korvat
