// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

namespace app {

/// The icon of this name (packaging/icons). It is a drawing in one colour that takes the text
/// colour of the application's palette when it is painted, so that it reads on light and dark.
QIcon TintedIcon(const char *name);

/// The program's own icon, in its own colours.
QIcon ProgramIcon();

} // namespace app
