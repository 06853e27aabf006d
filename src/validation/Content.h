// SPDX-License-Identifier: MIT
#pragma once

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

/// What a sound definition or a cab view names, in the order in which the checks go through it.
struct References
{
    struct File
    {
        std::string value; ///< as it stands in the file
        bool exists = false;
    };
    bool corrupt = false; ///< unreadable, or without the section that makes it what it is
    std::vector<File> files;
};

/// The files of the game as one check sees them. Every sound definition and cab view is read once,
/// however many vehicles use it. Safe to use from several threads.
class Content
{
public:
    /// Both must outlive this object. `folder` is that of the installation.
    Content(host::GameFiles &files, host::Snapshot &snapshot, std::string folder)
        : m_files(files)
        , m_snapshot(snapshot)
        , m_folder(std::move(folder))
    {
    }

    const std::string &Folder() const { return m_folder; }
    host::Snapshot &Listings() const { return m_snapshot; }
    bool Exists(std::string_view path) const;
    /// The tree of a file; RuntimeError as StfFile::Load.
    StfFile Load(std::string_view path) const;
    /// The same, with an empty tree where it cannot be read.
    StfFile TryLoad(std::string_view path) const;
    /// The same, but nothing where there is no such file.
    std::optional<StfFile> TryLoadExisting(std::string_view path) const;
    /// The bytes of a file; RuntimeError as GameFiles::ReadFile.
    std::string Read(std::string_view path) const;
    StfFile TreeOf(std::string bytes) const;

    /// What the sound definition, or the cab view, of this path names.
    std::shared_ptr<const References> Sound(const std::string &path);
    std::shared_ptr<const References> CabView(const std::string &path);

private:
    struct Known
    {
        std::once_flag once;
        std::shared_ptr<References> references;
    };
    using Reader = void (*)(const StfFile &file, References &references);

    std::shared_ptr<const References> known(char kind, const std::string &path, Reader reader);
    std::shared_ptr<References> read(const std::string &path, Reader reader) const;

    host::GameFiles &m_files;
    host::Snapshot &m_snapshot;
    std::string m_folder;
    std::mutex m_mutex;
    /// By kind and, of files that listings show, identity, else path.
    std::map<std::tuple<char, const void *, std::string>, std::shared_ptr<Known>> m_known;
};

} // namespace validation
