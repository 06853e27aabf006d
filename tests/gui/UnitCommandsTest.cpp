// SPDX-License-Identifier: MIT
#include "ui/document/UnitCommands.h"

#include "GuiTest.h"
#include "document/UnitClipboard.h"
#include "ui/document/UnitMime.h"
#include "ui/widgets/ListView.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>

#include <vector>

using document::ListView;
using document::Move;
using document::UnitCommand;

namespace {

class UnitCommandsTest : public GuiTest
{
protected:
    ListView &train() { return Find<ListView>(*Active(), "lvConsist"); }
    ListView &stock() { return Find<ListView>(*Active(), "lvStock"); }
    QAbstractButton &button(const char *name) { return Find<QAbstractButton>(*Active(), name); }
    QAction &undo() { return Find<QAction>(*window, "mnuEditUndo"); }
    QAction &redo() { return Find<QAction>(*window, "mnuEditRedo"); }

    /// The shapes of the train, with "*" after flipped units and "<" after selected ones.
    std::string shown()
    {
        const std::vector<int> selected = train().SelectedRows();
        std::string text;
        for (int row = 0; row < train().model()->rowCount(); ++row) {
            const auto column = [&](int at) {
                return train().model()->index(row, at).data().toString().toStdString();
            };
            const bool isSelected =
                std::find(selected.begin(), selected.end(), row) != selected.end();
            text += (row ? " " : "") + column(2) + (column(0).ends_with("*") ? "*" : "") +
                    (isSelected ? "<" : "");
        }
        return text;
    }
    /// Selects rows, counted from 0, as Ctrl and the mouse do.
    static void select(ListView &list, const std::vector<int> &rows)
    {
        list.SelectRow(-1);
        for (const int row : rows)
            list.selectionModel()->setCurrentIndex(list.model()->index(row, 0),
                                                   QItemSelectionModel::Select |
                                                       QItemSelectionModel::Rows);
    }
    void press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }
    void edit(const char *name)
    {
        OpenEditor(name);
        train().setFocus();
    }
    static std::string clipboard() { return QGuiApplication::clipboard()->text().toStdString(); }
    bool isChanged() { return button("cmdAction1").isEnabled(); }

    struct Step
    {
        const char *name;
        std::vector<int> rows; ///< selected before
        std::function<void()> act;
        const char *shown;
        bool changes = true; ///< the consist, since it was opened
    };
    void expectSteps(const std::vector<Step> &steps)
    {
        for (const Step &step : steps) {
            select(train(), step.rows);
            step.act();
            EXPECT_EQ(shown(), step.shown) << step.name;
            EXPECT_EQ(isChanged(), step.changes) << step.name;
            EXPECT_EQ(QApplication::focusWidget(), &train());
        }
    }

    /// Drops content of another program on the train of the active window, above row `place`.
    void drop(const std::string &blocks, int place)
    {
        const std::unique_ptr<QMimeData> content =
            document::UnitMime({blocks, "as text, of another program"});
        QWidget &target = *train().viewport();
        QPoint at(5, target.height() - 2);
        if (place < train().model()->rowCount())
            at = train().visualRect(train().model()->index(place, 0)).topLeft() + QPoint(5, 2);
        constexpr auto actions = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter(at, actions, content.get(), Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&target, &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent dropped(at, actions, content.get(), Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&target, &dropped);
    }
};

} // namespace

TEST_F(UnitCommandsTest, ButtonsAndKeysActOnAllSelectedRows)
{
    WriteConsist("Long", {"a", "b", "c", "d", "e"});
    Start();
    edit("Long");
    expectSteps({
        {"forwards", {1, 3}, [&] { button("cmdMove3").click(); }, "b< a d< c e"},
        {"backwards", {0, 1}, [&] { button("cmdMove4").click(); }, "d b< a< c e"},
        {"flip", {0, 4}, [&] { button("cmdMove5").click(); }, "d* b a c e*"},
        {"remove", {1, 3}, [&] { button("cmdMove1").click(); }, "d*< a e*"},
        {"delete key", {0, 1}, [&] { press(Qt::Key_Delete); }, "e*<"},
    });
    EXPECT_EQ(undo().text().toStdString(), "&Undo Remove 2 Units");
    select(stock(), {0, 3, 4});
    button("cmdMove0").click();
    EXPECT_EQ(shown(), "e* box< gp38b< Oil<");
    EXPECT_EQ(ShapesIn(ConsistFile("Long")), "a b c d e") << "the file is unchanged";
    Active()->AllowUnload();
}

