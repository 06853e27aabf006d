// SPDX-License-Identifier: MIT
#include "ui/main/ResultsWindows.h"

#include "host/Folders.h"
#include "ui/dialogs/frmResults.h"
#include "ui/main/Printing.h"
#include "ui/main/WindowBounds.h"
#include "ui/main/frmMain.h"
#include "ui/print/PrintJobs.h"

#include <QScreen>

namespace app {

namespace {

/// The offset between the windows of a cascade in pixels, and the number of windows in it.
constexpr int kCascadeStep = 26, kCascadeLength = 8;

} // namespace

ResultsWindows::ResultsWindows(frmMain &window, Printing &printing)
    : m_window(window)
    , m_printing(printing)
{
}

frmResults &ResultsWindows::Show(const std::string &caption, const std::string &text)
{
    const auto others = static_cast<int>(Open().size()) % kCascadeLength;
    auto *results = new frmResults(m_window.Environment().dialogs, m_window.Environment().files,
                                   host::ProgramFolder(), &m_window);
    results->SetCaption(caption);
    results->SetText(text);
    QObject::connect(results, &frmResults::PrintRequested, &m_window, [this, results] {
        m_printing.Print(ResultsJob(results->Caption(), results->Text()));
    });
    QRect bounds(QPoint(), results->size());
    bounds.moveCenter(m_window.geometry().center() + QPoint(others, others) * kCascadeStep);
    bounds = WithinScreen(bounds, m_window.screen()->availableGeometry());
    results->move(bounds.topLeft());
    results->resize(bounds.size());
    results->show();
    results->activateWindow();
    return *results;
}

std::vector<frmResults *> ResultsWindows::Open() const
{
    std::vector<frmResults *> open;
    for (frmResults *results :
         m_window.findChildren<frmResults *>(QString(), Qt::FindDirectChildrenOnly))
        if (results->isVisible())
            open.push_back(results);
    return open;
}

void ResultsWindows::CloseAll()
{
    for (frmResults *results : Open())
        results->close();
}

} // namespace app
