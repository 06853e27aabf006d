// SPDX-License-Identifier: MIT
#include "app/SaveConsist.h"

#include "host/GameFiles.h"
#include "host/RuntimeError.h"
#include "support/ScriptedDialogs.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

using host::DialogAnswer;
using support::ScriptedDialogs;
using support::TempFolder;

namespace {

class SaveConsistTest : public testing::Test
{
protected:
    bool save(bool quiet = false)
    {
        app::SaveTarget target;
        target.fileName = [this] { return fileName; };
        target.setFileName = [this](const std::string &name) { fileName = name; };
        target.setCaption = [this](const std::string &text) { caption = text; };
        target.checkForm = [this] {
            if (broken)
                throw host::RuntimeError(host::ErrorNumber::ObjectNotSet, "no Train block");
        };
        target.saveForm = [this](bool) { files.WriteFile(fileName, "new"); };
        return app::SaveConsist(target, dialogs, files, folder.Path(), quiet);
    }
    std::string at(const char *name) const { return folder.Path() + '/' + name; }
    std::string question(const char *name) const
    {
        return "question|Save Consist|" + at(name) +
               " already exists.  Do you want to overwrite it?";
    }

    TempFolder folder;
    host::GameFiles files;
    ScriptedDialogs dialogs;
    std::string fileName, caption = "before";
    bool broken = false;
};

TEST_F(SaveConsistTest, AFreeNameIsWrittenWithoutAQuestion)
{
    fileName = at("a.con");
    EXPECT_TRUE(save());
    EXPECT_EQ("new", folder.Read("a.con"));
    EXPECT_EQ("Consist - " + at("a.con"), caption);
    EXPECT_EQ("", dialogs.Log());
    fileName = at("b.con");
    EXPECT_TRUE(save(true));
    EXPECT_EQ("Consist - " + at("a.con"), caption) << "a quiet save leaves the caption";
}

TEST_F(SaveConsistTest, NoNameOrACancelledDialogSavesNothing)
{
    for (const char *answer : {"", "*.con"}) {
        dialogs.AnswerFile(answer);
        EXPECT_FALSE(save());
        EXPECT_EQ("", fileName);
    }
    EXPECT_EQ("save|Save Consist As|*.con\nsave|Save Consist As|*.con\n", dialogs.Log());
    EXPECT_EQ("before", caption);
}

TEST_F(SaveConsistTest, OverwritingIsAskedForEveryTime)
{
    folder.Write("a.con", "old");
    fileName = at("a.con");
    dialogs.Answer(DialogAnswer::Cancel);
    dialogs.Answer(DialogAnswer::Ok);
    EXPECT_FALSE(save());
    EXPECT_EQ("old", folder.Read("a.con"));
    EXPECT_EQ(at("a.con"), fileName);
    EXPECT_EQ(question("a.con") + "\ncritical|Save Consist|Save of " + at("a.con") +
                  " cancelled by user!\n",
              dialogs.TakeLog());

    dialogs.Answer(DialogAnswer::No);
    dialogs.AnswerFile(at("b.con"));
    EXPECT_TRUE(save());
    EXPECT_EQ("old", folder.Read("a.con"));
    EXPECT_EQ("new", folder.Read("b.con"));
    EXPECT_EQ(question("a.con") + "\nsave|Save Consist As|*.con\n", dialogs.TakeLog());

    fileName = at("a.con");
    dialogs.Answer(DialogAnswer::Yes);
    EXPECT_TRUE(save());
    EXPECT_EQ("new", folder.Read("a.con"));
}

TEST_F(SaveConsistTest, AfterNoAndACancelledDialogTheNameStaysEmpty)
{
    folder.Write("a.con", "old");
    fileName = at("a.con");
    dialogs.Answer(DialogAnswer::No);
    dialogs.AnswerFile("");
    EXPECT_FALSE(save());
    EXPECT_EQ("", fileName);
    EXPECT_EQ("old", folder.Read("a.con"));
}

TEST_F(SaveConsistTest, WhatCannotBeWrittenDeletesNothing)
{
    folder.Write("a.con", "old");
    fileName = at("a.con");
    broken = true;
    dialogs.Answer(DialogAnswer::Yes);
    EXPECT_FALSE(save());
    EXPECT_EQ("old", folder.Read("a.con"));
    EXPECT_TRUE(dialogs.Log().starts_with("critical|Save Consist|no Train block\n"))
        << dialogs.Log();
}

TEST_F(SaveConsistTest, AFailureTellsPathAndReason)
{
    fileName = at("missing/a.con");
    dialogs.Answer(DialogAnswer::Ok);
    EXPECT_FALSE(save());
    EXPECT_TRUE(dialogs.Log().starts_with("critical|Save Consist|" + fileName)) << dialogs.Log();
}

TEST_F(SaveConsistTest, RefusesNewNamesOfBlanks)
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
    EXPECT_TRUE(save()) << "a file of this name stays usable";
}

} // namespace
