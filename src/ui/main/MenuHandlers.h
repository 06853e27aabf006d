// SPDX-License-Identifier: MIT
#pragma once

#include "app/CheckCommands.h"
#include "app/ShellCommands.h"
#include "ui/main/CheckMenu.h"
#include "ui/main/CheckView.h"
#include "ui/main/ConsistCommands.h"
#include "ui/main/EditCommands.h"
#include "ui/main/FileCommands.h"
#include "ui/main/FileDrop.h"
#include "ui/main/FileOpener.h"
#include "ui/main/HealthCommands.h"
#include "ui/main/HealthWindows.h"
#include "ui/main/HelpCommands.h"
#include "ui/main/MstsLocation.h"
#include "ui/main/PictureCommands.h"
#include "ui/main/Printing.h"
#include "ui/main/ReplaceWindows.h"
#include "ui/main/ResultsWindows.h"
#include "ui/main/SceneCommands.h"
#include "ui/main/StockCommands.h"
#include "ui/main/ToolCommands.h"
#include "ui/main/ViewCommands.h"
#include "ui/main/WindowCommands.h"
#include "ui/main/WindowList.h"

#include <string>

class QToolBar;
class frmMain;

namespace app {

class Desktop;
class MainMenu;
class MainStatusBar;
class Printers;
enum class Command;

/// The parts of the main window that its commands use; all must outlive them.
struct HandlerParts
{
    Desktop &desktop;
    Printers &printers;
    const MainMenu &menus;
    QToolBar &toolBar;
    MainStatusBar &statusBar;
    const std::string &picturesFolder;
};

/// The objects that carry out the commands, one for each menu or concern.
struct Handlers
{
    Handlers(frmMain &window, const HandlerParts &parts);

    /// Shows a message titled like the main window.
    void Say(const std::string &text) const;
    /// True while the command's check mark is set.
    bool IsChecked(Command command) const;

    frmMain &window;
    const MainMenu &menus;
    // For several menus.
    ShellCommands shell;
    Printing printing;
    ResultsWindows results;
    CheckView checkView;
    CheckCommands checking;
    FileOpener opener;
    MstsLocation location;
    FileDrop drop;
    HealthWindows healthWindows;
    ReplaceWindows replaceWindows;
    WindowList windowList;
    // For one menu each.
    FileCommands file;
    EditCommands edit;
    ConsistCommands consist;
    CheckMenu checks;
    HealthCommands health;
    StockCommands stock;
    ViewCommands view;
    SceneCommands scene;
    PictureCommands pictures;
    ToolCommands tools;
    WindowCommands windows;
    HelpCommands help;
};

} // namespace app
