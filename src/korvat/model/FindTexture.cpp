// SPDX-License-Identifier: MIT
#include "korvat/model/FindTexture.h"

#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/Text.h"

#include <vector>

namespace korvat {
namespace {

/// Returns the name with .dds for .ace or the reverse; "" for other names.
std::string otherForm(std::string_view image)
{
    if (image.size() < 4)
        return {};
    const std::string_view stem = image.substr(0, image.size() - 4);
    const std::string_view extension = image.substr(stem.size());
    if (host::EqualsNoCase(extension, ".ace"))
        return std::string(stem) + ".dds";
    if (host::EqualsNoCase(extension, ".dds"))
        return std::string(stem) + ".ace";
    return {};
}

} // namespace

std::optional<std::string> FindTexture(host::GameFiles &files, std::string_view shapeFile,
                                       std::string_view texturePath, std::string_view image)
{
    if (image.empty())
        return std::nullopt;
    const std::string own(host::path::FolderWithSeparator(shapeFile));
    const std::string other = otherForm(image);
    std::vector<std::string> folders = {own};
    if (!texturePath.empty())
        folders.push_back(own.empty() ? std::string(texturePath)
                                      : host::path::Join(own, texturePath));
    for (const std::string &folder : folders) {
        for (const std::string_view name : {image, std::string_view(other)}) {
            if (name.empty())
                continue;
            std::string path = folder.empty() ? std::string(name) : host::path::Join(folder, name);
            if (files.FileExists(path))
                return path;
        }
    }
    return std::nullopt;
}

} // namespace korvat
