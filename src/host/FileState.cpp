// SPDX-License-Identifier: MIT
#include "host/FileState.h"

#include "host/Disk.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/RuntimeError.h"
#include "host/Text.h"

#include <functional>
#include <optional>
#include <utility>

namespace host {
namespace {

std::size_t hashOf(std::string_view bytes)
{
    return std::hash<std::string_view>()(bytes);
}

bool isSameName(const std::string &first, const std::string &second)
{
    return disk::kIgnoresCase ? EqualsNoCase(first, second) : first == second;
}

/// True if both paths lead to one existing file, by its name or through a link.
bool leadToSameFile(GameFiles &files, const std::string &first, const std::string &second)
{
    const auto firstFound = files.FindFile(first), secondFound = files.FindFile(second);
    if (!firstFound || !secondFound)
        return false;
    const std::string firstPath = path::FromDisk(*firstFound);
    const std::string secondPath = path::FromDisk(*secondFound);
    if (isSameName(path::Normalise(firstPath), path::Normalise(secondPath)))
        return true;
    const auto one = disk::StampOf(firstPath), other = disk::StampOf(secondPath);
    // Some network file systems give all files the number 0.
    return one && other && one->number != 0 && one->device == other->device &&
           one->number == other->number;
}

} // namespace

FileState::FileState(std::string path, std::string_view bytes)
    : m_path(std::move(path))
    , m_existed(true)
    , m_size(bytes.size())
    , m_hash(hashOf(bytes))
{
}

FileState FileState::Absent(std::string path)
{
    FileState state;
    state.m_path = std::move(path);
    return state;
}

bool FileState::HasChanged(GameFiles &files, const std::string &path) const
{
    if (m_path.empty() || !leadToSameFile(files, m_path, path))
        return false;
    return !m_existed || !holdsSameBytes(files);
}

bool FileState::holdsSameBytes(GameFiles &files) const
{
    try {
        const std::string bytes = files.ReadFile(m_path, m_size); // no more than the old size
        return bytes.size() == m_size && hashOf(bytes) == m_hash;
    } catch (const RuntimeError &) {
        return false;
    }
}

FileChanged::FileChanged(std::string_view path)
    : RuntimeError(ErrorNumber::PathFileAccess,
                   std::string(path) + ": it was changed since it was read, and so was not "
                                       "overwritten. Read it again and repeat the change.")
{
}

} // namespace host
