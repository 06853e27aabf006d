// SPDX-License-Identifier: MIT
#include "host/Folders.h"

#include "host/Disk.h"
#include "host/Path.h"

namespace host {

std::string WritableFolder(const std::string &preferred, const std::string &otherwise)
{
    if (disk::IsWritableFolder(preferred))
        return preferred;
    // If that fails, every write there fails too and reports its own path.
    disk::MakeFolders(otherwise);
    return otherwise;
}

std::string ProgramFolder()
{
    return WritableFolder(ExecutableFolder(), path::Join(DataFolder(), "zelk"));
}

} // namespace host
