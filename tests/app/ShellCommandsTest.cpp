// SPDX-License-Identifier: MIT
#include "app/ShellCommands.h"

#include "app/ConsistFiles.h"
#include "app/Desktop.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/RuntimeError.h"
#include "install/Installation.h"
#include "support/Environment.h"
#include "support/KnownFolders.h"
#include "support/MemorySettings.h"
#include "support/NoShapes.h"
#include "support/ScriptedDialogs.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

/// A desktop that starts nothing and records the requests.
class RecordingDesktop : public app::Desktop
{
public:
    void Start(const app::ProgramStart &start) override
    {
        if (refuses)
            throw host::RuntimeError(host::ErrorNumber::PathFileAccess, start.program);
        log += "start";
        for (const std::string &argument : start.arguments)
            log += ' ' + std::string(host::path::FileName(argument));
        log += " in " + start.folder + '\n';
    }
    bool Open(const std::string &) override { return !refuses; }
    bool OpenWeb(const std::string &) override { return !refuses; }
    void AssociateConsistFiles() override
    {
        if (refuses)
            throw host::RuntimeError(host::ErrorNumber::PermissionDenied,
                                     "SetAssoc.bat: the file is read-only");
        log += "associate\n";
    }
    bool MoveToWastebasket(const std::string &file) override
    {
        log += "wastebasket " + std::string(host::path::FileName(file)) + '\n';
        return !refuses && std::filesystem::remove(host::path::ToDisk(file));
    }

    std::string log;
    bool refuses = false;
};

class ShellCommandsTest : public testing::Test
{
protected:
    std::string at(const std::string &name) const { return host::path::Join(game.Path(), name); }

    support::ScopedHome home;
    support::TempFolder game;
    support::ScriptedDialogs dialogs;
    host::GameFiles files;
    RecordingDesktop desktop;
    support::MemorySettings settings;
    install::Installation installation;
    support::NoShapes shapes;
    install::Environment environment{dialogs, files, settings, installation, shapes};
    app::ShellCommands shell{environment, desktop};
};

class ConsistFilesTest : public ShellCommandsTest
{
protected:
    ConsistFilesTest()
    {
        installation.SetLocation(game.Path());
        game.Write("Trains/Consists/Coal.con", std::string("\xFF\xFE\0c", 4));
        game.Write("Trains/Consists/Old.con", "old");
    }
    void paste(const std::string &source) { app::PasteConsist(source, environment); }
    std::string question(const std::string &source) const
    {
        return "input|Copy Consist|Enter new consist name:|Copy of " + source + '\n';
    }
    std::string consist(const std::string &name) const { return at("Trains/Consists/" + name); }
};

} // namespace

TEST_F(ConsistFilesTest, PasteCopiesEveryByteToANewName)
{
    for (const char *name : {"New", "old", "New.con"}) {
        dialogs.AnswerInput(name);
        paste("coal");
        EXPECT_EQ(dialogs.TakeLog(), question("coal") + "information|Paste|Created " +
                                         installation.ConsistPath(name) + '\n');
    }
    for (const char *file : {"New.con", "Old.con", "New.con.con"})
        EXPECT_EQ(game.Read(std::string("Trains/Consists/") + file), std::string("\xFF\xFE\0c", 4));
    EXPECT_EQ(game.Names("Trains/Consists").size(), 4u)
        << "a name in another letter case is the same file";
}

TEST_F(ConsistFilesTest, CancelledOrEmptyPasteChangesNothing)
{
    paste("");
    EXPECT_EQ(dialogs.TakeLog(), "");
    paste("Coal");
    dialogs.AnswerInput("");
    paste("Coal");
    EXPECT_EQ(dialogs.TakeLog(), question("Coal") + question("Coal"));
    for (const std::string &text : {std::string("Coal\nOld"), std::string(300, 'x')}) {
        paste(text);
        EXPECT_EQ(dialogs.TakeLog(),
                  "critical|Paste|What is on the clipboard is not the name of a consist.\n");
    }
    EXPECT_EQ(game.Names("Trains/Consists").size(), 2u);
}

TEST_F(ConsistFilesTest, FailedPasteReportsFileAndReason)
{
    const struct
    {
        const char *source;
        std::string name, file;
        const char *reason;
    } rows[] = {
        {"Gone", "New", "Gone.con", "there is no such file"},
        {"Coal", "../New", "", "cannot hold any of"},
        {"Coal", "a\\New", "", "cannot hold any of"},
        {"Coal", "What?", "What?.con", "cannot hold any of"},
        {"Coal", "a\tb", "a\tb.con", "tabs or line breaks"},
        {"Coal", "   ", "   .con", "consists of blanks"},
        {"Coal", std::string(300, 'x'), "xxx", "the name is too long"},
#ifdef _WIN32
        {"Coal", "con", "con.con", "keeps the name for a device"},
#endif
    };
    for (const auto &row : rows) {
        dialogs.AnswerInput(row.name);
        paste(row.source);
        const std::string log = dialogs.TakeLog();
        EXPECT_TRUE(log.starts_with(question(row.source) + "critical|Paste|")) << log;
        EXPECT_NE(log.find(consist(row.file)), std::string::npos) << log;
        EXPECT_NE(log.find(row.reason), std::string::npos) << log;
    }
    EXPECT_EQ(game.Names("Trains/Consists").size(), 2u);
    EXPECT_FALSE(game.Exists("Trains/New.con"));
}

