// SPDX-License-Identifier: MIT
#pragma once

#include "host/Disk.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace host::disk {

/// Reads up to `count` bytes to a place and says how many `got` there: 0 at the end of the file.
using ReadSome =
    std::function<std::optional<Failure>(char *to, std::size_t count, std::size_t &got)>;

/// Reads on until the end of a file, whose `expected` size is a hint only: it may grow meanwhile.
/// TooLarge above `limit` bytes; what `bytes` holds after a failure is of no use.
std::optional<Failure> ReadAll(std::uint64_t limit, std::size_t expected, std::string &bytes,
                               const ReadSome &readSome);

} // namespace host::disk
