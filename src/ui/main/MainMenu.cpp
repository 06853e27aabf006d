// SPDX-License-Identifier: MIT
#include "ui/main/MainMenu.h"

#include "ui/main/CommandTable.h"
#include "ui/main/IconSet.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

namespace app {

namespace {

template <typename Id> constexpr std::size_t placeOf(Id id)
{
    return static_cast<std::size_t>(id);
}

QList<QKeySequence> keysOf(const CommandRow &row)
{
    // For "", listFromString would return a list with one empty key.
    return *row.keys ? QKeySequence::listFromString(QString::fromLatin1(row.keys))
                     : QList<QKeySequence>();
}

/// Returns the hint of a command for 3D windows, with the reason if it is disabled.
QString hintOf(const CommandRow &row, const WindowFacts &facts)
{
    const QString hint = QString::fromLatin1(row.hint);
    return row.enabled(facts) ? hint : hint + QStringLiteral(" (no 3D window is active)");
}

} // namespace

MainMenu::MainMenu(QMenuBar &bar, const Runner &run)
    : m_menus(placeOf(Menu::End))
{
    std::array<const CommandRow *, placeOf(Menu::End)> last{};
    for (const CommandRow &row : kCommands) {
        QMenu &menu = built(bar, row.menu);
        const CommandRow *&before = last[placeOf(row.menu)];
        if (before && before->group != row.group)
            menu.addSeparator();
        before = &row;
        addCommand(menu, row, *bar.window(), run);
    }
}

/// Returns a menu, and creates it for its first command.
QMenu &MainMenu::built(QMenuBar &bar, Menu menu)
{
    QMenu *&place = m_menus[placeOf(menu)];
    if (place)
        return *place;
    const MenuRow &row = kMenus[placeOf(menu)];
    const QString caption = QString::fromLatin1(row.caption);
    place = row.parent ? built(bar, *row.parent).addMenu(caption) : bar.addMenu(caption);
    place->setObjectName(row.name);
    place->menuAction()->setObjectName(row.name);
    place->menuAction()->setToolTip(QString::fromLatin1(row.hint));
    place->setToolTipsVisible(true);
    return *place;
}

void MainMenu::addCommand(QMenu &menu, const CommandRow &row, QWidget &window, const Runner &run)
{
    auto *action = new QAction(QString::fromLatin1(row.caption), &window);
    m_actions.push_back(action);
    action->setObjectName(row.name);
    if (*row.hint)
        action->setToolTip(QString::fromLatin1(row.hint));
    action->setCheckable(row.look == Look::Checked || row.look == Look::Unchecked);
    action->setChecked(row.look == Look::Checked);
    action->setVisible(row.look != Look::Hidden);
    // Keep the command in its menu: some platforms move commands with captions such as "Exit" or
    // "Options".
    action->setMenuRole(QAction::NoRole);
    action->setShortcuts(keysOf(row));
    if (*row.icon)
        action->setIcon(TintedIcon(row.icon));
    if (row.run)
        QObject::connect(action, &QAction::triggered, &window, [run, &row] { run(row); });
    menu.addAction(action);
}

QAction &MainMenu::ActionOf(Command command) const
{
    return *m_actions[placeOf(command)];
}

QMenu &MainMenu::MenuOf(Menu menu) const
{
    return *m_menus[placeOf(menu)];
}

bool MainMenu::IsChecked(Command command) const
{
    return ActionOf(command).isChecked();
}

void MainMenu::NameStep(Command command, const std::string &step) const
{
    QString caption = QString::fromLatin1(kCommands[placeOf(command)].caption);
    if (!step.empty())
        caption += QLatin1Char(' ') + QString::fromStdString(step);
    ActionOf(command).setText(caption);
}

void MainMenu::PopUp(Menu menu, const QPoint &at, const std::vector<QAction *> &more) const
{
    QMenu &shown = MenuOf(menu);
    QAction *const first = shown.actions().value(0);
    std::vector<QAction *> added = more;
    added.push_back(new QAction(&shown));
    added.back()->setSeparator(true);
    for (QAction *action : added)
        shown.insertAction(first, action);
    // The menu is hidden before the chosen command runs.
    QObject::connect(
        &shown, &QMenu::aboutToHide, &shown,
        [&shown, added] {
            for (QAction *action : added)
                shown.removeAction(action);
            delete added.back();
        },
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
    shown.popup(at);
}

void MainMenu::Update(const WindowFacts &facts) const
{
    for (const CommandRow &row : kCommands) {
        QAction &action = ActionOf(row.id);
        action.setEnabled(row.enabled(facts));
        if (row.enabled == when::View)
            action.setToolTip(hintOf(row, facts));
        action.setShortcuts(row.keysApply(facts) ? keysOf(row) : QList<QKeySequence>());
    }
}

void MainMenu::FillToolBar(QToolBar &bar) const
{
    // Even an empty toolbar has one button, for the tools that do not fit.
    for (QToolButton *more : bar.findChildren<QToolButton *>())
        more->setAccessibleName(QStringLiteral("More buttons"));
    for (const ToolRow &row : kTools) {
        if (*row.key)
            addButton(bar, row);
        else
            bar.addSeparator();
    }
}

void MainMenu::addButton(QToolBar &bar, const ToolRow &row) const
{
    const QString name = QString::fromLatin1(row.toolTip), key = QString::fromLatin1(row.key);
    const QString caption = QString::fromLatin1(row.caption);
    QAction *button = bar.addAction(TintedIcon(row.icon), caption.isEmpty() ? name : caption);
    button->setObjectName(key);
    QWidget *widget = bar.widgetForAction(button);
    widget->setObjectName(key);
    widget->setAccessibleName(name);
    widget->setAccessibleDescription(QStringLiteral("tbToolBar ") + key);
    if (!caption.isEmpty())
        qobject_cast<QToolButton *>(widget)->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setToolTip(name);
    button->setEnabled(false);
    if (row.command == Command::End)
        return;
    QAction &command = ActionOf(row.command);
    button->setEnabled(command.isEnabled());
    QObject::connect(button, &QAction::triggered, &command, &QAction::trigger);
    QObject::connect(&command, &QAction::enabledChanged, button, &QAction::setEnabled);
}

} // namespace app
