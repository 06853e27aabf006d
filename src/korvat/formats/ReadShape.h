// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/formats/Shape.h"

#include <string_view>

namespace korvat {

/// Reads a shape in any of its forms. Never throws on content; takes memory and time in proportion
/// to the size of the file. The error is NotThisFormat when the bytes are not a shape.
ShapeFile ReadShape(std::string_view bytes);

} // namespace korvat