TEST_F(UnitCommandsTest, StockIsAddedWithoutLeavingItsList)
{
    Start();
    edit("Coal");
    stock().setFocus();
    select(stock(), {3});
    press(Qt::Key_Return);
    EXPECT_EQ(shown(), "box hopper gp38b<");
    press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(shown(), "box hopper gp38b<") << "only Enter alone";
    const QPoint at = stock().visualRect(stock().model()->index(4, 0)).center();
    QTest::mouseClick(stock().viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(stock().viewport(), Qt::LeftButton, {}, at);
    EXPECT_EQ(shown(), "box hopper gp38b Oil<");
    EXPECT_EQ(QApplication::focusWidget(), &stock());
    EXPECT_EQ(stock().SelectedRows(), (std::vector<int>{4}));

    train().SelectRow(0);
    select(stock(), {2, 3});
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(shown(), "box gp38a< gp38b< hopper gp38b Oil");
    press(Qt::Key_Enter, Qt::ControlModifier);
    EXPECT_EQ(shown(), "box gp38a gp38b gp38a< gp38b< hopper gp38b Oil") << "behind the new ones";
    EXPECT_EQ(stock().SelectedRows(), (std::vector<int>{2, 3}));
    train().SelectRow(-1);
    Trigger("mnuUnitsAddBehind");
    EXPECT_EQ(shown(), "box gp38a gp38b gp38a gp38b hopper gp38b Oil gp38a< gp38b<");
    EXPECT_EQ(Active()->Consist().UndoName(), "Add 2 Units");
    Active()->AllowUnload();
}

TEST_F(UnitCommandsTest, AddSeveralAsksForANumber)
{
    Start();
    edit("Freight North");
    Trigger("mnuUnitsAddSeveral");
    EXPECT_EQ(Status(), "No installed stock is selected.");
    EXPECT_EQ(dialogs.TakeLog(), "");
    EXPECT_FALSE(isChanged());
    select(stock(), {4});
    for (const char *answer : {"0", "-1", "2.5", "many", "", "32768", "99999999999"}) {
        dialogs.AnswerInput(answer);
        Trigger("mnuUnitsAddSeveral");
        EXPECT_EQ(dialogs.TakeLog(), std::string("input|Add Several|How many of Oil?|2\n"
                                                 "critical|Add Several|\"") +
                                         answer + "\" is not a number from 1 to 32767.\n");
    }
    dialogs.AnswerInput("32767"); // a number, but the counter has no room for it
    Trigger("mnuUnitsAddSeveral");
    EXPECT_TRUE(Status().starts_with("Nothing was changed: NextWagonUID is 1")) << Status();
    EXPECT_FALSE(isChanged());
    dialogs.AnswerInput(" 3 ");
    Trigger("mnuUnitsAddSeveral");
    EXPECT_EQ(shown(), "box Oil< Oil< Oil<");
    select(stock(), {0, 1});
    dialogs.AnswerInput("2");
    Trigger("mnuUnitsAddSeveral");
    EXPECT_EQ(shown(), "box Oil Oil Oil box< hopper< box< hopper<");
    EXPECT_EQ(undo().text().toStdString(), "&Undo Add 4 Units");
    Active()->AllowUnload();
}

TEST_F(UnitCommandsTest, CommandsKeepTheSelection)
{
    WriteConsist("Long", {"a", "b", "A", "d", "b"});
    Start();
    edit("Long");
    expectSteps({
        {"up at the head",
         {0, 1},
         [&] { press(Qt::Key_Up, Qt::AltModifier); },
         "a< b< A d b",
         false},
        {"kind",
         {0, 1},
         [&] { press(Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier); },
         "a< b< A< d b<",
         false},
        {"nothing", {}, [&] { press(Qt::Key_T, Qt::ControlModifier); }, "a b A d b", false},
        {"up", {2, 4}, [&] { press(Qt::Key_Up, Qt::AltModifier); }, "a A< b b< d"},
        {"down", {0, 1}, [&] { press(Qt::Key_Down, Qt::AltModifier); }, "b a< A< b d"},
        {"flip", {1, 4}, [&] { press(Qt::Key_T, Qt::ControlModifier); }, "b a*< A b d*<"},
        {"reverse",
         {0, 1},
         [&] { press(Qt::Key_T, Qt::ControlModifier | Qt::ShiftModifier); },
         "d b* A* a< b*<"},
        {"remove", {1, 2}, [&] { press(Qt::Key_D, Qt::ControlModifier); }, "d a< b*"},
        {"remove the last", {2}, [&] { press(Qt::Key_D, Qt::ControlModifier); }, "d a<"},
        {"all", {0, 1}, [&] { press(Qt::Key_D, Qt::ControlModifier); }, ""},
    });
    Active()->AllowUnload();
}

TEST_F(UnitCommandsTest, UnitsAreCopiedWithinAndBetweenEditors)
{
    Start();
    edit("GP38 Local");
    select(train(), {0, 2});
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "Boxcars/box.wag\nBoxcars/Oil.wag\n");
    EXPECT_EQ(Status(), "2 units were copied.");
    EXPECT_FALSE(isChanged());
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(shown(), "box hopper Oil box< Oil<");
    select(train(), {1});
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(shown(), "box Oil< box Oil");
    EXPECT_EQ(undo().text().toStdString(), "&Undo Cut Unit");
    Active()->AllowUnload();
    edit("Coal");
    train().SelectRow(0);
    Trigger("mnuEditPaste");
    EXPECT_EQ(shown(), "box hopper< hopper");
    press(Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_EQ(shown(), "") << "not Cut";
    EXPECT_EQ(clipboard(), "Boxcars/hopper.wag\n");
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(shown(), "hopper<");
    EXPECT_EQ(dialogs.Log(), "");
    Active()->AllowUnload();
}

TEST_F(UnitCommandsTest, ConsistsAndUnitsAreNotMixedUp)
{
    Start();
    Find<ListView>(*Active(), "lvConsists").SelectRow(0);
    Trigger("mnuEditCopy");
    edit("GP38 Local");
    const std::string foreign = "critical|Paste|There are no units of a train on the clipboard.\n";
    for (const std::string &text : {clipboard(), std::string(10000, 'x'), std::string("a\nb")}) {
        QGuiApplication::clipboard()->setText(QString::fromStdString(text));
        press(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(dialogs.TakeLog(), foreign);
        EXPECT_FALSE(isChanged());
    }
    QGuiApplication::clipboard()->setText(QStringLiteral("Coal"));
    stock().setFocus();
    Trigger("mnuEditPaste");
    EXPECT_EQ(dialogs.TakeLog(), "input|Copy Consist|Enter new consist name:|Copy of Coal\n")
        << "outside the train, Paste copies a consist as ever";
    Trigger("mnuEditCopy");
    EXPECT_EQ(clipboard(), "Coal");

    train().setFocus();
    train().SelectRow(0);
    Trigger("mnuEditCopy");
    window->NewDocumentWindow(document::WindowMode::ConsistList, {});
    Trigger("mnuEditPaste");
    EXPECT_EQ(dialogs.TakeLog(), "");
    EXPECT_EQ(Status(), "Units can be pasted only into a train.");
}

TEST_F(UnitCommandsTest, UndoAndRedoFollowTheActiveWindow)
{
    Start();
    EXPECT_EQ(undo().text() + redo().text(), QStringLiteral("&Undo&Redo"));
    EXPECT_TRUE(undo().isEnabled()) << "a list says that it has no undo";
    EXPECT_FALSE(redo().isEnabled());
    edit("GP38 Local");
    EXPECT_FALSE(undo().isEnabled());
    select(train(), {0, 2});
    press(Qt::Key_Delete);
    press(Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(undo().text(), QStringLiteral("&Undo Flip Unit"));
    press(Qt::Key_Z, Qt::ControlModifier);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown(), "box< hopper Oil<");
    EXPECT_EQ(Status(), "Undone: Remove 2 Units.");
    EXPECT_EQ(undo().text() + redo().text(), QStringLiteral("&Undo&Redo Remove 2 Units"));
    EXPECT_TRUE(isChanged()) << "until it is saved";
    frmDocument &editor = *Active();
    window->Documents().front()->setFocus();
    EXPECT_EQ(redo().text(), QStringLiteral("&Redo"));
    EXPECT_EQ(undo().text(), QStringLiteral("&Undo"));
    Trigger("mnuEditUndo");
    EXPECT_EQ(dialogs.TakeLog(), "none|ZELK v1.0-75|Edit Undo not yet implemented\n");
    editor.setFocus();
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(shown(), "hopper*<");

    button("cmdAction1").click();
    EXPECT_FALSE(isChanged());
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown(), "hopper<");
    EXPECT_TRUE(isChanged()) << "the file has the flipped wagon";
    EXPECT_EQ(ShapesIn(ConsistFile("GP38 Local")), "hopper");
    Active()->LoadForm();
    EXPECT_FALSE(undo().isEnabled()) << "the file was read again";
    EXPECT_FALSE(redo().isEnabled());
}

TEST_F(UnitCommandsTest, TextFieldsKeepTheirKeys)
{
    Start();
    edit("GP38 Local");
    train().SelectRow(0);
    press(Qt::Key_T, Qt::ControlModifier);
    press(Qt::Key_Z, Qt::ControlModifier);
    QLineEdit field(&Find<QWidget>(*Active(), "txtDurability"));
    field.show();
    field.setFocus();
    ASSERT_EQ(QApplication::focusWidget(), &field);
    QTest::keyClicks(&field, QStringLiteral("text"));
    press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(shown(), "box< hopper Oil") << "not redone";
    field.selectAll();
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "text");
    Trigger("mnuEditPaste");
    EXPECT_EQ(field.text(), QStringLiteral("text"));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(field.text(), QString());
    EXPECT_EQ(shown(), "box< hopper Oil");
    Active()->AllowUnload();
}

