// SPDX-License-Identifier: MIT
#include "host/Disk-posix.h"
#include "host/FileMark.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace host {

struct MarkedFolder::Open
{
    explicit Open(const std::string &path)
        : handle(open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC))
    {
    }

    disk::Handle handle;
};

MarkedFolder::MarkedFolder(const std::string &path)
    : m_open(std::make_unique<Open>(path))
{
}

MarkedFolder::~MarkedFolder() = default;

std::optional<FileMark> MarkedFolder::Mark() const
{
    struct stat status = {};
    if (!m_open->handle || fstat(m_open->handle.Number(), &status) != 0)
        return std::nullopt;
    return FileMark(disk::StampOf(status), 0);
}

std::optional<FileMark> MarkedFolder::MarkOf(const std::string &name) const
{
    struct stat status = {};
    if (!m_open->handle || fstatat(m_open->handle.Number(), name.c_str(), &status, 0) != 0 ||
        !S_ISREG(status.st_mode))
        return std::nullopt;
    return FileMark(disk::StampOf(status), static_cast<std::uint64_t>(status.st_size));
}

} // namespace host
