// SPDX-License-Identifier: MIT
#include "document/UnsavedConsist.h"

#include "document/ConsistTree.h"
#include "host/CheckedParts.h"
#include "host/Disk.h"
#include "host/Folders.h"
#include "host/GameFiles.h"
#include "host/Number.h"
#include "host/OwnedFiles.h"
#include "host/Path.h"
#include "host/Replace.h"

#include <chrono>
#include <exception>
#include <system_error>
#include <utility>

namespace document {
namespace {

constexpr std::string_view kKind = "unsaved";

host::OwnedFiles filesIn(const std::string &folder)
{
    return {folder, std::string(kKind)};
}

std::string bytesOf(const UnsavedConsist &consist)
{
    const std::string time = std::to_string(consist.time);
    return host::JoinParts(kKind, {consist.path, consist.title, time,
                                   consist.changedOnDisk ? "changed" : "", consist.bytes});
}

std::optional<UnsavedConsist> consistIn(std::string_view bytes)
{
    const host::CheckedParts read = host::SplitParts(kKind, bytes);
    if (!read.whole || read.parts.size() != 5)
        return std::nullopt;
    const auto time = host::NumberIn<std::int64_t>(read.parts[2]);
    return UnsavedConsist{std::string(read.parts[0]), std::string(read.parts[1]), time.value_or(0),
                          !read.parts[3].empty(), std::string(read.parts[4])};
}

/// Returns the file and the reason if the file cannot be written.
std::string written(const std::string &folder, const std::string &path, const std::string &bytes)
{
    auto failure = host::disk::MakeFolders(folder);
    if (!failure)
        failure = host::disk::Replace(path, bytes);
    return failure ? path + ": " + failure->reason : std::string();
}

/// True if the file of a consist was changed after a time.
bool isNewer(const std::string &path, std::int64_t time)
{
    host::GameFiles files;
    const auto onDisk = files.FindFile(path);
    const auto stamp = onDisk ? host::disk::StampOf(host::path::FromDisk(*onDisk)) : std::nullopt;
    return stamp && stamp->modified > time;
}

} // namespace

RecoveryFile::RecoveryFile(std::string folder)
    : m_folder(std::move(folder))
{
}

RecoveryFile::~RecoveryFile()
{
    Drop();
}

std::string RecoveryFile::DefaultFolder()
{
    return host::path::Join(host::StateFolder(), "zelk/unsaved");
}

bool RecoveryFile::IsWriting() const
{
    using namespace std::chrono_literals;
    return m_writing.valid() && m_writing.wait_for(0s) != std::future_status::ready;
}

std::string RecoveryFile::TakeFailure()
{
    return IsWriting() ? std::string() : Finish();
}

bool RecoveryFile::Keep(UnsavedConsist consist)
{
    if (IsWriting())
        return false;
    if (m_path.empty())
        m_path = filesIn(m_folder).NewPath();
    try {
        m_writing = std::async(std::launch::async,
                               [folder = m_folder, path = m_path, kept = std::move(consist)] {
                                   return written(folder, path, bytesOf(kept));
                               });
    } catch (const std::system_error &) {
        return false; // there are too many threads at this moment
    }
    return true;
}

void RecoveryFile::Drop()
{
    Finish();
    if (!m_path.empty())
        host::disk::Remove(m_path);
    m_path.clear();
}

std::string RecoveryFile::Finish()
{
    try {
        return m_writing.valid() ? m_writing.get() : std::string();
    } catch (const std::exception &error) {
        return m_path + ": " + error.what();
    }
}

UnsavedConsist UnsavedStateOf(const ConsistTree &consist, const std::string &path,
                              const std::string &title)
{
    return {path, title, host::disk::Now(), consist.ChangedOnDisk(path),
            consist.Document().ToBytes()};
}

LostConsists::LostConsists(const std::string &folder)
{
    const host::OwnedFiles files = filesIn(folder);
    for (const host::OwnedFiles::File &file : files.List()) {
        if (file.owner != host::OwnedFiles::Owner::Ended)
            continue;
        std::string bytes;
        if (host::disk::Read(file.path, host::GameFiles::kReadLimit, bytes))
            continue;
        auto consist = consistIn(bytes);
        if (consist && isNewer(consist->path, consist->time))
            consist->changedOnDisk = true;
        auto own = consist ? files.TakeOver(file.path) : std::nullopt;
        if (!own)
            continue;
        m_consists.push_back(std::move(*consist));
        m_paths.push_back(std::move(*own));
    }
}

void LostConsists::Drop(std::size_t index)
{
    host::disk::Remove(m_paths[index]);
}

} // namespace document
