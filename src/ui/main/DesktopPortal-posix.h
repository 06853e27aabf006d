// SPDX-License-Identifier: MIT
#pragma once

#include "ui/main/Colours.h"

#include <optional>

namespace app {

/// Returns the scheme that the user prefers, by the desktop portal (GNOME and others keep it only
/// there). Returns nothing without a preference or without a running portal. Never starts a portal,
/// and waits at most a tenth of a second for each answer.
std::optional<ColourScheme> SchemeOfPortal();

} // namespace app
