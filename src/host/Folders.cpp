// SPDX-License-Identifier: MIT
#include "host/Folders.h"

#include "host/Disk.h"
#include "host/Path.h"

namespace host {

std::string WritableFolder(const std::string &preferred, const std::string &otherwise)
{
    if (disk::IsWritableFolder(preferred))
        return preferred;
    // When it cannot be made, whatever is written there says so with its own path.
    disk::MakeFolders(otherwise);
    return otherwise;
}

std::string ProgramFolder()
{
    return WritableFolder(ExecutableFolder(), path::Join(DataFolder(), "zelk"));
}

} // namespace host
