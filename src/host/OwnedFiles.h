// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace host {

/// Files of one kind in a folder of the user's, each of which belongs to the process that its name
/// contains. So the files of killed processes are recognised. Taking one over is renaming it, so
/// that only one process gets it.
class OwnedFiles
{
public:
    /// `kind` is the beginning of the names, a word.
    OwnedFiles(std::string folder, std::string kind);

    const std::string &Folder() const { return m_folder; }
    /// Returns the path of a new file of this process.
    std::string NewPath() const;

    enum class Owner
    {
        Self,
        Running, ///< another process of this machine, which may still run
        Ended,
        Elsewhere ///< a process of another machine, in a shared folder
    };
    struct File
    {
        std::string path;
        Owner owner = Owner::Self;
    };
    /// Returns the files in the folder, sorted by name; none if it does not exist.
    std::vector<File> List() const;
    /// Makes a file one of this process and returns its new path; nothing if it is gone, because
    /// another process has taken it.
    std::optional<std::string> TakeOver(const std::string &path) const;
    /// Returns a path for a file of this kind that no process owns any more: the word and the rest
    /// of its name.
    std::string Retired(const std::string &path, const std::string &word) const;

private:
    const std::string m_folder, m_kind;
};

} // namespace host
