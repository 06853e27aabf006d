// SPDX-License-Identifier: MIT
#pragma once

#include "host/Recording.h"
#include "stavfile/StfFile.h"

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace host {
class GameFiles;
class Snapshot;
} // namespace host

namespace validation {

/// Returns the path that a check builds of a folder and a name that a file holds: a separator at
/// the front of the name is kept.
std::string Below(std::string_view folder, std::string_view relative);

/// The files that a sound definition or a cab view names, in the order in which they are checked.
struct References
{
    struct File
    {
        std::string value; ///< as spelled in the file
        bool exists = false;
    };
    bool corrupt = false; ///< unreadable, or without the section that holds its content
    std::vector<File> files;
};

/// The files of the game as one check sees them. Reads every sound definition and cab view once,
/// however many vehicles use it. Thread-safe.
class Content
{
public:
    /// `files` and `snapshot` must outlive this object. `folder` is the installation folder.
    Content(host::GameFiles &files, host::Snapshot &snapshot, std::string folder)
        : m_files(files)
        , m_snapshot(snapshot)
        , m_folder(std::move(folder))
    {
    }

    const std::string &Folder() const { return m_folder; }
    host::Snapshot &Listings() const { return m_snapshot; }
    bool Exists(std::string_view path) const;
    /// Returns the tree of a file; throws RuntimeError like StfFile::Load.
    StfFile Load(std::string_view path) const;
    /// Like Load, but returns an empty tree if the file cannot be read.
    StfFile TryLoad(std::string_view path) const;
    /// Like TryLoad, but returns nothing if there is no such file.
    std::optional<StfFile> TryLoadExisting(std::string_view path) const;
    /// Returns the bytes of a file; throws RuntimeError like GameFiles::ReadFile.
    std::string Read(std::string_view path) const;
    StfFile TreeOf(std::string bytes) const;

    /// Return the files that the sound definition, or the cab view, of this path names.
    std::shared_ptr<const References> Sound(const std::string &path);
    std::shared_ptr<const References> CabView(const std::string &path);

private:
    struct Known
    {
        std::once_flag once;
        std::shared_ptr<References> references;
        host::Dependencies dependencies;
    };
    using Reader = void (*)(const StfFile &file, References &references);

    std::shared_ptr<const References> known(char kind, const std::string &path, Reader reader);
    std::shared_ptr<References> read(const std::string &path, Reader reader) const;

    host::GameFiles &m_files;
    host::Snapshot &m_snapshot;
    std::string m_folder;
    std::mutex m_mutex;
    /// By kind and identity or, for files that no listing shows, by kind and path.
    std::map<std::tuple<char, const void *, std::string>, std::shared_ptr<Known>> m_known;
};

} // namespace validation
