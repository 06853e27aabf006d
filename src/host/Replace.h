// SPDX-License-Identifier: MIT
#pragma once

#include "host/Disk.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace host::disk {

/// Replaces the content of a file, whole or not at all; creates a missing file. A link stays and
/// its target is replaced. An existing file keeps its owner and its permissions, where the file
/// system stores them. A file without any write permission is refused, even for a privileged user.
/// First removes the temporary files that killed processes left in the folder.
///
/// Calls `mayReplace` just before the new file gets its name. If it returns false, the file stays
/// unchanged and the failure has the number 75. A lock keeps other calls, in any process, from
/// renaming between this decision and the renaming. Another program can still write the file in the
/// microseconds between them. So can a ZELK that does not share the lock: on another machine, on a
/// file system without locks, or in another Windows session. A call that has waited three seconds
/// for the lock proceeds without it.
std::optional<Failure> Replace(const std::string &path, std::string_view bytes,
                               const std::function<bool()> &mayReplace = {});

/// The reason that Replace returns if the file may not be replaced.
inline constexpr const char *kNotReplaced = "it was changed by another program";

/// Replaces a file in two steps, so that a set of files can be written before the first of them is
/// replaced: a full disk then changes none. Follows links and keeps owner and permissions as
/// Replace does, but leaves the removal of old temporary files to the caller.
class Replacement
{
public:
    Replacement();
    /// Deletes the temporary file unless it became the target.
    ~Replacement();
    Replacement(Replacement &&) noexcept;
    Replacement &operator=(Replacement &&) noexcept;

    /// Writes a temporary file beside the target.
    std::optional<Failure> Prepare(const std::string &path, std::string_view bytes);
    /// Waits until the disk holds the temporary file. Many files are flushed several times faster
    /// if all of them have been prepared before.
    std::optional<Failure> Flush();
    /// Gives it the target's name; call it once, after Flush has succeeded. Without Flush, a power
    /// cut can leave a torn file, as only caches may. `mayReplace` as in Replace. The new name
    /// survives a power cut only after FlushNames.
    std::optional<Failure> Commit(const std::function<bool()> &mayReplace);

private:
    struct Prepared;
    std::unique_ptr<Prepared> m_prepared;
};

/// Returns the folder that holds the temporary file of `path`: the folder of the file that the path
/// leads to.
std::string FolderOfTarget(const std::string &path);
/// Makes changed names in a folder survive a power cut, where the system does not do that itself.
void FlushNames(const std::string &folder);
/// Renames a file, and replaces an existing file of the new name.
std::optional<Failure> Rename(const std::string &from, const std::string &to);

} // namespace host::disk
