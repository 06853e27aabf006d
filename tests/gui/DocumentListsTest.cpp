// SPDX-License-Identifier: MIT
// Tests the lists of document windows: keys, mouse, focus, columns, and the width that an editor
// needs.
#include "GuiTest.h"

#include "ui/dialogs/frmResults.h"
#include "ui/widgets/ListView.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QMdiArea>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolButton>

using document::ListView;
using document::WindowMode;

namespace {

class DocumentListsTest : public GuiTest
{
protected:
    ListView &list() const { return Find<ListView>(*window->Documents().front(), "lvConsists"); }
    ListView &train() const { return Find<ListView>(*Active(), "lvConsist"); }
    ListView &stock() const { return Find<ListView>(*Active(), "lvStock"); }
    static QPoint rowAt(const ListView &view, int row)
    {
        return view.visualRect(view.model()->index(row, 0)).center();
    }
    void filter(const char *text)
    {
        dialogs.AnswerInput(text);
        Trigger("mnuViewFilter");
    }
    /// Writes the consist "Holed": two wagons, one without a data block, and a third wagon.
    std::string writeHoled()
    {
        const std::string path = WriteConsist("Holed", {"box", "hopper", "Oil"});
        std::string text = game.Read("Trains/Consists/Holed.con");
        text.replace(text.find("\t\tWagon (\r\n\t\t\tWagonData ( Oil"), 0,
                     "\t\tWagon (\r\n\t\t\tUiD ( 9 )\r\n\t\t)\r\n");
        return game.Write("Trains/Consists/Holed.con", text);
    }
};

} // namespace

TEST_F(DocumentListsTest, EnterWithAModifierShowsTheConsistIn3D)
{
    Start();
    const QAction &properties = Find<QAction>(*window, "mnuFileProperties");
    for (const Qt::KeyboardModifiers keys :
         {Qt::KeyboardModifiers(Qt::ShiftModifier), Qt::KeyboardModifiers(Qt::ControlModifier),
          Qt::KeyboardModifiers(Qt::AltModifier), Qt::AltModifier | Qt::KeypadModifier}) {
        list().SelectRow(1);
        QTest::keyClick(&list(), keys & Qt::KeypadModifier ? Qt::Key_Enter : Qt::Key_Return, keys);
        ASSERT_EQ(Active()->Mode(), WindowMode::ConsistView) << keys;
        EXPECT_EQ(properties.shortcut().toString().toStdString(), "Alt+Return");
        EXPECT_TRUE(Wait([this] { return Status().find("Done") != std::string::npos; }));
        Active()->close();
        EXPECT_TRUE(Wait([this] { return window->Documents().size() == 1; }));
        dialogs.TakeLog();
    }
    EXPECT_TRUE(properties.shortcut().isEmpty());
    Trigger("mnuFileProperties");
    EXPECT_NE(dialogs.TakeLog().find("All Consists Properties"), std::string::npos);
}

TEST_F(DocumentListsTest, OnlyTheLeftButtonOpensAConsist)
{
    Start();
    const struct
    {
        Qt::MouseButton button;
        std::size_t windows;
    } rows[] = {{Qt::MiddleButton, 1}, {Qt::RightButton, 1}, {Qt::LeftButton, 2}};
    for (const auto &row : rows) {
        QTest::mousePress(list().viewport(), row.button, {}, rowAt(list(), 1));
        QTest::mouseDClick(list().viewport(), row.button, {}, rowAt(list(), 1));
        if (QWidget *menu = QApplication::activePopupWidget())
            menu->close();
        EXPECT_EQ(window->Documents().size(), row.windows) << row.button;
    }
}

TEST_F(DocumentListsTest, SingleColumnFollowsTheWidthOfTheWindow)
{
    Start();
    const auto fits = [this] { return list().columnWidth(0) == list().viewport()->width(); };
    list().header()->resizeSection(0, 60);
    Active()->resize(500, 300);
    EXPECT_TRUE(fits()) << list().columnWidth(0);
    list().header()->resizeSection(0, 60);
    Trigger("mnuViewRefresh");
    EXPECT_TRUE(fits()) << list().columnWidth(0);
}

TEST_F(DocumentListsTest, FilteredListStartsAtItsTop)
{
    for (int i = 100; i < 200; ++i) {
        WriteConsist("Ore " + std::to_string(i), {});
        game.Write("Trains/Trainset/Boxcars/b" + std::to_string(i) + ".wag");
        game.Write("Trains/Trainset/Bulk/b" + std::to_string(i) + ".wag");
    }
    Start();
    QScrollBar &bar = *list().verticalScrollBar();
    bar.setValue(50);
    Trigger("mnuViewRefresh");
    EXPECT_EQ(bar.value(), 50) << "a refreshed list keeps its place";
    filter("1");
    EXPECT_EQ(bar.value(), 0);
    EXPECT_EQ(list().model()->rowCount(), 100);

    window->OpenFile(ConsistFile("Coal"));
    EXPECT_TRUE(Wait([this] { return stock().model()->rowCount() == 205; }));
    stock().verticalScrollBar()->setValue(100);
    filter("B*");
    EXPECT_TRUE(Wait([this] { return stock().model()->rowCount() == 202; }));
    EXPECT_EQ(stock().verticalScrollBar()->value(), 0);
}

