// SPDX-License-Identifier: MIT
// Tests the effect of every menu command.
#include "GuiTest.h"

#include "host/Folders.h"

#include "ui/dialogs/frmResults.h"
#include "ui/health/frmHealth.h"
#include "ui/replace/frmReplace.h"
#include <QAbstractItemView>

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>

#include <algorithm>
#include <set>
#include <utility>

using document::WindowMode;

namespace {

/// The window from which a command is called.
enum class From
{
    List,  ///< the list of consists, with the first one selected
    Editor ///< the editor of "Coal", with the first unit selected
};

/// The menus and their items, one per line: name [caption], with "-" before items that are disabled
/// at the start and ">" before menus.
std::string treeOf(const QList<QAction *> &actions, const std::string &indent)
{
    std::string tree;
    for (const QAction *action : actions) {
        if (action->isSeparator())
            continue;
        tree += indent +
                (action->menu()        ? ">"
                 : action->isEnabled() ? ""
                                       : "-") +
                action->objectName().toStdString() + " [" + action->text().toStdString() + "]\n";
        if (action->menu())
            tree += treeOf(action->menu()->actions(), indent + " ");
    }
    return tree;
}

constexpr char kTree[] = R"(>mnuFile [&File]
 >mnuFileNew [&New]
  mnuFileNewConsist [&Consist]
  mnuFileNewConsistList [Consist &List Window]
 mnuFileOpen [&Open...]
 mnuFileClose [&Close]
 -mnuFileSave [&Save]
 -mnuFileSaveAs [Save &As...]
 -mnuFileSaveAll [Save A&ll]
 -mnuFileSavePicture [Save Pic&ture As...]
 mnuFilePageSetup [Page Set&up...]
 mnuFilePrint [&Print...]
 mnuFilePrintPreview [Print Pre&view...]
 mnuFileProperties [Propert&ies]
 mnuFileSetMSTSLoc [Set &MSTS Location...]
 -mnuFileMRU0 [Recent File 1]
 -mnuFileMRU1 [Recent File 2]
 -mnuFileMRU2 [Recent File 3]
 mnuFileExit [E&xit]
>mnuEdit [&Edit]
 mnuEditUndo [&Undo]
 -mnuEditRedo [&Redo]
 mnuEditCut [Cu&t]
 mnuEditCopy [&Copy]
 mnuEditPaste [&Paste]
 mnuEditPasteSpecial [Paste &Special...]
 -mnuEditCopyPicture [Copy P&icture]
 mnuEditSetAssoc [Set &File Association...]
>mnuConsist [&Consist]
 mnuConsistEdit [&Edit]
 mnuConsistView [&View Consist]
 -mnuConsistViewShape [View &Shape]
 mnuConsistCheckStock [&Check Stock...]
 mnuFileCheckDep [Chec&k Dependencies...]
 mnuConsistHealth [&Health of Selected Consists]
 >mnuUnits [&Units]
  -mnuUnitsAddBehind [Add &Behind Selected Unit]
  -mnuUnitsAddSeveral [Add &Several...]
  -mnuUnitsRemove [&Remove]
  -mnuUnitsFlip [&Flip]
  -mnuUnitsMoveUp [Move &Up]
  -mnuUnitsMoveDown [Move &Down]
  -mnuUnitsReverse [Re&verse Train]
  -mnuUnitsSelectKind [Select &All of This Kind]
  -mnuUnitsReplace [R&eplace...]
  -mnuUnitsFindCandidates [Find Cand&idates...]
>mnuStock [&Stock]
 -mnuStockViewShape [View &Shape]
 mnuStockCheckDep [Check &Dependencies...]
 mnuStockCheckAll [Check &All Stock...]
 mnuStockCheckTextures [Check &Textures...]
 mnuStockHealth [&Health Report]
 mnuStockReplace [&Replace in Consists...]
 -mnuStockUndoReplace [Undo Rep&lace]
>mnuView [&View]
 mnuViewToolbar [&Toolbar]
 mnuViewStatusBar [Status &Bar]
 mnuViewPreview [Previe&w]
 mnuViewRefresh [&Refresh]
 mnuViewRefreshAll [Refresh Ever&ything]
 -mnuViewReset [Reset &View]
 -mnuViewShowAll [S&how All]
 -mnuViewLoads [Freight &Loads]
 mnuViewFilter [&Filter...]
 mnuViewOptions [&Options...]
 mnuViewTS [&MSTS]
 mnuViewTSE [MSTS &Tools]
 mnuViewShapeViewer [&Shape Viewer]
 mnuViewPictures [Open &Pictures Folder]
 -mnuViewFromFront [From Fro&nt]
 -mnuViewFromRear [From R&ear]
 -mnuViewFromAbove [From &Above]
 -mnuViewFromOtherSide [From the Other S&ide]
 >mnuScene [3&D Content]
  >mnuSeason [&Season]
   -mnuSceneSummer [Su&mmer]
   -mnuSceneSpring [S&pring]
   -mnuSceneAutumn [&Autumn]
   -mnuSceneWinter [&Winter]
  -mnuSceneSnow [S&now]
  -mnuSceneNight [Nig&ht]
  -mnuSceneLights [&Lights]
  -mnuSceneFiner [&Finer Level of Detail]
  -mnuSceneCoarser [&Coarser Level of Detail]
  -mnuSceneFaster [Fas&ter]
  -mnuSceneSlower [Slo&wer]
  -mnuSceneStop [Sto&p Wheels]
  -mnuScenePantographs [Raise Panto&graphs]
  -mnuSceneBoxes [&Boxes]
  -mnuSceneWireframe [W&ireframe]
  -mnuSceneNormals [N&ormals]
  -mnuSceneMissing [&Missing Textures]
  -mnuSceneParts [Pa&rts]
  -mnuSceneTools [Tool Row]
>mnuWindow [&Window]
 mnuWindowNewWindow [&New Window]
 mnuWindowCloseAll [Cl&ose All]
 mnuWindowCascade [&Cascade]
 mnuWindowTileHorizontal [Tile &Horizontal]
 mnuWindowTileVertical [Tile &Vertical]
 mnuWindowArrangeIcons [&Arrange Icons]
 mnuWindowLockTiling [&Lock Tiling]
>mnuHelp [&Help]
 mnuHelpContents [&Contents]
 mnuHelpSearchForHelpOn [&Search For Help On...]
 mnuHelpWeb [Train Simulator on the &Web]
 mnuHelpAbout [&About ]
)";

