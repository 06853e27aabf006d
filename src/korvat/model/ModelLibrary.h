// SPDX-License-Identifier: MIT
#pragma once

#include "host/Disk.h"
#include "korvat/model/ModelSource.h"

#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>

namespace host {
class GameFiles;
}

namespace korvat {

/// Loads shapes and textures from files. Does not read a file again while its model or texture is
/// in use, unless the file has changed; a thread that needs a file which another one is reading
/// waits for it. Thread-safe.
class ModelLibrary : public ModelSource
{
public:
    /// `files` must outlive the library.
    explicit ModelLibrary(host::GameFiles &files);

    LoadedModel LoadModel(const std::string &path) override { return LoadLevel(path, 1); }
    LoadedModel LoadLevel(const std::string &path, int level) override;
    LoadedTexture LoadTexture(const std::string &shapeFolder, const std::string &texturePath,
                              const std::string &name) override;

    /// Returns the substitute for a missing or broken texture: a conspicuous checker pattern.
    static TexturePtr Checker();
    /// Returns a texture in plain magenta, which can replace the checker pattern.
    static TexturePtr Magenta();

private:
    template <typename Thing> struct Known
    {
        host::disk::Stamp stamp;
        std::weak_ptr<const Thing> thing;
    };
    template <typename Thing> using Shelf = std::map<std::string, Known<Thing>>;

    Shelf<Model> &shelfOf(int level);
    /// The right to read a file, which one thread at a time has.
    class Turn
    {
    public:
        Turn(ModelLibrary &library, std::string place);
        ~Turn();
        Turn(const Turn &) = delete;
        Turn &operator=(const Turn &) = delete;

    private:
        ModelLibrary &m_library;
        std::string m_place;
    };

    template <typename Thing>
    std::shared_ptr<const Thing> find(const Shelf<Thing> &shelf, const std::string &place);
    template <typename Thing>
    void keep(Shelf<Thing> &shelf, const std::string &place,
              const std::shared_ptr<const Thing> &thing, const host::disk::Stamp &stamp);

    host::GameFiles &m_files;
    std::mutex m_mutex; ///< guards the following
    std::condition_variable m_read;
    std::set<std::string> m_reading;      ///< the files that are being read
    std::map<int, Shelf<Model>> m_models; ///< by level of detail
    Shelf<Texture> m_textures;
};

} // namespace korvat
