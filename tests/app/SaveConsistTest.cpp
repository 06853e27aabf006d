// SPDX-License-Identifier: MIT
#include "app/SaveConsist.h"

#include "host/GameFiles.h"
#include "host/RuntimeError.h"
#include "support/ScriptedDialogs.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using host::DialogAnswer;
using support::ScriptedDialogs;
using support::TempFolder;

namespace {

class SaveConsistTest : public testing::Test
{
protected:
    app::SaveTarget target()
    {
        app::SaveTarget target;
        target.fileName = [this] { return fileName; };
        target.setFileName = [this](const std::string &name) { fileName = name; };
        target.caption = [this] { return caption; };
        target.setCaption = [this](const std::string &text) { caption = text; };
        target.checkForm = [this] {
            if (broken)
                throw host::RuntimeError(host::ErrorNumber::ObjectNotSet, "no Train block");
        };
        target.changedOnDisk = [this](const std::string &path) { return path == changedFile; };
        target.saveForm = [this](bool) {
            if (full)
                throw host::RuntimeError(host::ErrorNumber::PathFileAccess, "the disk is full");
            files.WriteFile(fileName, "new");
        };
        target.markChanged = [this] { marked = true; };
        return target;
    }
    bool save(bool quiet = false)
    {
        return app::SaveConsist(target(), dialogs, files, folder.Path(), quiet);
    }
    bool saveAs() { return app::SaveConsistAs(target(), dialogs, files, folder.Path()); }
    std::string at(const char *name) const { return folder.Path() + '/' + name; }
    std::string question(const char *name) const
    {
        return "question|Save Consist|" + at(name) +
               " already exists.  Do you want to overwrite it?";
    }
    std::string changedQuestion(const char *name) const
    {
        return "question (No)|Save Consist|" + at(name) +
               " was changed since it was opened. Overwrite it?\n";
    }

