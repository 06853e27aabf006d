// SPDX-License-Identifier: MIT
#pragma once

class QPrinter;
class QString;

namespace app {

/// What asks the user where to print; scripted in tests.
class Printers
{
public:
    virtual ~Printers() = default;

    /// Sets the printer up for a job of this name as the user wants it; false when cancelled.
    virtual bool Choose(QPrinter &printer, const QString &job) = 0;
    /// Lets the user set the paper and its margins.
    virtual void SetUpPage(QPrinter &printer) = 0;
};

} // namespace app
