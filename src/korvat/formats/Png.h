// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/formats/ByteReader.h"

#include <string>

namespace korvat {

/// Returns the bytes of a PNG file with 8 bits each of red, green, blue and alpha. `rgba` has width
/// x height x 4 bytes, from the top row down. Neither side may be 0.
std::string EncodePng(std::uint32_t width, std::uint32_t height, Bytes rgba);

} // namespace korvat
