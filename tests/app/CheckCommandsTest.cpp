// SPDX-License-Identifier: MIT
#include "app/CheckCommands.h"

#include "host/GameFiles.h"
#include "host/Path.h"
#include "install/Installation.h"
#include "support/MemorySettings.h"
#include "support/NoShapes.h"
#include "support/ScriptedDialogs.h"
#include "support/TempFolder.h"
#include "validation/TSValidation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

using app::CheckCommands;
using app::CheckTarget;
using document::WindowMode;

namespace {

/// A main window that records what it should show, line by line.
class FakeHost : public app::CheckHost
{
public:
    FakeHost() { m_installation.SetLocation(game.Path()); }

    TSValidation &NewValidator() override
    {
        m_validator = std::make_unique<TSValidation>(m_installation, m_files, 2);
        m_validator->MessageRaised = [this](const std::string &message, int) {
            SetStatus(message);
        };
        return *m_validator;
    }
    void SetStatus(const std::string &text) override { statuses += text + '\n'; }
    std::string LastStatus() const
    {
        const std::string all = statuses.substr(0, statuses.size() - 1);
        return all.substr(all.rfind('\n') + 1);
    }
    void SetProgress(int done, int total) override
    {
        EXPECT_LE(done, total);
        EXPECT_TRUE(total == 0 || done >= m_done) << "the progress bar goes back";
        m_done = total == 0 ? 0 : done;
    }
    void ProcessEvents() override
    {
        if (onEvents)
            onEvents();
    }
    std::string Now() override { return "21.11.2026 10:30:00"; }
    void ShowResults(const std::string &caption, const std::string &text) override
    {
        results += '[' + caption + "]\n" + text;
    }

    support::TempFolder game;
    support::ScriptedDialogs dialogs;
    std::string statuses, results;
    std::function<void()> onEvents;
    install::Environment environment{dialogs, m_files, m_settings, m_installation, m_shapes};

private:
    host::GameFiles m_files;
    support::MemorySettings m_settings;
    install::Installation m_installation;
    support::NoShapes m_shapes;
    std::unique_ptr<TSValidation> m_validator;
    int m_done = 0;
};

class CheckCommandsTest : public testing::Test
{
protected:
    std::string at(const std::string &name) const
    {
        return host::path::Join(host.game.Path(), name);
    }
    std::string stock(const std::string &name) const { return at("Trains/Trainset/Boxes/" + name); }
    void writeWagons(int count)
    {
        for (int i = 0; i < count; ++i)
            host.game.Write("Trains/Trainset/Boxes/w" + std::to_string(100 + i) + ".wag");
    }

    FakeHost host;
    CheckCommands commands{host.environment, host};
};

const CheckTarget kList{WindowMode::ConsistList, {"A", "B"}, "B"};
const std::string kChoosing = "Choose the routes to check...", kFailed = "The check failed";
const std::string kAskRoutes = "select|Select Routes to Check|";
const std::string kAskAll =
    "question|Check All Stock|About to check all stock file dependencies in your TS installtion.  "
    "This may take some time.  Do you want to continue?\n";
const std::string kRefused = "A check is running.  Wait until it has ended, or press Esc in the "
                             "main window to stop it.\n";

} // namespace

TEST_F(CheckCommandsTest, NoSubjectGivesNoReport)
{
    const std::string nothing = "|Nothing selected!\n";
    const struct
    {
        const char *what;
        std::optional<CheckTarget> target;
        bool complains;
    } rows[] = {
        {"no window", std::nullopt, true},
        {"nothing selected in the list", CheckTarget{WindowMode::ConsistList}, true},
        {"nothing selected in the editor", CheckTarget{WindowMode::ConsistEditor}, false},
        {"an empty viewer", CheckTarget{WindowMode::ShapeView}, false},
    };
    for (const auto &row : rows) {
        commands.CheckDependencies(row.target);
        commands.CheckStockTextures(row.target);
        commands.CheckConsistStock(row.target);
        EXPECT_EQ(host.dialogs.TakeLog() + host.results,
                  row.complains ? "critical|Check Dependencies" + nothing +
                                      "critical|Stock Check Textures" + nothing
                                : "")
            << row.what;
    }
}

