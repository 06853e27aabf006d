// SPDX-License-Identifier: MIT
#include "ui/main/CheckView.h"

#include "app/MissedFiles.h"
#include "ui/dialogs/frmResults.h"
#include "ui/main/ResultsWindows.h"
#include "ui/main/frmMain.h"
#include "validation/TSValidation.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>

namespace app {

namespace {

/// Often enough for a responsive window, rarely enough that drawing costs little.
constexpr qint64 kEventsMilliseconds = 15;

} // namespace

CheckView::CheckView(frmMain &window, ResultsWindows &results)
    : m_window(window)
    , m_results(results)
{
}

TSValidation &CheckView::NewValidator()
{
    m_window.Validator = std::make_unique<TSValidation>(m_window.Environment().installation,
                                                        m_window.Environment().files);
    TSValidation &validator = *m_window.Validator;
    validator.ErrorRaised = [this](const std::string &dependentFile, const std::string &fileName,
                                   std::int16_t errorCode) {
        m_window.Validator_ErrorRaised(dependentFile, fileName, errorCode);
    };
    validator.MessageRaised = [this](const std::string &message, std::int16_t level) {
        m_window.Validator_MessageRaised(message, level);
    };
    validator.SetIndex({host::SavedIndex::UserFolder()});
    m_errorsFound = 0;
    m_sinceEvents.invalidate();
    return validator;
}

void CheckView::SetStatus(const std::string &text)
{
    m_window.SetStatus(text);
}

void CheckView::SetProgress(int done, int total)
{
    m_window.SetProgress(done, total);
}

void CheckView::ProcessEvents()
{
    if (m_sinceEvents.isValid() && m_sinceEvents.elapsed() < kEventsMilliseconds)
        return;
    QCoreApplication::processEvents();
    m_sinceEvents.start();
}

std::string CheckView::Now()
{
    const QDateTime now = QDateTime::currentDateTime();
    return (QLocale().toString(now.date(), QLocale::ShortFormat) + QLatin1Char(' ') +
            now.toString(QStringLiteral("HH:mm:ss")))
        .toStdString();
}

void CheckView::ShowResults(const std::string &caption, const std::string &text)
{
    frmResults &results = m_results.Show(caption, text);
    results.CountElsewhere(MissedFilesOf(m_window.Environment(), m_window.Validator->Findings()));
}

void CheckView::CountError(std::int16_t errorCode)
{
    if (errorCode != TSValidation::IsOK && errorCode != TSValidation::IsReferenced)
        ++m_errorsFound;
}

void CheckView::ShowMessage(const std::string &message)
{
    const std::string errors =
        std::to_string(m_errorsFound) + (m_errorsFound == 1 ? " error" : " errors");
    SetStatus(m_errorsFound > 0 ? message + "  -  " + errors : message);
}

} // namespace app
