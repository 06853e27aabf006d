// SPDX-License-Identifier: MIT
#pragma once

#include "ui/main/frmMain.h"

namespace app {

/// The Window menu.
class WindowCommands
{
public:
    explicit WindowCommands(frmMain &window)
        : m_window(window)
    {
    }

    /// Closes the windows until one of them refuses.
    void CloseAll()
    {
        for (frmDocument *document : m_window.Documents())
            if (!document->close())
                return;
    }

    void Cascade() { m_window.Arrange(Arrangement::Cascade); }

    void TileHorizontally() { m_window.Arrange(Arrangement::TileHorizontally); }

    void TileVertically() { m_window.Arrange(Arrangement::TileVertically); }

    void ArrangeIcons() { m_window.Arrange(Arrangement::ArrangeIcons); }

private:
    frmMain &m_window;
};

} // namespace app
