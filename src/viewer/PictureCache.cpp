// SPDX-License-Identifier: MIT
#include "viewer/PictureCache.h"

#include "host/CheckedParts.h"
#include "host/Disk.h"
#include "host/FilesUsed.h"
#include "host/Folders.h"
#include "host/Leftovers.h"
#include "host/Path.h"
#include "host/Replace.h"
#include "host/Text.h"
#include "viewer/VehicleScene.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

namespace viewer {
namespace {

constexpr std::string_view kKind = "picture", kExtension = ".picture";
constexpr std::uint64_t kLargestFile = 16u << 20; ///< far above any picture of this program

std::string keyOf(const PictureCache::Subject &subject)
{
    const Reading &reading = subject.reading;
    return std::to_string(VehicleScene::kVersion) + ' ' + std::to_string(subject.width) + 'x' +
           std::to_string(subject.height) + ' ' +
           (reading.profile == content::Profile::OpenRails ? 'o' : 'm') +
           (reading.allAdded ? "a" : "") + (subject.dark ? "d " : " ") +
           host::path::Absolute(subject.stockFile);
}

struct KeptFile
{
    std::filesystem::path path;
    std::filesystem::file_time_type time;
    std::uint64_t size = 0;
};

std::vector<KeptFile> filesIn(const std::string &folder)
{
    std::vector<KeptFile> files;
    std::error_code error;
    std::filesystem::directory_iterator entry(host::path::ToDisk(folder), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        std::error_code gone; // another process may remove files
        if (entry->path().extension() != kExtension || !entry->is_regular_file(gone))
            continue;
        const KeptFile file{entry->path(), entry->last_write_time(gone), entry->file_size(gone)};
        if (!gone)
            files.push_back(file);
    }
    return files;
}

/// Does not flush: a torn file is recognised by its checksums.
std::optional<host::disk::Failure> write(const std::string &path, std::string_view bytes)
{
    host::disk::Replacement file;
    if (auto failure = file.Prepare(path, bytes))
        return failure;
    return file.Commit({});
}

} // namespace

PictureCache::PictureCache(std::string folder, std::uint64_t limit)
    : m_folder(std::move(folder))
    , m_limit(limit)
{
}

std::string PictureCache::UserFolder()
{
    return host::path::Join(host::CacheFolder(), "zelk/pictures");
}

std::string PictureCache::fileOf(const std::string &key) const
{
    return host::disk::Join(m_folder, host::Fingerprint(key) + std::string(kExtension));
}

std::optional<std::string> PictureCache::Find(host::GameFiles &files, const Subject &subject) const
{
    const std::string key = keyOf(subject);
    std::string bytes;
    if (m_folder.empty() || host::disk::Read(fileOf(key), kLargestFile, bytes))
        return std::nullopt;
    const host::CheckedParts kept = host::SplitParts(kKind, bytes);
    if (!kept.whole || kept.parts.size() != 3 || kept.parts[0] != key ||
        !host::FilesUsed::Holds(files, kept.parts[1]))
        return std::nullopt;
    return std::string(kept.parts[2]);
}

void PictureCache::Keep(const Subject &subject, std::string_view record, std::string_view picture)
{
    const std::lock_guard lock(m_mutex);
    if (m_folder.empty() || m_gaveUp || record.empty())
        return;
    if (!m_begun)
        begin();
    const std::string key = keyOf(subject);
    const std::string bytes = host::JoinParts(kKind, {key, record, picture});
    if (const auto failure = write(fileOf(key), bytes)) {
        giveUp(failure->reason);
        return;
    }
    m_size += bytes.size(); // counts a replaced picture twice, until the next removal
    if (m_size > m_limit)
        removeOldest();
}

void PictureCache::begin()
{
    m_begun = true;
    host::disk::MakeFolders(m_folder); // if that fails, so does the writing
    host::disk::RemoveLeftovers(m_folder);
    for (const KeptFile &file : filesIn(m_folder))
        m_size += file.size;
}

/// Removes a quarter, so that this happens rarely.
void PictureCache::removeOldest()
{
    std::vector<KeptFile> files = filesIn(m_folder);
    std::sort(files.begin(), files.end(),
              [](const KeptFile &a, const KeptFile &b) { return a.time < b.time; });
    m_size = 0;
    for (const KeptFile &file : files)
        m_size += file.size;
    for (const KeptFile &file : files) {
        if (m_size <= m_limit / 4 * 3)
            return;
        std::error_code error;
        std::filesystem::remove(file.path, error);
        if (!error)
            m_size -= file.size;
    }
}

void PictureCache::giveUp(const std::string &reason)
{
    m_gaveUp = true;
    host::AppendTraceLine("Pictures of vehicles are not kept: " + m_folder + ": " + reason);
}

} // namespace viewer
