// SPDX-License-Identifier: MIT
#pragma once

#include "ui/document/EditorLayout.h"

#include <QRect>

namespace host {
class SettingsStore;
}

namespace app {

/// The section "Windows" of the settings: what the next run restores besides the bounds of the main
/// window. Values are whole numbers with blanks between them, in logical pixels.
struct WindowSettings
{
    bool maximised = false; ///< the main window
    QRect normal;           ///< its bounds before it was maximised; empty when unknown
    document::EditorLayout editors;
};

/// A missing or useless value takes its default.
WindowSettings ReadWindowSettings(host::SettingsStore &settings);
/// Writes what the store does not hold yet. RuntimeError as the store.
void WriteWindowSettings(host::SettingsStore &settings, const WindowSettings &windows);

} // namespace app
