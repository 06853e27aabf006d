// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Facts about the product, each defined once.
namespace host::product {

inline constexpr std::string_view kName = "ZELK";

/// Returns the version as packages give it, "1.0.75". CMakeLists.txt states it.
std::string_view Version();
/// Returns the version as users see it, "1.0-75".
std::string ShownVersion();

/// A published version and its note in the About box.
struct Release
{
    const char *version, *note;
};
inline constexpr Release kHistory[] = {{"1.0-50", "First public version"},
                                       {"1.0-74", "Various bug fixes"},
                                       {"1.0-75", "Second public version"}};

} // namespace host::product

/// The six keys in the section "Settings" of the user's settings (host/Settings.h).
namespace host::setting {

inline constexpr std::string_view kInstallation = "MSTSDir", kScreenshots = "ScreenShotDir",
                                  kLeft = "MainLeft", kTop = "MainTop", kWidth = "MainWidth",
                                  kHeight = "MainHeight";

} // namespace host::setting
