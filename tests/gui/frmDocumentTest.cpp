// SPDX-License-Identifier: MIT
#include "ui/document/frmDocument.h"

#include "GuiTest.h"
#include "host/Folders.h"
#include "host/Path.h"
#include "host/SavedIndex.h"
#include "host/Snapshot.h"
#include "ui/widgets/ListView.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>

#include <filesystem>
#include <utility>

using document::ListView;
using host::DialogAnswer;

namespace {

class frmDocumentTest : public GuiTest
{
protected:
    ListView &list() { return Find<ListView>(*Active(), "lvConsists"); }
    ListView &train() { return Find<ListView>(*Active(), "lvConsist"); }
    ListView &stock() { return Find<ListView>(*Active(), "lvStock"); }
    QAbstractButton &button(const char *name) { return Find<QAbstractButton>(*Active(), name); }
    /// Returns the shapes of the train as the list shows them, with "*" after flipped ones and "<"
    /// after the selected one.
    std::string shown()
    {
        std::string text;
        for (int row = 0; row < train().model()->rowCount(); ++row) {
            const auto column = [&](int at) {
                return train().model()->index(row, at).data().toString().toStdString();
            };
            text += (row ? " " : "") + column(2) + (column(0).ends_with("*") ? "*" : "") +
                    (train().SelectedRow() == row ? "<" : "");
        }
        return text;
    }
    bool savable() { return button("cmdAction1").isEnabled() && button("cmdAction2").isEnabled(); }
};

const std::string kLost =
    "Consist has changed.  All changes will be lost if you do not save it.  Do you want to save it "
    "before closing";

} // namespace

TEST_F(frmDocumentTest, FilterShortensTheListAndAppearsInItsCaption)
{
    Start();
    dialogs.AnswerInput("gp");
    Trigger("mnuViewFilter");
    EXPECT_EQ(RowsOf(list()), "GP38 Local");
    EXPECT_EQ(Active()->Caption(), "Consist List 1 (Filtered on gp)");
    EXPECT_EQ(dialogs.TakeLog(),
              "input|Filter Consist List|Enter a filter string for consists:|\n");
    Trigger("mnuViewFilter");
    EXPECT_EQ(Active()->Filter(), "gp") << "a cancelled box leaves the filter";
    dialogs.TakeLog();
    dialogs.AnswerInput("*");
    Trigger("mnuViewFilter");
    EXPECT_EQ(Active()->Caption(), "Consist List 1");
    EXPECT_EQ(list().model()->rowCount(), 3);
}

TEST_F(frmDocumentTest, EnterOpensEverySelectedConsistInListOrder)
{
    Start();
    list().selectAll();
    QTest::keyClick(&list(), Qt::Key_Enter, Qt::KeypadModifier);
    ASSERT_EQ(window->Documents().size(), 4u);
    EXPECT_EQ(window->Documents()[1]->Caption(), "Consist - Coal");
    EXPECT_EQ(window->Documents()[3]->Caption(), "Consist - GP38 Local");
    EXPECT_EQ(window->Documents()[3]->SelectedItem(), "");
}

