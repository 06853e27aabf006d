// SPDX-License-Identifier: MIT
// Tests saving while other programs write the same files, and the signs of unsaved changes in an
// editor.
#include "GuiTest.h"
#include "host/Folders.h"
#include "host/Path.h"
#include "ui/widgets/ListView.h"

#include <QAbstractButton>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>

#include <filesystem>

using document::ListView;
using host::DialogAnswer;

namespace {

class SavingTest : public GuiTest
{
protected:
    ListView &train(const frmDocument &editor) { return Find<ListView>(editor, "lvConsist"); }
    std::string shown(const frmDocument &editor) { return RowsOf(train(editor)); }
    void press(const frmDocument &editor, const char *name)
    {
        Find<QAbstractButton>(editor, name).click();
    }
    void removeFirst(const frmDocument &editor)
    {
        train(editor).SelectRow(0);
        press(editor, "cmdMove1");
    }
    std::string heading(const frmDocument &editor) const
    {
        for (const QLabel *label : editor.findChildren<QLabel *>())
            if (label->text().startsWith(QLatin1String("Current consist items")))
                return label->text().toStdString();
        return {};
    }
    std::string lastInWindowMenu()
    {
        auto &menu = Find<QMenu>(*window->menuBar(), "mnuWindow");
        Q_EMIT menu.aboutToShow();
        return menu.actions().back()->text().toStdString();
    }
    std::string changedQuestion(const char *name) const
    {
        return "question (No)|Save Consist|" + ConsistFile(name) +
               " was changed since it was opened. Overwrite it?\n";
    }
    std::string overwriteQuestion(const char *name) const
    {
        return "question|Save Consist|" + ConsistFile(name) +
               " already exists.  Do you want to overwrite it?\n";
    }
    std::string savedMessage(const char *name) const
    {
        return "information|Save Consist|" + ConsistFile(name) + " saved\n";
    }
};

const std::string kCloseQuestion =
    "question|Close|Consist has changed.  All changes will be lost if you do not save it.  Do you "
    "want to save it before closing?\n";

} // namespace

TEST_F(SavingTest, ChangeOfAnotherProgramDuringTheQuestionIsNotOverwritten)
{
    for (const char *button : {"cmdAction1", "cmdAction2"}) {
        WriteConsist("Coal", {"box", "hopper"});
        Start();
        frmDocument &editor = OpenEditor("Coal");
        removeFirst(editor);
        WriteConsist("Coal", {"other"});
        dialogs.onShown = [this] {
            dialogs.onShown = {};
            WriteConsist("Coal", {"another"});
        };
        dialogs.Answer(DialogAnswer::Yes);
        dialogs.Answer(DialogAnswer::No);
        press(editor, button);
        EXPECT_EQ(dialogs.TakeLog(), changedQuestion("Coal") + changedQuestion("Coal"));
        EXPECT_EQ(ShapesIn(ConsistFile("Coal")), "another");
        EXPECT_TRUE(editor.Changed());
        dialogs.Answer(DialogAnswer::Yes);
        press(editor, "cmdAction1");
        EXPECT_EQ(dialogs.TakeLog(), changedQuestion("Coal") + savedMessage("Coal"));
        EXPECT_EQ(ShapesIn(ConsistFile("Coal")), "hopper");
        window.reset();
    }
}

