// SPDX-License-Identifier: MIT
// The menu table of the main window and what its commands do.
#include "ui/main/frmMain.h"

#include "app/OpenRules.h"
#include "host/Folders.h"
#include "host/GameFiles.h"
#include "host/Guard.h"
#include "host/Path.h"
#include "ui/dialogs/frmResults.h"
#include "ui/dialogs/frmSetLoc.h"
#include "ui/main/MainStatusBar.h"
#include "validation/TSValidation.h"

#include <QMdiArea>
#include <QMenuBar>

#include <algorithm>

using app::Arrangement;
using app::MenuEntry;
using document::Guarded;
using document::WindowMode;
using host::DialogIcon;

std::vector<MenuEntry> frmMain::menuTable()
{
    std::vector<MenuEntry> table;
    for (const auto &menu :
         {fileMenu(), editMenu(), consistMenu(), stockMenu(), viewMenu(), windowMenu(), helpMenu()})
        table.insert(table.end(), menu.begin(), menu.end());
    // What the status bar says of one command must not outlast the next.
    for (MenuEntry &entry : table)
        if (entry.run)
            entry.run = [this, run = entry.run] {
                SetStatus({});
                run();
            };
    return table;
}

// clang-format off
std::vector<MenuEntry> frmMain::fileMenu()
{
    return {
        {MenuEntry::Menu, "mnuFile", "&File"},
        {MenuEntry::SubMenu, "mnuFileNew", "&New", "", "", "Open a new window"},
        {MenuEntry::Command, "mnuFileNewConsist", "&Consist", "Ctrl+N", "consist-new",
         "Start a new consist", doing(&frmMain::newConsist), 2},
        {MenuEntry::Command, "mnuFileNewConsistList", "Consist &List Window", "Ctrl+L", "list-new",
         "Open another list of the installed consists", doing(&frmMain::newConsistList), 2},
        {MenuEntry::Command, "mnuFileOpen", "&Open...", "Ctrl+O", "open", "Open a Train Simulator file",
         doing(&frmMain::openFileDialog)},
        {MenuEntry::Command, "mnuFileClose", "&Close", "Ctrl+F4; Ctrl+W", "close",
         "Close the active window", doing(&frmMain::closeActive)},
        {},
        {MenuEntry::Command, "mnuFileSave", "&Save", "Ctrl+S", "save", "Save the consist, or a picture of the 3D view",
         doing(&frmMain::save)},
        {MenuEntry::Command, "mnuFileSaveAs", "Save &As...", "Ctrl+Shift+S", "save-as",
         "Save the consist under another name", doing(&frmMain::saveAs)},
        {MenuEntry::Command, "mnuFileSaveAll", "Save A&ll", "", "save-all", "Save all open consists",
         doing(&frmMain::saveAll)},
        {},
        {MenuEntry::Command, "mnuFilePageSetup", "Page Set&up...", "", "",
         "Set the paper and its margins", doing(&frmMain::pageSetup)},
        {MenuEntry::Command, "mnuFilePrint", "&Print...", "Ctrl+P", "print",
         "Print the active window", doing(&frmMain::printActive)},
        {MenuEntry::Command, "mnuFilePrintPreview", "Print Pre&view...", "", "print-preview",
         "Show how the active window prints", saying("Print Preview not implemented")},
        {MenuEntry::Command, "mnuFileProperties", "Propert&ies", "", "properties",
         "Show the properties of the active window", doing(&frmMain::showProperties)},
        {},
        {MenuEntry::Command, "mnuFileSetMSTSLoc", "Set &MSTS Location...", "", "location",
         "Choose the Train Simulator folder to work on", doing(&frmMain::setMstsLocation)},
        {MenuEntry::Command, "mnuFileMRU0", "Recent File 1"},
        {MenuEntry::Command, "mnuFileMRU1", "Recent File 2"},
        {MenuEntry::Command, "mnuFileMRU2", "Recent File 3"},
        {},
        {MenuEntry::Command, "mnuFileExit", "E&xit", "Ctrl+Q", "exit", "End the program",
         [this] { close(); }},
    };
}

