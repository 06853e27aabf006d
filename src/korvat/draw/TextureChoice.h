// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace korvat {

/// Chooses other textures than those that shapes name, such as the ones of a season.
class TextureChoice
{
public:
    virtual ~TextureChoice() = default;

    /// Returns the game path of the texture to show for an image of a shape; nothing for the one
    /// that the shape names.
    virtual std::optional<std::string> Instead(const std::string &shapeFile,
                                               const std::string &image) = 0;
};

} // namespace korvat
