// SPDX-License-Identifier: MIT
// Makes every step of every write fail once, and ends the program there once. Afterwards the folder
// holds old or new files, never a mixture, and the failure was reported.
#include "app/ConsistFiles.h"
#include "app/Desktop.h"
#include "app/FileAssociation.h"
#include "app/Wastebasket-posix.h"
#include "document/ConsistTree.h"
#include "document/SaveConsist.h"
#include "document/UnsavedConsist.h"
#include "host/Folders.h"
#include "host/GameFiles.h"
#include "host/OldContent.h"
#include "host/RuntimeError.h"
#include "host/Settings.h"
#include "install/Installation.h"
#include "support/Environment.h"
#include "support/FailingStep-posix.h"
#include "support/MemorySettings.h"
#include "support/NoShapes.h"
#include "support/ScriptedDialogs.h"
#include "validation/Report.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <map>
#include <system_error>

#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;
using support::FailingStep;

namespace {

constexpr char kConsist[] = "SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\n"
                            "Train (\r\n\tTrainCfg ( \"old\"\r\n\t\tName ( \"old\" )\r\n"
                            "\t\tEngine (\r\n\t\t\tEngineData ( a A )\r\n\t\t)\r\n\t)\r\n)\r\n";

/// The files in a folder and its subfolders, with their contents.
using Content = std::map<std::string, std::string>;

/// A home folder with all the files that commands write to.
class World
{
public:
    World()
    {
        for (const char *name : {"game/Trains/Consists/a.con", "game/Trains/Consists/b.con"})
            folder.Write(name, kConsist);
        folder.Write("check.log", "earlier report\n");
        folder.Write(".config/ZELK/ZELK.ini", "[Settings]\nMainLeft=15\nOther=kept\n");
        folder.Write(".config/mimeapps.list", "[Default Applications]\ntext/plain=mine.desktop\n");
        folder.Write(".local/share/mime/packages/zelk-consist.xml", "old type");
        folder.Write(".local/share/applications/zelk-consist.desktop", "[Desktop Entry]\n");
        folder.Write(".local/state/zelk/zelk.log", "10:00:00 started\n");
        installation.SetLocation(folder.At("game"));
    }
    Content Files() const
    {
        Content content;
        for (const auto &entry : fs::recursive_directory_iterator(folder.Path()))
            if (entry.is_regular_file()) {
                const std::string name = fs::relative(entry.path(), folder.Path()).native();
                // The record of a file's origin contains the time, and half of it does no harm.
                content[name] = name.ends_with(".trashinfo") ? "" : folder.Read(name);
            }
        return content;
    }