struct Row
{
    From from;
    const char *command;
    const char *effect;
};

std::ostream &operator<<(std::ostream &out, const Row &row)
{
    return out << row.command;
}

class CommandsTableTest : public GuiTest
{
};

class CommandsTest : public GuiTest, public testing::WithParamInterface<Row>
{
protected:
    /// Runs a command and returns its visible effects: its prompts, what it started and printed,
    /// the name of its dialog, and the changes of the state below.
    std::string effectOf(const char *command)
    {
        const std::vector<std::string> before = state(command);
        std::string effect;
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, &watch, [&effect] {
            if (auto *shown = qobject_cast<QDialog *>(QApplication::activeModalWidget())) {
                effect += "dialog|" + shown->objectName().toStdString() + '\n';
                shown->reject();
            }
        });
        watch.start(10);
        Trigger(command);
        watch.stop();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        effect += dialogs.TakeLog() + desktop.log + printers.log;
        const std::vector<std::string> after = state(command);
        for (std::size_t i = 0; i < after.size(); ++i)
            if (after[i] != before[i])
                effect += after[i];
        if (after.front() == before.front() && places() != m_places)
            effect += "arranged\n";
        return effect;
    }
    std::vector<std::string> state(const char *command) const
    {
        std::string windows = "windows";
        for (const frmDocument *document : window->Documents())
            windows += '|' + document->Caption();
        for (const frmResults *results : window->findChildren<frmResults *>())
            windows += '|' + results->Caption();
        for (const frmHealth *health : window->findChildren<frmHealth *>())
            windows += '|' + health->Caption();
        for (const frmReplace *replace : window->findChildren<frmReplace *>())
            windows += '|' + replace->windowTitle().toStdString();
        return {windows + '\n', rowsOfFirst(), rowsOfTrain(),
                "clipboard|" + QGuiApplication::clipboard()->text().toStdString() + '\n',
                Find<QAction>(*window, command).isChecked() ? "checked\n" : "unchecked\n"};
    }
    /// The rows of the first document, the list of consists; "" if it was closed.
    std::string rowsOfFirst() const
    {
        const std::vector<frmDocument *> all = window->Documents();
        if (all.empty() || all.front()->Mode() != WindowMode::ConsistList)
            return {};
        return "list|" + RowsOf(Find<QAbstractItemView>(*all.front(), "lvConsists")) + '\n';
    }
    /// The rows of the train if the command is called from an editor.
    std::string rowsOfTrain() const
    {
        if (GetParam().from != From::Editor || !Active() ||
            Active()->Mode() != WindowMode::ConsistEditor)
            return {};
        return "train|" + RowsOf(Find<QAbstractItemView>(*Active(), "lvConsist")) + '\n';
    }
    std::vector<QRect> places() const
    {
        std::vector<QRect> rects;
        for (const frmDocument *document : window->Documents())
            rects.push_back(document->geometry());
        return rects;
    }
    void showWindow(From from)
    {
        if (from == From::Editor)
            OpenEditor("Coal");
        if (from == From::Editor) {
            auto &stock = Find<QAbstractItemView>(*Active(), "lvStock");
            stock.setCurrentIndex(stock.model()->index(2, 0));
        }
        auto &list =
            Find<QAbstractItemView>(*Active(), from == From::Editor ? "lvConsist" : "lvConsists");
        list.setFocus();
        list.setCurrentIndex(list.model()->index(0, 0));
        m_places = places();
    }

    std::vector<QRect> m_places; ///< before the command
};

