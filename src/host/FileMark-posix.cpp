// SPDX-License-Identifier: MIT
#include "host/Disk-posix.h"
#include "host/FileMark.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace host {

/// The folder itself needs no handle, which would cost two more system calls.
struct MarkedFolder::Open
{
    int Handle()
    {
        if (!handle)
            handle.emplace(open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        return handle->Number();
    }

    std::string path;
    std::optional<disk::Handle> handle = std::nullopt;
};

MarkedFolder::MarkedFolder(const std::string &path)
    : m_open(std::make_unique<Open>(Open{path}))
{
}

MarkedFolder::~MarkedFolder() = default;

std::optional<FileMark> MarkedFolder::Mark() const
{
    struct stat status = {};
    if (stat(m_open->path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode))
        return std::nullopt;
    return FileMark(disk::StampOf(status), 0);
}

std::optional<FileMark> MarkedFolder::MarkOf(const std::string &name) const
{
    struct stat status = {};
    if (fstatat(m_open->Handle(), name.c_str(), &status, 0) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return FileMark(disk::StampOf(status), static_cast<std::uint64_t>(status.st_size));
}

} // namespace host
