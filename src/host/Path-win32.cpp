// SPDX-License-Identifier: MIT
#include "host/Path.h"

#include "host/Disk-win32.h"

namespace host::path {

const char kSeparator = '\\';

std::string FromDisk(const std::filesystem::path &path)
{
    return disk::Narrow(path.native());
}

std::filesystem::path ToDisk(std::string_view path)
{
    return disk::Wide(path);
}

} // namespace host::path
