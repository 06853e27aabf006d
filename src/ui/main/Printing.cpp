// SPDX-License-Identifier: MIT
#include "ui/main/Printing.h"

#include "app/modZELK.h"
#include "host/Dialogs.h"
#include "ui/main/frmMain.h"
#include "ui/print/PrintJobs.h"
#include "ui/print/Printers.h"

#include <QPrinter>

namespace app {

namespace {

constexpr double kMargin = 15; ///< millimetres on each side, until Page Setup changes it

} // namespace

Printing::Printing(frmMain &window, Printers &printers)
    : m_window(window)
    , m_printers(printers)
{
}

Printing::~Printing() = default;

void Printing::Print(const PrintJob &job)
{
    printer().setDocName(QString::fromStdString(job.name));
    printer().setFromTo(0, 0);
    if (!m_printers.Choose(printer(), printer().docName()))
        return;
    if (app::Print(printer(), job.frame, *job.content))
        m_window.SetStatus(job.name + ": done");
    else
        m_window.Environment().dialogs.Message(
            "Nothing could be printed: the printer, or the file to print "
            "to, cannot be used.",
            job.name, host::DialogIcon::Critical);
}

void Printing::SetUpPage()
{
    m_printers.SetUpPage(printer());
}

QPrinter &Printing::printer()
{
    if (!m_printer) {
        m_printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
        m_printer->setPageMargins({kMargin, kMargin, kMargin, kMargin}, QPageLayout::Millimeter);
        m_printer->setCreator(QString::fromStdString(modZELK::MainCaption()));
    }
    return *m_printer;
}

} // namespace app
