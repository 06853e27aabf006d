// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace host {
class GameFiles;
}

namespace korvat {

/// Returns the game path of the existing file for an image that a shape names; nothing if there is
/// none. Searches the shape's folder, then `texturePath` relative to it (such as "..\textures\"),
/// ignoring letter case. In each folder, a .dds replaces a missing .ace and the reverse.
std::optional<std::string> FindTexture(host::GameFiles &files, std::string_view shapeFile,
                                       std::string_view texturePath, std::string_view image);

} // namespace korvat
