// SPDX-License-Identifier: MIT
#include "ui/main/WindowList.h"

#include "ui/dialogs/frmResults.h"
#include "ui/health/frmHealth.h"
#include "ui/main/HealthWindows.h"
#include "ui/main/ResultsWindows.h"
#include "ui/main/frmMain.h"

#include <QMdiArea>
#include <QMenu>

namespace app {

WindowList::WindowList(frmMain &window, const ResultsWindows &results, const HealthWindows &health)
    : m_window(window)
    , m_results(results)
    , m_health(health)
{
}

void WindowList::Fill(QMenu &menu)
{
    for (QAction *item : m_items)
        delete item;
    m_items.clear();
    const frmDocument *active = m_window.ActiveDocument();
    for (frmDocument *document : m_window.Documents()) {
        const QLatin1String mark(document->Changed() ? " (changed)" : "");
        addItem(menu, *document, document->windowTitle() + mark,
                [document] { document->mdiArea()->setActiveSubWindow(document); });
        m_items.back()->setChecked(document == active);
    }
    for (frmResults *results : m_results.Open())
        addTopLevel(menu, *results);
    for (frmHealth *health : m_health.Open())
        addTopLevel(menu, *health);
}

void WindowList::addTopLevel(QMenu &menu, QWidget &window)
{
    addItem(menu, window, window.windowTitle(), [&window] {
        window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
        window.raise();
        window.activateWindow();
    });
}

void WindowList::addItem(QMenu &menu, QWidget &window, QString caption,
                         const std::function<void()> &activate)
{
    const auto number = static_cast<int>(m_items.size()) + 1;
    caption.replace(QLatin1Char('&'), QLatin1String("&&"));
    QAction *item = menu.addAction(QStringLiteral("%1%2 %3")
                                       .arg(QLatin1String(number < 10 ? "&" : ""))
                                       .arg(number)
                                       .arg(caption));
    item->setObjectName(QStringLiteral("mnuWindowList%1").arg(number));
    item->setToolTip(QStringLiteral("Go to this window"));
    item->setCheckable(true);
    QObject::connect(item, &QAction::triggered, &window, activate);
    m_items.push_back(item);
}

} // namespace app
