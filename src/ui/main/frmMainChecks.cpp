// SPDX-License-Identifier: MIT
// What the main window does for the check commands.
#include "ui/main/frmMain.h"

#include "host/Folders.h"
#include "ui/dialogs/frmResults.h"
#include "ui/main/MainStatusBar.h"
#include "ui/main/WindowBounds.h"
#include "ui/print/PrintJobs.h"
#include "validation/TSValidation.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QGuiApplication>
#include <QLocale>
#include <QScreen>

namespace {

/// Often enough for a window that feels alive, seldom enough that drawing costs little.
constexpr qint64 kEventsMilliseconds = 15;
/// How far each of several results windows stands from the one before.
constexpr int kCascadeStep = 26, kCascadeLength = 8;

} // namespace

std::optional<app::CheckTarget> frmMain::checkTarget() const
{
    const frmDocument *window = ActiveDocument();
    if (!window)
        return std::nullopt;
    const std::string shown = window->FileName();
    const std::string stock = window->SelectedItem();
    return app::CheckTarget{window->Mode(), window->SelectedConsists(), window->SelectedConsist(),
                            window->Mode() == document::WindowMode::ConsistEditor ? stock : shown};
}

void frmMain::checkDependencies()
{
    m_checks.CheckDependencies(checkTarget());
}

void frmMain::checkConsistStock()
{
    const frmDocument *window = ActiveDocument();
    const bool busy = m_checks.Running();
    const std::string only = window ? onlyOne(*window, "was checked") : std::string();
    m_checks.CheckConsistStock(checkTarget());
    if (!only.empty() && !busy)
        SetStatus(sbStatusBar->Status().toStdString() + "  " + only);
}

void frmMain::checkAllStock()
{
    m_checks.CheckAllStock();
}

void frmMain::checkStockTextures()
{
    m_checks.CheckStockTextures(checkTarget());
}

TSValidation &frmMain::NewValidator()
{
    Validator = std::make_unique<TSValidation>(m_installation, m_services.files);
    Validator->ErrorRaised = [this](const std::string &dependentFile, const std::string &fileName,
                                    std::int16_t errorCode) {
        Validator_ErrorRaised(dependentFile, fileName, errorCode);
    };
    Validator->MessageRaised = [this](const std::string &message, std::int16_t level) {
        Validator_MessageRaised(message, level);
    };
    m_errorsFound = 0;
    m_sinceEvents.invalidate();
    return *Validator;
}

void frmMain::Validator_ErrorRaised(const std::string &, const std::string &,
                                    std::int16_t errorCode)
{
    if (errorCode != TSValidation::IsOK && errorCode != TSValidation::IsReferenced)
        ++m_errorsFound;
}

void frmMain::Validator_MessageRaised(const std::string &message, std::int16_t)
{
    const std::string errors =
        std::to_string(m_errorsFound) + (m_errorsFound == 1 ? " error" : " errors");
    SetStatus(m_errorsFound > 0 ? message + "  -  " + errors : message);
}

void frmMain::ProcessEvents()
{
    if (m_sinceEvents.isValid() && m_sinceEvents.elapsed() < kEventsMilliseconds)
        return;
    QCoreApplication::processEvents();
    m_sinceEvents.start();
}

std::string frmMain::Now()
{
    const QDateTime now = QDateTime::currentDateTime();
    return (QLocale().toString(now.date(), QLocale::ShortFormat) + QLatin1Char(' ') +
            now.toString(QStringLiteral("HH:mm:ss")))
        .toStdString();
}

void frmMain::ShowResults(const std::string &caption, const std::string &text)
{
    const auto others = static_cast<int>(resultWindows().size()) % kCascadeLength;
    auto *window =
        new frmResults(m_services.dialogs, m_services.files, host::ProgramFolder(), this);
    window->SetCaption(caption);
    window->SetText(text);
    connect(window, &frmResults::PrintRequested, this,
            [this, window] { print(app::ResultsJob(window->Caption(), window->Text())); });
    QRect bounds(QPoint(), window->size());
    bounds.moveCenter(geometry().center() + QPoint(others, others) * kCascadeStep);
    bounds = app::WithinScreen(bounds, screen()->availableGeometry());
    window->move(bounds.topLeft());
    window->resize(bounds.size());
    window->show();
    window->activateWindow();
}

/// Those that are open, in the order of opening.
std::vector<frmResults *> frmMain::resultWindows() const
{
    std::vector<frmResults *> windows;
    for (frmResults *window : findChildren<frmResults *>(QString(), Qt::FindDirectChildrenOnly))
        if (window->isVisible())
            windows.push_back(window);
    return windows;
}