TEST_F(UnitCommandsTest, ContextMenuOfAnEditorHasTheCommandsOnUnits)
{
    Start();
    edit("Coal");
    auto &menu = Find<QMenu>(*window->menuBar(), "mnuStock");
    const auto names = [&menu] {
        std::string text;
        for (const QAction *action : menu.actions())
            text += action->isSeparator() ? "| " : action->objectName().toStdString() + ' ';
        return text;
    };
    const std::string before = names();
    for (const bool inTrain : {true, false, true}) {
        ListView &list = inTrain ? train() : stock();
        QTest::mouseClick(list.viewport(), Qt::RightButton);
        ASSERT_TRUE(menu.isVisible());
        EXPECT_EQ(names(), std::string("mnuUnits ") +
                               (inTrain ? "mnuEditCut mnuEditCopy mnuEditPaste | " : "| ") +
                               before);
        menu.close();
        EXPECT_TRUE(Wait([&] { return names() == before; })) << names();
    }
}

TEST_F(UnitCommandsTest, UnitsFromAnotherEditorAreDroppedWhereTheLineIs)
{
    Start();
    edit("GP38 Local");
    const std::string blocks = document::CopyUnits(Active()->Consist(), {1, 3}, files).blocks;
    edit("Coal");
    drop(blocks, 1);
    EXPECT_EQ(shown(), "box box< Oil< hopper");
    drop(blocks, 99);
    EXPECT_EQ(shown(), "box box Oil hopper box< Oil<");
    EXPECT_EQ(undo().text().toStdString(), "&Undo Paste 2 Units");
    drop("not units", 0);
    EXPECT_EQ(Status(), "There are no units to paste.");
    Trigger("mnuEditUndo");
    Trigger("mnuEditUndo");
    EXPECT_EQ(shown(), "box< hopper") << "the unit before the first place";
    Active()->AllowUnload();
}
