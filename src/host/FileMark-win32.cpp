// SPDX-License-Identifier: MIT
#include "host/Disk-win32.h"
#include "host/FileMark.h"
#include "host/Windows-win32.h"

namespace host {

struct MarkedFolder::Open
{
    std::string path;
};

namespace {

/// Asks the file itself: Windows does not update the copies in the folder while a file is open.
std::optional<FileMark> markOf(const std::string &path, bool isFolder)
{
    const std::wstring system = disk::SystemPath(path);
    if (system.empty() || disk::IsDevice(system))
        return std::nullopt;
    const disk::Handle file(CreateFileW(system.c_str(), FILE_READ_ATTRIBUTES,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                        nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS,
                                        nullptr));
    if (!file)
        return std::nullopt;
    const auto mark = disk::MarkOf(file.Get());
    if (!mark || mark->isFolder != isFolder)
        return std::nullopt;
    return FileMark(mark->stamp, isFolder ? 0 : mark->size);
}

} // namespace

MarkedFolder::MarkedFolder(const std::string &path)
    : m_open(std::make_unique<Open>(Open{path}))
{
}

MarkedFolder::~MarkedFolder() = default;

std::optional<FileMark> MarkedFolder::Mark() const
{
    return markOf(m_open->path, true);
}

std::optional<FileMark> MarkedFolder::MarkOf(const std::string &name) const
{
    return markOf(disk::Join(m_open->path, name), false);
}

} // namespace host
