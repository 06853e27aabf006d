// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace install {

/// A text value in the registry file of a Wine prefix (system.reg), by key path and value name,
/// letter case ignored; nothing when it is missing or no text. Reads "text", str(n):"text" and
/// hex(1): and hex(2): bytes, which are UTF-16LE. Bytes that make no sense are passed over. In what
/// is expandable, str(2) and hex(2), the variables that the registry knows have their values, those
/// that a program of 32 bits sees ("%ProgramFiles%\x" is "C:\Program Files (x86)\x").
std::optional<std::string> ValueInWineRegistry(std::string_view text, std::string_view key,
                                               std::string_view value);

} // namespace install
