// SPDX-License-Identifier: MIT
#pragma once

#include <string>

class frmMain;

namespace app {

class CheckCommands;

/// Changes the Train Simulator folder that the program works on.
class MstsLocation
{
public:
    MstsLocation(frmMain &window, const CheckCommands &checking);

    /// Shows the location dialog.
    void Ask();
    /// Asks whether to work on a folder that the user dropped on the window.
    void Offer(const std::string &folder);

private:
    bool mayChange();
    void change(const std::string &location);

    frmMain &m_window;
    const CheckCommands &m_checking;
};

} // namespace app