TEST_F(ConsistFilesTest, CutAsksThenMovesToTheWastebasket)
{
    const auto cut = [this](const char *name) {
        const std::string outcome = app::CutConsist(name, environment, desktop);
        return dialogs.TakeLog() + outcome;
    };
    const std::string question = "question (No)|Delete|Delete Coal ?\n";
    EXPECT_EQ(cut(""), "");
    EXPECT_EQ(cut("Gone"), "");
    dialogs.Answer(host::DialogAnswer::No);
    EXPECT_EQ(cut("Coal"), question);
    EXPECT_TRUE(game.Exists("Trains/Consists/Coal.con"));
    EXPECT_EQ(desktop.log, "");
    dialogs.Answer(host::DialogAnswer::Yes);
    EXPECT_EQ(cut("Coal"), question + consist("Coal.con") + " was moved to the wastebasket.");
    EXPECT_EQ(desktop.log, "wastebasket Coal.con\n");
    EXPECT_EQ(cut("Coal"), "") << "it is no longer listed";
    EXPECT_TRUE(game.Exists("Trains/Consists/Old.con"));
}

TEST_F(ConsistFilesTest, CutAsksAgainBeforeDeletingPermanently)
{
    desktop.refuses = true;
    const std::string questions = "question (No)|Delete|Delete Old ?\nquestion (No)|Delete|" +
                                  consist("Old.con") +
                                  " cannot be moved to the wastebasket.\n\nDelete it for good?\n";
    for (const auto answer : {host::DialogAnswer::No, host::DialogAnswer::Yes}) {
        dialogs.Answer(host::DialogAnswer::Yes);
        dialogs.Answer(answer);
        const bool agrees = answer == host::DialogAnswer::Yes;
        EXPECT_EQ(app::CutConsist("Old", environment, desktop),
                  agrees ? consist("Old.con") + " was deleted." : "");
        EXPECT_EQ(dialogs.TakeLog(), questions);
        EXPECT_EQ(game.Exists("Trains/Consists/Old.con"), !agrees);
    }
}

TEST_F(ShellCommandsTest, ReportsAMissingInstallation)
{
    EXPECT_FALSE(shell.StartSimulator() || shell.StartEditors() || shell.StartShapeViewer());
    const std::string text = "|MSTS does not appear to be installed on this system!\n";
    EXPECT_EQ(dialogs.TakeLog(), "critical|View MSTS" + text + "critical|View MSTS Tools" + text +
                                     "critical|View MSTS" + text);
    EXPECT_EQ(desktop.log, "");
}

TEST_F(ShellCommandsTest, ReportsTheNameOfAMissingProgram)
{
    installation.SetLocation(game.Path());
    EXPECT_FALSE(shell.StartSimulator() || shell.StartEditors());
    const std::string log = dialogs.TakeLog(), missing = ": there is no such file\n";
    EXPECT_TRUE(log.starts_with("critical|View MSTS|" + at("train.exe") + missing)) << log;
    EXPECT_NE(log.find("critical|View MSTS Tools|" + at("launcher.exe") + missing), log.npos)
        << log;
}

TEST_F(ShellCommandsTest, ReportsMissingHelp)
{
    shell.ShowGuide(app::GuidePage::Contents);
    shell.ShowGuide(app::GuidePage::Search);
    const std::string line =
        "information|ZELK|Unable to display Help Contents. There is no Help currently associated "
        "with this application.\n";
    EXPECT_EQ(dialogs.TakeLog(), line + line);
}

TEST_F(ShellCommandsTest, AsksBeforeSettingTheFileAssociation)
{
    const std::string question =
        "question|Set File Association|Do you want to associate .CON files with ZELK?\n\n"
        "(Doing this will make ZELK load when you double click on a consist file)\n";
    shell.SetFileAssociation();
    EXPECT_EQ(dialogs.TakeLog(), question);
    EXPECT_EQ(desktop.log, "");
    dialogs.Answer(host::DialogAnswer::Yes);
    shell.SetFileAssociation();
    EXPECT_EQ(dialogs.TakeLog(),
              question + "information|Set Association|Consist files now associations with ZELK.\n");
    EXPECT_EQ(desktop.log, "associate\n");
    desktop.refuses = true;
    dialogs.Answer(host::DialogAnswer::Yes);
    shell.SetFileAssociation();
    const std::string log = dialogs.TakeLog();
    EXPECT_TRUE(log.starts_with(question + "critical|Set File Association|SetAssoc.bat: ")) << log;
}
