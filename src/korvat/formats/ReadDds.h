// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/formats/Texture.h"

#include <string_view>

namespace korvat {

/// Reads a DDS texture, with the contract of ReadTexture.
TextureFile ReadDds(std::string_view bytes);

} // namespace korvat
