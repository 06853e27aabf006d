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

/// Returns the scheme that the user's desktop asks for. $ZELK_COLORS ("light" or "dark") comes
/// first, then a dark platform palette, then the settings of the desktop (see SchemeOfDesktop). The
/// default is Light.
ColourScheme DesktopScheme(const QPalette &platform);

/// Returns the palette of a scheme, with every role set.
QPalette PaletteOf(ColourScheme scheme);

/// Sets the style of the program, which is the same on every platform, in the desktop's scheme.
/// Call it before there are windows.
void DressApplication(QApplication &application);

} // namespace app
