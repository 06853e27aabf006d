// SPDX-License-Identifier: MIT
// The commands replace and undo.
#include "ZelkctlTest.h"
#include "host/Text.h"

#include <filesystem>

namespace {

using Arguments = std::vector<std::string>;

class ReplaceCommandTest : public ZelkctlTest
{
protected:
    void SetUp() override
    {
        write("msts/TRAINS/TRAINSET/New/tank.wag", "Wagon ( tank )");
        write("msts/TRAINS/CONSISTS/one.con", consist("box Old"));
        write("msts/TRAINS/CONSISTS/two.con", Utf16(consist("\"BOX\" \"OLD\"")));
        write("msts/TRAINS/CONSISTS/other.con", consist("flat Old"));
        write(
            "msts/ROUTES/R1/ACTIVITIES/shunt.act",
            "\nTr_Activity ( Tr_Activity_File ( ActivityObjects ( ActivityObject ( Train_Config ( "
            "TrainCfg ( \"\" Wagon ( WagonData ( box Old ) ) ) ) ) ) ) )");
    }
    static std::string consist(const std::string &data)
    {
        return "SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\nTrain (\r\n\tTrainCfg ( x\r\n"
               "\t\tEngine ( UiD ( 0 ) EngineData ( box Old ) )\r\n"
               "\t\tWagon ( UiD ( 1 ) WagonData ( " +
               data + " ) )\r\n\t)\r\n)\r\n";
    }
    Outcome command(Arguments arguments) const
    {
        arguments.insert(arguments.begin(), {"--msts", "msts"});
        return run(arguments);
    }
    /// Returns the names of the files whose wagon is New/tank, from one, two, other and shunt.
    std::string changed() const
    {
        std::string names;
        for (const std::string name : {"one", "two", "other"}) {
            const std::string bytes = read("msts/TRAINS/CONSISTS/" + name + ".con");
            const bool isWide = name == "two";
            const std::string after = consist("tank New");
            names += bytes == (isWide ? Utf16(after) : after) ? name + ' ' : "";
        }
        const std::string activity = read("msts/ROUTES/R1/ACTIVITIES/shunt.act");
        return names + (activity.find("( tank New )") != activity.npos ? "shunt " : "");
    }
};

TEST_F(ReplaceCommandTest, ReplacesInAllConsistsAndTakesItBack)
{
    const std::string units = "one\t2\tOld/box.wag\ntwo\t2\tOLD/BOX.wag\n";
    EXPECT_EQ(command({"replace", "old/Box.wag", "New/tank.wag", "--dry-run"}),
              (Outcome{0, units, ""}));
    EXPECT_EQ(changed(), "");
    EXPECT_FALSE(std::filesystem::exists(m_folder.At(".local"))) << "a dry run writes nothing";
    EXPECT_EQ(
        command({"replace", "old/Box.wag", "New/tank.wag"}),
        (Outcome{0, units + "Replaced 2 units in 2 files. zelkctl undo takes this back.\n", ""}));
    EXPECT_EQ(changed(), "one two ");
    EXPECT_EQ(run({"undo"}),
              (Outcome{0, "Took back \"Replace old/Box.wag by New/tank.wag\" in 2 files.\n", ""}));
    EXPECT_EQ(changed(), "");
    EXPECT_EQ(read("msts/TRAINS/CONSISTS/one.con"), consist("box Old"));
    EXPECT_EQ(run({"undo"}), (Outcome{2, "", "zelkctl: There is no change to take back.\n"}));
}

TEST_F(ReplaceCommandTest, SearchesOnlyTheChosenConsistsAndActivitiesOnRequest)
{
    const Arguments vehicles = {"replace", "Old/box.wag", "New/tank.wag"};
    const struct
    {
        Arguments options;
        const char *units, *changed;
    } rows[] = {
        {{"--consist", "other", "two"}, "two\t2\tOLD/BOX.wag\n", "two "},
        {{"--consist", "TWO", "--consist", "msts/trains/consists/two.con"},
         "TWO\t2\tOLD/BOX.wag\n",
         "two "},
        {{"--activities"},
         "one\t2\tOld/box.wag\ntwo\t2\tOLD/BOX.wag\nR1/shunt.act\t1.1\tOld/box.wag\n",
         "one two shunt "},
        {{"--activities", "--consist", "other"}, "R1/shunt.act\t1.1\tOld/box.wag\n", "shunt "},
    };
    for (const auto &row : rows) {
        SetUp();
        Arguments arguments = vehicles;
        arguments.insert(arguments.end(), row.options.begin(), row.options.end());
        const Outcome outcome = command(arguments);
        // Where the system ignores letter case, a write may change the spelling of the file's name.
        EXPECT_TRUE(host::ToUpper(outcome.out)
                        .starts_with(host::ToUpper(std::string(row.units) + "Replaced ")))
            << outcome;
        EXPECT_EQ(changed(), row.changed) << outcome;
    }
}

TEST_F(ReplaceCommandTest, RefusesWhatCannotBeReplaced)
{
    write("msts/TRAINS/CONSISTS/packed.con", "SIMISA@F\x10\x20@@@@\x78\x9c");
    const struct
    {
        Arguments arguments;
        Outcome outcome;
    } rows[] = {
        {{"replace", "Old/box.wag", "New/tank.eng"},
         {2, "",
          "zelkctl: Old/box.wag cannot be replaced by New/tank.eng: an engine can only be replaced "
          "by an engine, a wagon only by a wagon\n"}},
        {{"replace", "box.wag", "New/tank.wag"},
         {2, "", "zelkctl: box.wag: a vehicle is given as FOLDER/NAME.eng or FOLDER/NAME.wag\n"}},
        {{"replace", "Old/box.wag", "New/tank.wag", "--consist", "gone"},
         {2, "", "zelkctl: gone: error 53: File not found\n"}},
        {{"replace", "Old/none.wag", "New/tank.wag", "--consist", "one"},
         {0, "",
          "zelkctl: Old/none.wag: no unit uses this vehicle, so there is nothing to replace\n"}},
        {{"replace", "Old/box.wag", "New/none.wag", "--consist", "one", "--dry-run"},
         {0, "one\t2\tOld/box.wag\n", "zelkctl: warning: New/none.wag is not installed\n"}},
    };
    for (const auto &row : rows)
        EXPECT_EQ(command(row.arguments), row.outcome);
    for (const bool dry : {true, false}) {
        Arguments arguments = {"replace", "Old/box.wag", "New/tank.wag"};
        if (dry)
            arguments.emplace_back("--dry-run");
        const Outcome outcome = command(arguments);
        EXPECT_EQ(outcome.code, 2);
        EXPECT_EQ(outcome.out.empty(), !dry);
        EXPECT_NE(outcome.err.find("packed.con: a compressed file"), std::string::npos) << outcome;
        EXPECT_EQ(outcome.err.find("Nothing was changed") == std::string::npos, dry) << outcome;
    }
    EXPECT_EQ(changed(), "");
}

TEST_F(ReplaceCommandTest, UndoAndReplaceNameTheFileInTheWay)
{
    command({"replace", "Old/box.wag", "New/tank.wag"});
    write("msts/TRAINS/CONSISTS/one.con", consist("flat New"));
    const Outcome outcome = run({"undo"});
    EXPECT_EQ(outcome.code, 2);
    EXPECT_NE(outcome.err.find("one.con: it was changed since"), std::string::npos) << outcome;
    EXPECT_EQ(changed(), "two ");

    SetUp();
    const std::filesystem::path file = m_folder.At("msts/TRAINS/CONSISTS/two.con");
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    const Outcome refused = command({"replace", "Old/box.wag", "New/tank.wag"});
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    EXPECT_EQ(refused.code, 2);
    EXPECT_NE(refused.err.find("two.con: the file is read-only. No file was changed."),
              std::string::npos)
        << refused;
    EXPECT_EQ(changed(), "");
}

} // namespace