TEST_F(SavingTest, AsksBeforeOverwritingAFileChangedByAnotherProgram)
{
    const struct
    {
        const char *name;
        std::function<void()> act;
        std::string firstQuestion;
        bool asksForEveryFile, closes;
    } ways[] = {
        {"Apply", [&] { press(*Active(), "cmdAction1"); }, "", false, false},
        {"OK", [&] { press(*Active(), "cmdAction2"); }, "", false, true},
        {"Save", [&] { Trigger("mnuFileSave"); }, "", true, false},
        {"Save All", [&] { Trigger("mnuFileSaveAll"); }, "", true, false},
        {"Close", [&] { Trigger("mnuFileClose"); }, kCloseQuestion, true, true},
    };
    Start();
    for (const auto &way : ways) {
        SCOPED_TRACE(way.name);
        WriteConsist("Coal", {"box", "hopper"});
        frmDocument &editor = OpenEditor("Coal");
        removeFirst(editor);
        WriteConsist("Coal", {"Oil"});

        if (!way.firstQuestion.empty())
            dialogs.Answer(DialogAnswer::Yes);
        dialogs.Answer(DialogAnswer::No);
        way.act();
        EXPECT_EQ(dialogs.TakeLog(), way.firstQuestion + changedQuestion("Coal"));
        EXPECT_EQ(ShapesIn(ConsistFile("Coal")), "Oil");
        ASSERT_EQ(window->Documents().size(), 2u) << "an unsaved consist stays open";
        EXPECT_TRUE(editor.Changed());
        EXPECT_EQ(editor.FileName() + '|' + editor.Caption(),
                  ConsistFile("Coal") + "|Consist - Coal");

        if (!way.firstQuestion.empty())
            dialogs.Answer(DialogAnswer::Yes);
        dialogs.Answer(DialogAnswer::Yes);
        if (way.asksForEveryFile)
            dialogs.Answer(DialogAnswer::Yes);
        dialogs.Answer(DialogAnswer::Ok);
        way.act();
        EXPECT_EQ(dialogs.TakeLog(), way.firstQuestion + changedQuestion("Coal") +
                                         (way.asksForEveryFile ? overwriteQuestion("Coal") : "") +
                                         savedMessage("Coal"));
        EXPECT_EQ(ShapesIn(ConsistFile("Coal")), "hopper");
        if (way.closes) {
            EXPECT_TRUE(Wait([this] { return window->Documents().size() == 1; }));
            continue;
        }
        removeFirst(editor);
        press(editor, "cmdAction1");
        EXPECT_EQ(dialogs.TakeLog(), savedMessage("Coal")) << "our own save is not a change";
        editor.close();
        EXPECT_TRUE(Wait([this] { return window->Documents().size() == 1; }));
    }
}

TEST_F(SavingTest, AsksAboutAFileThatAppearedUnderTheNameOfANewConsist)
{
    Start();
    window->OpenFile(ConsistFile("Late"));
    WriteConsist("Late", {"Oil"});
    dialogs.Answer(DialogAnswer::No);
    press(*Active(), "cmdAction1");
    EXPECT_EQ(dialogs.TakeLog(), changedQuestion("Late"));
    EXPECT_EQ(ShapesIn(ConsistFile("Late")), "Oil");
    std::filesystem::remove(ConsistFile("Late"));
    press(*Active(), "cmdAction1");
    EXPECT_EQ(dialogs.TakeLog(), savedMessage("Late")) << "nothing is lost by writing it again";
}

TEST_F(SavingTest, DoesNotAskAboutOtherFilesAndTheScratchCopy)
{
    Start();
    frmDocument &editor = OpenEditor("Coal");
    removeFirst(editor);
    WriteConsist("Coal", {"Oil"});
    dialogs.Answer(DialogAnswer::No); // do not save before viewing
    press(editor, "cmdAction3");
    EXPECT_EQ(dialogs.TakeLog(), "question|View Consist|Consist has changed.  Do you want to save "
                                 "it before viewing the consist?\n");
    ASSERT_EQ(window->Documents().size(), 3u);
    std::filesystem::remove(host::path::Join(host::ProgramFolder(), "Temporary Consist.con"));
    editor.setFocus();

    dialogs.AnswerFile(ConsistFile("Copy"));
    Trigger("mnuFileSaveAs");
    EXPECT_EQ(dialogs.TakeLog(), "save|Save Consist As|*.con\n" + savedMessage("Copy"));
    EXPECT_EQ(ShapesIn(ConsistFile("Coal")) + '|' + ShapesIn(ConsistFile("Copy")), "Oil|hopper");
}

