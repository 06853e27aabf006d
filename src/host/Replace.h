// SPDX-License-Identifier: MIT
#pragma once

#include "host/Disk.h"

#include <optional>
#include <string>
#include <string_view>

namespace host::disk {

/// Replaces the content of a file, whole or not at all; creates a missing file. A link stays and
/// its target is replaced. An existing file keeps its permissions and, where possible, its owner. A
/// file without any write permission is refused, even for a privileged user.
std::optional<Failure> Replace(const std::string &path, std::string_view bytes);

} // namespace host::disk
