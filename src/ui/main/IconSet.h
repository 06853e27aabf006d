// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

namespace app {

/// Returns the icon of this name (packaging/icons). It is drawn in the text colour of the
/// application's current palette, so that it is readable on light and on dark.
QIcon TintedIcon(const char *name);

/// Returns the program's own icon, in colour.
QIcon ProgramIcon();

} // namespace app
