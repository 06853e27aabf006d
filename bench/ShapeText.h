// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

namespace bench {

/// A generated tree with the structure and the numbers of a shape file, in several notations. All
/// are UTF-16LE with BOM.
struct ShapeText
{
    std::string structured; ///< as a shape file; has at least the requested number of bytes
    std::string xml;        ///< an element per block, its values one text: <point>1.5 0 2</point>
    std::string xmlValues;  ///< as xml, but an element per value: <point><v>1.5</v>...
};
ShapeText MakeShapeText(std::size_t bytes);

/// Returns a consist of about this many bytes, UTF-16LE with BOM.
std::string MakeConsistText(std::size_t bytes);

} // namespace bench
