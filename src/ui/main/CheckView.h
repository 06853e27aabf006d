// SPDX-License-Identifier: MIT
#pragma once

#include "app/CheckCommands.h"

#include <QElapsedTimer>

#include <cstdint>
#include <string>

class frmMain;

namespace app {

class ResultsWindows;

/// Shows a check in the main window: messages and the number of errors in the status bar, the
/// report in a results window.
class CheckView : public CheckHost
{
public:
    CheckView(frmMain &window, ResultsWindows &results);

    /// Replaces the main window's Validator.
    TSValidation &NewValidator() override;
    void SetStatus(const std::string &text) override;
    void SetProgress(int done, int total) override;
    void ProcessEvents() override;
    std::string Now() override;
    void ShowResults(const std::string &caption, const std::string &text) override;

    /// Counts a verdict of the running check if it is an error.
    void CountError(std::int16_t errorCode);
    /// Shows a message of the running check, with the number of errors so far.
    void ShowMessage(const std::string &message);

private:
    frmMain &m_window;
    ResultsWindows &m_results;
    int m_errorsFound = 0;       ///< of the running or the last check
    QElapsedTimer m_sinceEvents; ///< since a check last processed window events
};

} // namespace app
