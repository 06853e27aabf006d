// SPDX-License-Identifier: MIT
#pragma once

class QApplication;
class QPalette;

namespace app {

enum class ColourScheme
{
    Light,
    Dark
};

/// The scheme that the user's desktop asks for: $ZELK_COLORS ("light" or "dark") wins, then a
/// platform palette that is dark, then what the settings of KDE or GTK say, else light.
ColourScheme DesktopScheme(const QPalette &platform);

/// A whole palette for a scheme, every role set.
QPalette PaletteOf(ColourScheme scheme);

/// Gives the program its look: one style on every platform, in the desktop's scheme. To be called
/// before there are windows.
void DressApplication(QApplication &application);

} // namespace app
