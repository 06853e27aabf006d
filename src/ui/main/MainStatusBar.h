// SPDX-License-Identifier: MIT
#pragma once

#include <QStatusBar>
#include <QTimer>

class QLabel;
class QProgressBar;

namespace app {

/// The status bar. It shows the status text, the current date and time in the locale's short
/// formats, and a progress bar while a long command runs.
class MainStatusBar : public QStatusBar
{
    Q_OBJECT

public:
    explicit MainStatusBar(QWidget *parent = nullptr);

    void SetStatus(const QString &text);
    QString Status() const;
    /// Shows the progress of a command; a `total` of 0 hides the bar.
    void SetProgress(int done, int total);

private:
    QLabel *panel(const char *name, const QString &toolTip);
    void tick();

    QLabel *m_status;
    QLabel *m_date;
    QLabel *m_time;
    QProgressBar *m_progress;
    QTimer m_clock;
};

} // namespace app
