// SPDX-License-Identifier: MIT
#pragma once

#include "ui/main/Colours.h"

#include <optional>

namespace app {

/// Returns the scheme that the user prefers, as stated by the desktop portal (some desktops, such
/// as GNOME, store it only there). Returns nothing without a preference or without a running
/// portal. Never starts a portal, and waits at most a tenth of a second for each answer.
std::optional<ColourScheme> SchemeOfPortal();

/// Returns whether the user wants animations, in the same way.
std::optional<bool> AnimationsOfPortal();

} // namespace app
