// SPDX-License-Identifier: MIT
#pragma once

#include "app/Colours.h"

#include <optional>

namespace app {

/// What the settings of the desktop (KDE, GTK; on Windows those of the user) say about colours;
/// nothing when they say nothing.
std::optional<ColourScheme> SchemeOfDesktop();

} // namespace app
