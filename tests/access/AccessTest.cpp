// SPDX-License-Identifier: MIT
#include "Session.h"

#include "document/ConsistTree.h"
#include "host/GameFiles.h"
#include "samples/Sample.h"
#include "support/Environment.h"
#include "support/KnownFolders.h"

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>

namespace {

const std::string kQuarry = "TRAINS/CONSISTS/Quarry_Local.con";

/// The roles of the controls that users operate. Other roles only group controls or show text.
const std::set<std::string> kControls = {
    "menu bar",     "menu item",    "tool bar", "push button", "check box",
    "radio button", "text",         "spin box", "combo box",   "list",
    "tree",         "table",        "canvas",   "scroll bar",  "status bar",
    "page tab",     "progress bar", "frame",    "dialog",      "alert message"};

/// The program on a copy of the sample installation, operated only through its accessibility tree,
/// without keys or mouse.
class AccessTest : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!session.WhyNot().empty())
            GTEST_SKIP() << session.WhyNot();
        samples::WriteSample(game.Path());
        known.Set("MSTSDir", game.Path());
    }

    void Start(const QStringList &arguments = {})
    {
        program = session.StartProgram(arguments);
        window = Find(program, "frame", "ZELK v1.0-75");
    }
    void Press(const Accessible &top, const std::string &button)
    {
        Find(top, "push button", button).Do("Press");
    }
    void Command(const std::string &menu, const std::string &name)
    {
        for (const Accessible &item : Find(window, "menu bar", "Menus").Children())
            if (item.Name() == menu)
                return Find(item, "menu item", name).Do("Press");
        throw std::runtime_error("no menu " + menu);
    }
    /// Waits for the window with this title, other than the main window, and returns it.
    Accessible Dialog(const std::string &title)
    {
        Accessible found;
        const auto opened = [&] {
            for (const Accessible &top : program.Children())
                if (top.Name() == title && top.Showing())
                    found = top;
            return static_cast<bool>(found);
        };
        if (!WaitFor(opened))
            throw std::runtime_error("no " + title + " in:\n" + Outline(program));
        return found;
    }
    void Answer(const std::string &title, const std::string &button)
    {
        const Accessible dialog = Dialog(title);
        Press(dialog, button);
        EXPECT_TRUE(WaitFor([&] { return !dialog.Showing(); })) << title;
    }
    void Quit()
    {
        Command("File", "Exit");
        EXPECT_TRUE(session.ProgramEnded());
    }

    std::string UnitsIn(const std::string &file)
    {
        host::GameFiles files;
        document::ConsistTree consist(files);
        consist.Load(game.At(file));
        std::string units;
        for (const document::ConsistRow &row : consist.Rows())
            units += row.item.type + " " + row.item.shape + ", ";
        return units;
    }

    support::ScopedHome home;
    support::KnownFolders known{home.Folder().At(".config")};
    support::TempFolder game;
    Session session;
    Accessible program, window;
};

/// Selects the row of a list that has this text in the column.
void choose(const Accessible &list, int column, const std::string &text)
{
    int row = -1;
    const auto listed = [&] {
        for (row = list.Rows() - 1; row >= 0 && list.Cell(row, column) != text;)
            --row;
        return row >= 0;
    };
    if (!WaitFor(listed))
        throw std::runtime_error("no " + text + " in the list " + list.Name());
    list.SelectRow(row);
}

/// Lists the controls below `top`, one per line, without menus and without the names of combo
/// boxes, which are their current choice. Fails the test for a control without a name and for an
/// enabled menu item without an action.
std::string controlsIn(const Accessible &top)
{
    std::string controls;
    Walk(top, [&](const Accessible &object, int) {
        const std::string role = object.Role(), name = object.Name();
        if (!kControls.contains(role))
            return true;
        if (role == "scroll bar" && name.empty()) // belongs to a list or a text, which has the name
            return false;
        EXPECT_NE(name, "") << "a " << role << " in " << top.Name();
        if (role == "menu item")
            EXPECT_TRUE(!object.Enabled() || object.Can("Press") || object.Can("ShowMenu"))
                << name << " in " << top.Name();
        else if (object.Showing())
            controls += role + (role == "combo box" ? "" : " " + name) + "\n";
        return role != "tree" && role != "table" && role != "list" && role != "combo box";
    });
    return controls;
}

} // namespace

TEST_F(AccessTest, EveryControlHasANameAndARole)
{
    Start();
    EXPECT_EQ(controlsIn(window), R"(frame Consist List 1
tree Installed consists
text Search the consists
status bar Status bar
menu bar Menus
tool bar Toolbar
push button New Consist
push button Open File
push button Save Consist
push button Print
push button Cut
push button Copy
push button Paste
push button View Consist Properties
push button View Consist in 3D
push button Filter Consist List
push button View Options
)");
    Command("File", "Set MSTS Location...");
    // Screen readers read labels, too.
    Find(Dialog("Location"), "label", "This folder holds Trains and Routes, as it should.");
    Answer("Location", "Cancel");
    const struct
    {
        const char *menu, *command, *title, *controls, *leave;
    } rows[] = {
        {"File", "Set MSTS Location...", "Location",
         "combo box\ntree Folders\ntext Location\npush button Reset\npush button OK\n"
         "push button Cancel\n",
         "Cancel"},
        {"File", "Page Setup...", "Page Setup",
         "combo box\ncombo box\nspin box Left margin:\nspin box Right margin:\n"
         "spin box Top margin:\nspin box Bottom margin:\npush button OK\npush button Cancel\n",
         "Cancel"},
        {"View", "Filter...", "Filter Consist List",
         "text Enter a filter string for consists:\npush button OK\npush button Cancel\n",
         "Cancel"},
        {"Stock", "Check All Stock...", "Check All Stock", "push button Yes\npush button No\n",
         "No"},
        {"Help", "About ", "About ZELK",
         "tree Version history\npush button System Info...\npush button OK\n", "OK"},
    };
    for (const auto &row : rows) {
        Command(row.menu, row.command);
        EXPECT_EQ(controlsIn(Dialog(row.title)), row.controls);
        Answer(row.title, row.leave);
    }
    Quit();
}