    support::ScopedHome home;
    const support::TempFolder &folder = home.Folder();
    const support::ScopedVariable noTools{"PATH", folder.Path()};
    host::GameFiles files;
    install::Installation installation;
    support::ScriptedDialogs dialogs;
    support::MemorySettings settings;
    support::NoShapes shapes;
    install::Environment environment{dialogs, files, settings, installation, shapes};
};

/// A desktop without a wastebasket.
class BareDesktop : public app::Desktop
{
public:
    void Start(const app::ProgramStart &) override {}
    bool Open(const std::string &) override { return false; }
    bool OpenWeb(const std::string &) override { return false; }
    void AssociateConsistFiles() override {}
    bool MoveToWastebasket(const std::string &) override { return false; }
};

struct Command
{
    const char *name;
    void (*run)(World &world);
    const char *expectedText; ///< text that the message must contain
    bool mayRemove = false;
    bool isSilent = false; ///< failures are not reported
};

void editAndSave(World &world)
{
    document::ConsistTree tree(world.files);
    tree.Load(world.folder.At("game/Trains/Consists/a.con"));
    tree.Edit(document::Move::Flip, 1);
    EXPECT_TRUE(tree.Changed());
    try {
        tree.Save(world.folder.At("game/Trains/Consists/a.con"));
    } catch (const host::RuntimeError &) {
        EXPECT_TRUE(tree.Changed()) << "nothing reminds the user to save again";
        throw;
    }
}

void saveOver(World &world)
{
    document::ConsistTree tree(world.files);
    tree.New();
    world.dialogs.Answer(host::DialogAnswer::Yes); // overwrite the file
    world.dialogs.Answer(host::DialogAnswer::Yes); // put it back, if that fails
    document::SaveConsist(tree, world.folder.At("game/Trains/Consists/a.con"),
                          {world.dialogs, world.files, world.folder.Path()}, false);
}

const Command kCommands[] = {
    {"save an edited consist", editAndSave, "a.con"},
    {"save over a consist", saveOver, "a.con"},
    {"copy a consist over another",
     [](World &world) {
         world.folder.Write("game/Trains/Consists/a.con", "another consist");
         world.dialogs.AnswerInput("b");
         app::PasteConsist("a", world.environment);
     },
     ".con"},
    {"delete a consist",
     [](World &world) {
         BareDesktop desktop;
         world.dialogs.Answer(host::DialogAnswer::Yes);
         world.dialogs.Answer(host::DialogAnswer::Yes);
         app::CutConsist("b", world.environment, desktop);
     },
     "b.con", true},
    {"move a consist to the wastebasket",
     [](World &world) {
         const std::string file = world.folder.At("game/Trains/Consists/b.con");
         if (!app::MoveToWastebasket(file))
             throw host::RuntimeError(host::ErrorNumber::PathFileAccess,
                                      file + ": there is no wastebasket for it");
     },
     "b.con"},
    {"append a report",
     [](World &world) {
         validation::AppendReport(world.files, world.folder.At("check.log"), "all well");
     },
     "check.log"},
    {"write a new file",
     [](World &world) { world.files.WriteFile(world.folder.At("ZELKC-1.png"), "picture"); },
     "ZELKC-1.png"},
    {"store a setting", [](World &) { host::IniSettings().Write("MainLeft", "30"); }, "ZELK.ini"},
    {"associate", [](World &) { app::AssociateConsistFiles("/opt/zelk"); }, ""},
    {"dissociate", [](World &) { app::DissociateConsistFiles(); }, "", true},
    {"trace", [](World &) { host::AppendTraceLine("loaded"); }, "", false, true},
};

/// Runs a command and returns its message or error for the user.
std::string messageOf(const Command &command, World &world)
{
    try {
        command.run(world);
    } catch (const host::RuntimeError &error) {
        return error.what();
    }
    return world.dialogs.Log();
}

/// Checks that every file is either unchanged or in its final state.
void expectWhole(const Command &command, const Content &before, const Content &after,
                 const Content &now, const std::string &when)
{
    Content all = before;
    all.insert(after.begin(), after.end());
    for (const auto &[name, unused] : all) {
        const auto old = before.find(name), done = after.find(name), is = now.find(name);
        const bool isOld = is == now.end() ? old == before.end()
                                           : old != before.end() && is->second == old->second;
        const bool isDone = is == now.end() ? done == after.end()
                                            : done != after.end() && is->second == done->second;
        const bool isGone = is == now.end() && command.mayRemove;
        EXPECT_TRUE(isOld || isDone || isGone)
            << name << ' ' << when << ": " << (is == now.end() ? "gone" : is->second);
    }
}

/// The trace line begins with the time.
Content withoutTimes(Content content)
{
    std::string &log = content[".local/state/zelk/zelk.log"];
    if (const auto at = log.find('\n') + 1; at < log.size())
        log.replace(at, 8, "--------");
    return content;
}

std::ostream &operator<<(std::ostream &out, const Command &command)
{
    return out << command.name;
}

class FailingWritesTest : public testing::TestWithParam<Command>
{
protected:
    FailingWritesTest()
    {
        World world;
        before = world.Files();
        const FailingStep counted(FailingStep::kNone, 0);
        messageOf(GetParam(), world);
        steps = counted.Count();
        calls = counted.Calls();
        after = withoutTimes(world.Files());
    }

