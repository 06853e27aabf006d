// SPDX-License-Identifier: MIT
#pragma once

class QPrinter;
class QString;

namespace app {

/// The printer and page set-up dialogs; scripted in tests.
class Printers
{
public:
    virtual ~Printers() = default;

    /// Lets the user choose a printer and its settings for a job of this name; returns false if
    /// cancelled.
    virtual bool Choose(QPrinter &printer, const QString &job) = 0;
    /// Lets the user set the paper and its margins.
    virtual void SetUpPage(QPrinter &printer) = 0;
};

} // namespace app
