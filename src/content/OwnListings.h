// SPDX-License-Identifier: MIT
#pragma once

#include "content/Resolver.h"
#include "host/GameFiles.h"
#include "host/Path.h"

#include <string>

namespace content {

/// An installation's files for work on other threads. The folders have their own listings, so that
/// the user interface never waits for this object.
struct OwnListings
{
    explicit OwnListings(const std::string &root)
        : folders(snapshot, host::path::Absolute(root))
    {
    }

    host::GameFiles files;
    host::Snapshot snapshot{files};
    FileStore store{snapshot};
    InstallFolders folders;
};

} // namespace content
