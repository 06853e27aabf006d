// SPDX-License-Identifier: MIT
#pragma once

namespace app {

/// Returns false if the user has asked the system for no animations: in the desktop's portal, in
/// KDE's or GTK's settings, or in those of Windows.
bool DesktopAnimates();

} // namespace app