constexpr char kAssociate[] =
    "question|Set File Association|Do you want to associate .CON files with ZELK?\n\n(Doing this "
    "will make ZELK load when you double click on a consist file)\n";
constexpr char kCheckAll[] =
    "question|Check All Stock|About to check all stock file dependencies in your TS installtion.  "
    "This may take some time.  Do you want to continue?\n";
constexpr char kSave[] =
    "question|Save Consist|<M>/Trains/Consists/Coal.con already exists.  Do you want to overwrite "
    "it?\ncritical|Save Consist|Save of <M>/Trains/Consists/Coal.con cancelled by user!\n";
constexpr char kNoShape[] =
    "critical|View Shape|<M>/Trains/Trainset/Boxcars/box.wag: there is no Wagon block\n\nThe file "
    "is "
    "damaged or incomplete: install it again, or correct it in a text editor that keeps UTF-16.\n";
constexpr char kNoSimulator[] = "critical|View MSTS|<M>/train.exe: there is no such file\n\nWas it "
                                "moved, renamed or deleted? F5 "
                                "reads the lists again.\n";
constexpr char kNoEditors[] =
    "critical|View MSTS Tools|<M>/launcher.exe: there is no such file\n\nWas it moved, renamed or "
    "deleted? F5 reads the lists again.\n";
#define EDITED "windows|Consist List 1|Consist - Coal\n" // the caption shows the consist's name
constexpr char kRoutes[] = "select|Select Routes to Check|\n";

