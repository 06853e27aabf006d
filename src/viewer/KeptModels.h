// SPDX-License-Identifier: MIT
#pragma once

#include "host/Disk.h"
#include "korvat/model/ModelSource.h"

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace host {
class GameFiles;
}

namespace viewer {

/// Where a file is on the disk and in which state; any change to the file changes it.
struct FileOnDisk
{
    std::string place; ///< "" if there is no such file
    std::optional<host::disk::Stamp> stamp;
    std::uintmax_t size = 0; ///< for file systems with a coarse clock

    static FileOnDisk Of(host::GameFiles &files, const std::string &path);
    friend bool operator==(const FileOnDisk &, const FileOnDisk &) = default;
};

/// The shapes and textures of one scene. Remembers their files, to find out which of them have
/// changed, and what was last read from them: if a file can no longer be read, for example because
/// another program is writing it, requests return its last good content. Looks for a file again
/// only when TakeChanges has found a change. Thread-safe.
class KeptModels : public korvat::ModelSource
{
public:
    /// Both must outlive this object.
    KeptModels(korvat::ModelSource &source, host::GameFiles &files);

    korvat::LoadedModel LoadModel(const std::string &path) override { return LoadLevel(path, 1); }
    korvat::LoadedModel LoadLevel(const std::string &path, int level) override;
    korvat::LoadedTexture LoadTexture(const std::string &shapeFolder,
                                      const std::string &texturePath,
                                      const std::string &name) override;

    /// Return the keys of a shape and of a texture.
    static std::string KeyOf(const std::string &shape) { return shape; }
    static std::string KeyOf(const std::string &shapeFolder, const std::string &texture);
    /// Returns the keys of the files that have changed, appeared or vanished since they were read,
    /// or since the last call.
    std::set<std::string> TakeChanges();
    /// Returns why requests since the last call returned old content, a sentence for each file.
    std::vector<std::string> TakeProblems();
    /// Adds the files to watch and their folders, as paths on the disk.
    void AddPlaces(std::set<std::string> &places);
    /// Forgets everything, before a new scene.
    void Clear();

private:
    struct Shape
    {
        FileOnDisk file;
        std::map<int, std::shared_ptr<const korvat::Model>>
            models;             ///< the last good ones, by level
        bool isCurrent = false; ///< no change of the file is known since it was read
    };
    struct Picture
    {
        std::string folder, texturePath, name;
        FileOnDisk file;
        korvat::TexturePtr texture; ///< the last good one; null for none
        bool isCurrent = false;     ///< no change of the file is known since it was read
    };
    FileOnDisk stateOf(const Picture &picture);
    template <typename Entry>
    std::optional<Entry> current(const std::map<std::string, Entry> &entries,
                                 const std::string &key);
    template <typename Entry, typename State>
    void watch(std::map<std::string, Entry> &entries, const std::string &key, State state);

    korvat::ModelSource &m_source;
    host::GameFiles &m_files;
    std::mutex m_mutex; ///< guards the rest
    std::map<std::string, Shape> m_shapes;
    std::map<std::string, Picture> m_pictures;
    std::vector<std::string> m_problems;
};

} // namespace viewer
