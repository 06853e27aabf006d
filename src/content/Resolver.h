// SPDX-License-Identifier: MIT
#pragma once

#include "content/FileStore.h"
#include "content/References.h"

#include <array>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace content {

/// The folders of an installation, spelled as on the disk. A folder that does not exist has the
/// path that it would have.
struct InstallFolders
{
    /// No installation: every folder is "".
    InstallFolders() = default;
    InstallFolders(host::Snapshot &folders, const std::string &root);

    std::string root, trainset, eot, consists, sound, routes;
};

/// The file and folders that the names of an entry are relative to.
struct Context
{
    std::string file;  ///< the file with the entry
    std::string stock; ///< the vehicle's folder; "" if there is none
    std::string route; ///< the route's folder; "" if there is none
    /// For a route's shape, the folder with its textures and another folder that may hold them.
    std::string textures = {}, otherTextures = {};
};

/// Paths of files by the Name inside them, in upper case.
using NamedFiles = std::map<std::string, std::string>;

/// The result of looking up a reference for one simulator.
struct Resolution
{
    Answer answer = Answer::Nowhere;
    std::string foundAt;             ///< spelled as on the disk; "" if it is not found
    std::vector<std::string> looked; ///< paths tried, in order; the last one is foundAt
    bool unquoted = false;           ///< Misplaced because a name with blanks has no quotes
    std::string candidate;           ///< the file that was meant, if unquoted
};

/// Looks up references. Thread-safe.
class Resolver
{
public:
    /// Both must outlive this object.
    Resolver(FileStore &store, const InstallFolders &folders)
        : m_store(store)
        , m_folders(folders)
    {
    }

    /// Returns the result for each profile. A file in another place still gets the answer Nowhere
    /// (content/Nearest.h finds it); only a name without quotes gets Misplaced. `named` holds the
    /// consists, or the services of the route, for the rules that search by Name.
    std::array<Resolution, 2> Resolve(const Reference &reference, const Context &context,
                                      const NamedFiles *named = nullptr) const;

    FileStore &Store() const { return m_store; }
    const InstallFolders &Folders() const { return m_folders; }

private:
    class Search;
    FileStore &m_store;
    const InstallFolders &m_folders;
};

} // namespace content