TEST_F(CheckCommandsTest, StockCheckIncludesUsesInConsistsAndRoutes)
{
    const std::string box = stock("box.old.WAG");
    const std::string report = "[Usage check of box]\nCheck Time  : 21.11.2026 10:30:00\r\n"
                               "MSTS Path   : " +
                               host.game.Path() + "\r\nStock Name  : " + box +
                               "\r\n\r\nERROR: " + box + " is MISSING\r\nERROR: " + box +
                               " referenced by all consists is MISSING\r\n";
    host.game.Write("Routes/North/North.trk", "Tr_RouteFile ( Name ( \"Great North\" ) )");
    host.game.MakeFolder("Routes/South");
    commands.CheckDependencies(CheckTarget{WindowMode::ConsistEditor, {}, {}, box});
    EXPECT_EQ(std::exchange(host.results, {}), report) << "no routes, no usage";
    EXPECT_EQ(host.dialogs.TakeLog(), kAskRoutes + "North(Great North)|South\n");

    host.statuses.clear();
    host.dialogs.AnswerSelection("South|Gone");
    commands.CheckDependencies(CheckTarget{WindowMode::ConsistEditor, {}, {}, box});
    EXPECT_EQ(host.results, report + "ERROR: Route Gone is MISSING\r\n");
}

TEST_F(CheckCommandsTest, SearchesEveryRouteForEveryConsist)
{
    commands.CheckDependencies(kList);
    EXPECT_EQ(host.results, "") << "no routes, no report";
    EXPECT_TRUE(host.statuses.ends_with("Nothing was checked: no route was chosen.\n"))
        << host.statuses;
    EXPECT_EQ(host.dialogs.TakeLog(), kAskRoutes + "\n");
    for (const char *route : {"North", "South"})
        host.game.Write(std::string("Routes/") + route + "/Services/run.srv",
                        "Service_Definition ( Train_Config ( B ) )");
    host.dialogs.AnswerSelection("North|Gone|South");
    commands.CheckDependencies(kList);
    const auto used = [this](const char *route) {
        return "INFO: " + at(std::string("Routes/") + route + "/Services/run.srv") +
               " references file " + at("Trains/Consists/B.con") + "\r\n";
    };
    EXPECT_EQ(std::exchange(host.results, {}),
              "[Usage check of A|B]\nERROR: Route Gone is MISSING\r\n" + used("North") +
                  "ERROR: Route Gone is MISSING\r\n" + used("South"));
    EXPECT_EQ(host.statuses.find("Checking B in North..."),
              host.statuses.find("Checking A in South...\nDone\n") + 28);
}

TEST_F(CheckCommandsTest, StatusShowsTheWaitingStepAndThenTheOutcome)
{
    const std::string lonely = host.game.Write("Routes/x/lonely.s", "shape ( images ( 0 ) )");
    const struct
    {
        const char *what;
        CheckTarget target;
        std::string waiting, outcome;
    } rows[] = {
        {"stock without a route",
         {WindowMode::ConsistEditor, {}, {}, stock("gone.wag")},
         kChoosing,
         "Done"},
        {"a shape that cannot be checked",
         {WindowMode::ShapeView, {}, {}, lonely},
         kFailed,
         kFailed},
    };
    for (const auto &row : rows) {
        host.statuses.clear();
        std::string waiting;
        host.dialogs.onShown = [&] { waiting = host.LastStatus(); };
        commands.CheckDependencies(row.target);
        EXPECT_EQ(waiting, row.waiting) << row.what;
        EXPECT_EQ(host.LastStatus(), row.outcome) << row.what;
    }
    host.dialogs.onShown = {};
    commands.CheckDependencies(kList);
    EXPECT_NE(host.LastStatus(), kChoosing) << "consists without a route";
}

TEST_F(CheckCommandsTest, FindsRoutesWithBracketsInTheirFolders)
{
    host.game.MakeFolder("Routes/East");
    for (const char *route : {"North (old)", "North (v2)", "West", "West (snow)"})
        host.game.Write(std::string("Routes/") + route + "/Services/run.srv",
                        "Service_Definition ( Train_Config ( B ) )");
    host.dialogs.AnswerSelection("North|North|West|East");
    commands.CheckDependencies(kList);
    for (const char *route : {"North (old)", "North (v2)", "West", "West (snow)"})
        EXPECT_NE(host.results.find(at(std::string("Routes/") + route + "/Services/run.srv")),
                  std::string::npos)
            << route;
    EXPECT_EQ(std::count(host.results.begin(), host.results.end(), '\n'), 1 + 4) << host.results;
}

TEST_F(CheckCommandsTest, ShapeReportHasNoHeader)
{
    const std::string gone = at("gone.s");
    commands.CheckDependencies(CheckTarget{WindowMode::ShapeView, {}, {}, gone});
    EXPECT_EQ(std::exchange(host.results, {}),
              "[Usage check of gone]\nERROR: " + gone + " is MISSING\r\n");
    const std::string lonely = host.game.Write("Routes/x/lonely.s", "shape ( images ( 0 ) )");
    commands.CheckDependencies(CheckTarget{WindowMode::ShapeView, {}, {}, lonely});
    EXPECT_EQ(host.results, "") << "a run-time error ends the command";
    const std::string log = host.dialogs.TakeLog();
    EXPECT_TRUE(log.starts_with("critical|Check Dependencies|")) << log;
    EXPECT_NE(log.find("lonely"), std::string::npos) << log;
    EXPECT_FALSE(commands.Running());
}

