// SPDX-License-Identifier: MIT
#pragma once

#include "app/Desktop.h"
#include "ui/print/Printers.h"

namespace app {

/// The desktop on which the program runs.
class QtDesktop : public Desktop
{
public:
    void Start(const ProgramStart &start) override;
    bool Open(const std::string &file) override;
    bool OpenWeb(const std::string &address) override;
    void AssociateConsistFiles() override;
    bool MoveToWastebasket(const std::string &file) override;
};

/// The system's own printer dialogs, over the active window.
class QtPrinters : public Printers
{
public:
    bool Choose(QPrinter &printer, const QString &job) override;
    void SetUpPage(QPrinter &printer) override;
};

} // namespace app