std::vector<MenuEntry> frmMain::editMenu()
{
    return {
        {MenuEntry::Menu, "mnuEdit", "&Edit"},
        {MenuEntry::Command, "mnuEditUndo", "&Undo", "Ctrl+Z", "undo", "Undo the last change",
         saying("Edit Undo not yet implemented")},
        {},
        {MenuEntry::Command, "mnuEditCut", "Cu&t", "Ctrl+X", "cut", "Delete the selected consist",
         doing(&frmMain::cutConsist)},
        {MenuEntry::Command, "mnuEditCopy", "&Copy", "Ctrl+C", "copy", "Copy the selected consist",
         doing(&frmMain::copyConsist)},
        {MenuEntry::Command, "mnuEditPaste", "&Paste", "Ctrl+V", "paste",
         "Paste a copy of the consist", doing(&frmMain::pasteConsist)},
        {MenuEntry::Command, "mnuEditPasteSpecial", "Paste &Special...", "", "",
         "Paste in another way", saying("Edit PasteSpecial not yet implemented")},
        {},
        {MenuEntry::Command, "mnuEditSetAssoc", "Set &File Association...", "", "association",
         "Open consist files with this program", doing(&frmMain::setFileAssociation)},
    };
}

std::vector<MenuEntry> frmMain::consistMenu()
{
    return {
        {MenuEntry::Menu, "mnuConsist", "&Consist"},
        {MenuEntry::Command, "mnuConsistEdit", "&Edit", "Ctrl+E", "edit", "Edit the selected consist",
         doing(&frmMain::editSelectedConsist)},
        {MenuEntry::Command, "mnuConsistView", "&View Consist", "", "render",
         "Show the selected consist in 3D", doing(&frmMain::viewSelectedConsist)},
        {MenuEntry::Command, "mnuConsistViewShape", "View &Shape", "", "shape",
         "Show the selected stock in 3D", doing(&frmMain::viewSelectedShape)},
        {},
        {MenuEntry::Command, "mnuConsistCheckStock", "&Check Stock...", "", "check-stock",
         "Check that the stock of the selected consist is there", doing(&frmMain::checkConsistStock)},
        {MenuEntry::Command, "mnuFileCheckDep", "Chec&k Dependencies...", "", "check-dependencies",
         "Check where the selected consists or stock are used", doing(&frmMain::checkDependencies)},
    };
}

std::vector<MenuEntry> frmMain::stockMenu()
{
    return {
        {MenuEntry::Menu, "mnuStock", "&Stock"},
        {MenuEntry::Command, "mnuStockViewShape", "View &Shape", "", "shape",
         "Show the selected stock in 3D", doing(&frmMain::viewSelectedShape)},
        {},
        {MenuEntry::Command, "mnuStockCheckDep", "Check &Dependencies...", "", "check-dependencies",
         "Check what the selected stock needs and where it is used",
         doing(&frmMain::checkDependencies)},
        {MenuEntry::Command, "mnuStockCheckAll", "Check &All Stock...", "", "check-all",
         "Check all installed stock", doing(&frmMain::checkAllStock)},
        {MenuEntry::Command, "mnuStockCheckTextures", "Check &Textures...", "", "",
         "Where the textures of stock are checked", doing(&frmMain::checkStockTextures)},
    };
}

std::vector<MenuEntry> frmMain::viewMenu()
{
    return {
        {MenuEntry::Menu, "mnuView", "&View"},
        {MenuEntry::Check, "mnuViewToolbar", "&Toolbar", "", "", "Show or hide the toolbar",
         doing(&frmMain::toggleToolBar)},
        {MenuEntry::Check, "mnuViewStatusBar", "Status &Bar", "", "", "Show or hide the status bar",
         doing(&frmMain::toggleStatusBar)},
        {},
        {MenuEntry::Command, "mnuViewRefresh", "&Refresh", "F5", "refresh", "Read the window's content again",
         doing(&frmMain::refresh)},
        {MenuEntry::Command, "mnuViewReset", "Reset &View", "Home", "reset-view",
         "Go back to the first view", doing(&frmMain::resetView)},
        {MenuEntry::Command, "mnuViewFilter", "&Filter...", "Ctrl+F", "filter",
         "Limit the list to names that match", doing(&frmMain::filter)},
        {MenuEntry::Command, "mnuViewOptions", "&Options...", "", "options", "Set how windows look",
         saying("View Options not yet implemented")},
        {},
        {MenuEntry::Command, "mnuViewTS", "&MSTS", "", "simulator", "Start Train Simulator",
         doing(&frmMain::startSimulator)},
        {MenuEntry::Command, "mnuViewTSE", "MSTS &Tools", "", "tools",
         "Start the simulator's editors", doing(&frmMain::startEditors)},
        {MenuEntry::Command, "mnuViewShapeViewer", "&Shape Viewer", "", "shape-viewer",
         "Start the installed shape viewer", doing(&frmMain::startShapeViewer)},
        {},
        {MenuEntry::Command, "mnuViewPictures", "Open &Pictures Folder", "Ctrl+Shift+P", "",
         "Open the folder of the saved pictures of 3D views", doing(&frmMain::openPicturesFolder)},
    };
}

