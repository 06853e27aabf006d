// SPDX-License-Identifier: MIT
#include "ui/replace/frmReplace.h"

#include "GuiTest.h"
#include "document/StockReplacement.h"
#include "ui/replace/VehiclePicker.h"
#include "ui/replace/frmCandidates.h"
#include "ui/widgets/ListView.h"
#include "ui/widgets/SearchField.h"

#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTreeView>

#include <filesystem>

using document::ListView;
using host::DialogAnswer;
using install::StockItem;
using replace::VehiclePicker;

namespace {

const StockItem kBox = {"Wagon", "Boxcars", "box"};
const StockItem kOil = {"Wagon", "Boxcars", "Oil"}; // named by a consist, but not installed

class frmReplaceTest : public GuiTest
{
protected:
    frmReplaceTest()
    {
        game.Write("Routes/Plains/Activities/Shunt.act",
                   "SIMISA@@@@@@@@@@JINX0a0t______\r\n\r\nTr_Activity ( ActivityObjects (\r\n"
                   " ActivityObject ( Train_Config ( TrainCfg ( \"\"\r\n"
                   "  Wagon ( WagonData ( hopper Boxcars ) UiD ( 0 ) )\r\n"
                   "  Wagon ( WagonData ( BOX \"Boxcars\" ) UiD ( 1 ) ) ) ) ) ) )\r\n");
    }
    ~frmReplaceTest() override
    {
        for (frmDocument *document : window ? window->Documents() : std::vector<frmDocument *>())
            document->AllowUnload();
        if (window)
            window->close();
    }
    frmReplace &replaceWindow() { return *window->findChild<frmReplace *>(); }
    frmReplace &open(const char *command = "mnuStockReplace")
    {
        Trigger(command);
        EXPECT_TRUE(idle());
        return replaceWindow();
    }
    bool idle()
    {
        return Wait([this] { return !replaceWindow().Running(); });
    }
    /// Opens the window and picks both vehicles.
    frmReplace &openFor(const StockItem &from, const StockItem &to)
    {
        frmReplace &shown = open();
        shown.from->Pick(from);
        EXPECT_TRUE(idle());
        shown.to->Pick(to);
        EXPECT_EQ(shown.from->PickedVehicle(), from);
        EXPECT_EQ(shown.to->PickedVehicle(), to);
        return shown;
    }
    std::string rows(VehiclePicker &picker) { return RowsOf(*picker.list); }
    std::string summary() { return replaceWindow().lblSummary->text().toStdString(); }
    /// Returns the tree, with "x" in front of ticked rows, "-" in front of partly ticked ones and
    /// "!" of those that cannot be ticked.
    std::string tree(const QModelIndex &parent = {}, const std::string &indent = "")
    {
        const QAbstractItemModel &model = *replaceWindow().tvPlan->model();
        std::string text;
        for (int row = 0; row < model.rowCount(parent); ++row) {
            const QModelIndex index = model.index(row, 0, parent);
            const QVariant check = index.data(Qt::CheckStateRole);
            text += indent +
                    (!index.flags().testFlag(Qt::ItemIsUserCheckable) ? "!"
                     : check == Qt::Checked                           ? "x"
                     : check == Qt::PartiallyChecked                  ? "-"
                                                                      : "o") +
                    index.data().toString().toStdString() + '\n' + tree(index, indent + ' ');
        }
        return text;
    }
    /// Returns the row at these places, from the top.
    QModelIndex at(const std::vector<int> &places)
    {
        QModelIndex index;
        for (const int place : places)
            index = replaceWindow().tvPlan->model()->index(place, 0, index);
        return index;
    }
    /// Ticks or unticks a row by the keyboard.
    void toggle(const std::vector<int> &places)
    {
        QTreeView &plan = *replaceWindow().tvPlan;
        plan.setCurrentIndex(at(places));
        QTest::keyClick(&plan, Qt::Key_Space);
    }
    void replaceAll()
    {
        replaceWindow().cmdReplace->click();
        EXPECT_TRUE(idle());
    }
    void undo()
    {
        auto &action = Find<QAction>(*window, "mnuStockUndoReplace");
        window->SetStatus({});
        action.trigger();
        EXPECT_TRUE(Wait([&] { return !Status().empty() && !Status().ends_with("..."); }));
    }
    std::map<std::string, std::string> contents() const
    {
        std::map<std::string, std::string> all;
        for (const std::string &name : game.Names("Trains/Consists"))
            all[name] = game.Read("Trains/Consists/" + name);
        all["act"] = game.Read("Routes/Plains/Activities/Shunt.act");
        return all;
    }
    frmDocument &changedEditor(const char *name)
    {
        frmDocument &editor = OpenEditor(name);
        auto &train = Find<ListView>(editor, "lvConsist");
        train.setFocus();
        train.SelectRow(0);
        Trigger("mnuUnitsFlip");
        EXPECT_TRUE(editor.Changed());
        return editor;
    }
};

} // namespace

