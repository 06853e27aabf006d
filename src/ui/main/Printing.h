// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

class QPrinter;
class frmMain;

namespace app {

class Printers;
struct PrintJob;

/// Prints the content of windows, on one printer whose settings last until the program ends.
class Printing
{
public:
    Printing(frmMain &window, Printers &printers);
    ~Printing();

    /// Shows the printer dialog, prints, and reports the outcome.
    void Print(const PrintJob &job);
    /// Lets the user set the paper and its margins.
    void SetUpPage();

private:
    QPrinter &printer();

    frmMain &m_window;
    Printers &m_printers;
    std::unique_ptr<QPrinter> m_printer; ///< created on first use
};

} // namespace app
