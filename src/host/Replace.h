// SPDX-License-Identifier: MIT
#pragma once

#include "host/Disk.h"

#include <functional>
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

} // namespace host::disk