std::vector<MenuEntry> frmMain::windowMenu()
{
    return {
        {MenuEntry::Menu, "mnuWindow", "&Window"},
        {MenuEntry::Command, "mnuWindowNewWindow", "&New Window", "", "new-window",
         "Open another list of the installed consists", doing(&frmMain::newConsistList)},
        {MenuEntry::Command, "mnuWindowCloseAll", "Cl&ose All", "", "",
         "Close all document windows", doing(&frmMain::closeAll)},
        {},
        {MenuEntry::Command, "mnuWindowCascade", "&Cascade", "", "cascade",
         "Arrange the windows one behind the other", arranging(Arrangement::Cascade)},
        {MenuEntry::Command, "mnuWindowTileHorizontal", "Tile &Horizontal", "", "tile-horizontal",
         "Arrange the windows one above the other", arranging(Arrangement::TileHorizontally)},
        {MenuEntry::Command, "mnuWindowTileVertical", "Tile &Vertical", "", "tile-vertical",
         "Arrange the windows side by side", arranging(Arrangement::TileVertically)},
        {MenuEntry::Command, "mnuWindowArrangeIcons", "&Arrange Icons", "", "arrange-icons",
         "Put minimised windows in a row", arranging(Arrangement::ArrangeIcons)},
        {MenuEntry::Check, "mnuWindowLockTiling", "&Lock Tiling", "", "",
         "Tile again whenever the main window changes its size"},
        {},
    };
}

std::vector<MenuEntry> frmMain::helpMenu()
{
    return {
        {MenuEntry::Menu, "mnuHelp", "&Help"},
        {MenuEntry::Command, "mnuHelpContents", "&Contents", "F1", "help", "Show the help",
         doing(&frmMain::showHelpContents)},
        {MenuEntry::Command, "mnuHelpSearchForHelpOn", "&Search For Help On...", "", "search",
         "Look something up in the help", doing(&frmMain::showHelpSearch)},
        {MenuEntry::Command, "mnuHelpWeb", "Train Simulator on the &Web", "", "",
         "Open the web site of the community in the browser", doing(&frmMain::showWebSite)},
        {},
        {MenuEntry::Command, "mnuHelpAbout", "&About ", "", "", "About this program",
         doing(&frmMain::showAbout)},
    };
}
// clang-format on

std::function<void()> frmMain::doing(void (frmMain::*handler)())
{
    return [this, handler] {
        if (!Guarded(m_services.dialogs, windowTitle().toStdString(), [&] { (this->*handler)(); }))
            SetStatus({});
    };
}

std::function<void()> frmMain::arranging(Arrangement how)
{
    return [this, how] { Arrange(how); };
}

std::function<void()> frmMain::saying(const char *text)
{
    return [this, text] {
        m_services.dialogs.Message(text, windowTitle().toStdString(), DialogIcon::None);
    };
}

void frmMain::newConsist()
{
    NewDocumentWindow(WindowMode::ConsistEditor, {});
}

void frmMain::newConsistList()
{
    NewDocumentWindow(WindowMode::ConsistList, {});
}

void frmMain::openFileDialog()
{
    const auto last = m_services.files.FindFolder(m_lastFolder);
    const std::string path = m_services.dialogs.OpenFile(
        {"Open", app::kOpenFilter, "", last ? host::path::FromDisk(*last) : consistFolder()});
    if (!path.empty())
        OpenFile(path);
}

void frmMain::closeActive()
{
    if (frmDocument *window = ActiveDocument())
        window->close();
}

void frmMain::closeAll()
{
    for (frmDocument *window : Documents())
        if (!window->close())
            return;
}

void frmMain::save()
{
    SaveDocument(false);
}

void frmMain::saveAs()
{
    frmDocument *window = ActiveDocument();
    if (window && window->Mode() == WindowMode::ConsistEditor)
        window->SaveConsistAs();
    else
        SaveDocument(false); // a 3D window saves a picture
}

void frmMain::saveAll()
{
    for (frmDocument *window : Documents()) {
        m_area->setActiveSubWindow(window);
        SaveDocument(false);
    }
}

void frmMain::setMstsLocation()
{
    if (!mayChangeLocation())
        return;
    const std::string folder = m_installation.CurrentFolder();
    frmSetLoc dialog(m_services.files, this);
    dialog.SetLocation(folder.empty() ? host::HomeFolder() : folder);
    dialog.exec();
    if (!dialog.Cancelled)
        changeLocation(dialog.Location);
}

