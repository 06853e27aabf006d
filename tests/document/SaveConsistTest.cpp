// SPDX-License-Identifier: MIT
#include "document/SaveConsist.h"

#include "document/ConsistTree.h"
#include "host/Disk.h"
#include "host/GameFiles.h"
#include "host/OldContent.h"
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

constexpr char kConsist[] = "SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\n"
                            "Train (\r\n TrainCfg ( \"x\"\r\n"
                            " Wagon ( WagonData ( new A ) )\r\n )\r\n)\r\n";

/// An editor window's consist, file name and caption, without the window.
class SaveConsistTest : public testing::Test
{
protected:
    SaveConsistTest()
        : tree(files)
    {
        read("read.con");
    }

    void read(const char *name) { tree.Load(folder.Write(name, kConsist)); }
    /// Reads a file that cannot be saved.
    void readBroken()
    {
        const std::string file = folder.Write("broken.con", "Nothing ( 1 )");
        EXPECT_THROW(tree.Load(file), host::RuntimeError);
    }
    bool save(bool quiet = false)
    {
        return apply(document::SaveConsist(tree, fileName, questions(), quiet));
    }
    bool saveAs() { return apply(document::SaveConsistAs(tree, fileName, questions())); }
    std::string at(const char *name) const { return folder.Path() + '/' + name; }
    /// "new" for a file that the consist was saved to, otherwise what the file holds.
    std::string content(const char *name) const
    {
        const std::string bytes = folder.Read(name);
        return bytes.find("WagonData ( new A )") == bytes.npos ? bytes : "new";
    }
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

    /// The message says where the old content is.
    static void expectKept(const std::string &log)
    {
        const std::string words = " is in ";
        const std::size_t begin = log.find(words) + words.size();
        const std::string place = log.substr(begin, log.find(".  Do you", begin) - begin);
        std::string bytes;
        EXPECT_FALSE(host::disk::Read(place, 100, bytes)) << log;
        EXPECT_EQ(bytes, "old");
        EXPECT_FALSE(host::disk::Remove(place));
    }

    TempFolder folder;
    host::GameFiles files;
    ScriptedDialogs dialogs;
    document::ConsistTree tree;
    std::string fileName, caption = "before";

private:
    document::SaveQuestions questions() { return {dialogs, files, folder.Path()}; }
    bool apply(const document::SaveOutcome &outcome)
    {
        fileName = outcome.fileName;
        if (!outcome.caption.empty())
            caption = outcome.caption;
        return outcome.saved;
    }
};

TEST_F(SaveConsistTest, WritesAFreeNameWithoutAsking)
{
    fileName = at("a.con");
    EXPECT_TRUE(save());
    EXPECT_EQ(content("a.con"), "new");
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
    EXPECT_EQ(content("b.con"), "new");
    EXPECT_EQ(dialogs.TakeLog(), question("a.con") + "\nsave|Save Consist As|*.con\n");

    fileName = at("a.con");
    dialogs.Answer(DialogAnswer::Yes);
    EXPECT_TRUE(save());
    EXPECT_EQ(content("a.con"), "new");
    const auto kept = host::disk::List(host::OldContent::DefaultFolder());
    EXPECT_TRUE(kept && kept->names.empty()) << "the old content is not kept";
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
    readBroken();
    dialogs.Answer(DialogAnswer::Yes);
    EXPECT_FALSE(save());
    EXPECT_EQ(folder.Read("a.con"), "old");
    EXPECT_TRUE(dialogs.Log().starts_with("critical|Save Consist|" + at("broken.con") +
                                          ": there is no Train block\n"))
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
    const auto readAndChange = [this] {
        read("a.con");
        folder.Write("a.con", "by others");
        fileName = at("a.con");
    };
    readAndChange();
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

    readAndChange();
    dialogs.AnswerFile(at("a.con")); // the window's file under Save As
    dialogs.Answer(DialogAnswer::No);
    EXPECT_FALSE(saveAs());
    EXPECT_EQ(dialogs.TakeLog(), "save|Save Consist As|*.con\n" + changedQuestion("a.con"));
    EXPECT_EQ(fileName, at("a.con"));

    dialogs.Answer(DialogAnswer::Yes);
    dialogs.Answer(DialogAnswer::Yes);
    EXPECT_TRUE(save());
    EXPECT_EQ(content("a.con"), "new");
}

TEST_F(SaveConsistTest, FileChangedWhileAQuestionIsOpenIsNotOverwritten)
{
    const auto changeAt = [this](const std::string &shown) {
        dialogs.onShown = [this, shown] {
            if (dialogs.Log().ends_with(shown + '\n'))
                folder.Write("a.con", "by others");
        };
    };
    read("a.con");
    fileName = at("a.con");
    changeAt(question("a.con"));
    dialogs.Answer(DialogAnswer::Yes); // overwrite what was read
    dialogs.Answer(DialogAnswer::No);  // but not the change
    EXPECT_FALSE(save());
    EXPECT_EQ(dialogs.TakeLog(), question("a.con") + '\n' + changedQuestion("a.con"));
    EXPECT_EQ(folder.Read("a.con"), "by others");
}

TEST_F(SaveConsistTest, FailedWriteLeavesTheWindowUnchanged)
{
    folder.Write("b.con", "old");
    const struct
    {
        const char *what, *name, *chosen, *reason;
        bool deletes;
    } rows[] = {
        {"save", "missing/a.con", nullptr, "missing/a.con: ", false},
        {"save as a free name", "a.con", "c.con", "there is no Train block", false},
        {"save as over another file", "a.con", "b.con", "there is no Train block", true},
        {"save as over another file, put back", "a.con", "b.con", "Do you want to put it back?",
         true},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.what);
        read("read.con");
        fileName = at(row.name);
        if (row.chosen)
            dialogs.AnswerFile(at(row.chosen));
        const bool putBack = std::string_view(row.what).ends_with("put back");
        folder.Write("b.con", "old");
        if (row.deletes) {
            dialogs.Answer(DialogAnswer::Yes);
            dialogs.Answer(putBack ? DialogAnswer::Yes : DialogAnswer::No);
        }
        // The consist passes the check before the first question and is damaged after it.
        dialogs.onShown = [this] {
            dialogs.onShown = nullptr;
            readBroken();
        };
        EXPECT_FALSE(row.chosen ? saveAs() : save());
        EXPECT_EQ(fileName + '|' + caption, at(row.name) + "|before");
        EXPECT_EQ(row.deletes, tree.Changed()) << "what was deleted may be nowhere else";
        const std::string log = dialogs.TakeLog();
        EXPECT_NE(log.find(row.reason), log.npos) << log;
        EXPECT_EQ(folder.Exists("b.con"), !row.deletes || putBack);
        if (row.deletes && !putBack)
            expectKept(log);
    }
    EXPECT_EQ(folder.Read("b.con"), "old");
    EXPECT_FALSE(folder.Exists("c.con"));
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
    EXPECT_FALSE(tree.Changed());
}

} // namespace