TEST_F(DocumentListsTest, UsesTheSingularForOne)
{
    Start();
    filter("gp");
    EXPECT_EQ(Status(), "1 consist");
    filter("*");
    EXPECT_EQ(Status(), "3 consists");
    OpenEditor("Coal");
    filter("Tank*");
    EXPECT_TRUE(Wait([this] { return Status() == "Installed stock list loaded: 1 item"; }))
        << Status();
}

TEST_F(DocumentListsTest, CommandsOnOneOfSeveralConsistsNameIt)
{
    Start();
    const std::string only = "Only \"Freight North\" of the 3 selected consists ";
    const auto run = [&](const char *command) {
        Active()->setFocus();
        list().selectAll();
        list().selectionModel()->setCurrentIndex(list().model()->index(1, 0),
                                                 QItemSelectionModel::NoUpdate);
        Trigger(command);
    };
    const auto showsAndCloses = [&](const std::string &outcome) {
        EXPECT_TRUE(Wait([&] { return Status() == outcome; })) << Status();
        Active()->close();
        EXPECT_TRUE(Wait([this] { return window->Documents().size() == 1; }));
    };
    run("mnuEditCopy");
    EXPECT_EQ(Status(), only + "was copied.");
    run("mnuConsistEdit");
    showsAndCloses(only + "was opened.  Installed stock list loaded: 5 items");
    run("mnuConsistView");
    showsAndCloses("Done  " + only + "was opened.");
    run("mnuConsistCheckStock");
    EXPECT_EQ(Status(), "Done  " + only + "was checked.");
    for (frmResults *results : window->findChildren<frmResults *>())
        results->close();
    dialogs.TakeLog();

    dialogs.Answer(host::DialogAnswer::No);
    run("mnuEditCut");
    EXPECT_EQ(Status(), "");
    dialogs.Answer(host::DialogAnswer::Yes);
    run("mnuEditCut");
    EXPECT_TRUE(Status().ends_with(" was moved to the wastebasket.  " + only + "was deleted."))
        << Status();
    list().SelectRow(0);
    Trigger("mnuEditCopy");
    EXPECT_EQ(Status().find("Only"), std::string::npos) << "a single selected consist is not named";
}

TEST_F(DocumentListsTest, ListWithoutFocusShowsItsSelectionInGrey)
{
    Start();
    OpenEditor("Coal");
    train().SelectRow(0);
    stock().SelectRow(0);
    const auto ground = [](const ListView &view) {
        const QRect row = view.visualRect(view.model()->index(0, 1));
        return view.viewport()->grab().toImage().pixelColor(row.right() - 3, row.center().y());
    };
    for (ListView *entered : {&train(), &stock()}) {
        entered->setFocus();
        for (ListView *view : {&train(), &stock()})
            EXPECT_EQ(ground(*view).hsvSaturation() > 60, view == entered)
                << view->objectName().toStdString();
    }
}

TEST_F(DocumentListsTest, ReturningToAnEditorKeepsItsActiveList)
{
    Start();
    frmDocument &editor = OpenEditor("Coal");
    const struct
    {
        const char *name;
        std::function<void()> leaveAndReturn;
    } ways[] = {
        {"mouse",
         [&] {
             QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, rowAt(list(), 0));
             QTest::mouseClick(&editor, Qt::LeftButton, {}, {editor.width() / 2, 8});
         }},
        {"keys",
         [&] {
             for (int i = 0; i < 2; ++i)
                 QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
         }},
        {"window menu",
         [&] {
             auto &area = Find<QMdiArea>(*window, "mdiArea");
             area.setActiveSubWindow(window->Documents().front());
             area.setActiveSubWindow(&editor);
         }},
        {"minimised",
         [&] {
             editor.showMinimized();
             QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, rowAt(list(), 0));
             editor.showNormal();
             Find<QMdiArea>(*window, "mdiArea").setActiveSubWindow(&editor);
         }},
        {"another window opened and closed",
         [&] {
             Trigger("mnuFileNewConsistList");
             window->Documents().back()->close();
             Find<QMdiArea>(*window, "mdiArea").setActiveSubWindow(&editor);
         }},
        {"button",
         [&] { QTest::mouseClick(&Find<QPushButton>(editor, "cmdAction4"), Qt::LeftButton); }},
    };
    window->Documents().front()->setGeometry(0, 0, 200, 400);
    editor.setGeometry(220, 0, 600, 400);
    for (const auto &way : ways) {
        for (ListView *entered : {&train(), &stock()}) {
            SCOPED_TRACE(std::string(way.name) + ", " + entered->objectName().toStdString());
            entered->SelectRow(0);
            QTest::mouseClick(entered->viewport(), Qt::LeftButton, {}, rowAt(*entered, 0));
            const std::string item = editor.SelectedItem();
            way.leaveAndReturn();
            ASSERT_EQ(Active(), &editor);
            EXPECT_TRUE(Wait([&] { return QApplication::focusWidget() == entered; }))
                << QApplication::focusWidget()->metaObject()->className() << ' '
                << QApplication::focusWidget()->objectName().toStdString();
            EXPECT_EQ(editor.SelectedItem(), item);
        }
    }
}

