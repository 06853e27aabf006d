// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/formats/ByteReader.h"

#include <string>

namespace korvat {

/// The bytes of a PNG file with 8 bits of red, green, blue and alpha, from rows that begin at the
/// top; `rgba` has width x height x 4 bytes. Neither side may be 0.
std::string EncodePng(std::uint32_t width, std::uint32_t height, Bytes rgba);

} // namespace korvat
