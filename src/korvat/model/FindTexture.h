// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace host {
class GameFiles;
}

namespace korvat {

/// Where the image that a shape names is: the game path of a file that exists, or nothing. Looked
/// for in the shape's own folder, then in `texturePath` relative to it (such as "..\textures\"),
/// letter case ignored; in each, a .dds takes the place of a missing .ace and the other way round.
std::optional<std::string> FindTexture(host::GameFiles &files, std::string_view shapeFile,
                                       std::string_view texturePath, std::string_view image);

} // namespace korvat
