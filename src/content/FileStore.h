// SPDX-License-Identifier: MIT
#pragma once

#include "host/SharedWork.h"
#include "host/Snapshot.h"
#include "stavfile/Source.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace content {

/// The content of a structured file, or the reason why it cannot be read.
struct ReadResult
{
    std::shared_ptr<const stavfile::Source> source; ///< null if the file cannot be read
    std::string fault; ///< a sentence without a full stop; "" if there is none
};

/// The files of an installation during one run. Each folder is listed once, and each file that
/// others include is parsed once. Thread-safe.
class FileStore
{
public:
    /// `folders` must outlive this object.
    explicit FileStore(host::Snapshot &folders)
        : m_folders(folders)
    {
    }

    /// Called on any thread with the path of each file before it is read. Set it before the first
    /// read.
    std::function<void(const std::string &path)> FileRead;

    host::Snapshot &Folders() const { return m_folders; }
    /// Reads a structured file, which may be compressed. `path` is one that FindFile returned.
    /// Never throws, even if the file has vanished since.
    ReadResult Read(const std::string &path) const;
    /// Like Read, but parses each file once and keeps the result.
    std::shared_ptr<const ReadResult> ReadShared(const std::string &path);
    /// Like Snapshot::FindFile, but remembers which folders do not exist: most stock folders have
    /// no OpenRails folder, and many have no SOUND folder.
    std::optional<std::string> Find(const std::string &path);
    /// Returns the bytes of a file. If it cannot be read, returns "" and sets `fault`.
    std::string Bytes(const std::string &path, std::string &fault) const;

private:
    /// A folder that may not exist.
    struct Sought
    {
        bool isAbsent = false;
        host::Dependencies dependencies;
    };
    std::shared_ptr<const Sought> lookFor(std::string_view folder);
    bool isAbsent(std::string_view folder);

    host::Snapshot &m_folders;
    host::SharedTable<std::shared_ptr<const Sought>> m_sought; ///< by folder
    host::SharedWork<ReadResult> m_kept;                       ///< by path
};

/// Reads a structured file from its bytes, which may be compressed.
ReadResult ParseFile(std::string bytes);

} // namespace content
