// SPDX-License-Identifier: MIT
#include "content/SeasonTextures.h"

#include "content/Resolver.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/Text.h"

namespace content {

SeasonTextures::SeasonTextures(host::GameFiles &files)
    : m_folders(files)
{
}

std::uint32_t SeasonTextures::alternativesOf(const std::string &shapeFile)
{
    const auto known = m_alternatives.find(shapeFile);
    if (known != m_alternatives.end())
        return known->second;
    std::uint32_t alternatives = 0;
    if (const auto descriptor = m_folders.FindFile(shapeFile + 'd'))
        if (const ReadResult read = m_store.Read(*descriptor); read.source)
            alternatives = AlternativeTextures(*read.source);
    return m_alternatives[shapeFile] = alternatives;
}

std::optional<std::string> SeasonTextures::Find(const std::string &shapeFile,
                                                const std::string &image,
                                                std::span<const std::string_view> folders)
{
    const std::uint32_t alternatives = alternativesOf(shapeFile);
    if (alternatives == 0 || image.size() > kMaxNameLength)
        return std::nullopt;
    const std::vector<Reference> references = ReferencesOfShape({image}, alternatives);
    for (const std::string_view folder : folders)
        for (const Reference &reference : references)
            if (reference.kind == Kind::SeasonTexture && reference.name.folder == folder)
                if (auto path = find(reference, shapeFile))
                    return path;
    return std::nullopt;
}

/// Looks in the places of Open Rails, which include those of MSTS, because a plain texture too is
/// shown in either form.
std::optional<std::string> SeasonTextures::find(const Reference &reference,
                                                const std::string &shapeFile)
{
    const std::string own = FolderOfPath(shapeFile);
    const Context context{shapeFile, {}, {}, own, PathIn(own, "../TEXTURES")};
    const InstallFolders none;
    const Resolution found = Resolver(m_store, none).Resolve(reference, context)[1];
    // The last places hold the plain texture.
    const std::string folder(host::path::FileName(FolderOfPath(found.foundAt)));
    return host::EqualsNoCase(folder, reference.name.folder) ? std::optional(found.foundAt)
                                                             : std::nullopt;
}

} // namespace content
