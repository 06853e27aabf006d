// SPDX-License-Identifier: MIT
#include "host/Path.h"

namespace host::path {

const char kSeparator = '/';

std::string FromDisk(const std::filesystem::path &path)
{
    return path.native();
}

std::filesystem::path ToDisk(std::string_view path)
{
    return path;
}

} // namespace host::path
