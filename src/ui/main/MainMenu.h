// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

class QAction;
class QMenu;
class QMenuBar;
class QPoint;
class QToolBar;
class QWidget;

namespace app {

enum class Command;
enum class Menu;
struct CommandRow;
struct ToolRow;
struct WindowFacts;

/// The menus and the toolbar, built from the tables of CommandTable.h.
class MainMenu
{
public:
    using Runner = std::function<void(const CommandRow &row)>;

    /// Fills the menu bar. Each menu and each command has its name as object name and its hint as
    /// tooltip. The actions are children of the bar's window. A triggered command calls `run`.
    MainMenu(QMenuBar &bar, const Runner &run);

    QAction &ActionOf(Command command) const;
    QMenu &MenuOf(Menu menu) const;
    bool IsChecked(Command command) const;
    /// Adds the step that a command would undo or redo to its caption; "" for none.
    void NameStep(Command command, const std::string &step) const;
    /// Shows a menu as the context menu of a list, together with the submenu and the commands that
    /// only this list has.
    void PopUp(Menu menu, const QPoint &at, const std::vector<QAction *> &more) const;
    /// Enables the commands and keys that work with these windows, and disables the others.
    void Update(const WindowFacts &facts) const;
    /// Fills the toolbar. A button's key becomes the object name of its action and of its widget.
    void FillToolBar(QToolBar &bar) const;

private:
    QMenu &built(QMenuBar &bar, Menu menu);
    void addCommand(QMenu &menu, const CommandRow &row, QWidget &window, const Runner &run);
    void addButton(QToolBar &bar, const ToolRow &row) const;

    std::vector<QAction *> m_actions; ///< by Command
    std::vector<QMenu *> m_menus;     ///< by Menu; null before the menu is built
};

} // namespace app
