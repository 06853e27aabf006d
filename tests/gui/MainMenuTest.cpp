// SPDX-License-Identifier: MIT
#include "GuiTest.h"

#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

namespace {

class MainMenuTest : public GuiTest
{
};

} // namespace

TEST_F(MainMenuTest, ToolBarFollowsTheMenu)
{
    Start();
    std::string buttons;
    for (const QAction *action : Find<QToolBar>(*window, "tbToolBar").actions())
        if (!action->isSeparator())
            buttons += action->objectName().toStdString() + (action->isEnabled() ? "|" : "-|") +
                       action->toolTip().toStdString() + "\n";
    EXPECT_EQ(buttons, "New|New Consist\nOpen|Open File\nSave-|Save Consist\nPrint|Print\n"
                       "Cut|Cut\nCopy|Copy\nPaste|Paste\n"
                       "Properties|View Consist Properties\nRender|View Consist in 3D\n"
                       "Filter|Filter Consist List\nOptions-|View Options\n");
    Find<QToolButton>(*window, "New").click();
    EXPECT_EQ(Active()->Caption(), "Consist 1");
    EXPECT_TRUE(Find<QToolButton>(*window, "Save").isEnabled());
    EXPECT_EQ(Find<QToolButton>(*window, "Filter").text(), QStringLiteral("Filter"));
}

TEST_F(MainMenuTest, UnimplementedCommandsSaySo)
{
    Start();
    for (const char *name :
         {"mnuFilePrintPreview", "mnuEditUndo", "mnuEditPasteSpecial", "mnuViewOptions"})
        Trigger(name);
    EXPECT_EQ(dialogs.TakeLog(), "none|ZELK v1.0-75|Print Preview not implemented\n"
                                 "none|ZELK v1.0-75|Edit Undo not yet implemented\n"
                                 "none|ZELK v1.0-75|Edit PasteSpecial not yet implemented\n"
                                 "none|ZELK v1.0-75|View Options not yet implemented\n");
}

TEST_F(MainMenuTest, ViewItemsShowAndHideTheBars)
{
    Start();
    const struct
    {
        const char *item, *bar;
    } rows[] = {{"mnuViewToolbar", "tbToolBar"}, {"mnuViewStatusBar", "sbStatusBar"}};
    for (const auto &row : rows)
        for (const bool shown : {false, true}) {
            Trigger(row.item);
            EXPECT_EQ(Find<QWidget>(*window, row.bar).isVisible(), shown) << row.bar;
            EXPECT_EQ(Find<QAction>(*window, row.item).isChecked(), shown) << row.item;
        }
}

TEST_F(MainMenuTest, WindowMenuListsTheOpenWindows)
{
    Start();
    Trigger("mnuWindowNewWindow");
    Active()->SetCaption("Salt & Pepper");
    auto &menu = Find<QMenu>(*window->menuBar(), "mnuWindow");
    for (int opened = 0; opened < 2; ++opened) // opening the menu twice must not list windows twice
        Q_EMIT menu.aboutToShow();
    const QList<QAction *> items = menu.actions();
    ASSERT_EQ(items.size(), 11);
    EXPECT_EQ(items[9]->text(), QStringLiteral("&1 Consist List 1"));
    EXPECT_EQ(items[10]->text(), QStringLiteral("&2 Salt && Pepper"));
    EXPECT_FALSE(items[9]->isChecked());
    EXPECT_TRUE(items[10]->isChecked());
    items[9]->trigger();
    EXPECT_EQ(Active()->Caption(), "Consist List 1");
}