TEST_F(AccessTest, EditorViewAndResultsHaveNamesAndRoles)
{
    Start({QString::fromStdString(game.At(kQuarry))});
    const Accessible editor = Find(window, "frame", "Consist - " + game.At(kQuarry));
    EXPECT_EQ(controlsIn(editor), R"(push button Add stock to consist
push button Remove stock from consist
push button Remove all consist items
push button Move stock forwards
push button Move stock backwards
push button Flip stock in consist
text Search the stock
tree Available installed stock
text Search the train
tree Current consist items
text Max Velocity
text Max Velocity, second value
text Durability
push button Cancel
push button Apply
push button OK
push button View Consist
push button View Shape
)");
    choose(Find(editor, "tree", "Available installed stock"), 2, "tank_21");
    Command("Stock", "Check Dependencies...");
    EXPECT_EQ(controlsIn(Dialog("Select Routes to Check")),
              "list Entries\ncheck box Select All\npush button OK\npush button Cancel\n");
    Answer("Select Routes to Check", "OK");
    EXPECT_EQ(controlsIn(Dialog("Usage check of tank_21")),
              "text Results\npush button Print\npush button Save\npush button Close\n");
    Answer("Usage check of tank_21", "Close");
    Press(editor, "View Shape");
    EXPECT_EQ(
        controlsIn(Find(window, "frame", "Wagon - tank_21")),
        "canvas 3D view\nscroll bar Place along the train\nscroll bar Height of the camera\n");
    Quit();
}

TEST_F(AccessTest, RowsOfMissingVehiclesHaveADescription)
{
    Start();
    const auto described = [](const Accessible &rows) {
        for (int row = rows.Rows() - 1; row >= 0; --row)
            if (rows.CellDescription(row, 0).find(" is missing: ") != std::string::npos)
                return rows.Cell(row, 0);
        return std::string();
    };
    const Accessible consists = Find(window, "tree", "Installed consists");
    EXPECT_TRUE(WaitFor([&] { return !described(consists).empty(); }));
    choose(consists, 0, "Harbour Transfer");
    Command("Consist", "Edit");
    const Accessible editor = Find(window, "frame", "Consist - Harbour Transfer");
    const Accessible train = Find(editor, "tree", "Current consist items");
    EXPECT_TRUE(WaitFor([&] { return described(train) == "Wagon"; }));
    Quit();
}

TEST_F(AccessTest, OpensEditsAndSavesAConsist)
{
    ASSERT_EQ(UnitsIn(kQuarry), "Engine avr_d402, Wagon avr_hopper_11, Wagon avr_hopper_12, ");
    Start();
    choose(Find(window, "tree", "Installed consists"), 0, "Quarry_Local");
    Command("Consist", "Edit");
    const Accessible editor = Find(window, "frame", "Consist - Quarry_Local");
    const Accessible train = Find(editor, "tree", "Current consist items");
    choose(Find(editor, "tree", "Available installed stock"), 2, "tank_21");
    Press(editor, "Add stock to consist");
    choose(train, 2, "tank_21");
    Press(editor, "Move stock forwards");
    EXPECT_TRUE(WaitFor([&] { return train.Cell(2, 2) == "tank_21"; }));
    choose(train, 2, "avr_d402");
    Press(editor, "Flip stock in consist");
    EXPECT_TRUE(WaitFor([&] { return train.Cell(0, 0) == "Engine*"; }));
    choose(train, 2, "avr_hopper_11");
    Press(editor, "Remove stock from consist");
    EXPECT_TRUE(WaitFor([&] { return train.Rows() == 3; }));
    Command("File", "Save");
    Answer("Save Consist", "Yes");
    Answer("Save Consist", "OK");
    Quit();
    EXPECT_EQ(UnitsIn(kQuarry), "Engine* avr_d402, Wagon tank_21, Wagon avr_hopper_12, ");
}

TEST_F(AccessTest, DialogsAcceptText)
{
    Start({QString::fromStdString(game.At(kQuarry))});
    const Accessible stock = Find(window, "tree", "Available installed stock");
    ASSERT_TRUE(WaitFor([&] { return stock.Rows() == 45; }));
    Command("View", "Filter...");
    Find(Dialog("Filter Stock List"), "text", "Enter a filter string for stock:").SetText("Boxes*");
    Answer("Filter Stock List", "OK");
    EXPECT_TRUE(WaitFor([&] { return stock.Rows() == 5; })) << stock.Rows();
    Command("File", "Save As...");
    Find(Dialog("Save Consist As"), "text", "File name:").SetText(game.At("Typed name.con"));
    Answer("Save Consist As", "Save");
    Answer("Save Consist", "OK");
    Quit();
    EXPECT_EQ(UnitsIn("Typed name.con"), UnitsIn(kQuarry));
}
