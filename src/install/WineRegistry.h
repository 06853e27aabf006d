// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace install {

/// Reads a text value from the registry file of a Wine prefix (system.reg), by key path and value
/// name, letter case ignored. Returns nothing if the value is missing or not text. Reads "text",
/// str(n):"text", and the bytes of hex(1): and hex(2): as UTF-16LE, up to the first invalid byte.
/// In the expandable types str(2) and hex(2), replaces the variables that the registry defines,
/// with the values for a 32-bit program ("%ProgramFiles%\x" is "C:\Program Files (x86)\x").
std::optional<std::string> ValueInWineRegistry(std::string_view text, std::string_view key,
                                               std::string_view value);

} // namespace install