TEST_F(SavingTest, NoKeepsTheProgramOpenAndSaveAllContinues)
{
    Start();
    frmDocument &first = OpenEditor("Coal");
    removeFirst(first);
    WriteConsist("Coal", {"Oil"});
    frmDocument &second = OpenEditor("Freight North");
    removeFirst(second);

    dialogs.Answer(DialogAnswer::No);  // keep the other program's file
    dialogs.Answer(DialogAnswer::Yes); // overwrite the second
    Trigger("mnuFileSaveAll");
    EXPECT_EQ(dialogs.TakeLog(), changedQuestion("Coal") + overwriteQuestion("Freight North") +
                                     savedMessage("Freight North"));
    EXPECT_TRUE(first.Changed());
    EXPECT_FALSE(second.Changed());

    dialogs.Answer(DialogAnswer::Yes); // save before closing
    dialogs.Answer(DialogAnswer::No);  // but do not overwrite
    EXPECT_FALSE(window->close());
    EXPECT_EQ(dialogs.TakeLog(), kCloseQuestion + changedQuestion("Coal"));
    EXPECT_EQ(window->Documents().size(), 3u);
    EXPECT_EQ(ShapesIn(ConsistFile("Coal")), "Oil");
    first.AllowUnload();
}

TEST_F(SavingTest, UnchangedEditorShowsWhatAnotherEditorSaved)
{
    WriteConsist("Long", std::vector<std::string>(80, "hopper"));
    Start();
    frmDocument &reader = OpenEditor("Long");
    ListView &list = train(reader);
    list.SelectRow(50);
    list.verticalScrollBar()->setValue(list.verticalScrollBar()->maximum() / 2);
    const int scrolled = list.verticalScrollBar()->value();
    ASSERT_GT(scrolled, 0);
    frmDocument &other = OpenEditor("Freight North"), &writer = OpenEditor("Long");
    removeFirst(writer);
    EXPECT_EQ(list.model()->rowCount(), 80) << "not before it is saved";
    press(writer, "cmdAction1");
    EXPECT_EQ(dialogs.TakeLog(), savedMessage("Long"));
    EXPECT_EQ(list.model()->rowCount(), 79);
    EXPECT_EQ(list.SelectedRow(), 50);
    EXPECT_EQ(list.verticalScrollBar()->value(), scrolled);
    EXPECT_EQ(heading(reader), "Current consist items (79)");
    EXPECT_EQ(other.Consist().Rows().size(), 1u);
    EXPECT_EQ(Active(), &writer);

    removeFirst(reader);
    press(reader, "cmdAction1");
    EXPECT_EQ(dialogs.TakeLog(), savedMessage("Long")) << "it shows what the other window saved";
    EXPECT_EQ(writer.Consist().Rows().size(), 78u);
}

TEST_F(SavingTest, ChangedEditorReportsThatAnotherEditorSavedItsFile)
{
    Start();
    frmDocument &first = OpenEditor("GP38 Local"), &second = OpenEditor("GP38 Local");
    removeFirst(first);
    const std::string mine = shown(first);
    press(second, "cmdMove2");
    press(second, "cmdAction1");
    EXPECT_EQ(dialogs.TakeLog(), savedMessage("GP38 Local"));
    EXPECT_EQ(shown(first), mine);
    EXPECT_EQ(Status(), ConsistFile("GP38 Local") +
                            " was saved in one window and has unsaved changes in another.");
    dialogs.Answer(DialogAnswer::No);
    press(first, "cmdAction2");
    EXPECT_EQ(dialogs.TakeLog(), changedQuestion("GP38 Local"));
    EXPECT_EQ(ShapesIn(ConsistFile("GP38 Local")), "");
    dialogs.Answer(DialogAnswer::Yes);
    press(first, "cmdAction2");
    EXPECT_EQ(ShapesIn(ConsistFile("GP38 Local")), "hopper Oil");
    EXPECT_EQ(second.Consist().Rows().size(), 2u);
}

TEST_F(SavingTest, FailedSaveAsKeepsNameAndCaption)
{
    Start();
    frmDocument &editor = OpenEditor("Coal");
    for (const bool changed : {false, true}) {
        if (changed)
            removeFirst(editor);
        const std::string before = editor.FileName() + '|' + editor.Caption();
        dialogs.AnswerFile(game.At("No such folder/Other.con"));
        Trigger("mnuFileSaveAs");
        EXPECT_NE(dialogs.TakeLog().find("Other.con"), std::string::npos);
        EXPECT_EQ(editor.FileName() + '|' + editor.Caption(), before);
        EXPECT_EQ(editor.Changed(), changed);
        press(editor, "cmdMove5");
        EXPECT_EQ(editor.Caption(), "Consist - Coal") << "the title in the consist";
        dialogs.Answer(DialogAnswer::Ok);
        press(editor, "cmdAction1");
        EXPECT_EQ(dialogs.TakeLog(), savedMessage("Coal"));
    }
}

