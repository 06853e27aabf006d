// SPDX-License-Identifier: MIT
#pragma once

#include "content/FileStore.h"
#include "content/References.h"

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace content {

/// Finds the textures of seasons and of the night. Assumes that files do not change meanwhile. Use
/// it on one thread only.
class SeasonTextures
{
public:
    /// `files` must outlive this object.
    explicit SeasonTextures(host::GameFiles &files);

    /// Returns the game path of the texture that replaces an image of a shape. `folders` are the
    /// names of the folders of seasons, such as "Winter", the best first; those that the shape's
    /// descriptor does not allow are ignored. Returns nothing if the plain texture is to be shown.
    std::optional<std::string> Find(const std::string &shapeFile, const std::string &image,
                                    std::span<const std::string_view> folders);

private:
    std::uint32_t alternativesOf(const std::string &shapeFile);
    std::optional<std::string> find(const Reference &reference, const std::string &shapeFile);

    host::Snapshot m_folders;
    FileStore m_store{m_folders};
    std::map<std::string, std::uint32_t> m_alternatives; ///< by shape file
};

} // namespace content