    Content before, after;
    int steps = 0;
    std::vector<std::string> calls; ///< of all steps
};

TEST_P(FailingWritesTest, FailedStepLeavesWholeFilesAndIsReported)
{
    ASSERT_GE(steps, 3);
    for (const int error : {EIO, ENOSPC, EACCES})
        for (int step = 0; step < steps; ++step) {
            World world;
            std::string message, when;
            {
                const FailingStep failing(step, error);
                message = messageOf(GetParam(), world);
                when.append("step ").append(std::to_string(step)).append(", ");
                when.append(failing.Refused()).append(": ");
                when += std::generic_category().message(error);
            }
            when.append(" -> ").append(message);
            SCOPED_TRACE(when);
            Content now = withoutTimes(world.Files());
            expectWhole(GetParam(), before, after, now, when);
            // The next start deletes old content that is in its place again or not needed.
            std::erase_if(now, [](const auto &file) {
                return file.first.starts_with(".local/state/zelk/overwritten/");
            });
            for (const auto &[name, unused] : now)
                EXPECT_TRUE(before.contains(name) || after.contains(name)) << name << " is left";
            if (now == after || GetParam().isSilent)
                continue;
            EXPECT_NE(message.find(GetParam().expectedText), std::string::npos);
            EXPECT_NE(message.find(": "), std::string::npos);
        }
}

TEST_P(FailingWritesTest, ProcessExitAtAStepLeavesWholeFiles)
{
    // The number of steps varies a little: a folder above is listed again if other programs have
    // changed it.
    bool isOver = false;
    for (int step = 0; !isOver; ++step) {
        ASSERT_LT(step, 2 * steps + 100);
        World world;
        const pid_t child = fork();
        if (child == 0) {
            const FailingStep failing(step, FailingStep::EndsProcess());
            messageOf(GetParam(), world);
            _exit(0);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFEXITED(status)) << step;
        isOver = WEXITSTATUS(status) == 0;
        ASSERT_TRUE(isOver || WEXITSTATUS(status) == FailingStep::kExitCode) << step;
        ASSERT_TRUE(!isOver || step >= 3) << "no step ended the process";
        host::OldContent::Recover(); // as the next start does
        expectWhole(GetParam(), before, after, withoutTimes(world.Files()),
                    "ended at step " + std::to_string(step));

        messageOf(GetParam(), world);
        for (const auto &[name, unused] : world.Files())
            EXPECT_EQ(name.find(".zelk-"), name.npos)
                << name << " is left after the next write; the first one ended at step " << step;
    }
}

TEST_P(FailingWritesTest, FileSystemThatRefusesPermissionsCanBeWrittenTo)
{
    for (int step = 0; step < steps; ++step) {
        if (calls[static_cast<std::size_t>(step)] != "fchmod")
            continue;
        for (const int error : {EPERM, ENOSYS, EOPNOTSUPP, EACCES, EINVAL}) {
            World world;
            const FailingStep failing(step, error);
            const std::string message = messageOf(GetParam(), world);
            EXPECT_EQ(withoutTimes(world.Files()), after) << message;
        }
        World world;
        const FailingStep failing(step, EIO);
        const std::string message = messageOf(GetParam(), world);
        EXPECT_NE(withoutTimes(world.Files()), after) << "another error is not ignored";
        EXPECT_EQ(message.empty(), GetParam().isSilent);
    }
}

TEST(FailingRecoveryFileTest, FullDiskIsReportedAndKeepsTheLastState)
{
    const support::TempFolder folder;
    document::RecoveryFile file(folder.At("unsaved"));
    const document::UnsavedConsist first{"a.con", "a", 1, false, "first"};
    ASSERT_TRUE(file.Keep(first));
    ASSERT_EQ(file.Finish(), "");
    const std::string name = "unsaved/" + folder.Names("unsaved").front();
    const std::string kept = folder.Read(name);
    bool isFull = true;
    for (int step = 0; isFull; ++step) {
        ASSERT_LT(step, 100);
        const FailingStep full(step, FailingStep::FillsDisk());
        ASSERT_TRUE(file.Keep({"a.con", "a", 2, false, "second"}));
        const std::string failure = file.Finish();
        isFull = *full.Refused() != '\0';
        EXPECT_EQ(failure.starts_with(folder.At(name) + ": "), isFull) << failure;
        EXPECT_EQ(folder.Read(name) == kept, isFull) << step;
        EXPECT_EQ(folder.Names("unsaved").size(), 1u) << "nothing is left over";
    }
}

std::string nameOf(const testing::TestParamInfo<Command> &info)
{
    std::string name = info.param.name;
    for (char &c : name)
        c = c == ' ' ? '_' : c;
    return name;
}

INSTANTIATE_TEST_SUITE_P(Commands, FailingWritesTest, testing::ValuesIn(kCommands), nameOf);

} // namespace
