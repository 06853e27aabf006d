// SPDX-License-Identifier: MIT
#pragma once

#include "ui/main/Colours.h"

#include <optional>

namespace app {

/// Returns the scheme set for the desktop: in its portal, else in KDE's or GTK's settings; on
/// Windows in the user's settings. Returns nothing if none is set.
std::optional<ColourScheme> SchemeOfDesktop();

} // namespace app