TEST_F(frmReplaceTest, PreviewListsWhatAReplacementFinds)
{
    Start();
    frmReplace &shown = open();
    EXPECT_EQ(rows(*shown.from),
              "Boxcars/box.wag/3 units Boxcars/hopper.wag/2 units Boxcars/Oil.wag/missing, 1 unit "
              "GP38 Pack/gp38a.eng/ GP38 Pack/gp38b.eng/ Tankers/Oil.wag/");
    EXPECT_FALSE(shown.cmdReplace->isEnabled());
    shown.from->Pick(kBox);
    ASSERT_TRUE(idle());
    EXPECT_EQ(tree(), "xConsists (3)\n"
                      " xCoal\n  xUnit 1: Boxcars/box.wag\n"
                      " xFreight North\n  xUnit 1: Boxcars/box.wag\n"
                      " xGP38 Local\n  xUnit 1: Boxcars/box.wag\n"
                      "oActivities (1)\n"
                      " oPlains/Shunt.act\n  oLoose consist 1, unit 2: Boxcars/BOX.wag\n");
    EXPECT_EQ(summary(), "3 of 4 units in 3 consists will change.");

    // The same files and units as a search from the outside.
    const document::StockReplacement replacement(files, kBox, kBox);
    std::vector<std::string> paths;
    for (const char *name : {"Coal", "Freight North", "GP38 Local"})
        paths.push_back(ConsistFile(name));
    paths.push_back(game.At("Routes/Plains/Activities/Shunt.act"));
    const document::FoundInUse found = document::FindInUse(replacement, paths);
    const auto plan = shown.Plan();
    ASSERT_EQ(plan->Files().size(), found.files.size());
    for (std::size_t i = 0; i < found.files.size(); ++i) {
        const document::FileInUse &planned = plan->Files()[i].found;
        EXPECT_EQ(planned.bytes, found.files[i].bytes);
        ASSERT_EQ(planned.units.size(), found.files[i].units.size());
        EXPECT_EQ(planned.units[0].line, found.files[i].units[0].line);
    }
    const auto changes = plan->Changes(files, kOil);
    ASSERT_EQ(changes.size(), 3u);
    const document::StockReplacement real(files, kBox, kOil);
    for (std::size_t i = 0; i < changes.size(); ++i)
        EXPECT_EQ(changes[i].after, real.ChangeOf(found.files[i]).after);
}

