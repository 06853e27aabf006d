// SPDX-License-Identifier: MIT
#include "ui/main/MenuHandlers.h"

#include "host/Dialogs.h"
#include "ui/main/MainMenu.h"
#include "ui/main/frmMain.h"

namespace app {

Handlers::Handlers(frmMain &main, const HandlerParts &parts)
    : window(main)
    , menus(parts.menus)
    , shell(main.Environment(), parts.desktop)
    , printing(main, parts.printers)
    , results(main, printing)
    , checkView(main, results)
    , checking(main.Environment(), checkView)
    , opener(main.Environment(), main)
    , location(main, checking)
    , drop(main, opener, location)
    , healthWindows(main, opener, shell, printing)
    , replaceWindows(main, shell)
    , windowList(main, results, healthWindows)
    , file(main, opener, printing)
    , edit(main, parts.desktop)
    , consist(main)
    , checks(main, checking, parts.statusBar)
    , health(main, healthWindows)
    , stock(main, replaceWindows)
    , view(main, parts.toolBar, parts.statusBar)
    , scene(main)
    , pictures(main)
    , tools(main, shell, parts.picturesFolder)
    , windows(main)
    , help(main, shell)
{
}

void Handlers::Say(const std::string &text) const
{
    window.Environment().dialogs.Message(text, window.windowTitle().toStdString(),
                                         host::DialogIcon::None);
}

bool Handlers::IsChecked(Command command) const
{
    return menus.IsChecked(command);
}

} // namespace app
