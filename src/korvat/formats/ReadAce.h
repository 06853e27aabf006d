// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/formats/Texture.h"

#include <string_view>

namespace korvat {

/// Reads an ACE texture, with the contract of ReadTexture.
TextureFile ReadAce(std::string_view bytes);

} // namespace korvat