/// False, with a message, while something works on the present location.
bool frmMain::mayChangeLocation()
{
    const std::vector<frmDocument *> open = Documents();
    const bool editing = std::any_of(open.begin(), open.end(), [](const frmDocument *window) {
        return window->Mode() == WindowMode::ConsistEditor;
    });
    if (!editing && !m_checks.Running())
        return true;
    m_services.dialogs.Message(editing ? "Can't change MSTS location whilst editting a consist!"
                                       : "Can't change MSTS location whilst a check is running!",
                               "Set MSTS Location", DialogIcon::Critical);
    return false;
}

void frmMain::changeLocation(const std::string &location)
{
    m_installation.SetLocation(location);
    for (frmDocument *window : Documents())
        if (window->Mode() == WindowMode::ConsistList)
            window->LoadForm();
}

void frmMain::editSelectedConsist()
{
    frmDocument *window = ActiveDocument();
    if (!window)
        return;
    const std::string name = window->SelectedConsist(), only = onlyOne(*window, "was opened");
    if (name.empty()) {
        m_services.dialogs.Message("Nothing selected!", "Edit", DialogIcon::Critical);
        return;
    }
    window->EditConsist(name);
    remarkOnOpened(*window, only);
}

/// The remark of a command that works on one of several selected consists: which one it was. ""
/// when not more than one is selected.
std::string frmMain::onlyOne(const frmDocument &list, const char *verb)
{
    const std::size_t selected = list.SelectedConsists().size();
    return selected < 2 ? std::string()
                        : "Only \"" + list.SelectedConsist() + "\" of the " +
                              std::to_string(selected) + " selected consists " + verb + '.';
}

/// Gives the remark to the window that was opened from `list`, if opening succeeded.
void frmMain::remarkOnOpened(const frmDocument &list, const std::string &remark)
{
    if (frmDocument *opened = ActiveDocument(); opened && opened != &list && !remark.empty())
        opened->Remark(remark);
}

bool frmMain::mayDropChanges()
{
    return m_services.dialogs.Message("Consist has changed.  Reading it again drops all changes.  "
                                      "Do you want to continue?",
                                      "Refresh", DialogIcon::Question,
                                      host::DialogButtons::YesNoDefaultNo) ==
           host::DialogAnswer::Yes;
}

void frmMain::refresh()
{
    frmDocument *window = ActiveDocument();
    m_services.files.Refresh();
    if (!window)
        return;
    const bool drops = window->Changed() && m_services.files.FileExists(window->FileName());
    if (!drops || mayDropChanges())
        window->RefreshForm();
}

void frmMain::filter()
{
    frmDocument *window = ActiveDocument();
    if (!window || document::Is3D(window->Mode()))
        return;
    const bool list = window->Mode() == WindowMode::ConsistList;
    const std::optional<std::string> answer = m_services.dialogs.Input(
        list ? "Enter a filter string for consists:" : "Enter a filter string for stock:",
        list ? "Filter Consist List" : "Filter Stock List", window->Filter());
    if (!answer)
        return;
    window->SetFilter(*answer);
    if (list)
        window->LoadForm();
    else
        window->ReloadAllStock();
}

void frmMain::toggleToolBar()
{
    tbToolBar->setVisible(command("mnuViewToolbar")->isChecked());
}

void frmMain::toggleStatusBar()
{
    sbStatusBar->setVisible(command("mnuViewStatusBar")->isChecked());
}

void frmMain::listWindows()
{
    for (QAction *item : m_windowItems)
        delete item;
    m_windowItems.clear();
    const frmDocument *active = ActiveDocument();
    for (frmDocument *window : Documents())
        listWindow(*window,
                   window->windowTitle() + QLatin1String(window->Changed() ? " (changed)" : ""),
                   window == active, [this, window] { m_area->setActiveSubWindow(window); });
    for (frmResults *window : resultWindows())
        listWindow(*window, window->windowTitle(), false, [window] {
            window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
            window->raise();
            window->activateWindow();
        });
}

void frmMain::listWindow(QWidget &window, const QString &caption, bool active,
                         const std::function<void()> &activate)
{
    const auto number = static_cast<int>(m_windowItems.size()) + 1;
    QString shown = caption;
    shown.replace(QLatin1Char('&'), QLatin1String("&&"));
    QAction *item = menu("mnuWindow")
                        ->addAction(QStringLiteral("%1%2 %3")
                                        .arg(QLatin1String(number < 10 ? "&" : ""))
                                        .arg(number)
                                        .arg(shown));
    item->setObjectName(QStringLiteral("mnuWindowList%1").arg(number));
    item->setToolTip(QStringLiteral("Go to this window"));
    item->setCheckable(true);
    item->setChecked(active);
    connect(item, &QAction::triggered, &window, activate);
    m_windowItems.push_back(item);
}
