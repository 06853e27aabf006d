// SPDX-License-Identifier: MIT
#pragma once

#include "host/Disk.h"
#include "korvat/model/ModelSource.h"

#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace host {
class GameFiles;
}

namespace korvat {

/// Shapes and textures from files. A file that is in use is not read twice, unless it has changed
/// meanwhile. Safe to use from several threads.
class ModelLibrary : public ModelSource
{
public:
    /// `files` must outlive the library.
    explicit ModelLibrary(host::GameFiles &files);

    LoadedModel LoadModel(const std::string &path) override;
    LoadedTexture LoadTexture(const std::string &shapeFolder, const std::string &texturePath,
                              const std::string &name) override;

    /// What stands for a texture that is missing or broken: a clear checker pattern.
    static TexturePtr Checker();

private:
    template <typename Thing> struct Known
    {
        host::disk::Stamp stamp;
        std::weak_ptr<const Thing> thing;
    };
    template <typename Thing> using Shelf = std::map<std::string, Known<Thing>>;

    template <typename Thing>
    std::shared_ptr<const Thing> find(const Shelf<Thing> &shelf, const std::string &place);
    template <typename Thing>
    void keep(Shelf<Thing> &shelf, const std::string &place,
              const std::shared_ptr<const Thing> &thing, const host::disk::Stamp &stamp);

    host::GameFiles &m_files;
    std::mutex m_mutex; ///< of the shelves
    Shelf<Model> m_models;
    Shelf<Texture> m_textures;
};

} // namespace korvat
