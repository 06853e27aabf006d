// SPDX-License-Identifier: MIT
#include "host/OwnedFiles.h"

#include "host/Disk.h"
#include "host/Leftovers.h"
#include "host/Path.h"
#include "host/Replace.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace host {
namespace {

OwnedFiles::Owner ownerOf(const disk::Writer &writer, const disk::Writer &self)
{
    using Owner = OwnedFiles::Owner;
    if (writer.machine != self.machine)
        return Owner::Elsewhere;
    if (writer == self)
        return Owner::Self;
    return disk::MayRun(writer) ? Owner::Running : Owner::Ended;
}

} // namespace

OwnedFiles::OwnedFiles(std::string folder, std::string kind)
    : m_folder(std::move(folder))
    , m_kind(std::move(kind))
{
}

std::string OwnedFiles::NewPath() const
{
    static std::atomic<unsigned> counter = 0;
    const std::string name = disk::TemporaryName(disk::ThisProcess(), counter++);
    return disk::Join(m_folder, m_kind + name + ".tmp");
}

std::vector<OwnedFiles::File> OwnedFiles::List() const
{
    std::vector<File> files;
    const auto listing = disk::List(m_folder);
    if (!listing)
        return files;
    const disk::Writer self = disk::ThisProcess();
    for (const disk::ListedName &listed : listing->names) {
        if (!listed.name.starts_with(m_kind))
            continue;
        if (const auto writer = disk::WriterOf(std::string_view(listed.name).substr(m_kind.size())))
            files.push_back({disk::Join(m_folder, listed.name), ownerOf(*writer, self)});
    }
    std::sort(files.begin(), files.end(),
              [](const File &a, const File &b) { return a.path < b.path; });
    return files;
}

std::optional<std::string> OwnedFiles::TakeOver(const std::string &path) const
{
    std::string own = NewPath();
    if (disk::Rename(path, own))
        return std::nullopt;
    return own;
}

std::string OwnedFiles::Retired(const std::string &path, const std::string &word) const
{
    const std::string_view name = path::FileName(path);
    return disk::Join(m_folder, word + std::string(name.substr(m_kind.size())));
}

} // namespace host
