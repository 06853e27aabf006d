// SPDX-License-Identifier: MIT
#pragma once

#include "host/SharedWork.h"
#include "host/Snapshot.h"
#include "stavfile/Source.h"
#include "stavfile/StfFile.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace host {
class GameFiles;
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
    struct Buffers
    {
        std::string bytes;
        stavfile::Source source;
    };

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
    /// The bytes and records of a file, whose memory the next file uses.
    class Lent
    {
    public:
        explicit Lent(Content &content);
        ~Lent();
        Lent(const Lent &) = delete;
        Lent &operator=(const Lent &) = delete;

        const stavfile::Source &Source() const { return m_file->source; }
        std::string &Bytes() { return m_file->bytes; }

    private:
        friend class Content;
        Content &m_content;
        std::unique_ptr<Buffers> m_file;
    };
    /// Reads a file of a folder without making its tree. Returns false if there is no such file. A
    /// file that cannot be read has no blocks.
    static bool TryRead(host::Snapshot::Folder &folder, std::string_view name, Lent &lent);
    /// Like Read, into the bytes of `lent`.
    void Read(std::string_view path, Lent &lent) const;
    /// Returns the bytes of a file; throws RuntimeError like GameFiles::ReadFile.
    std::string Read(std::string_view path) const;
    StfFile TreeOf(std::string bytes) const;

    /// Return the files that the sound definition, or the cab view, of this path names; null if
    /// there is no such file.
    std::shared_ptr<const References> Sound(const std::string &path);
    std::shared_ptr<const References> CabView(const std::string &path);

private:
    /// A larger file's memory is not kept.
    static constexpr std::size_t kKeptText = 1u << 20;

    using Reader = void (*)(const StfFile &file, References &references);

    std::shared_ptr<const References> known(char kind, const std::string &path, Reader reader);
    References read(const std::string &path, Reader reader) const;

    host::GameFiles &m_files;
    host::Snapshot &m_snapshot;
    std::string m_folder;
    std::mutex m_mutex;
    std::vector<std::unique_ptr<Buffers>> m_spare; ///< for Lent
    std::size_t m_made = 0;                        ///< with those that are in use
    /// By kind and identity or, for files that no listing shows, by kind and path.
    host::SharedWork<References> m_known;
};

} // namespace validation
