// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QRect>

namespace host {
class SettingsStore;
}

namespace app {

/// Settings hold window bounds in twips, 15 to a logical pixel.
inline constexpr int kTwipsPerPixel = 15;

/// The stored bounds of the main window in pixels. What is missing or no number has its default:
/// left and top 1000 twips, width and height 6500 twips.
QRect ReadMainBounds(host::SettingsStore &settings);
/// Stores them. RuntimeError as the store.
void WriteMainBounds(host::SettingsStore &settings, const QRect &bounds);

/// The bounds as they can be used on screens with these free areas: no larger than the screen, and
/// moved onto the nearest one when nobody could get hold of the window's title.
QRect FitToScreens(const QRect &bounds, const QList<QRect> &screens);

/// The bounds, made no larger than a screen's free area and moved until all of them is in it.
QRect WithinScreen(const QRect &bounds, const QRect &screen);

} // namespace app
