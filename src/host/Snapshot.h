// SPDX-License-Identifier: MIT
#pragma once

#include "host/GameFiles.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// The folders as one long command sees them: each is listed once, when something in it is first
/// looked for, and then taken for true as long as the snapshot lives. Finds what GameFiles finds,
/// but asks the disk no more about names that it has seen. Safe to use from several threads.
class Snapshot
{
public:
    /// `files` must outlive the snapshot.
    explicit Snapshot(GameFiles &files);
    ~Snapshot();
    Snapshot(const Snapshot &) = delete;
    Snapshot &operator=(const Snapshot &) = delete;

    /// The members of GameFiles of these names; the file is given as a game path, too.
    std::optional<std::string> FindFile(std::string_view path);
    bool FileExists(std::string_view path);
    bool FolderExists(std::string_view path);
    /// True for a folder that is there, but whose names cannot be read; it is searched as if it
    /// were empty.
    bool IsClosed(std::string_view folder);
    std::string ReadFile(std::string_view path);
    /// The same, but nothing when there is no such file.
    std::optional<std::string> TryReadFile(std::string_view path);
    /// What tells files apart, however their paths are spelled, as long as the snapshot lives; null
    /// for one that is not there or that no listing shows.
    const void *IdentityOf(std::string_view path);
    std::vector<std::string> ListFiles(std::string_view folder, std::string_view pattern);
    std::vector<std::string> ListFolders(std::string_view folder, std::string_view pattern = "*");

private:
    class Places;
    GameFiles &m_files;
    std::unique_ptr<Places> m_places;
};

} // namespace host