TEST_F(DocumentListsTest, ApplyReturnsTheFocusToTheActiveList)
{
    Start();
    frmDocument &editor = OpenEditor("Coal");
    auto &apply = Find<QPushButton>(editor, "cmdAction1");
    for (ListView *entered : {&train(), &stock()}) {
        SCOPED_TRACE(entered->objectName().toStdString());
        Find<QAbstractButton>(editor, "cmdMove5").click();
        QTest::mouseClick(entered->viewport(), Qt::LeftButton, {}, rowAt(*entered, 0));
        QTest::mouseClick(&apply, Qt::LeftButton);
        EXPECT_EQ(QApplication::focusWidget(), entered) << "by mouse";

        Find<QAbstractButton>(editor, "cmdMove5").click();
        entered->setFocus();
        apply.setFocus(Qt::TabFocusReason);
        QTest::keyClick(&apply, Qt::Key_Space);
        EXPECT_FALSE(editor.Changed());
        EXPECT_EQ(QApplication::focusWidget(), entered) << "by keyboard";
    }
}

TEST_F(DocumentListsTest, EditorWorksFromAWidthOf400Pixels)
{
    Start();
    frmDocument &editor = OpenEditor("Coal");
    Find<QAbstractButton>(editor, "cmdMove5").click();
    for (const int width : {400, 515, 660}) {
        SCOPED_TRACE(width);
        editor.resize(width, 440);
        QTest::qWait(1);
        auto &scroller = *editor.findChild<QScrollArea *>();
        EXPECT_EQ(scroller.horizontalScrollBar()->maximum(), 0);
        EXPECT_EQ(scroller.verticalScrollBar()->maximum(), 0);
        QList<QWidget *> controls;
        for (const char *name : {"cmdAction", "cmdMove", "txt", "lv"})
            for (QWidget *control : editor.findChildren<QWidget *>())
                if (control->objectName().startsWith(QLatin1String(name)))
                    controls << control;
        EXPECT_EQ(controls.size(), 5 + 6 + 3 + 2);
        QRegion taken;
        for (const QWidget *control : controls) {
            const QRect place(control->mapTo(&editor, QPoint()), control->size());
            EXPECT_TRUE(editor.contentsRect().contains(place))
                << control->objectName().toStdString();
            EXPECT_FALSE(taken.intersects(place)) << control->objectName().toStdString();
            EXPECT_GE(place.width(), control->minimumSizeHint().width());
            taken += place;
        }
    }
    editor.AllowUnload();
}

TEST_F(DocumentListsTest, ConsistWithAnUnlistableUnitShowsTheUnitsBeforeIt)
{
    Start();
    const std::string file = writeHoled();
    const std::string fault = ", line 18: Wagon has no block WagonData";
    for (const bool refreshed : {false, true}) {
        SCOPED_TRACE(refreshed ? "refreshed" : "opened");
        if (refreshed)
            Trigger("mnuViewRefresh");
        else
            window->OpenFile(file);
        ASSERT_EQ(Active()->Mode(), WindowMode::ConsistEditor);
        EXPECT_EQ(RowsOf(train()), "Wagon/Boxcars/box Wagon/Boxcars/hopper");
        EXPECT_TRUE(Wait([this] { return stock().model()->rowCount() == 5; }));
        const std::string log = dialogs.TakeLog();
        EXPECT_EQ(log.find("information|Open File|" + file + fault + ".\n"), 0u) << log;
        EXPECT_FALSE(Active()->Changed());
        EXPECT_FALSE(Find<QAbstractButton>(*Active(), "cmdAction1").isEnabled());
    }
    EXPECT_EQ(Active()->Caption(), "Consist - Holed");
    stock().SelectRow(0);
    QTest::keyClick(&stock(), Qt::Key_Insert);
    EXPECT_EQ(Status(),
              "box was added at the end of the train, but is not shown: " + file + fault + '.');
    EXPECT_EQ(train().SelectedRow(), 1);
    Active()->AllowUnload();
}
