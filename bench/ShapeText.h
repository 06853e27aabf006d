// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

namespace bench {

/// A generated tree in the structure and number style of a shape file, in several notations. All
/// are UTF-16LE with BOM.
struct ShapeText
{
    std::string structured; ///< as a shape file; has at least the wanted number of bytes
    std::string xml;        ///< a block an element, its values one text: <point>1.5 0 2</point>
    std::string xmlValues;  ///< the same with an element for each value: <point><v>1.5</v>...
};
ShapeText MakeShapeText(std::size_t bytes);

/// A consist of about this many bytes, UTF-16LE with BOM.
std::string MakeConsistText(std::size_t bytes);

} // namespace bench
