// SPDX-License-Identifier: MIT
#pragma once

#include "content/Resolver.h"

#include <atomic>
#include <string>
#include <unordered_map>
#include <vector>

namespace content {

/// Finds candidates for missing files. Walks the folders of the installation once for all of them,
/// and keeps only names that were announced.
class Nearest
{
public:
    /// Search ends early, with some candidates, once `stopped` is true.
    Nearest(host::Snapshot &folders, const InstallFolders &install,
            const std::atomic<bool> *stopped = nullptr)
        : m_folders(folders)
        , m_install(install)
        , m_stopped(stopped)
    {
    }

    /// Announces the path of a missing file.
    void Want(Kind kind, const std::string &path);
    /// Searches for all announced files.
    void Search();

    struct Candidates
    {
        bool isThere = false;    ///< the file exists in another folder or with another extension
        bool sameFolder = false; ///< it exists with another extension
        std::vector<std::string> paths; ///< nearest first, at most three
    };
    /// Returns the candidates for a path that was announced.
    Candidates For(Kind kind, const std::string &path);

private:
    void addFolder(const std::string &folder);
    void addTree(const std::string &folder, int depth);
    std::vector<std::string> similarNames(const std::string &path);

    host::Snapshot &m_folders;
    const InstallFolders &m_install;
    const std::atomic<bool> *m_stopped;
    std::unordered_map<std::string, std::vector<std::string>> m_places;  ///< by name in upper case
    std::unordered_map<std::string, std::vector<std::string>> m_similar; ///< by path
};

} // namespace content
