// SPDX-License-Identifier: MIT
#include "host/FilesUsed.h"

#include "host/CheckedParts.h"
#include "host/Disk.h"
#include "host/GameFiles.h"
#include "host/Path.h"

#include <algorithm>
#include <system_error>

namespace host {
namespace {

constexpr std::string_view kKind = "files", kMissing = "missing", kUnknown = "unknown";

thread_local FilesUsed *current = nullptr;

/// Returns size and times of a file as text. The number of a device can change when the machine
/// restarts, so it is left out.
std::string stateOf(const std::optional<std::filesystem::path> &found, disk::Stamp &stamp)
{
    if (!found)
        return std::string(kMissing);
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(*found, error);
    const auto marks = disk::StampOf(path::FromDisk(*found));
    if (error || !marks)
        return std::string(kUnknown);
    stamp = *marks;
    return std::to_string(size) + ' ' + std::to_string(stamp.modified) + ' ' +
           std::to_string(stamp.changed);
}

} // namespace

FilesUsed::FilesUsed()
    : m_outer(current)
{
    current = this;
}

FilesUsed::~FilesUsed()
{
    current = m_outer;
}

bool FilesUsed::IsRecording()
{
    return current != nullptr;
}

void FilesUsed::Note(const GamePath &path, const std::optional<std::filesystem::path> &found)
{
    if (current)
        current->add(path, found);
}

void FilesUsed::add(const GamePath &path, const std::optional<std::filesystem::path> &found)
{
    if (std::any_of(m_files.begin(), m_files.end(),
                    [&](const Used &used) { return used.path == path.text; }))
        return;
    disk::Stamp stamp;
    m_files.push_back({path.text, stateOf(found, stamp)});
    if (found && !disk::IsSettled(stamp, disk::Now()))
        m_isSettled = false;
}

bool FilesUsed::IsSettled() const
{
    return m_isSettled;
}

std::string FilesUsed::Record() const
{
    std::vector<std::string_view> parts;
    for (const Used &used : m_files) {
        parts.emplace_back(used.path);
        parts.emplace_back(used.state);
    }
    return JoinParts(kKind, parts);
}

bool FilesUsed::Holds(GameFiles &files, std::string_view record)
{
    const CheckedParts read = SplitParts(kKind, record);
    if (!read.whole || read.parts.size() % 2 != 0)
        return false;
    for (std::size_t i = 0; i < read.parts.size(); i += 2) {
        disk::Stamp stamp;
        const std::string state = stateOf(files.FindFile(read.parts[i]), stamp);
        if (state == kUnknown || state != read.parts[i + 1])
            return false;
    }
    return true;
}

} // namespace host