    TempFolder folder;
    host::GameFiles files;
    ScriptedDialogs dialogs;
    std::string fileName, caption = "before";
    std::string changedFile; ///< by another program, after the window read it
    bool broken = false, full = false, marked = false;
};

TEST_F(SaveConsistTest, WritesAFreeNameWithoutAsking)
{
    fileName = at("a.con");
    EXPECT_TRUE(save());
    EXPECT_EQ(folder.Read("a.con"), "new");
    EXPECT_EQ(caption, "Consist - " + at("a.con"));
    EXPECT_EQ(dialogs.Log(), "");
    fileName = at("b.con");
    EXPECT_TRUE(save(true));
    EXPECT_EQ(caption, "Consist - " + at("a.con")) << "a quiet save leaves the caption";
}

TEST_F(SaveConsistTest, EmptyNameOrCancelledDialogSavesNothing)
{
    for (const char *answer : {"", "*.con"}) {
        dialogs.AnswerFile(answer);
        EXPECT_FALSE(save());
        EXPECT_EQ(fileName, "");
    }
    EXPECT_EQ(dialogs.Log(), "save|Save Consist As|*.con\nsave|Save Consist As|*.con\n");
    EXPECT_EQ(caption, "before");
}

TEST_F(SaveConsistTest, AsksEveryTimeBeforeOverwriting)
{
    folder.Write("a.con", "old");
    fileName = at("a.con");
    dialogs.Answer(DialogAnswer::Cancel);
    dialogs.Answer(DialogAnswer::Ok);
    EXPECT_FALSE(save());
    EXPECT_EQ(folder.Read("a.con"), "old");
    EXPECT_EQ(fileName, at("a.con"));
    EXPECT_EQ(dialogs.TakeLog(), question("a.con") + "\ncritical|Save Consist|Save of " +
                                     at("a.con") + " cancelled by user!\n");

    dialogs.Answer(DialogAnswer::No);
    dialogs.AnswerFile(at("b.con"));
    EXPECT_TRUE(save());
    EXPECT_EQ(folder.Read("a.con"), "old");
    EXPECT_EQ(folder.Read("b.con"), "new");
    EXPECT_EQ(dialogs.TakeLog(), question("a.con") + "\nsave|Save Consist As|*.con\n");

    fileName = at("a.con");
    dialogs.Answer(DialogAnswer::Yes);
    EXPECT_TRUE(save());
    EXPECT_EQ(folder.Read("a.con"), "new");
}

TEST_F(SaveConsistTest, NameStaysEmptyAfterNoAndACancelledDialog)
{
    folder.Write("a.con", "old");
    fileName = at("a.con");
    dialogs.Answer(DialogAnswer::No);
    dialogs.AnswerFile("");
    EXPECT_FALSE(save());
    EXPECT_EQ(fileName, "");
    EXPECT_EQ(folder.Read("a.con"), "old");
}

TEST_F(SaveConsistTest, FailedWriteDeletesNothing)
{
    folder.Write("a.con", "old");
    fileName = at("a.con");
    broken = true;
    dialogs.Answer(DialogAnswer::Yes);
    EXPECT_FALSE(save());
    EXPECT_EQ(folder.Read("a.con"), "old");
    EXPECT_TRUE(dialogs.Log().starts_with("critical|Save Consist|no Train block\n"))
        << dialogs.Log();
}

TEST_F(SaveConsistTest, FailureMessageHasPathAndReason)
{
    fileName = at("missing/a.con");
    dialogs.Answer(DialogAnswer::Ok);
    EXPECT_FALSE(save());
    EXPECT_TRUE(dialogs.Log().starts_with("critical|Save Consist|" + fileName)) << dialogs.Log();
}

TEST_F(SaveConsistTest, RefusesBlankNewNames)
{
    for (const char *name : {"  .con", " "}) {
        dialogs.AnswerFile(at(name));
        EXPECT_FALSE(save());
        const std::string log = dialogs.TakeLog();
        EXPECT_NE(log.find("critical|Save Consist|" + at(name)), log.npos) << log;
        EXPECT_NE(log.find("consists of blanks"), log.npos) << log;
    }
    folder.Write(" .con", "old");
    fileName = at(" .con");
    dialogs.Answer(DialogAnswer::Yes);
    EXPECT_TRUE(save()) << "an existing file of this name stays usable";
}

TEST_F(SaveConsistTest, ChosenNamesEndWithCon)
{
    const struct
    {
        const char *chosen, *saved;
    } rows[] = {
        {"GP38 No.4", "GP38 No.4.con"},
        {"plain", "plain.con"},
        {"a.con", "a.con"},
        {"b.CON", "b.CON"},
        {"c.con.bak", "c.con.bak.con"},
        {"d.", "d..con"},
    };
    for (const auto &row : rows) {
        dialogs.AnswerFile(at(row.chosen));
        EXPECT_TRUE(saveAs()) << row.chosen;
        EXPECT_TRUE(folder.Exists(row.saved)) << row.saved;
        EXPECT_EQ(fileName, at(row.saved));
    }
    dialogs.TakeLog();
    dialogs.AnswerFile(at("GP38 No.4"));
    EXPECT_FALSE(saveAs());
    EXPECT_TRUE(dialogs.Log().starts_with("save|Save Consist As|*.con\n" +
                                          question("GP38 No.4.con") + '\n'))
        << "asked for the completed name: " << dialogs.Log();
    fileName = at("other"); // not chosen in the dialog
    EXPECT_TRUE(save());
    EXPECT_TRUE(folder.Exists("other"));
}

TEST_F(SaveConsistTest, AsksFirstAboutAFileChangedByAnotherProgram)
{
    folder.Write("a.con", "by others");
    fileName = changedFile = at("a.con");
    for (const DialogAnswer answer : {DialogAnswer::No, DialogAnswer::Cancel}) {
        dialogs.Answer(answer);
        EXPECT_FALSE(save());
        EXPECT_EQ(dialogs.TakeLog(), changedQuestion("a.con"));
        EXPECT_EQ(folder.Read("a.con") + '|' + fileName + '|' + caption,
                  "by others|" + at("a.con") + "|before");
    }

    dialogs.Answer(DialogAnswer::Yes); // the change
    dialogs.Answer(DialogAnswer::No);  // but not the file
    dialogs.AnswerFile(at("b.con"));   // another file was not changed
    EXPECT_TRUE(save());
    EXPECT_EQ(dialogs.TakeLog(),
              changedQuestion("a.con") + question("a.con") + "\nsave|Save Consist As|*.con\n");
    EXPECT_EQ(folder.Read("a.con"), "by others");

    fileName = at("b.con");
    dialogs.AnswerFile(at("a.con")); // the window's file under Save As
    dialogs.Answer(DialogAnswer::No);
    EXPECT_FALSE(saveAs());
    EXPECT_EQ(dialogs.TakeLog(), "save|Save Consist As|*.con\n" + changedQuestion("a.con"));
    EXPECT_EQ(fileName, at("b.con"));

    fileName = at("a.con");
    dialogs.Answer(DialogAnswer::Yes);
    dialogs.Answer(DialogAnswer::Yes);
    EXPECT_TRUE(save());
    EXPECT_EQ(folder.Read("a.con"), "new");
}

TEST_F(SaveConsistTest, FailedWriteLeavesTheWindowUnchanged)
{
    full = true;
    folder.Write("b.con", "old");
    const struct
    {
        const char *what, *chosen;
        bool isSaveAs, deletes;
    } rows[] = {
        {"save", nullptr, false, false},
        {"save as a free name", "c.con", true, false},
        {"save as over another file", "b.con", true, true},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.what);
        fileName = at("a.con");
        marked = false;
        if (row.chosen)
            dialogs.AnswerFile(at(row.chosen));
        if (row.deletes)
            dialogs.Answer(DialogAnswer::Yes);
        EXPECT_FALSE(row.isSaveAs ? saveAs() : save());
        EXPECT_EQ(fileName + '|' + caption, at("a.con") + "|before");
        EXPECT_EQ(marked, row.deletes) << "the window may hold the only copy";
        EXPECT_TRUE(dialogs.TakeLog().ends_with("the disk is full\n"));
    }
    EXPECT_FALSE(folder.Exists("b.con"));
}

TEST_F(SaveConsistTest, CancelledSaveAsKeepsTheName)
{
    folder.Write("b.con", "old");
    const struct
    {
        const char *what;
        std::vector<std::string> chosen;
        std::vector<DialogAnswer> answers;
    } rows[] = {
        {"in the dialog", {}, {}},
        {"at the question", {at("b.con")}, {DialogAnswer::Cancel, DialogAnswer::Ok}},
        {"in the second dialog", {at("b.con")}, {DialogAnswer::No}},
    };
    for (const auto &row : rows) {
        fileName = at("a.con");
        for (const std::string &name : row.chosen)
            dialogs.AnswerFile(name);
        for (const DialogAnswer answer : row.answers)
            dialogs.Answer(answer);
        EXPECT_FALSE(saveAs());
        EXPECT_EQ(fileName + '|' + caption + '|' + folder.Read("b.con"),
                  at("a.con") + "|before|old")
            << row.what;
    }
    EXPECT_FALSE(marked);
}

} // namespace