TEST_F(frmReplaceTest, ReplacesWhatIsTickedAndUndoRestoresEveryByte)
{
    WriteConsist("Twice", {"box", "hopper", "box"});
    Start();
    frmDocument &editor = OpenEditor("Coal");
    const auto before = contents();
    auto &undoAction = Find<QAction>(*window, "mnuStockUndoReplace");
    EXPECT_FALSE(undoAction.isEnabled());
    openFor(kBox, {"Wagon", "Tankers", "Oil"});
    toggle({0, 1});    // not Freight North
    toggle({0, 3, 0}); // of Twice only the second one
    toggle({1});       // the activity too
    EXPECT_EQ(tree(), "-Consists (4)\n"
                      " xCoal\n  xUnit 1: Boxcars/box.wag\n"
                      " oFreight North\n  oUnit 1: Boxcars/box.wag\n"
                      " xGP38 Local\n  xUnit 1: Boxcars/box.wag\n"
                      " -Twice\n  oUnit 1: Boxcars/box.wag\n  xUnit 3: Boxcars/box.wag\n"
                      "xActivities (1)\n"
                      " xPlains/Shunt.act\n  xLoose consist 1, unit 2: Boxcars/BOX.wag\n");
    EXPECT_EQ(summary(), "4 of 6 units in 3 consists and 1 activity will change.");
    replaceAll();
    EXPECT_EQ(dialogs.TakeLog(), "");
    EXPECT_EQ(Status(), "Replaced 4 units in 4 files.  Stock > Undo Replace takes this back.");
    const auto after = contents();
    EXPECT_EQ(after.at("Freight North.con"), before.at("Freight North.con"));
    EXPECT_EQ(ShapesIn(ConsistFile("Coal")), "Oil hopper");
    EXPECT_EQ(ShapesIn(ConsistFile("Twice")), "box hopper Oil");
    EXPECT_NE(after.at("act").find("WagonData ( Oil Tankers )"), std::string::npos);
    EXPECT_EQ(RowsOf(Find<ListView>(editor, "lvConsist")), "Wagon/Tankers/Oil Wagon/Boxcars/hopper")
        << "open editors show the new state";
    EXPECT_EQ(tree(), "oConsists (2)\n"
                      " oFreight North\n  oUnit 1: Boxcars/box.wag\n"
                      " oTwice\n  oUnit 1: Boxcars/box.wag\n")
        << "the units that were left out";

    EXPECT_TRUE(undoAction.isEnabled());
    EXPECT_EQ(undoAction.toolTip().toStdString(),
              "Take back \"Replace Boxcars/box.wag by Tankers/Oil.wag\" in 4 files");
    undo();
    EXPECT_EQ(Status(), "Took back \"Replace Boxcars/box.wag by Tankers/Oil.wag\" in 4 files.");
    EXPECT_EQ(contents(), before);
    EXPECT_FALSE(undoAction.isEnabled());
    EXPECT_EQ(RowsOf(Find<ListView>(editor, "lvConsist")),
              "Wagon/Boxcars/box Wagon/Boxcars/hopper");
}

TEST_F(frmReplaceTest, UnsavedChangesOfAnEditorAreNeverLost)
{
    Start();
    frmDocument &editor = changedEditor("Coal");
    const auto before = contents();
    frmReplace &shown = openFor(kBox, {"Wagon", "Boxcars", "hopper"});
    const QModelIndex coal = at({0, 0});
    EXPECT_FALSE(coal.flags().testFlag(Qt::ItemIsUserCheckable));
    EXPECT_EQ(coal.siblingAtColumn(1).data().toString().toStdString(),
              "has unsaved changes in a window: save them, then it can be ticked");
    EXPECT_EQ(summary(), "2 of 4 units in 2 consists will change.");
    toggle({0, 0});
    EXPECT_EQ(summary(), "2 of 4 units in 2 consists will change.");
    replaceAll();
    EXPECT_TRUE(editor.Changed());
    EXPECT_EQ(contents().at("Coal.con"), before.at("Coal.con"));

    undo(); // so that all units can be replaced
    EXPECT_EQ(contents(), before);
    editor.SaveForm(true);
    ASSERT_TRUE(idle());
    EXPECT_EQ(summary(), "3 of 4 units in 3 consists will change.") << "saved: it can be ticked";
    replaceAll();
    EXPECT_EQ(RowsOf(Find<ListView>(editor, "lvConsist")),
              "Wagon*/Boxcars/hopper Wagon/Boxcars/hopper");

    // New changes in the editor, on top of the replacement.
    window->activateWindow();
    changedEditor("Coal");
    const auto replaced = contents();
    undo();
    EXPECT_EQ(contents(), replaced);
    EXPECT_EQ(dialogs.TakeLog(), "critical|Undo Replace|" + ConsistFile("Coal") +
                                     " has unsaved changes in a window.  Nothing was taken back."
                                     "\n\nClose that window without saving, then undo the "
                                     "replacement.\n");
    EXPECT_TRUE(Active()->Changed());
    EXPECT_TRUE(shown.isVisible());
}

