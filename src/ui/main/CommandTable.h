// SPDX-License-Identifier: MIT
#pragma once

#include "ui/main/MenuHandlers.h"

#include <array>
#include <cstddef>
#include <optional>

namespace app {

/// The menus of the menu bar and their submenus.
enum class Menu
{
    File,
    FileNew,
    Edit,
    Consist,
    Units,
    Stock,
    View,
    Scene,
    Season,
    Window,
    Help,
    End ///< not a menu; the number of menus
};

/// The commands of the menus, in the order of kCommands.
// clang-format off
enum class Command
{
    FileNewConsist, FileNewConsistList, FileOpen, FileClose,
    FileSave, FileSaveAs, FileSaveAll, FileSavePicture,
    FilePageSetup, FilePrint, FilePrintPreview, FileProperties,
    FileSetMSTSLoc, FileMRU0, FileMRU1, FileMRU2,
    FileExit,

    EditUndo, EditRedo,
    EditCut, EditCopy, EditPaste, EditPasteSpecial, EditCopyPicture,
    EditSetAssoc,

    ConsistEdit, ConsistView, ConsistViewShape,
    ConsistCheckStock, FileCheckDep, ConsistHealth,

    UnitsAddBehind, UnitsAddSeveral,
    UnitsRemove, UnitsFlip, UnitsMoveUp, UnitsMoveDown, UnitsReverse,
    UnitsSelectKind,

    UnitsReplace, UnitsFindCandidates,

    StockViewShape,
    StockCheckDep, StockCheckAll, StockCheckTextures, StockHealth,
    StockReplace, StockUndoReplace,

    ViewToolbar, ViewStatusBar, ViewPreview,
    ViewRefresh, ViewRefreshAll, ViewReset, ViewShowAll, ViewLoads, ViewFilter, ViewOptions,
    ViewTS, ViewTSE, ViewShapeViewer,
    ViewPictures,
    ViewFromFront, ViewFromRear, ViewFromAbove, ViewFromOtherSide,

    SceneSummer, SceneSpring, SceneAutumn, SceneWinter,
    SceneSnow, SceneNight, SceneLights,
    SceneFiner, SceneCoarser,
    SceneFaster, SceneSlower, SceneStop, ScenePantographs,
    SceneBoxes, SceneWireframe, SceneNormals, SceneMissing,
    SceneParts, SceneTools,

    WindowNewWindow, WindowCloseAll,
    WindowCascade, WindowTileHorizontal, WindowTileVertical, WindowArrangeIcons, WindowLockTiling,

    HelpContents, HelpSearchForHelpOn, HelpWeb,
    HelpAbout,

