// SPDX-License-Identifier: MIT
#pragma once

#include "ui/main/Colours.h"

#include <optional>

namespace app {

/// The colours that the desktop portal says the user prefers (GNOME and others keep them there
/// alone). Nothing when the user has no preference, and where no portal runs. Asks only a running
/// portal, for a tenth of a second at most.
std::optional<ColourScheme> SchemeOfPortal();

} // namespace app