TEST_F(frmReplaceTest, FilesThatWereChangedSinceStopReplacementAndUndo)
{
    Start();
    openFor(kBox, {"Wagon", "Boxcars", "hopper"});
    WriteConsist("GP38 Local", {"box", "box"});
    const auto before = contents();
    replaceAll();
    std::string log = dialogs.TakeLog();
    EXPECT_TRUE(log.starts_with("critical|Replace in Consists|" +
                                game.Shown("Trains/Consists/GP38 Local.con")))
        << log;
    EXPECT_NE(log.find("No file was changed."), std::string::npos) << log;
    EXPECT_EQ(contents(), before);
    EXPECT_EQ(summary(), "4 of 5 units in 3 consists will change.") << "it was searched again";

    replaceAll();
    EXPECT_EQ(ShapesIn(ConsistFile("GP38 Local")), "hopper hopper");
    WriteConsist("Coal", {"gp38a"});
    const auto replaced = contents();
    undo();
    log = dialogs.TakeLog();
    EXPECT_NE(log.find(game.Shown("Trains/Consists/Coal.con") + ": it was changed since"),
              std::string::npos)
        << log;
    EXPECT_EQ(contents(), replaced);
    EXPECT_TRUE(Find<QAction>(*window, "mnuStockUndoReplace").isEnabled());
}

TEST_F(frmReplaceTest, FilesThatCannotBeSearchedAreListedAndStay)
{
    game.Write("Trains/Consists/Packed.con", "SIMISA@F\x10");
    Start();
    openFor(kBox, {"Wagon", "Boxcars", "hopper"});
    // The path has the separators of the system.
    const std::string rows = tree(), group = "!Not searched, stay as they are (1)\n !";
    const std::size_t at = rows.find(group);
    ASSERT_NE(at, std::string::npos) << rows;
    EXPECT_NE(rows.find("Packed.con: a compressed file", at), std::string::npos) << rows;
    replaceAll();
    EXPECT_EQ(ShapesIn(ConsistFile("Coal")), "hopper hopper");
    EXPECT_EQ(game.Read("Trains/Consists/Packed.con"), "SIMISA@F\x10");
}