    End ///< not a command; the number of commands
};
// clang-format on

/// Facts about the document windows that decide which commands are enabled.
struct WindowFacts
{
    bool window = false; ///< there is an active window; it is one of the next three
    bool list = false;   ///< a consist list
    bool editor = false; ///< a consist editor
    bool view = false;   ///< a 3D view
    bool undo = false;   ///< the active window has no undo, or has a step to undo
    bool redo = false;   ///< the active window has a step to redo
    bool saves = false;  ///< any window, active or not, is an editor or a 3D view
    /// The last replacement of a vehicle can be taken back.
    bool undoReplace = false;
};

using Condition = bool (*)(const WindowFacts &facts);

/// The conditions that enable commands.
namespace when {

constexpr bool Always(const WindowFacts &)
{
    return true;
}
constexpr bool Never(const WindowFacts &)
{
    return false;
}
constexpr bool AnyWindow(const WindowFacts &facts)
{
    return facts.window;
}
constexpr bool List(const WindowFacts &facts)
{
    return facts.list;
}
constexpr bool Editor(const WindowFacts &facts)
{
    return facts.editor;
}
constexpr bool View(const WindowFacts &facts)
{
    return facts.view;
}
constexpr bool ListOrEditor(const WindowFacts &facts)
{
    return facts.list || facts.editor;
}
constexpr bool ListOrView(const WindowFacts &facts)
{
    return facts.list || facts.view;
}
constexpr bool EditorOrView(const WindowFacts &facts)
{
    return facts.editor || facts.view;
}
constexpr bool Undo(const WindowFacts &facts)
{
    return facts.undo;
}
constexpr bool Redo(const WindowFacts &facts)
{
    return facts.redo;
}
constexpr bool UndoReplace(const WindowFacts &facts)
{
    return facts.undoReplace;
}
constexpr bool AnythingToSave(const WindowFacts &facts)
{
    return facts.saves;
}

} // namespace when

/// The appearance of a command in its menu.
enum class Look
{
    Plain,
    Checked,   ///< has a check mark, set at the start
    Unchecked, ///< has a check mark, clear at the start
    Hidden
};

/// A command of the menus.
struct CommandRow
{
    Command id;
    Menu menu;
    int group;        ///< within the menu; separators divide the groups
    const char *name; ///< object name of the action
    const char *caption;
    const char *keys; ///< as QKeySequence::listFromString reads them, "" for none
    const char *icon; ///< for TintedIcon, "" for none
    const char *hint; ///< tooltip
    Condition enabled;
    void (*run)(Handlers &on) = nullptr; ///< null if only the check mark changes
    Look look = Look::Plain;
    Condition keysApply = when::Always; ///< the keys do nothing in other windows
};

inline constexpr int kSpeedStep = 10; ///< km/h, for the commands that change the speed

// clang-format off
inline constexpr CommandRow kCommands[] = {
    {Command::FileNewConsist, Menu::FileNew, 1, "mnuFileNewConsist", "&Consist", "Ctrl+N", "consist-new",
     "Start a new consist", when::Always, [](Handlers &on) { on.file.NewConsist(); }},
    {Command::FileNewConsistList, Menu::FileNew, 1, "mnuFileNewConsistList", "Consist &List Window", "Ctrl+L", "list-new",
     "Open another list of the installed consists", when::Always, [](Handlers &on) { on.file.NewConsistList(); }},
    {Command::FileOpen, Menu::File, 1, "mnuFileOpen", "&Open...", "Ctrl+O", "open",
     "Open a Train Simulator file", when::Always, [](Handlers &on) { on.file.Open(); }},
    {Command::FileClose, Menu::File, 1, "mnuFileClose", "&Close", "Ctrl+F4; Ctrl+W", "close",
     "Close the active window", when::AnyWindow, [](Handlers &on) { on.file.Close(); }},

    {Command::FileSave, Menu::File, 2, "mnuFileSave", "&Save", "Ctrl+S", "save",
     "Save the consist, or a picture of the 3D view", when::EditorOrView, [](Handlers &on) { on.file.Save(); }},
    {Command::FileSaveAs, Menu::File, 2, "mnuFileSaveAs", "Save &As...", "Ctrl+Shift+S", "save-as",
     "Save the consist under another name", when::EditorOrView, [](Handlers &on) { on.file.SaveAs(); }},
    {Command::FileSaveAll, Menu::File, 2, "mnuFileSaveAll", "Save A&ll", "", "save-all",
     "Save all open consists", when::AnythingToSave, [](Handlers &on) { on.file.SaveAll(); }},
    {Command::FileSavePicture, Menu::File, 2, "mnuFileSavePicture", "Save Pic&ture As...", "Ctrl+Alt+S", "",
     "Save a picture of the 3D window in any size", when::View, [](Handlers &on) { on.pictures.SaveAs(); }},

    {Command::FilePageSetup, Menu::File, 3, "mnuFilePageSetup", "Page Set&up...", "", "",
     "Set the paper and its margins", when::Always, [](Handlers &on) { on.printing.SetUpPage(); }},
    {Command::FilePrint, Menu::File, 3, "mnuFilePrint", "&Print...", "Ctrl+P", "print",
     "Print the active window", when::AnyWindow, [](Handlers &on) { on.file.Print(); }},
    {Command::FilePrintPreview, Menu::File, 3, "mnuFilePrintPreview", "Print Pre&view...", "", "print-preview",
     "Show how the active window prints", when::Always,
     [](Handlers &on) { on.Say("Print Preview not implemented"); }},
    {Command::FileProperties, Menu::File, 3, "mnuFileProperties", "Propert&ies", "Alt+Return", "properties",
     "Show the properties of the active window", when::ListOrView, [](Handlers &on) { on.file.ShowProperties(); },
     Look::Plain, when::View}, // in a consist list the key shows the consist in 3D

    {Command::FileSetMSTSLoc, Menu::File, 4, "mnuFileSetMSTSLoc", "Set &MSTS Location...", "", "location",
     "Choose the Train Simulator folder to work on", when::Always, [](Handlers &on) { on.location.Ask(); }},
    {Command::FileMRU0, Menu::File, 4, "mnuFileMRU0", "Recent File 1", "", "", "", when::Never, nullptr, Look::Hidden},
    {Command::FileMRU1, Menu::File, 4, "mnuFileMRU1", "Recent File 2", "", "", "", when::Never, nullptr, Look::Hidden},
    {Command::FileMRU2, Menu::File, 4, "mnuFileMRU2", "Recent File 3", "", "", "", when::Never, nullptr, Look::Hidden},

    {Command::FileExit, Menu::File, 5, "mnuFileExit", "E&xit", "Ctrl+Q", "exit",
     "End the program", when::Always, [](Handlers &on) { on.file.Exit(); }},

    {Command::EditUndo, Menu::Edit, 1, "mnuEditUndo", "&Undo", "Ctrl+Z", "undo",
     "Undo the last change", when::Undo,
     [](Handlers &on) {
         if (!on.edit.Undo())
             on.Say("Edit Undo not yet implemented");
     }},
    {Command::EditRedo, Menu::Edit, 1, "mnuEditRedo", "&Redo", "Ctrl+Shift+Z; Ctrl+Y", "redo",
     "Repeat the change that was undone", when::Redo, [](Handlers &on) { on.edit.Redo(); }},

    {Command::EditCut, Menu::Edit, 2, "mnuEditCut", "Cu&t", "Ctrl+X", "cut",
     "Delete the selected consist, or cut the selected units", when::ListOrEditor, [](Handlers &on) { on.edit.Cut(); }},
    {Command::EditCopy, Menu::Edit, 2, "mnuEditCopy", "&Copy", "Ctrl+C", "copy",
     "Copy the selected consist or units", when::ListOrEditor, [](Handlers &on) { on.edit.Copy(); }},
    {Command::EditPaste, Menu::Edit, 2, "mnuEditPaste", "&Paste", "Ctrl+V", "paste",
     "Paste a copy of the consist, or the copied units", when::Always, [](Handlers &on) { on.edit.Paste(); }},
    {Command::EditPasteSpecial, Menu::Edit, 2, "mnuEditPasteSpecial", "Paste &Special...", "", "",
     "Paste in another way", when::Always, [](Handlers &on) { on.Say("Edit PasteSpecial not yet implemented"); }},
    {Command::EditCopyPicture, Menu::Edit, 2, "mnuEditCopyPicture", "Copy P&icture", "Ctrl+Shift+C", "",
     "Copy the picture of the 3D window", when::View, [](Handlers &on) { on.pictures.Copy(); }},

    {Command::EditSetAssoc, Menu::Edit, 3, "mnuEditSetAssoc", "Set &File Association...", "", "association",
     "Open consist files with this program", when::Always, [](Handlers &on) { on.shell.SetFileAssociation(); }},

    {Command::ConsistEdit, Menu::Consist, 1, "mnuConsistEdit", "&Edit", "Ctrl+E", "edit",
     "Edit the selected consist", when::List, [](Handlers &on) { on.consist.Edit(); }},
    {Command::ConsistView, Menu::Consist, 1, "mnuConsistView", "&View Consist", "", "render",
     "Show the selected consist in 3D", when::ListOrEditor, [](Handlers &on) { on.consist.View(); }},
    {Command::ConsistViewShape, Menu::Consist, 1, "mnuConsistViewShape", "View &Shape", "", "shape",
     "Show the selected stock in 3D", when::Editor, [](Handlers &on) { on.consist.ViewShape(); }},

    {Command::ConsistCheckStock, Menu::Consist, 2, "mnuConsistCheckStock", "&Check Stock...", "", "check-stock",
     "Check that the stock of the selected consist is there", when::List,
     [](Handlers &on) { on.checks.ConsistStock(); }},
    {Command::FileCheckDep, Menu::Consist, 2, "mnuFileCheckDep", "Chec&k Dependencies...", "", "check-dependencies",
     "Check where the selected consists or stock are used", when::Always,
     [](Handlers &on) { on.checks.Dependencies(); }},
    {Command::ConsistHealth, Menu::Consist, 2, "mnuConsistHealth", "&Health of Selected Consists", "", "health",
     "Report everything that is wrong with what the selected consists need", when::List,
     [](Handlers &on) { on.health.SelectedConsists(); }},

    {Command::UnitsAddBehind, Menu::Units, 1, "mnuUnitsAddBehind", "Add &Behind Selected Unit", "Ctrl+Return; Ctrl+Enter", "add",
     "Add the selected stock behind the selected unit of the train", when::Editor,
     [](Handlers &on) { on.consist.RunOnUnits(document::UnitCommand::AddBehind); }},
    {Command::UnitsAddSeveral, Menu::Units, 1, "mnuUnitsAddSeveral", "Add &Several...", "Ctrl+Shift+Return", "",
     "Add the selected stock several times at the end of the train", when::Editor,
     [](Handlers &on) { on.consist.RunOnUnits(document::UnitCommand::AddSeveral); }},

    {Command::UnitsRemove, Menu::Units, 2, "mnuUnitsRemove", "&Remove", "Ctrl+D", "remove",
     "Remove the selected units", when::Editor,
     [](Handlers &on) { on.consist.RunOnUnits(document::UnitCommand::Remove); }},
    {Command::UnitsFlip, Menu::Units, 2, "mnuUnitsFlip", "&Flip", "Ctrl+T", "flip",
     "Turn each of the selected units round", when::Editor,
     [](Handlers &on) { on.consist.RunOnUnits(document::UnitCommand::Flip); }},
    {Command::UnitsMoveUp, Menu::Units, 2, "mnuUnitsMoveUp", "Move &Up", "Alt+Up", "forwards",
     "Move the selected units towards the head of the train", when::Editor,
     [](Handlers &on) { on.consist.RunOnUnits(document::UnitCommand::MoveUp); }},
    {Command::UnitsMoveDown, Menu::Units, 2, "mnuUnitsMoveDown", "Move &Down", "Alt+Down", "backwards",
     "Move the selected units towards the end of the train", when::Editor,
     [](Handlers &on) { on.consist.RunOnUnits(document::UnitCommand::MoveDown); }},
    {Command::UnitsReverse, Menu::Units, 2, "mnuUnitsReverse", "Re&verse Train", "Ctrl+Shift+T", "",
     "Reverse the order of all units and turn each of them round", when::Editor,
     [](Handlers &on) { on.consist.RunOnUnits(document::UnitCommand::Reverse); }},

    {Command::UnitsSelectKind, Menu::Units, 3, "mnuUnitsSelectKind", "Select &All of This Kind", "Ctrl+Shift+A", "",
     "Select all units of the train that are the same vehicle as a selected one", when::Editor,
     [](Handlers &on) { on.consist.RunOnUnits(document::UnitCommand::SelectKind); }},

    {Command::UnitsReplace, Menu::Units, 4, "mnuUnitsReplace", "R&eplace...", "", "",
     "Replace the vehicle of the selected unit in all consists", when::Editor,
     [](Handlers &on) { on.stock.ReplaceUnit(); }},
    {Command::UnitsFindCandidates, Menu::Units, 4, "mnuUnitsFindCandidates", "Find Cand&idates...", "", "search",
     "List the installed vehicles that may take the place of the selected unit", when::Editor,
     [](Handlers &on) { on.stock.FindCandidates(); }},

    {Command::StockViewShape, Menu::Stock, 1, "mnuStockViewShape", "View &Shape", "", "shape",
     "Show the selected stock in 3D", when::Editor, [](Handlers &on) { on.consist.ViewShape(); }},

    {Command::StockCheckDep, Menu::Stock, 2, "mnuStockCheckDep", "Check &Dependencies...", "", "check-dependencies",
     "Check what the selected stock needs and where it is used", when::Always,
     [](Handlers &on) { on.checks.Dependencies(); }},
    {Command::StockCheckAll, Menu::Stock, 2, "mnuStockCheckAll", "Check &All Stock...", "", "check-all",
     "Check all installed stock", when::Always, [](Handlers &on) { on.checks.AllStock(); }},
    {Command::StockCheckTextures, Menu::Stock, 2, "mnuStockCheckTextures", "Check &Textures...", "", "",
     "Where the textures of stock are checked", when::Always, [](Handlers &on) { on.checks.StockTextures(); }},
    {Command::StockHealth, Menu::Stock, 2, "mnuStockHealth", "&Health Report", "Ctrl+H", "health",
     "Report everything that is wrong with the installed content, by the simulators' own rules", when::Always,
     [](Handlers &on) { on.health.WholeInstallation(); }},

    {Command::StockReplace, Menu::Stock, 3, "mnuStockReplace", "&Replace in Consists...", "", "",
     "Replace a vehicle by another one in all consists", when::Always,
     [](Handlers &on) { on.stock.ReplaceInConsists(); }},
    {Command::StockUndoReplace, Menu::Stock, 3, "mnuStockUndoReplace", "Undo Rep&lace", "", "",
     "Take back the last replacement in consists", when::UndoReplace,
     [](Handlers &on) { on.stock.UndoReplace(); }},

    {Command::ViewToolbar, Menu::View, 1, "mnuViewToolbar", "&Toolbar", "", "",
     "Show or hide the toolbar", when::Always,
     [](Handlers &on) { on.view.ShowToolBar(on.IsChecked(Command::ViewToolbar)); },
     Look::Checked},
    {Command::ViewStatusBar, Menu::View, 1, "mnuViewStatusBar", "Status &Bar", "", "",
     "Show or hide the status bar", when::Always,
     [](Handlers &on) { on.view.ShowStatusBar(on.IsChecked(Command::ViewStatusBar)); },
     Look::Checked},
    {Command::ViewPreview, Menu::View, 1, "mnuViewPreview", "Previe&w", "F8", "",
     "Show the selected vehicle of a consist editor in 3D", when::Always,
     [](Handlers &on) { on.view.ShowPreview(on.IsChecked(Command::ViewPreview)); },
     Look::Unchecked},

    {Command::ViewRefresh, Menu::View, 2, "mnuViewRefresh", "&Refresh", "F5", "refresh",
     "Read the window's content again", when::AnyWindow, [](Handlers &on) { on.view.Refresh(); }},
    {Command::ViewRefreshAll, Menu::View, 2, "mnuViewRefreshAll", "Refresh Ever&ything", "Shift+F5",
     "", "Read all windows again; the next check also reads what has not changed", when::Always,
     [](Handlers &on) { on.view.RefreshEverything(); }},
    {Command::ViewReset, Menu::View, 2, "mnuViewReset", "Reset &View", "Home", "reset-view",
     "Go back to the first view", when::View, [](Handlers &on) { on.view.Reset(); }},
    {Command::ViewShowAll, Menu::View, 2, "mnuViewShowAll", "S&how All", "End", "",
     "Show the whole train or shape of the 3D window", when::View,
     [](Handlers &on) { on.view.MoveCamera(viewer::CameraCommand::ShowAll); }},
    {Command::ViewLoads, Menu::View, 2, "mnuViewLoads", "Freight &Loads", "L", "",
     "Show or hide the loads of vehicles in 3D", when::View,
     [](Handlers &on) { on.view.ShowLoads(on.IsChecked(Command::ViewLoads)); },
     Look::Checked, when::View},
    {Command::ViewFilter, Menu::View, 2, "mnuViewFilter", "&Filter...", "Ctrl+F", "filter",
     "Limit the list to names that match", when::ListOrEditor, [](Handlers &on) { on.view.Filter(); }},
    {Command::ViewOptions, Menu::View, 2, "mnuViewOptions", "&Options...", "", "options",
     "Set how windows look", when::Always, [](Handlers &on) { on.Say("View Options not yet implemented"); }},

    {Command::ViewTS, Menu::View, 3, "mnuViewTS", "&MSTS", "", "simulator",
     "Start Train Simulator", when::Always, [](Handlers &on) { on.tools.StartSimulator(); }},
    {Command::ViewTSE, Menu::View, 3, "mnuViewTSE", "MSTS &Tools", "", "tools",
     "Start the simulator's editors", when::Always, [](Handlers &on) { on.tools.StartEditors(); }},
    {Command::ViewShapeViewer, Menu::View, 3, "mnuViewShapeViewer", "&Shape Viewer", "", "shape-viewer",
     "Start the installed shape viewer", when::Always, [](Handlers &on) { on.tools.StartShapeViewer(); }},

    {Command::ViewPictures, Menu::View, 4, "mnuViewPictures", "Open &Pictures Folder", "Ctrl+Shift+P", "",
     "Open the folder of the saved pictures of 3D views", when::Always,
     [](Handlers &on) { on.tools.OpenPicturesFolder(); }},

    {Command::ViewFromFront, Menu::View, 5, "mnuViewFromFront", "From Fro&nt", "1", "",
     "Look at the front of the train in the 3D window", when::View,
     [](Handlers &on) { on.view.MoveCamera(viewer::CameraCommand::FromFront); }},
    {Command::ViewFromRear, Menu::View, 5, "mnuViewFromRear", "From R&ear", "2", "",
     "Look at the rear of the train in the 3D window", when::View,
     [](Handlers &on) { on.view.MoveCamera(viewer::CameraCommand::FromRear); }},
    {Command::ViewFromAbove, Menu::View, 5, "mnuViewFromAbove", "From &Above", "3", "",
     "Look down on the whole train in the 3D window", when::View,
     [](Handlers &on) { on.view.MoveCamera(viewer::CameraCommand::FromAbove); }},
    {Command::ViewFromOtherSide, Menu::View, 5, "mnuViewFromOtherSide", "From the Other S&ide", "4", "",
     "Move the camera of the 3D window to the opposite side", when::View,
     [](Handlers &on) { on.view.MoveCamera(viewer::CameraCommand::FromOtherSide); }},

    {Command::SceneSummer, Menu::Season, 1, "mnuSceneSummer", "Su&mmer", "5", "",
     "Show the textures of summer in the 3D window", when::View,
     [](Handlers &on) { on.scene.Choose(viewer::Season::Summer); }, Look::Unchecked, when::View},
    {Command::SceneSpring, Menu::Season, 1, "mnuSceneSpring", "S&pring", "6", "",
     "Show the textures of spring in the 3D window", when::View,
     [](Handlers &on) { on.scene.Choose(viewer::Season::Spring); }, Look::Unchecked, when::View},
    {Command::SceneAutumn, Menu::Season, 1, "mnuSceneAutumn", "&Autumn", "7", "",
     "Show the textures of autumn in the 3D window", when::View,
     [](Handlers &on) { on.scene.Choose(viewer::Season::Autumn); }, Look::Unchecked, when::View},
    {Command::SceneWinter, Menu::Season, 1, "mnuSceneWinter", "&Winter", "8", "",
     "Show the textures of winter in the 3D window", when::View,
     [](Handlers &on) { on.scene.Choose(viewer::Season::Winter); }, Look::Unchecked, when::View},

    {Command::SceneSnow, Menu::Scene, 1, "mnuSceneSnow", "S&now", "S", "",
     "Show the textures for snow in the 3D window", when::View,
     [](Handlers &on) { on.scene.Switch(&viewer::ViewOptions::snow); }, Look::Unchecked, when::View},
    {Command::SceneNight, Menu::Scene, 1, "mnuSceneNight", "Nig&ht", "N", "",
     "Show the 3D window at night", when::View,
     [](Handlers &on) { on.scene.Switch(&viewer::ViewOptions::night); }, Look::Unchecked, when::View},
    {Command::SceneLights, Menu::Scene, 1, "mnuSceneLights", "&Lights", "H", "",
     "Show the lights of vehicles in the 3D window", when::View,
     [](Handlers &on) { on.scene.Switch(&viewer::ViewOptions::lights); }, Look::Unchecked, when::View},

    {Command::SceneFiner, Menu::Scene, 2, "mnuSceneFiner", "&Finer Level of Detail", "PgUp", "",
     "Show the next finer level of detail in the 3D window", when::View,
     [](Handlers &on) { on.scene.ChangeLevel(-1); }, Look::Plain, when::View},
    {Command::SceneCoarser, Menu::Scene, 2, "mnuSceneCoarser", "&Coarser Level of Detail", "PgDown", "",
     "Show the next coarser level of detail in the 3D window", when::View,
     [](Handlers &on) { on.scene.ChangeLevel(1); }, Look::Plain, when::View},

    {Command::SceneFaster, Menu::Scene, 3, "mnuSceneFaster", "Fas&ter", "+; =", "",
     "Turn the wheels in the 3D window faster", when::View,
     [](Handlers &on) { on.scene.ChangeSpeed(kSpeedStep); }, Look::Plain, when::View},
    {Command::SceneSlower, Menu::Scene, 3, "mnuSceneSlower", "Slo&wer", "-", "",
     "Turn the wheels in the 3D window more slowly", when::View,
     [](Handlers &on) { on.scene.ChangeSpeed(-kSpeedStep); }, Look::Plain, when::View},
    {Command::SceneStop, Menu::Scene, 3, "mnuSceneStop", "Sto&p Wheels", "0", "",
     "Stop the wheels in the 3D window", when::View,
     [](Handlers &on) { on.scene.StopWheels(); }, Look::Plain, when::View},
    {Command::ScenePantographs, Menu::Scene, 3, "mnuScenePantographs", "Raise Panto&graphs", "P", "",
     "Raise the pantographs in the 3D window", when::View,
     [](Handlers &on) { on.scene.Switch(&viewer::ViewOptions::pantographs); }, Look::Unchecked, when::View},

    {Command::SceneBoxes, Menu::Scene, 4, "mnuSceneBoxes", "&Boxes", "B", "",
     "Show the sizes of vehicles and their couplers as boxes", when::View,
     [](Handlers &on) { on.scene.Switch(&viewer::ViewOptions::boxes); }, Look::Unchecked, when::View},
    {Command::SceneWireframe, Menu::Scene, 4, "mnuSceneWireframe", "W&ireframe", "W", "",
     "Show the edges of the triangles in the 3D window", when::View,
     [](Handlers &on) { on.scene.Switch(&viewer::ViewOptions::wireframe); }, Look::Unchecked, when::View},
    {Command::SceneNormals, Menu::Scene, 4, "mnuSceneNormals", "N&ormals", "V", "",
     "Show a line along each vertex's normal in the 3D window", when::View,
     [](Handlers &on) { on.scene.Switch(&viewer::ViewOptions::normals); }, Look::Unchecked, when::View},
    {Command::SceneMissing, Menu::Scene, 4, "mnuSceneMissing", "&Missing Textures", "M", "",
     "Show missing textures in magenta, and list them", when::View,
     [](Handlers &on) { on.scene.Switch(&viewer::ViewOptions::marksMissing); }, Look::Unchecked, when::View},

    {Command::SceneParts, Menu::Scene, 5, "mnuSceneParts", "Pa&rts", "T", "",
     "List the parts of the shapes in the 3D window, to hide some of them", when::View,
     [](Handlers &on) { on.scene.SwitchParts(); }, Look::Unchecked, when::View},
    {Command::SceneTools, Menu::Scene, 5, "mnuSceneTools", "Tool Row", "O", "",
     "Show the tools of the 3D window and go to them", when::View,
     [](Handlers &on) { on.scene.SwitchTools(); }, Look::Plain, when::View},

    {Command::WindowNewWindow, Menu::Window, 1, "mnuWindowNewWindow", "&New Window", "", "new-window",
     "Open another list of the installed consists", when::Always, [](Handlers &on) { on.file.NewConsistList(); }},
    {Command::WindowCloseAll, Menu::Window, 1, "mnuWindowCloseAll", "Cl&ose All", "", "",
     "Close all document windows", when::AnyWindow, [](Handlers &on) { on.windows.CloseAll(); }},

    {Command::WindowCascade, Menu::Window, 2, "mnuWindowCascade", "&Cascade", "", "cascade",
     "Arrange the windows one behind the other", when::AnyWindow, [](Handlers &on) { on.windows.Cascade(); }},
    {Command::WindowTileHorizontal, Menu::Window, 2, "mnuWindowTileHorizontal", "Tile &Horizontal", "", "tile-horizontal",
     "Arrange the windows one above the other", when::AnyWindow,
     [](Handlers &on) { on.windows.TileHorizontally(); }},
    {Command::WindowTileVertical, Menu::Window, 2, "mnuWindowTileVertical", "Tile &Vertical", "", "tile-vertical",
     "Arrange the windows side by side", when::AnyWindow, [](Handlers &on) { on.windows.TileVertically(); }},
    {Command::WindowArrangeIcons, Menu::Window, 2, "mnuWindowArrangeIcons", "&Arrange Icons", "", "arrange-icons",
     "Put minimised windows in a row", when::AnyWindow, [](Handlers &on) { on.windows.ArrangeIcons(); }},
    {Command::WindowLockTiling, Menu::Window, 2, "mnuWindowLockTiling", "&Lock Tiling", "", "",
     "Tile again whenever the main window changes its size", when::Always, nullptr, Look::Unchecked},

    {Command::HelpContents, Menu::Help, 1, "mnuHelpContents", "&Contents", "F1", "help",
     "Show the help", when::Always, [](Handlers &on) { on.shell.ShowGuide(GuidePage::Contents); }},
    {Command::HelpSearchForHelpOn, Menu::Help, 1, "mnuHelpSearchForHelpOn", "&Search For Help On...", "", "search",
     "Look something up in the help", when::Always, [](Handlers &on) { on.shell.ShowGuide(GuidePage::Search); }},
    {Command::HelpWeb, Menu::Help, 1, "mnuHelpWeb", "Train Simulator on the &Web", "", "",
     "Open the web site of the community in the browser", when::Always,
     [](Handlers &on) { on.shell.ShowWebSite(); }},

    {Command::HelpAbout, Menu::Help, 2, "mnuHelpAbout", "&About ", "", "",
     "About this program", when::Always, [](Handlers &on) { on.help.About(); }},
};
// clang-format on

/// A command whose check mark shows an option of the active 3D window.
struct SceneMark
{
    Command command;
    bool (*isOn)(const viewer::ViewOptions &options, const viewer::OptionControls &controls);
};

template <bool viewer::ViewOptions::*option>
constexpr bool Has(const viewer::ViewOptions &options, const viewer::OptionControls &)
{
    return options.*option;
}
template <viewer::Season season>
constexpr bool Is(const viewer::ViewOptions &options, const viewer::OptionControls &)
{
    return options.season == season;
}

inline constexpr SceneMark kSceneMarks[] = {
    {Command::SceneSummer, Is<viewer::Season::Summer>},
    {Command::SceneSpring, Is<viewer::Season::Spring>},
    {Command::SceneAutumn, Is<viewer::Season::Autumn>},
    {Command::SceneWinter, Is<viewer::Season::Winter>},
    {Command::SceneSnow, Has<&viewer::ViewOptions::snow>},
    {Command::SceneNight, Has<&viewer::ViewOptions::night>},
    {Command::SceneLights, Has<&viewer::ViewOptions::lights>},
    {Command::ScenePantographs, Has<&viewer::ViewOptions::pantographs>},
    {Command::SceneBoxes, Has<&viewer::ViewOptions::boxes>},
    {Command::SceneWireframe, Has<&viewer::ViewOptions::wireframe>},
    {Command::SceneNormals, Has<&viewer::ViewOptions::normals>},
    {Command::SceneMissing, Has<&viewer::ViewOptions::marksMissing>},
    {Command::SceneParts,
     [](const viewer::ViewOptions &, const viewer::OptionControls &controls) {
         return controls.PartsShown();
     }},
};

/// A menu. A submenu is placed where its first command is.
struct MenuRow
{
    Menu id;
    const char *name; ///< object name of the menu and of its action
    const char *caption;
    const char *hint = "";
    std::optional<Menu> parent = std::nullopt; ///< no value: in the menu bar
};

inline constexpr MenuRow kMenus[] = {
    {Menu::File, "mnuFile", "&File"},
    {Menu::FileNew, "mnuFileNew", "&New", "Open a new window", Menu::File},
    {Menu::Edit, "mnuEdit", "&Edit"},
    {Menu::Consist, "mnuConsist", "&Consist"},
    {Menu::Units, "mnuUnits", "&Units", "Change the units of the train", Menu::Consist},
    {Menu::Stock, "mnuStock", "&Stock"},
    {Menu::View, "mnuView", "&View"},
    {Menu::Scene, "mnuScene", "3&D Content", "Choose what 3D windows show", Menu::View},
    {Menu::Season, "mnuSeason", "&Season", "Choose the season of the 3D window", Menu::Scene},
    {Menu::Window, "mnuWindow", "&Window"},
    {Menu::Help, "mnuHelp", "&Help"},
};

/// A button of the toolbar. It looks and behaves like its command, but has a separate tooltip.
struct ToolRow
{
    const char *key;                ///< object name; "" for a gap
    const char *toolTip = "";       ///< also the accessible name
    const char *icon = "";          ///< for TintedIcon
    Command command = Command::End; ///< End: the button does nothing
    const char *caption = "";       ///< shown beside the icon, "" for the icon only
};

inline constexpr ToolRow kTools[] = {
    {"New", "New Consist", "consist-new", Command::FileNewConsist},
    {"Open", "Open File", "open", Command::FileOpen},
    {"Save", "Save Consist", "save", Command::FileSave},
    {"Print", "Print", "print", Command::FilePrint},
    {""},
    {"Cut", "Cut", "cut", Command::EditCut},
    {"Copy", "Copy", "copy", Command::EditCopy},
    {"Paste", "Paste", "paste", Command::EditPaste},
    {""},
    {"Properties", "View Consist Properties", "edit", Command::ConsistEdit},
    {"Render", "View Consist in 3D", "render", Command::ConsistView},
    {"Filter", "Filter Consist List", "filter", Command::ViewFilter, "Filter"},
    {"Options", "View Options", "options"},
};

/// True if a table has exactly one row for each enumerator, in the order of the enumerators.
template <typename Row, std::size_t Count> constexpr bool HasRowForEach(const Row (&rows)[Count])
{
    std::size_t place = 0;
    for (const Row &row : rows)
        if (static_cast<std::size_t>(row.id) != place++)
            return false;
    return place == static_cast<std::size_t>(decltype(Row::id)::End);
}
static_assert(HasRowForEach(kCommands) && HasRowForEach(kMenus));

} // namespace app