constexpr Row kRows[] = {
    {From::List, "mnuFileNewConsist", "windows|Consist List 1|Consist 1\n"},
    {From::List, "mnuFileNewConsistList", "windows|Consist List 1|Consist List 2\n"},
    {From::List, "mnuFileOpen", "open|Open|\n"},
    {From::List, "mnuFileClose", "windows\n"},
    {From::Editor, "mnuFileSave", kSave},
    {From::Editor, "mnuFileSaveAs", "save|Save Consist As|*.con\n"},
    {From::Editor, "mnuFileSaveAll", kSave},
    {From::List, "mnuFilePageSetup", "page setup\n"},
    {From::List, "mnuFilePrint", "print|Print Consist List|Print Consist List\n"},
    {From::List, "mnuFilePrintPreview", "none|ZELK v1.0-75|Print Preview not implemented\n"},
    {From::List, "mnuFileProperties",
     "information|All Consists Properties|Path:\t<M>/Trains/Consists\r\n\r\nCount:\t3\n"},
    {From::List, "mnuFileSetMSTSLoc", "dialog|frmSetLoc\n"},
    {From::Editor, "mnuFileSetMSTSLoc",
     "critical|Set MSTS Location|Can't change MSTS location whilst editting a consist!\n"},
    {From::List, "mnuFileExit", "windows\n"},
    {From::List, "mnuEditUndo", "none|ZELK v1.0-75|Edit Undo not yet implemented\n"},
    {From::List, "mnuEditCut", "question (No)|Delete|Delete Coal ?\n"},
    {From::List, "mnuEditCopy", "clipboard|Coal\n"},
    {From::List, "mnuEditPaste", "input|Copy Consist|Enter new consist name:|Copy of before\n"},
    {From::List, "mnuEditPasteSpecial",
     "none|ZELK v1.0-75|Edit PasteSpecial not yet implemented\n"},
    {From::List, "mnuEditSetAssoc", kAssociate},
    {From::List, "mnuConsistEdit", "windows|Consist List 1|Consist - Coal\n"},
    {From::List, "mnuConsistView", "windows|Consist List 1|Consist - Coal\n"},
    {From::Editor, "mnuConsistViewShape", kNoShape},
    {From::List, "mnuConsistCheckStock", "windows|Consist List 1|Stock check of Coal\n"},
    {From::List, "mnuFileCheckDep", kRoutes},
    {From::List, "mnuConsistHealth", "windows|Consist List 1|Health of Coal\n"},
    {From::Editor, "mnuEditCut",
     EDITED "train|Wagon/Boxcars/hopper\nclipboard|Boxcars/box.wag\n\n"},
    {From::Editor, "mnuEditCopy", "clipboard|Boxcars/box.wag\n\n"},
    {From::Editor, "mnuEditPaste",
     "critical|Paste|There are no units of a train on the clipboard.\n"},
    {From::Editor, "mnuEditUndo", ""}, // nothing to undo yet
    {From::Editor, "mnuEditRedo", ""},
    {From::Editor, "mnuUnitsAddBehind",
     EDITED "train|Wagon/Boxcars/box Engine/GP38 Pack/gp38a Wagon/Boxcars/hopper\n"},
    {From::Editor, "mnuUnitsAddSeveral", "input|Add Several|How many of gp38a?|2\n"},
    {From::Editor, "mnuUnitsRemove", EDITED "train|Wagon/Boxcars/hopper\n"},
    {From::Editor, "mnuUnitsFlip", EDITED "train|Wagon*/Boxcars/box Wagon/Boxcars/hopper\n"},
    {From::Editor, "mnuUnitsMoveUp", EDITED}, // it is the first one
    {From::Editor, "mnuUnitsMoveDown", EDITED "train|Wagon/Boxcars/hopper Wagon/Boxcars/box\n"},
    {From::Editor, "mnuUnitsReverse", EDITED "train|Wagon*/Boxcars/hopper Wagon*/Boxcars/box\n"},
    {From::Editor, "mnuUnitsSelectKind", ""},
    {From::Editor, "mnuUnitsReplace",
     "windows|Consist List 1|Consist - <M>/Trains/Consists/Coal.con|Replace in Consists\n"},
    {From::Editor, "mnuUnitsFindCandidates", "dialog|frmCandidates\n"},
    {From::Editor, "mnuStockViewShape", kNoShape},
    {From::Editor, "mnuStockCheckDep",
     "select|Select Routes to Check|\nwindows|Consist List 1|Consist - "
     "<M>/Trains/Consists/Coal.con|Usage check of box\n"},
    {From::List, "mnuStockCheckAll", kCheckAll},
    {From::List, "mnuStockCheckTextures", "critical|Stock Check Textures|Nothing selected!\n"},
    {From::List, "mnuStockHealth", "windows|Consist List 1|Health Report\n"},
    {From::List, "mnuStockReplace", "windows|Consist List 1|Replace in Consists\n"},
    {From::List, "mnuStockUndoReplace", ""}, // nothing to undo yet
    {From::List, "mnuViewToolbar", "unchecked\n"},
    {From::List, "mnuViewStatusBar", "unchecked\n"},
    {From::List, "mnuViewPreview", "checked\n"},
    {From::List, "mnuViewRefresh", "list|Another Coal Freight North GP38 Local\n"},
    {From::List, "mnuViewRefreshAll", "list|Another Coal Freight North GP38 Local\n"},
    {From::List, "mnuViewFilter",
     "input|Filter Consist List|Enter a filter string for consists:|\n"},
    {From::Editor, "mnuViewFilter", "input|Filter Stock List|Enter a filter string for stock:|\n"},
    {From::List, "mnuViewOptions", "none|ZELK v1.0-75|View Options not yet implemented\n"},
    {From::List, "mnuViewTS", kNoSimulator},
    {From::List, "mnuViewTSE", kNoEditors},
    {From::List, "mnuViewShapeViewer",
     "critical|View MSTS|MSTS does not appear to be installed on this system!\n"},
    {From::List, "mnuWindowNewWindow", "windows|Consist List 1|Consist List 2\n"},
    {From::Editor, "mnuWindowCloseAll", "windows\n"},
    {From::Editor, "mnuWindowCascade", "arranged\n"},
    {From::Editor, "mnuWindowTileHorizontal", "arranged\n"},
    {From::Editor, "mnuWindowTileVertical", "arranged\n"},
    {From::Editor, "mnuWindowArrangeIcons", ""},
    {From::List, "mnuWindowLockTiling", "checked\n"},
    {From::List, "mnuHelpContents", "open|<P>/guide/index.html\n"},
    {From::List, "mnuHelpSearchForHelpOn", "open|<P>/guide/search.html\n"},
    {From::List, "mnuHelpWeb", "web|https://www.openrails.org\n"},
    {From::List, "mnuHelpAbout", "dialog|frmAbout\n"},
};

