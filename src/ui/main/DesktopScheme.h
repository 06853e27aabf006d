// SPDX-License-Identifier: MIT
#pragma once

#include "ui/main/Colours.h"

#include <optional>

namespace app {

/// The colours set for the desktop: by its portal, else by KDE or GTK; on Windows by the user.
/// Nothing when they are not set.
std::optional<ColourScheme> SchemeOfDesktop();

} // namespace app
