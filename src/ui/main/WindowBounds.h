// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QRect>

namespace host {
class SettingsStore;
}

namespace app {

/// The settings hold window bounds in twips, 15 to a logical pixel.
inline constexpr int kTwipsPerPixel = 15;

/// Returns the stored bounds of the main window in pixels. Defaults replace values that are missing
/// or not numbers: 1000 twips for left and top, 6500 twips for width and height.
QRect ReadMainBounds(host::SettingsStore &settings);
/// Stores the bounds. Throws RuntimeError as the store does.
void WriteMainBounds(host::SettingsStore &settings, const QRect &bounds);

/// Fits bounds to screens with these free areas. The result is no larger than a screen. It is on
/// the nearest screen if the title of the window would otherwise be out of reach.
QRect FitToScreens(const QRect &bounds, const QList<QRect> &screens);

/// Makes bounds no larger than a screen's free area, and moves them completely into it.
QRect WithinScreen(const QRect &bounds, const QRect &screen);

} // namespace app
