// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace install {

/// A text value in the registry file of a Wine prefix (system.reg), by key path and value name,
/// letter case ignored; nothing when it is missing or no text. Reads "text", str(n):"text" and
/// hex(1): and hex(2): bytes, which are UTF-16LE. Bytes that make no sense are passed over.
std::optional<std::string> ValueInWineRegistry(std::string_view text, std::string_view key,
                                               std::string_view value);

} // namespace install
