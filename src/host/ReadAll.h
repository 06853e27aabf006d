// SPDX-License-Identifier: MIT
#pragma once

#include "host/Disk.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace host::disk {

/// Reads up to `count` bytes into a buffer and sets `got` to their number: 0 at the end of the
/// file.
using ReadSome =
    std::function<std::optional<Failure>(char *to, std::size_t count, std::size_t &got)>;

/// Reads to the end of a file, whose `expected` size is only a hint, since it may grow. Returns
/// TooLarge above `limit` bytes. After a failure, `bytes` is unspecified.
std::optional<Failure> ReadAll(std::uint64_t limit, std::size_t expected, std::string &bytes,
                               const ReadSome &readSome);

} // namespace host::disk