TEST_F(frmDocumentTest, EditCommandAndDoubleClickOpenTheSelectedConsist)
{
    Start();
    Trigger("mnuConsistEdit");
    EXPECT_EQ(dialogs.TakeLog(), "critical|Edit|Nothing selected!\n");
    list().SelectRow(1);
    Trigger("mnuConsistEdit");
    EXPECT_EQ(Active()->FileName(),
              host::path::Join(game.Path(), "Trains/Consists/Freight North.con"));
    window->Documents().front()->setFocus();
    frmDocument &first = *window->Documents().front();
    auto &names = Find<ListView>(first, "lvConsists");
    const QPoint at = names.visualRect(names.model()->index(2, 0)).center();
    QTest::mouseClick(names.viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(names.viewport(), Qt::LeftButton, {}, at);
    EXPECT_EQ(Active()->Caption(), "Consist - GP38 Local");
}

TEST_F(frmDocumentTest, RightButtonOpensTheMenuOfTheList)
{
    Start();
    const auto popsUp = [this](ListView &where, const char *name) {
        auto &menu = Find<QMenu>(*window->menuBar(), name);
        QTest::mousePress(where.viewport(), Qt::RightButton);
        EXPECT_FALSE(menu.isVisible()) << "not before the button is released";
        QTest::mouseRelease(where.viewport(), Qt::RightButton);
        EXPECT_TRUE(menu.isVisible()) << name;
        menu.close();
    };
    popsUp(list(), "mnuConsist");
    OpenEditor("Coal");
    popsUp(train(), "mnuStock");
    popsUp(stock(), "mnuStock");
}

TEST_F(frmDocumentTest, EditorShowsConsistAndStock)
{
    Start();
    OpenEditor("Coal");
    EXPECT_EQ(shown(), "box hopper");
    EXPECT_EQ(RowsOf(stock()), "Wagon/Boxcars/box Wagon/Boxcars/hopper Engine/GP38 Pack/gp38a "
                               "Engine/GP38 Pack/gp38b Wagon/Tankers/Oil");
    const struct
    {
        const char *box, *text;
    } boxes[] = {{"txtMaxVelocity0", "26.82240"},
                 {"txtMaxVelocity1", "1.00000"},
                 {"txtDurability", "0.50000"}};
    for (const auto &row : boxes) {
        EXPECT_EQ(Find<QLineEdit>(*Active(), row.box).text().toStdString(), row.text);
        EXPECT_TRUE(Find<QLineEdit>(*Active(), row.box).isReadOnly()) << row.box;
    }
    EXPECT_FALSE(savable());
    EXPECT_TRUE(button("cmdAction3").isEnabled());
    EXPECT_EQ(button("cmdAction4").toolTip(), QStringLiteral("Show selected shape in 3D"));
    for (const QWidget *control : Active()->findChildren<QWidget *>()) {
        const std::string name = control->objectName().toStdString();
        const bool named = name.starts_with("cmd") || name.starts_with("lvS");
        EXPECT_TRUE(!named || !control->accessibleName().isEmpty()) << name;
    }
}

TEST_F(frmDocumentTest, ButtonsAndKeysEditTheTrain)
{
    Start();
    OpenEditor("GP38 Local");
    EXPECT_EQ(shown(), "box hopper Oil");
    train().SelectRow(0);
    stock().SelectRow(3);
    const struct
    {
        const char *name;
        std::function<void()> act;
        const char *shown;
    } steps[] = {
        {"forwards at the front", [&] { button("cmdMove3").click(); }, "box< hopper Oil"},
        {"backwards", [&] { button("cmdMove4").click(); }, "hopper box< Oil"},
        {"forwards", [&] { button("cmdMove3").click(); }, "box< hopper Oil"},
        {"flip", [&] { button("cmdMove5").click(); }, "box* hopper Oil"},
        {"insert key", [&] { QTest::keyClick(&stock(), Qt::Key_Insert); },
         "box* hopper Oil gp38b<"},
        {"add", [&] { button("cmdMove0").click(); }, "box* hopper Oil gp38b gp38b<"},
        {"delete key", [&] { QTest::keyClick(&train(), Qt::Key_Delete); },
         "box* hopper Oil gp38b<"},
        {"control and delete",
         [&] { QTest::keyClick(&train(), Qt::Key_Delete, Qt::ControlModifier); },
         "box* hopper Oil<"},
        {"shift, control and delete",
         [&] {
             QTest::keyClick(&train(), Qt::Key_Delete, Qt::ShiftModifier | Qt::ControlModifier);
         },
         "box* hopper<"},
        {"shift and delete", [&] { QTest::keyClick(&train(), Qt::Key_Delete, Qt::ShiftModifier); },
         ""},
        {"remove from nothing", [&] { button("cmdMove1").click(); }, ""},
    };
    for (const auto &step : steps) {
        step.act();
        EXPECT_EQ(shown(), step.shown) << step.name;
        EXPECT_TRUE(savable()) << step.name;
    }
    EXPECT_EQ(Active()->Caption(), "Consist - GP38 Local");
    EXPECT_EQ(dialogs.Log(), "");
    EXPECT_EQ(ShapesIn(ConsistFile("GP38 Local")), "box hopper Oil") << "the file is unchanged";
    Active()->AllowUnload();
}

TEST_F(frmDocumentTest, SelectedItemIsThatOfTheLastActiveList)
{
    Start();
    frmDocument &editor = OpenEditor("Coal");
    train().SelectRow(1);
    stock().SelectRow(2);
    stock().setFocus();
    const auto path = [this](const char *below) {
        return host::path::Normalise(game.At(std::string("Trains/Trainset/") + below));
    };
    EXPECT_EQ(host::path::Normalise(editor.SelectedItem()), path("GP38 Pack/gp38a.eng"));
    train().setFocus();
    EXPECT_EQ(host::path::Normalise(editor.SelectedItem()), path("Boxcars/hopper.wag"));
    train().SelectRow(-1);
    EXPECT_EQ(editor.SelectedItem(), "");
}

TEST_F(frmDocumentTest, ApplySavesAndOkSavesAndCloses)
{
    Start();
    OpenEditor("Coal");
    train().SelectRow(0);
    button("cmdMove1").click();
    button("cmdAction1").click();
    const std::string saved = "information|Save Consist|" + ConsistFile("Coal") + " saved\n";
    EXPECT_EQ(dialogs.TakeLog(), saved);
    EXPECT_EQ(ShapesIn(ConsistFile("Coal")), "hopper");
    EXPECT_FALSE(savable());
    stock().SelectRow(4);
    button("cmdMove0").click();
    button("cmdAction2").click();
    EXPECT_EQ(dialogs.TakeLog(), saved);
    EXPECT_EQ(ShapesIn(ConsistFile("Coal")), "hopper Oil");
    EXPECT_TRUE(Wait([this] { return window->Documents().size() == 1; }));
}

TEST_F(frmDocumentTest, FailedSaveIsReportedAndLosesNothing)
{
    Start();
    OpenEditor("Coal");
    button("cmdMove5").click();
    namespace fs = std::filesystem;
    fs::permissions(ConsistFile("Coal"), fs::perms::owner_read);
    button("cmdAction2").click();
    const std::string log = dialogs.TakeLog();
    EXPECT_EQ(log.rfind("critical|Save Consist|" + ConsistFile("Coal") + ": ", 0), 0u) << log;
    EXPECT_TRUE(Active()->Changed());
    EXPECT_EQ(Active()->FileName(), ConsistFile("Coal"));
    EXPECT_EQ(ShapesIn(ConsistFile("Coal")), "box hopper");
}

TEST_F(frmDocumentTest, CloseAsksBeforeDroppingChanges)
{
    struct Road
    {
        const char *name;
        std::function<void()> close;
        std::string question;
    };
    Start();
    const Road roads[] = {
        {"button", [&] { button("cmdAction0").click(); },
         "question|Cancel|" + kLost + " the consist?\n"},
        {"menu", [&] { Trigger("mnuFileClose"); }, "question|Close|" + kLost + "?\n"},
        {"window", [&] { Active()->close(); }, "question|Close|" + kLost + "?\n"},
    };
    const std::string overwrite = "question|Save Consist|" + ConsistFile("Coal") +
                                  " already exists.  Do you want to overwrite it?\n";
    for (const Road &road : roads) {
        SCOPED_TRACE(road.name);
        WriteConsist("Coal", {"box", "hopper"});
        files.Refresh();
        OpenEditor("Coal");
        train().SelectRow(0);
        button("cmdMove1").click();

        dialogs.Answer(DialogAnswer::Cancel);
        road.close();
        EXPECT_EQ(dialogs.TakeLog(), road.question);
        ASSERT_EQ(window->Documents().size(), 2u);

        dialogs.Answer(DialogAnswer::Yes);    // save it
        dialogs.Answer(DialogAnswer::Cancel); // but do not overwrite
        road.close();
        EXPECT_EQ(dialogs.TakeLog(), road.question + overwrite + "critical|Save Consist|Save of " +
                                         ConsistFile("Coal") + " cancelled by user!\n")
            << "asked once";
        ASSERT_EQ(window->Documents().size(), 2u) << "an unsaved consist stays open";
        EXPECT_EQ(ShapesIn(ConsistFile("Coal")), "box hopper");

        std::filesystem::permissions(ConsistFile("Coal"), std::filesystem::perms::owner_read);
        dialogs.Answer(DialogAnswer::Yes); // save it
        dialogs.Answer(DialogAnswer::Yes); // over the old file, which cannot be deleted
        road.close();
        const std::string log = dialogs.TakeLog();
        const std::string failed = road.question + overwrite + "critical|Save Consist|";
        EXPECT_EQ(log.substr(0, failed.size()), failed);
        EXPECT_EQ(log.find("question|", failed.size()), log.npos) << "asked once: " << log;
        ASSERT_EQ(window->Documents().size(), 2u) << "an unsaved consist stays open";
        std::filesystem::permissions(ConsistFile("Coal"), std::filesystem::perms::owner_all);

        dialogs.Answer(DialogAnswer::Yes);
        dialogs.Answer(DialogAnswer::Yes);
        road.close();
        EXPECT_EQ(dialogs.TakeLog(), road.question + overwrite + "information|Save Consist|" +
                                         ConsistFile("Coal") + " saved\n");
        EXPECT_TRUE(Wait([this] { return window->Documents().size() == 1; }));
        EXPECT_EQ(ShapesIn(ConsistFile("Coal")), "hopper");

        OpenEditor("Coal");
        button("cmdMove5").click();
        dialogs.Answer(DialogAnswer::No);
        road.close();
        EXPECT_EQ(dialogs.TakeLog(), road.question) << "asked once";
        EXPECT_TRUE(Wait([this] { return window->Documents().size() == 1; }));
        EXPECT_EQ(ShapesIn(ConsistFile("Coal")), "hopper");
    }
}

TEST_F(frmDocumentTest, ClosingAgainWhileTheQuestionIsOpenDoesNothing)
{
    Start();
    OpenEditor("Coal");
    button("cmdMove5").click();
    bool closedAgain = false;
    dialogs.onShown = [&] {
        if (!std::exchange(closedAgain, true)) {
            EXPECT_FALSE(Active()->close());
        }
    };
    dialogs.Answer(DialogAnswer::Cancel);
    EXPECT_FALSE(Active()->QueryUnload()); // as when the program ends
    dialogs.onShown = nullptr;
    EXPECT_EQ(dialogs.TakeLog(), "question|Close|" + kLost + "?\n");
    EXPECT_TRUE(Active()->Changed());
    EXPECT_EQ(window->Documents().size(), 2u);
}

TEST_F(frmDocumentTest, UnchangedConsistClosesWithoutAQuestion)
{
    Start();
    OpenEditor("Coal");
    button("cmdAction0").click();
    EXPECT_TRUE(Wait([this] { return window->Documents().size() == 1; }));
    EXPECT_EQ(dialogs.Log(), "");
}

TEST_F(frmDocumentTest, NewConsistGetsItsNameBySaveAs)
{
    Start();
    Trigger("mnuFileNewConsist");
    ASSERT_TRUE(Wait([this] { return stock().model()->rowCount() == 5; }));
    EXPECT_TRUE(savable());
    stock().SelectRow(0);
    QTest::keyClick(&stock(), Qt::Key_Insert);
    button("cmdAction2").click();
    EXPECT_EQ(dialogs.TakeLog(), "question|Close|" + kLost + "?\n") << "cancelled by the script";
    ASSERT_EQ(window->Documents().size(), 2u);

    dialogs.AnswerFile("*.con");
    Trigger("mnuFileSaveAs");
    EXPECT_EQ(dialogs.TakeLog(), "save|Save Consist As|*.con\n");
    EXPECT_EQ(Active()->FileName(), "");
    dialogs.AnswerFile(ConsistFile("My Train"));
    Trigger("mnuFileSaveAs");
    EXPECT_EQ(Active()->Caption(), "Consist - " + ConsistFile("My Train"));
    EXPECT_EQ(ShapesIn(ConsistFile("My Train")), "box");
    EXPECT_FALSE(savable());
}

TEST_F(frmDocumentTest, CancelledSaveAsKeepsTheName)
{
    Start();
    frmDocument &editor = OpenEditor("Coal");
    Trigger("mnuFileSaveAs");
    EXPECT_EQ(editor.FileName(), ConsistFile("Coal"));
    dialogs.AnswerFile(ConsistFile("Copy"));
    Trigger("mnuFileSaveAs");
    EXPECT_EQ(editor.FileName(), ConsistFile("Copy"));
    EXPECT_EQ(ShapesIn(ConsistFile("Copy")), "box hopper");
    EXPECT_EQ(ShapesIn(ConsistFile("Coal")), "box hopper");
}

TEST_F(frmDocumentTest, TwoEditorsOnOneFileAreIndependent)
{
    Start();
    frmDocument &first = OpenEditor("Coal");
    frmDocument &second = OpenEditor("Coal");
    ASSERT_NE(&first, &second);
    train().SelectRow(0);
    button("cmdMove1").click();
    EXPECT_EQ(shown(), "hopper<");
    EXPECT_FALSE(first.Changed());
    EXPECT_EQ(Find<ListView>(first, "lvConsist").model()->rowCount(), 2);
    second.AllowUnload();
}

TEST_F(frmDocumentTest, SaveAllSavesEveryEditor)
{
    Start();
    for (const char *name : {"Coal", "Freight North"}) {
        OpenEditor(name);
        train().SelectRow(0);
        button("cmdMove1").click();
    }
    dialogs.Answer(DialogAnswer::Yes);
    dialogs.Answer(DialogAnswer::Ok);
    dialogs.Answer(DialogAnswer::Yes);
    Trigger("mnuFileSaveAll");
    EXPECT_EQ(ShapesIn(ConsistFile("Coal")) + "|" + ShapesIn(ConsistFile("Freight North")),
              "hopper|");
    EXPECT_EQ(Active()->FileName(), ConsistFile("Freight North"));
}

TEST_F(frmDocumentTest, RefreshAsksBeforeItDropsChanges)
{
    Start();
    OpenEditor("Coal");
    button("cmdMove2").click();
    EXPECT_EQ(shown(), "");
    WriteConsist("Coal", {"hopper"});
    dialogs.Answer(DialogAnswer::No);
    Trigger("mnuViewRefresh");
    EXPECT_EQ(shown(), "");
    EXPECT_EQ(dialogs.TakeLog(),
              "question (No)|Refresh|Consist has changed.  Reading it again drops all "
              "changes.  Do you want to continue?\n");
    dialogs.Answer(DialogAnswer::Yes);
    Trigger("mnuViewRefresh");
    EXPECT_EQ(shown(), "hopper");
    EXPECT_FALSE(savable());
    const std::string dropped =
        ConsistFile("Coal") + " was read again; unsaved changes were dropped.";
    EXPECT_TRUE(Wait([&] {
        return Status() == dropped + "  Installed stock list loaded: 5 items";
    })) << Status();
}

TEST_F(frmDocumentTest, RefreshEverythingReadsAllWindowsAndForgetsTheIndex)
{
    Start();
    OpenEditor("Coal");
    frmDocument *const coal = Active();
    button("cmdMove2").click();
    frmDocument &north = OpenEditor("Freight North");
    WriteConsist("Coal", {"hopper"});
    WriteConsist("Freight North", {"box"});
    const std::string folder = host::SavedIndex::UserFolder();
    {
        host::Snapshot snapshot(files);
        host::SavedIndex index(snapshot, {folder}, 0, installation.CurrentFolder(), "test");
        index.Keep("key", "value", {});
        index.Save(host::SavedIndex::Extent::Whole);
        ASSERT_FALSE(files.ListFiles(folder, "*.index").empty());
    }
    dialogs.Answer(DialogAnswer::No);
    Trigger("mnuViewRefreshAll");
    EXPECT_EQ(dialogs.TakeLog(),
              "question (No)|Refresh|Consist has changed.  Reading it again drops all "
              "changes.  Do you want to continue?\n");
    EXPECT_EQ(Active(), coal) << "the question is about this window";
    EXPECT_EQ(shown(), "") << "it keeps its changes";
    north.mdiArea()->setActiveSubWindow(&north);
    EXPECT_EQ(shown(), "box");
    EXPECT_TRUE(files.ListFiles(folder, "*.index").empty());
}

TEST_F(frmDocumentTest, SurvivesAFileThatIsDamagedOrRemovedUnderItsWindow)
{
    Start();
    OpenEditor("Coal");
    const std::string file = ConsistFile("Coal"), good = game.Read("Trains/Consists/Coal.con");
    game.Write("Trains/Consists/Coal.con", "Nothing ( 1 )");
    dialogs.Answer(DialogAnswer::Ok);
    Trigger("mnuViewRefresh");
    EXPECT_NE(dialogs.TakeLog().find("there is no Train block"), std::string::npos);
    QTest::keyClick(&train(), Qt::Key_Delete);
    EXPECT_NE(Status().find("there is no Train block"), std::string::npos) << Status();
    dialogs.Answer(DialogAnswer::No); // do not save before viewing
    button("cmdAction3").click();
    const std::string log = dialogs.TakeLog();
    EXPECT_NE(log.find("critical|View Consist|" + file + ": there is no Train block"), log.npos)
        << log;
    EXPECT_EQ(window->Documents().size(), 2u) << "nothing to view";
    game.Write("Trains/Consists/Coal.con", good);
    dialogs.Answer(DialogAnswer::Yes);
    Trigger("mnuViewRefresh");
    const std::string units = shown();
    EXPECT_FALSE(units.empty());

    std::filesystem::remove(file);
    dialogs.TakeLog();
    Trigger("mnuViewRefresh");
    EXPECT_EQ(shown(), units) << "the only remaining copy";
    EXPECT_EQ(dialogs.Log(), "");
    EXPECT_TRUE(savable());
    Active()->AllowUnload();
}

TEST_F(frmDocumentTest, VanishedInstallationLeavesEmptyLists)
{
    Start();
    frmDocument &editor = OpenEditor("Coal");
    button("cmdMove5").click();
    std::filesystem::remove_all(game.At("Trains"));
    editor.ReloadAllStock();
    EXPECT_TRUE(Wait([this] { return Status().find("loaded: 0 items") != std::string::npos; }));
    button("cmdAction1").click();
    EXPECT_NE(dialogs.TakeLog().find(ConsistFile("Coal")), std::string::npos);
    EXPECT_TRUE(editor.Changed());
    window->Documents().front()->LoadForm();
    EXPECT_EQ(Find<ListView>(*window->Documents().front(), "lvConsists").model()->rowCount(), 0);
}

TEST_F(frmDocumentTest, LogsDraggedStock)
{
    host::AppendTraceLine("test"); // on Windows all programs share the log
    const std::size_t before = host::GameFiles().ReadFile(host::TraceLogFile()).size();
    Start();
    OpenEditor("Coal");
    const QPoint at = stock().visualRect(stock().model()->index(2, 0)).center();
    QTest::mousePress(stock().viewport(), Qt::LeftButton, {}, at);
    QTest::mouseRelease(stock().viewport(), Qt::LeftButton, {}, at + QPoint(0, -30));
    const std::string log = host::GameFiles().ReadFile(host::TraceLogFile()).substr(before);
    for (const char *line :
         {" Loading installed stock list...", " Done", " Dragging Engine", " Dragged Engine"})
        EXPECT_NE(log.find(line), std::string::npos) << log;
    EXPECT_EQ(shown(), "box hopper") << "dragging adds nothing";
}
