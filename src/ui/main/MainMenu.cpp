// SPDX-License-Identifier: MIT
#include "ui/main/MainMenu.h"

#include "ui/main/IconSet.h"

#include <QMenuBar>
#include <QToolButton>

namespace app {

namespace {

QMenu *addMenu(QMenu *menu, const MenuEntry &entry)
{
    menu->setObjectName(entry.name);
    menu->menuAction()->setObjectName(entry.name);
    menu->menuAction()->setToolTip(QString::fromLatin1(entry.hint));
    menu->setToolTipsVisible(true);
    return menu;
}

void addCommand(QMenu &menu, const MenuEntry &entry, QWidget *window)
{
    auto *action = new QAction(QString::fromLatin1(entry.caption), window);
    action->setObjectName(entry.name);
    if (*entry.hint)
        action->setToolTip(QString::fromLatin1(entry.hint));
    action->setCheckable(entry.kind == MenuEntry::Check);
    // A caption that quits or opens preferences elsewhere must not be moved out of its menu.
    action->setMenuRole(QAction::NoRole);
    if (*entry.shortcut)
        action->setShortcuts(QKeySequence::listFromString(QString::fromLatin1(entry.shortcut)));
    if (*entry.icon)
        action->setIcon(TintedIcon(entry.icon));
    if (entry.run)
        QObject::connect(action, &QAction::triggered, window, entry.run);
    menu.addAction(action);
}

} // namespace

void BuildMenus(QMenuBar &bar, const std::vector<MenuEntry> &entries)
{
    QMenu *menu = nullptr, *subMenu = nullptr;
    for (const MenuEntry &entry : entries) {
        const QString caption = QString::fromLatin1(entry.caption);
        QMenu *here = entry.depth > 1 ? subMenu : menu;
        switch (entry.kind) {
        case MenuEntry::Menu:
            menu = addMenu(bar.addMenu(caption), entry);
            break;
        case MenuEntry::SubMenu:
            subMenu = addMenu(menu->addMenu(caption), entry);
            break;
        case MenuEntry::Separator:
            here->addSeparator();
            break;
        default:
            addCommand(*here, entry, bar.window());
        }
    }
}

void BuildToolBar(QToolBar &bar, const QWidget &window, const std::vector<ToolEntry> &entries)
{
    if (auto *more = bar.findChild<QToolButton *>(QStringLiteral("qt_toolbar_ext_button")))
        more->setAccessibleName(QStringLiteral("More buttons"));
    for (const ToolEntry &entry : entries) {
        if (!*entry.key) {
            bar.addSeparator();
            continue;
        }
        const QString name = QString::fromLatin1(entry.toolTip);
        QAction *button = bar.addAction(TintedIcon(entry.icon),
                                        *entry.caption ? QString::fromLatin1(entry.caption) : name);
        button->setObjectName(entry.key);
        QWidget *widget = bar.widgetForAction(button);
        widget->setObjectName(entry.key);
        widget->setAccessibleName(name);
        widget->setAccessibleDescription(QStringLiteral("tbToolBar ") +
                                         QString::fromLatin1(entry.key));
        if (*entry.caption)
            qobject_cast<QToolButton *>(widget)->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        const QString commandName = QString::fromLatin1(entry.command);
        // An empty name would find just any action.
        auto *command = commandName.isEmpty() ? nullptr : window.findChild<QAction *>(commandName);
        button->setToolTip(name);
        button->setEnabled(command && command->isEnabled());
        if (!command)
            continue;
        QObject::connect(button, &QAction::triggered, command, &QAction::trigger);
        QObject::connect(command, &QAction::enabledChanged, button, &QAction::setEnabled);
    }
}

} // namespace app
