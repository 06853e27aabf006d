// SPDX-License-Identifier: MIT
#pragma once

#include <QStatusBar>
#include <QTimer>

class QLabel;
class QProgressBar;

namespace app {

/// The status bar: the status text, the current date and the current time in the locale's short
/// format, and a bar that is there only while a long command runs.
class MainStatusBar : public QStatusBar
{
    Q_OBJECT

public:
    explicit MainStatusBar(QWidget *parent = nullptr);

    void SetStatus(const QString &text);
    QString Status() const;
    /// Shows how far a command is; a total of 0 takes the bar away.
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
