// SPDX-License-Identifier: MIT
#pragma once

#include "ui/document/EditorLayout.h"

#include <QRect>

namespace host {
class SettingsStore;
}

namespace app {

/// The section "Windows" of the settings, which the next run restores together with the bounds of
/// the main window. The values are whole numbers separated by blanks, in logical pixels.
struct WindowSettings
{
    bool maximised = false; ///< the main window
    QRect normal;           ///< its bounds before it was maximised; empty if unknown
    bool loads = true;      ///< 3D views show the loads of vehicles
    document::EditorLayout editors;
};

/// Reads the section. A missing or invalid value takes its default.
WindowSettings ReadWindowSettings(host::SettingsStore &settings);
/// Writes the values that differ from those in the store. Throws RuntimeError as the store does.
void WriteWindowSettings(host::SettingsStore &settings, const WindowSettings &windows);

} // namespace app
