// SPDX-License-Identifier: MIT
#include "ui/main/MainStatusBar.h"

#include <QDateTime>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>

namespace app {

MainStatusBar::MainStatusBar(QWidget *parent)
    : QStatusBar(parent)
    , m_status(panel("sbStatusBarStatus", QStringLiteral("Status of current operation")))
    , m_date(panel("sbStatusBarDate", QStringLiteral("Current Date")))
    , m_time(panel("sbStatusBarTime", QStringLiteral("Current Time")))
    , m_progress(new QProgressBar(this))
{
    setObjectName("sbStatusBar");
    setAccessibleName(QStringLiteral("Status bar"));
    setAccessibleDescription(QStringLiteral("sbStatusBar"));
    m_status->setText(QStringLiteral("Status"));
    m_status->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_status->setContentsMargins(6, 0, 0, 0);
    m_progress->setObjectName("sbStatusBarProgress");
    m_progress->setAccessibleName(QStringLiteral("Progress"));
    m_progress->setToolTip(QStringLiteral("Press Esc to stop"));
    m_progress->setMaximumWidth(140);
    m_progress->setMaximumHeight(16);
    m_progress->setTextVisible(false);
    m_progress->hide();

    addWidget(m_status, 1);
    addPermanentWidget(m_progress);
    addPermanentWidget(m_date);
    addPermanentWidget(m_time);
    m_clock.setSingleShot(true);
    connect(&m_clock, &QTimer::timeout, this, &MainStatusBar::tick);
    tick();
}

QLabel *MainStatusBar::panel(const char *name, const QString &toolTip)
{
    auto *label = new QLabel(this);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setToolTip(toolTip);
    label->setAccessibleDescription(toolTip);
    return label;
}

void MainStatusBar::SetStatus(const QString &text)
{
    m_status->setText(text);
}

QString MainStatusBar::Status() const
{
    return m_status->text();
}

void MainStatusBar::SetProgress(int done, int total)
{
    m_progress->setVisible(total > 0);
    if (total <= 0)
        return;
    m_progress->setRange(0, total);
    m_progress->setValue(done);
}

void MainStatusBar::tick()
{
    const QLocale locale;
    const QDateTime now = QDateTime::currentDateTime();
    m_date->setText(locale.toString(now.date(), QLocale::ShortFormat));
    m_time->setText(locale.toString(now.time(), QLocale::ShortFormat));
    const bool seconds = locale.timeFormat(QLocale::ShortFormat).contains(QLatin1Char('s'));
    const int passed = now.time().msec() + (seconds ? 0 : now.time().second() * 1000);
    // Slightly late rather than slightly early: an early tick would show the old time again.
    m_clock.start((seconds ? 1000 : 60000) - passed + 5);
}

} // namespace app