std::string withSlashes(std::string text)
{
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

} // namespace

TEST_F(CommandsTableTest, MenusListTheCommandsInOrder)
{
    Start();
    EXPECT_EQ(treeOf(window->menuBar()->actions(), ""), kTree);
    for (const QAction *action :
         window->findChildren<QAction *>(QString(), Qt::FindDirectChildrenOnly)) {
        const std::string name = action->objectName().toStdString();
        EXPECT_TRUE(action->toolTip() != action->iconText() || name.starts_with("mnuFileMRU"))
            << name << " has no hint";
    }
}

TEST_P(CommandsTest, HasTheExpectedEffect)
{
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    Start();
    showWindow(GetParam().from);
    WriteConsist("Another", {"box"}); // Refresh must find it
    std::string effect = withSlashes(effectOf(GetParam().command));
    for (const auto &[folder, mark] :
         {std::pair(game.Path(), "<M>"), std::pair(host::ExecutableFolder(), "<P>")})
        for (std::size_t at; (at = effect.find(withSlashes(folder))) != std::string::npos;)
            effect.replace(at, folder.size(), mark);
    std::replace(effect.begin(), effect.end(), '\\', '/');
    EXPECT_EQ(effect, GetParam().effect);
}

INSTANTIATE_TEST_SUITE_P(Menu, CommandsTest, testing::ValuesIn(kRows), [](const auto &row) {
    return std::string(row.param.command) + (row.param.from == From::Editor ? "InEditor" : "");
});

TEST_F(CommandsTableTest, CoversEveryMenuCommand)
{
    Start();
    std::set<std::string> known = {
        "mnuFileMRU0", "mnuFileMRU1", "mnuFileMRU2", // never used
                                                     // these move the camera: see ViewCameraTest
        "mnuViewReset", "mnuViewShowAll", "mnuViewFromFront", "mnuViewFromRear", "mnuViewFromAbove",
        "mnuViewFromOtherSide", "mnuViewPictures", "mnuViewLoads",
        // see ViewPicturesTest, ViewLoadsTest
        "mnuFileSavePicture", "mnuEditCopyPicture"};
    for (const Row &row : kRows)
        known.insert(row.command);
    for (const QAction *action :
         window->findChildren<QAction *>(QString(), Qt::FindDirectChildrenOnly))
        EXPECT_TRUE(!action->objectName().startsWith(QLatin1String("mnu")) ||
                    action->objectName().startsWith(QLatin1String("mnuScene")) || // ViewOptionsTest
                    known.count(action->objectName().toStdString()) == 1)
            << action->objectName().toStdString();
}