TEST_F(CheckCommandsTest, ChecksTheStockOfTheCurrentConsist)
{
    const std::string consist = host.game.Write(
        "Trains/Consists/B.con", "Train ( TrainCfg ( x Wagon ( WagonData ( gone "
                                 "Boxes ) ) Engine ( EngineData ( off Boxes ) ) ) )");
    commands.CheckConsistStock(kList);
    const std::string shown = at("Trains/Consists/B.con");
    EXPECT_EQ(host.results, "[Stock check of B]\n\r\nERROR: " + shown +
                                " references missing file " + stock("gone.wag") + "\r\nERROR: " +
                                shown + " references missing file " + stock("off.eng"));
    EXPECT_EQ(host.statuses, "Checking B...\nDone\n");
}

TEST_F(CheckCommandsTest, ReportsShowFileNamesThatContainTheKeySeparator)
{
    commands.CheckConsistStock(CheckTarget{WindowMode::ConsistList, {"a|b"}, "a|b"});
    EXPECT_EQ(std::exchange(host.results, {}),
              "[Stock check of a|b]\n\r\nERROR: " + at("Trains/Consists/a|b.con") + " is MISSING");
    commands.CheckDependencies(CheckTarget{WindowMode::ShapeView, {}, {}, at("a|b.s")});
    EXPECT_EQ(host.results, "[Usage check of a|b]\nERROR: " + at("a|b.s") + " is MISSING\r\n");
}

TEST_F(CheckCommandsTest, ChecksAllStockAfterConfirmation)
{
    writeWagons(2);
    commands.CheckAllStock();
    EXPECT_EQ(host.dialogs.TakeLog() + host.results, kAskAll);
    host.dialogs.Answer(host::DialogAnswer::Yes);
    commands.CheckAllStock();
    EXPECT_EQ(host.results, "[TS Installation Check]\nERROR: " + stock("w100.wag") +
                                " appears CORRUPT\r\nERROR: " + stock("w101.wag") +
                                " appears CORRUPT\r\n");
    EXPECT_NE(host.statuses.find("Checking (2 of 2) "), std::string::npos) << host.statuses;
}

TEST_F(CheckCommandsTest, StoppedCheckIsReportedAndAbandonedOneIsSilent)
{
    writeWagons(40);
    host.onEvents = [this] {
        if (host.statuses.find("(3 of 40)") != std::string::npos)
            commands.Stop();
    };
    host.dialogs.Answer(host::DialogAnswer::Yes);
    commands.CheckAllStock();
    EXPECT_NE(host.results.find("w102.wag appears CORRUPT\r\nSTOPPED at 3 of 40 stock files: this "
                                "report is not complete.\r\n"),
              std::string::npos)
        << host.results;
    EXPECT_TRUE(host.statuses.ends_with("Check stopped\n")) << host.statuses;

    host.results.clear();
    host.onEvents = [this] { commands.Abandon(); };
    host.dialogs.Answer(host::DialogAnswer::Yes);
    commands.CheckAllStock();
    host.dialogs.AnswerSelection("North|South");
    commands.CheckDependencies(kList);
    EXPECT_EQ(host.results, "");
    host.onEvents = [this] { commands.Stop(); };
    host.dialogs.AnswerSelection("North|South");
    commands.CheckDependencies(kList);
    EXPECT_EQ(host.results, "[Usage check of A|B]\nERROR: Route North is MISSING\r\nSTOPPED: this "
                            "report is not complete.\r\n");
}

TEST_F(CheckCommandsTest, RefusesASecondCheckWhileOneRuns)
{
    writeWagons(1);
    bool tried = false;
    host.onEvents = [&] {
        if (std::exchange(tried, true))
            return;
        EXPECT_TRUE(commands.Running());
        commands.CheckAllStock();
        commands.CheckDependencies(kList);
        commands.CheckConsistStock(kList);
    };
    host.dialogs.Answer(host::DialogAnswer::Yes);
    commands.CheckAllStock();
    EXPECT_TRUE(tried);
    EXPECT_EQ(host.dialogs.TakeLog(), kAskAll + "information|Check All Stock|" + kRefused +
                                          "information|Check Dependencies|" + kRefused +
                                          "information|Check Stock|" + kRefused);
    EXPECT_EQ(host.results,
              "[TS Installation Check]\nERROR: " + stock("w100.wag") + " appears CORRUPT\r\n");
}
