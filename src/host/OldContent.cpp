// SPDX-License-Identifier: MIT
#include "host/OldContent.h"

#include "host/CheckedParts.h"
#include "host/Disk.h"
#include "host/Folders.h"
#include "host/GameFiles.h"
#include "host/OwnedFiles.h"
#include "host/Path.h"
#include "host/Replace.h"
#include "host/RuntimeError.h"

#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

namespace host {
namespace {

using MaybeFailure = std::optional<disk::Failure>;

constexpr const char *kKind = "overwrite", *kContent = "content";

[[noreturn]] void fail(const std::string &path, const disk::Failure &failure)
{
    throw RuntimeError(failure.number, path + ": " + failure.reason);
}

/// Renaming would move also a file that nobody may write.
bool isReadOnly(const std::string &path)
{
    using std::filesystem::perms;
    std::error_code error;
    const perms mode = std::filesystem::status(path::ToDisk(path), error).permissions();
    return !error &&
           (mode & (perms::owner_write | perms::group_write | perms::others_write)) == perms::none;
}

/// Copies a file, flushed, and deletes it.
MaybeFailure moveByCopy(const std::string &from, const std::string &to)
{
    std::string bytes;
    if (auto failure = disk::Read(from, GameFiles::kReadLimit, bytes))
        return failure;
    if (auto failure = disk::Replace(to, bytes))
        return failure;
    std::error_code error; // permissions that cannot be kept must not keep a user from saving
    const auto status = std::filesystem::status(path::ToDisk(from), error);
    if (!error)
        std::filesystem::permissions(path::ToDisk(to), status.permissions(), error);
    auto failure = disk::Remove(from);
    if (failure)
        disk::Remove(to);
    return failure;
}

MaybeFailure move(const std::string &from, const std::string &to)
{
    if (isReadOnly(from))
        return disk::Failure{ErrorNumber::PermissionDenied, "the file is read-only"};
    // A link keeps its target, which has the content.
    std::error_code error;
    const bool isLink = std::filesystem::is_symlink(path::ToDisk(from), error);
    if (isLink || disk::Rename(from, to)) // perhaps from another disk
        return moveByCopy(from, to);
    disk::FlushNames(disk::FolderOfTarget(to));
    return std::nullopt;
}

MaybeFailure moveBack(const std::string &place, const std::string &file)
{
    if (disk::KindOf(file) != disk::Kind::Absent)
        return disk::Failure{ErrorNumber::PathFileAccess, "there is a new file of this name"};
    return move(place, file);
}

/// Returns the message for the user; "" if there is nothing to say. `record` is one of this
/// process.
std::string recover(const std::string &record)
{
    std::string bytes;
    disk::Read(record, GameFiles::kReadLimit, bytes);
    const CheckedParts parts = SplitParts(kKind, bytes);
    const bool isRecord = parts.whole && parts.parts.size() == 2;
    const std::string file(isRecord ? parts.parts[0] : ""), place(isRecord ? parts.parts[1] : "");
    std::string message;
    if (isRecord && disk::KindOf(place) != disk::Kind::Absent) {
        if (disk::KindOf(file) != disk::Kind::Absent)
            disk::Remove(place); // the old file has not been moved, or the new one is whole
        else if (const auto failure = moveBack(place, file))
            return file + ": " + failure->reason +
                   ". ZELK ended while it overwrote this file. Its old content is in " + place +
                   ".";
        else
            message = file + ": ZELK ended while it overwrote this file. It has its old content.";
    }
    disk::Remove(record);
    return message;
}

} // namespace

std::string OldContent::DefaultFolder()
{
    return disk::Join(disk::Join(StateFolder(), "zelk"), "overwritten");
}

OldContent::OldContent(const std::string &path, std::string folder)
    : m_file(path::Absolute(path))
{
    const OwnedFiles records(std::move(folder), kKind);
    if (const auto failure = disk::MakeFolders(records.Folder()))
        fail(records.Folder(), *failure);
    m_record = records.NewPath();
    const std::string name(path::FileName(m_file));
    const std::size_t dot = name.rfind('.');
    m_place = records.Retired(m_record, kContent) + (dot == name.npos ? "" : name.substr(dot));
    if (const auto failure = disk::Replace(m_record, JoinParts(kKind, {m_file, m_place})))
        fail(m_record, *failure);
    if (const auto failure = move(m_file, m_place)) {
        disk::Remove(m_record);
        fail(m_file, *failure);
    }
}

void OldContent::Discard()
{
    if (!disk::Remove(m_place)) // else Recover removes both
        disk::Remove(m_record);
}

void OldContent::PutBack()
{
    if (const auto failure = moveBack(m_place, m_file))
        fail(m_file, *failure);
    disk::Remove(m_record);
}

void OldContent::Leave()
{
    disk::Remove(m_record);
}

std::vector<std::string> OldContent::Recover(const std::string &folder)
{
    const OwnedFiles records(folder, kKind);
    std::vector<std::string> messages;
    for (const OwnedFiles::File &file : records.List()) {
        if (file.owner != OwnedFiles::Owner::Ended)
            continue;
        if (const auto record = records.TakeOver(file.path))
            if (std::string message = recover(*record); !message.empty())
                messages.push_back(std::move(message));
    }
    return messages;
}

} // namespace host
