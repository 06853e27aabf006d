// SPDX-License-Identifier: MIT
#include "AccessFixture.h"

#include <set>

namespace {

const std::string kQuarry = "TRAINS/CONSISTS/Quarry_Local.con";

/// The roles of the controls that users operate. Other roles only group controls or show text.
const std::set<std::string> kControls = {
    "menu bar",     "menu item",    "tool bar", "push button", "check box",
    "radio button", "text",         "spin box", "combo box",   "list",
    "tree",         "table",        "canvas",   "scroll bar",  "status bar",
    "page tab",     "progress bar", "frame",    "dialog",      "alert message"};

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
    Choose(Find(editor, "tree", "Available installed stock"), 2, "tank_21");
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
    Choose(consists, 0, "Harbour Transfer");
    Command("Consist", "Edit");
    const Accessible editor = Find(window, "frame", "Consist - Harbour Transfer");
    const Accessible train = Find(editor, "tree", "Current consist items");
    EXPECT_TRUE(WaitFor([&] { return described(train) == "Wagon"; }));
    Quit();
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
