// SPDX-License-Identifier: MIT
#include "host/SavedIndex.h"

#include "host/Folders.h"
#include "host/IndexParts.h"
#include "host/Leftovers.h"
#include "host/Path.h"
#include "host/Product.h"
#include "host/Replace.h"
#include "host/Text.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

namespace host {
namespace {

constexpr std::string_view kExtension = ".index";
constexpr std::uint64_t kLargestFile = 256u << 20; ///< several times that of a large installation
constexpr std::size_t kMostFiles = 16;

/// Returns the beginning of the names of an installation's indexes.
std::string prefixOf(const std::string &root)
{
    return Fingerprint(path::Absolute(root)) + '-';
}

/// Does not flush: a torn file is recognised by its checksum.
bool write(const std::string &path, std::string_view bytes)
{
    disk::Replacement file;
    return !file.Prepare(path, bytes) && !file.Commit({});
}

/// Removes the oldest indexes, of installations that no longer exist or are not used.
void removeOldest(const std::string &folder)
{
    std::vector<std::pair<std::filesystem::file_time_type, std::filesystem::path>> files;
    std::error_code error;
    std::filesystem::directory_iterator entry(path::ToDisk(folder), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        std::error_code gone; // another process may remove files
        const auto time = entry->last_write_time(gone);
        if (!gone && entry->path().extension() == kExtension)
            files.emplace_back(time, entry->path());
    }
    std::sort(files.rbegin(), files.rend());
    for (std::size_t i = kMostFiles; i < files.size(); ++i)
        std::filesystem::remove(files[i].second, error);
}

} // namespace

SavedIndex::SavedIndex(Snapshot &snapshot, const IndexOptions &options, std::int64_t begin,
                       const std::string &root, const std::string &purpose)
    : m_options(options)
{
    const std::string identity = std::string(product::Version()) + '\n' + purpose + '\n' + root +
                                 '\n' + path::Absolute(root);
    m_file = disk::Join(options.folder,
                        prefixOf(root) + Fingerprint(identity) + std::string(kExtension));
    m_new = std::make_unique<New>(snapshot, path::Absolute(root), identity, begin);
    std::string bytes;
    if (!disk::Read(m_file, kLargestFile, bytes))
        m_old = Old::Of(snapshot, std::move(bytes), identity, begin);
}

SavedIndex::~SavedIndex() = default;

std::string SavedIndex::UserFolder()
{
    return path::Join(CacheFolder(), "zelk/index");
}

void SavedIndex::Forget(const std::string &folder, const std::string &root)
{
    const auto listing = disk::List(folder);
    if (!listing)
        return;
    for (const disk::ListedName &listed : listing->names)
        if (listed.name.starts_with(prefixOf(root)) && listed.name.ends_with(kExtension))
            disk::Remove(disk::Join(folder, listed.name));
}

std::optional<std::string_view> SavedIndex::Find(std::string_view key)
{
    return m_old ? m_old->Find(key, FactHolds) : std::nullopt;
}

void SavedIndex::Keep(std::string_view key, std::string_view value,
                      const Dependencies &dependencies)
{
    if (dependencies.isComplete)
        m_new->Add(key, value, dependencies);
}

std::uint32_t SavedIndex::FactOf(std::string_view text)
{
    return m_new->FactOf(text);
}

void SavedIndex::Save(Extent extent)
{
    if (m_old) {
        if (extent == Extent::Part)
            m_old->FindAll(FactHolds);
        if (m_new->IsEmpty() && m_old->IsCurrent())
            return;
        m_old->CopyTo(*m_new);
    }
    const std::string bytes = m_new->Pack(m_options.now());
    if (bytes.size() > kLargestFile || disk::MakeFolders(m_options.folder))
        return;
    disk::RemoveLeftovers(m_options.folder);
    if (write(m_file, bytes))
        removeOldest(m_options.folder);
}

} // namespace host