TEST_F(SavingTest, NewConsistKeepsItsCaptionAndApplyAsksForItsName)
{
    Start();
    Trigger("mnuFileNewConsist");
    frmDocument &editor = *Active();
    ASSERT_TRUE(Wait([&] { return Find<ListView>(editor, "lvStock").model()->rowCount() == 5; }));
    EXPECT_EQ(heading(editor), "Current consist items (0), changed");
    Find<ListView>(editor, "lvStock").SelectRow(0);
    press(editor, "cmdMove0");
    EXPECT_EQ(editor.Caption(), "Consist 1");

    press(editor, "cmdAction1");
    EXPECT_EQ(dialogs.TakeLog(), "save|Save Consist As|*.con\n") << "cancelled by the script";
    EXPECT_TRUE(editor.Changed());
    EXPECT_EQ(editor.FileName() + '|' + editor.Caption(), "|Consist 1");
    dialogs.AnswerFile(ConsistFile("No.4").substr(0, ConsistFile("No.4").size() - 4));
    press(editor, "cmdAction1");
    EXPECT_EQ(dialogs.TakeLog(), "save|Save Consist As|*.con\n" + savedMessage("No.4"));
    EXPECT_EQ(ShapesIn(ConsistFile("No.4")), "box");
    EXPECT_EQ(editor.Caption(), "Consist - " + ConsistFile("No.4"));
    EXPECT_FALSE(editor.Changed());
}

TEST_F(SavingTest, HeadingAndWindowMenuShowUnsavedChanges)
{
    Start();
    frmDocument &editor = OpenEditor("Coal");
    EXPECT_EQ(heading(editor), "Current consist items (2)");
    EXPECT_EQ(lastInWindowMenu(), "&2 Consist - " + ConsistFile("Coal"));
    removeFirst(editor);
    EXPECT_EQ(heading(editor), "Current consist items (1), changed");
    EXPECT_EQ(lastInWindowMenu(), "&2 Consist - Coal (changed)");
    EXPECT_EQ(editor.Caption(), "Consist - Coal");
    press(editor, "cmdAction1");
    EXPECT_EQ(heading(editor), "Current consist items (1)");
    EXPECT_EQ(lastInWindowMenu(), "&2 Consist - Coal");
}

TEST_F(SavingTest, RefreshReadsConsistAndStockAndReportsAMissingFile)
{
    Start();
    frmDocument &editor = OpenEditor("Coal");
    auto &stock = Find<ListView>(editor, "lvStock");
    WriteConsist("Coal", {"Oil"});
    game.Write("Trains/Trainset/Boxcars/new.wag");
    Trigger("mnuViewRefresh");
    EXPECT_EQ(shown(editor), "Wagon/Boxcars/Oil");
    EXPECT_TRUE(Wait([&] { return stock.model()->rowCount() == 6; }));
    EXPECT_EQ(dialogs.Log(), "");

    std::filesystem::remove(ConsistFile("Coal"));
    game.Write("Trains/Trainset/Boxcars/newer.wag");
    Trigger("mnuViewRefresh");
    const std::string gone =
        ConsistFile("Coal") + " does not exist: the consist stays as it is, not saved.";
    EXPECT_TRUE(Wait([&] { return stock.model()->rowCount() == 7; }));
    EXPECT_TRUE(Wait([&] { return Status() == gone + "  Installed stock list loaded: 7 items"; }))
        << Status();
    EXPECT_EQ(shown(editor), "Wagon/Boxcars/Oil");
    EXPECT_TRUE(editor.Changed()) << "closing must not drop the only copy";
    press(editor, "cmdAction1");
    EXPECT_EQ(ShapesIn(ConsistFile("Coal")), "Oil");
}
