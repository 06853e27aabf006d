// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

class frmMain;
class frmResults;

namespace app {

class Printing;

/// The results windows, which stay above the main window.
class ResultsWindows
{
public:
    ResultsWindows(frmMain &window, Printing &printing);

    /// Opens a window and returns it. Several windows form a cascade.
    frmResults &Show(const std::string &caption, const std::string &text);
    /// Returns the open windows, in the order of opening.
    std::vector<frmResults *> Open() const;
    void CloseAll();

private:
    frmMain &m_window;
    Printing &m_printing;
};

} // namespace app
