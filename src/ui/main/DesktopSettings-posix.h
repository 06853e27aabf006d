// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace app {

/// Returns a value from a settings file of the desktop below the user's configuration folder;
/// nothing if there is none.
std::optional<std::string> DesktopSetting(const std::string &file, const char *section,
                                          const char *key);

} // namespace app