TEST_F(frmReplaceTest, MissingUnitOffersReplaceAndCandidates)
{
    Start();
    OpenEditor("GP38 Local");
    const std::string before = game.Read("Trains/Consists/GP38 Local.con");
    auto &train = Find<ListView>(*Active(), "lvConsist");
    train.setFocus();
    train.SelectRow(2);
    ASSERT_TRUE(Wait([this] { return Active()->UnitIsMissing(); }));
    auto &menu = Find<QMenu>(*window->menuBar(), "mnuStock");
    const auto offers = [&](const char *name) {
        Q_EMIT train.MenuWanted(train.mapToGlobal(QPoint(5, 5)));
        const bool found = menu.actions().contains(&Find<QAction>(*window, name));
        menu.close();
        QCoreApplication::processEvents();
        return found;
    };
    EXPECT_TRUE(offers("mnuUnitsReplace"));
    EXPECT_TRUE(offers("mnuUnitsFindCandidates"));
    train.SelectRow(0);
    EXPECT_FALSE(offers("mnuUnitsReplace")) << "this one is installed";
    train.SelectRow(2);

    std::string candidates;
    OnNextDialog([&](QDialog &dialog) {
        auto &picker = *dynamic_cast<frmCandidates &>(dialog).picker;
        Wait([&] { return picker.PickedVehicle().has_value(); });
        candidates = rows(picker);
        QTest::keyClick(picker.list, Qt::Key_Return);
    });
    Trigger("mnuUnitsFindCandidates");
    EXPECT_EQ(candidates, "Tankers/Oil.wag/same name Boxcars/box.wag/ Boxcars/hopper.wag/");
    EXPECT_EQ(RowsOf(train), "Wagon/Boxcars/box Wagon/Boxcars/hopper Wagon/Tankers/Oil");
    EXPECT_EQ(Find<QAction>(*window, "mnuEditUndo").text().toStdString(), "&Undo Replace Unit");
    EXPECT_EQ(game.Read("Trains/Consists/GP38 Local.con"), before) << "it is not saved yet";
    Trigger("mnuEditUndo");
    Active()->SaveForm(true);
    EXPECT_EQ(game.Read("Trains/Consists/GP38 Local.con"), before);

    frmReplace &shown = open("mnuUnitsReplace");
    EXPECT_EQ(shown.from->PickedVehicle(), kOil);
    EXPECT_TRUE(shown.from->PickedIsMissing());
    EXPECT_EQ(rows(*shown.to), candidates);
    EXPECT_EQ(summary(), "1 unit in 1 consist will change.");
}

TEST_F(frmReplaceTest, EverythingWorksFromTheKeyboard)
{
    Start();
    frmReplace &shown = open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&shown));
    const auto press = [](int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    };
    EXPECT_EQ(QApplication::focusWidget(), shown.from->list);
    press(Qt::Key_K, Qt::ControlModifier);
    ASSERT_EQ(QApplication::focusWidget(), shown.from->search);
    QTest::keyClicks(shown.from->search, QStringLiteral("miss oil"));
    EXPECT_EQ(rows(*shown.from), "Boxcars/Oil.wag/missing, 1 unit");
    press(Qt::Key_Down);
    ASSERT_TRUE(idle());
    press(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), shown.to->list);
    EXPECT_EQ(shown.to->PickedVehicle(), (StockItem{"Wagon", "Tankers", "Oil"}));
    press(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), shown.tvPlan);
    press(Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), shown.cmdReplace);
    press(Qt::Key_Space);
    ASSERT_TRUE(idle());
    EXPECT_EQ(ShapesIn(ConsistFile("GP38 Local")), "box hopper Oil");
    for (const QWidget *control : shown.findChildren<QWidget *>())
        EXPECT_TRUE(control->focusPolicy() == Qt::NoFocus || !control->isVisible() ||
                    !control->accessibleName().isEmpty() ||
                    control->objectName().startsWith(QLatin1String("qt_")))
            << control->metaObject()->className() << ' ' << control->objectName().toStdString();
    press(Qt::Key_Escape);
    EXPECT_FALSE(shown.isVisible());
}

TEST_F(frmReplaceTest, EscStopsTheSearchAndF5StartsItAgain)
{
    Start();
    frmReplace &shown = open();
    shown.from->Pick(kBox);
    ASSERT_TRUE(shown.Running());
    QTest::keyClick(&shown, Qt::Key_Escape);
    ASSERT_TRUE(idle());
    EXPECT_TRUE(shown.isVisible());
    EXPECT_EQ(summary(), "The search was stopped.  F5 starts it again.");
    EXPECT_FALSE(shown.cmdReplace->isEnabled());
    QTest::keyClick(&shown, Qt::Key_F5);
    ASSERT_TRUE(idle());
    EXPECT_EQ(summary(), "3 of 4 units in 3 consists will change.");
}
