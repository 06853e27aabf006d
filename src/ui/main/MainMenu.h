// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QMenu>
#include <QToolBar>

#include <functional>
#include <vector>

class QMenuBar;

namespace app {

/// One line of the menu tree, in the order of the menus.
struct MenuEntry
{
    /// How the line is meant: a menu of the menu bar, a menu inside it (its commands follow at
    /// depth 2), a command, a command that shows a check mark, or a separator.
    enum Kind
    {
        Menu,
        SubMenu,
        Command,
        Check,
        Separator
    };

    Kind kind = Separator;
    const char *name = "";
    const char *caption = "";
    const char *shortcut = "";
    const char *icon = "";
    const char *hint = "";
    std::function<void()> run = {};
    int depth = 1; ///< 2 inside a submenu
};

/// Builds the menus in the menu bar. Every menu and every command has its name as object name and
/// its hint as tooltip; the actions are children of the menu bar's window.
void BuildMenus(QMenuBar &bar, const std::vector<MenuEntry> &entries);

/// One button of the toolbar. It looks and behaves as the menu command of that name, with a tooltip
/// of its own.
struct ToolEntry
{
    const char *key;     ///< "" for a gap
    const char *toolTip; ///< also what a screen reader calls it
    const char *icon;
    const char *command; ///< object name of a menu command; "" for a button that runs nothing
    const char *caption = "";
};

/// Fills the toolbar; every button's action has its key as object name.
void BuildToolBar(QToolBar &bar, const QWidget &window, const std::vector<ToolEntry> &entries);

} // namespace app
