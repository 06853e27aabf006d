// SPDX-License-Identifier: MIT
#include "ZelkctlTest.h"

#include <nlohmann/json.hpp>

#include <thread>

namespace {

const std::string kHead = "SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\n";
const std::string kEngine =
    "\t\tEngine (\r\n\t\t\tUiD ( 0 )\r\n\t\t\tEngineData ( loco SD40 )\r\n\t\t)\r\n";
const std::string kBox = "\t\tWagon (\r\n\t\t\tFlip ( )\r\n\t\t\tUiD ( 1 )\r\n\t\t\tWagonData ( "
                         "box Old Stock )\r\n\t\t)\r\n";
const std::string kTank =
    "\t\tWagon (\r\n\t\t\tUiD ( 2 )\r\n\t\t\tWagonData ( tank \"Tank, long\" )\r\n\t\t)\r\n";

std::string consist(const std::string &name, const std::string &counter, const std::string &units)
{
    return kHead + "Train (\r\n\tTrainCfg ( " + name + "\r\n\t\tName ( " + name + " )\r\n" +
           counter + units + "\t)\r\n)\r\n";
}

const std::string kCounter = "\t\tNextWagonUID ( 3 )\r\n";

class EditCommandTest : public ZelkctlTest
{
protected:
    void SetUp() override
    {
        write("local.con", consist("local", kCounter, kEngine + kBox + kTank));
    }
    Outcome edit(std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.begin(), {"edit", "local.con"});
        return run(arguments);
    }
    /// Returns the units, each as "type folder/name uid", and the counter.
    std::vector<std::string> units(const std::string &file) const;
};

std::vector<std::string> EditCommandTest::units(const std::string &file) const
{
    std::vector<std::string> units;
    const auto tree = nlohmann::json::parse(run({"tree", file}).out);
    for (const auto &node : tree["nodes"][0]["children"][0]["children"]) {
        const std::string type = node["name"];
        if (type == "NextWagonUID")
            units.push_back("next " + node["values"][0].get<std::string>());
        if (type != "Engine" && type != "Wagon")
            continue;
        std::string mark, uid, stock;
        for (const auto &part : node["children"]) {
            if (part["name"] == "Flip")
                mark = "*";
            else if (part["name"] == "UiD")
                uid = part["values"][0];
            else
                for (const auto &value : part["values"])
                    stock += "/" + value.get<std::string>();
        }
        units.push_back(type);
        units.back().append(mark).append(" ").append(uid).append(" ").append(stock);
    }
    return units;
}

TEST_F(EditCommandTest, PerformsOperationsInOrder)
{
    const std::string engine = "Engine 0 /loco/SD40", box = "Wagon* 1 /box/Old/Stock",
                      tank = "Wagon 2 /tank/Tank, long";
    struct Row
    {
        const char *name;
        std::vector<std::string> operations;
        std::vector<std::string> units;
    };
    const Row rows[] = {
        {"add",
         {"add=Wagon,My Stock,flat"},
         {"next 4", engine, box, tank, "Wagon 3 /flat/My Stock"}},
        {"add two",
         {"add=Engine,SD40,b unit", "add=Wagon,\"a,b\",c"},
         {"next 5", engine, box, tank, "Engine 3 /b unit/SD40", "Wagon 4 /c/a,b"}},
        {"remove", {"remove=2"}, {"next 2", engine, tank}},
        {"clear", {"clear"}, {"next 0"}},
        {"forwards", {"forwards=3"}, {"next 3", engine, tank, box}},
        {"forwards at the front", {"forwards=1"}, {"next 3", engine, box, tank}},
        {"backwards", {"backwards=1"}, {"next 3", box, engine, tank}},
        {"backwards at the end", {"backwards=3"}, {"next 3", engine, box, tank}},
        {"flip on", {"flip=1"}, {"next 3", "Engine* 0 /loco/SD40", box, tank}},
        {"flip off", {"flip=2"}, {"next 3", engine, "Wagon 1 /box/Old/Stock", tank}},
        {"rows are renumbered after each operation",
         {"remove=1", "add=Engine,SD40,loco", "forwards=3", "forwards=2"},
         {"next 3", "Engine 2 /loco/SD40", box, tank}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        SetUp();
        EXPECT_EQ(edit(row.operations), (Outcome{0, "", ""}));
        EXPECT_EQ(units("local.con"), row.units);
    }
}

TEST_F(EditCommandTest, ChangesNothingElseInTheFile)
{
    EXPECT_EQ(edit({"remove=2", "--out", "short.con"}), (Outcome{0, "", ""}));
    EXPECT_EQ(read("short.con"), consist("short", "\t\tNextWagonUID ( 2 )\r\n", kEngine + kTank));
    EXPECT_EQ(edit({"--out=My short.con", "flip=2", "forwards=3", "flip=3", "flip=2", "flip=2"}),
              (Outcome{0, "", ""}));
    EXPECT_EQ(read("My short.con"), consist("\"My short\"", kCounter, kEngine + kTank + kBox));
    EXPECT_EQ(read("local.con"), consist("local", kCounter, kEngine + kBox + kTank))
        << "the file that was read";
}

TEST_F(EditCommandTest, WritesNothingIfAnOperationFails)
{
    write("overflow.con", consist("overflow", "\t\tNextWagonUID ( 32767 )\r\n", kEngine));
    write("noTrain.con", "Wagon ( x )");
    struct Row
    {
        const char *file;
        std::vector<std::string> operations;
        const char *message;
    };
    const Row rows[] = {
        {"local.con", {"flip=1", "flip=4"}, "flip=4: no such row, there are 3"},
        {"local.con", {"clear", "remove=1"}, "remove=1: no such row, there are 0"},
        {"overflow.con",
         {"flip=1", "add=Wagon,a,b"},
         "add=Wagon,a,b: Nothing was changed: NextWagonUID is 32767, and the new value would not "
         "fit "
         "into 16 bits."},
        {"noTrain.con", {"clear"}, "error 91: there is no Train block"},
        {"missing.con", {"clear"}, "error 53: File not found"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.message);
        const std::string before = row.file != std::string("missing.con") ? read(row.file) : "";
        std::vector<std::string> arguments{"edit", row.file};
        arguments.insert(arguments.end(), row.operations.begin(), row.operations.end());
        EXPECT_EQ(
            run(arguments),
            (Outcome{2, "", "zelkctl: " + std::string(row.file) + ": " + row.message + "\n"}));
        if (before.empty())
            EXPECT_FALSE(m_folder.Exists(row.file));
        else
            EXPECT_EQ(read(row.file), before);
    }
}

TEST_F(EditCommandTest, WarningsGoToStderrAndTheCommandContinues)
{
    const std::string odd = "\t\tNextWagonUID ( x1 )\r\n";
    const std::string hidden = "\t\tWagon (\r\n\t\t\tUiD ( 9 )\r\n\t\t)\r\n" + kTank;
    const std::string fault = "local.con, line 16: Wagon has no block WagonData";
    const std::string ends =
        "zelkctl: " + fault + ". This unit and those behind it are kept and have no rows.\n";
    const struct
    {
        std::string before, operation, after, err;
    } rows[] = {
        {odd + kEngine + kBox, "remove=2", odd + kEngine,
         "zelkctl: local.con: remove=2: NextWagonUID was not changed: \"x1\" is not a number.\n"},
        {kCounter + kEngine + kBox + hidden, "remove=1",
         "\t\tNextWagonUID ( 2 )\r\n" + kBox + hidden, ends},
        {kCounter + kEngine + kBox + hidden, "clear", "\t\tNextWagonUID ( 1 )\r\n" + hidden,
         ends + "zelkctl: local.con: clear: Only the units shown were removed: " + fault + ".\n"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.operation);
        write("local.con", consist("local", "", row.before));
        EXPECT_EQ(edit({row.operation}), (Outcome{0, "", row.err}));
        EXPECT_EQ(read("local.con"), consist("local", "", row.after));
    }
}

TEST_F(EditCommandTest, EditsAtTheSameTimeLoseNothing)
{
    constexpr int kAtOnce = 8, kTimes = 5;
    const std::string file = m_folder.At("local.con");
    const Outcome changed{2, "",
                          "zelkctl: " + file +
                              ": error 75: it was changed since it was read, and so was not "
                              "overwritten. Read it again and repeat the change.\n"};
    // On Windows, no file has the name for a moment while another process replaces it.
    const Outcome absent = host::path::kSeparator == '\\'
                               ? Outcome{2, "", "zelkctl: " + file + ": error 53: File not found\n"}
                               : changed;
    std::vector<Outcome> outcomes(kAtOnce);
    std::size_t expected = 4; // the counter and three units
    for (int i = 0; i < kTimes; ++i) {
        {
            std::vector<std::jthread> threads;
            for (int j = 0; j < kAtOnce; ++j)
                threads.emplace_back([&, j] {
                    const support::Machine machine{m_folder.MakeFolder("home" + std::to_string(j))};
                    outcomes[static_cast<std::size_t>(j)] =
                        machine.Run(ZELKCTL, {"edit", file, "add=Wagon,My Stock,flat"});
                });
        }
        for (const Outcome &outcome : outcomes) {
            expected += outcome.code == 0 ? 1 : 0;
            if (outcome != absent) {
                EXPECT_EQ(outcome, outcome.code == 0 ? (Outcome{0, "", ""}) : changed);
            }
        }
        EXPECT_EQ(units("local.con").size(), expected) << "a change was overwritten";
    }
    EXPECT_GE(expected, 4u + kTimes);
}

TEST_F(EditCommandTest, NamesTheFileThatCannotBeWritten)
{
    const std::filesystem::path file = m_folder.At("local.con");
    const std::string before = read("local.con");
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    const Outcome outcome = edit({"clear"});
    EXPECT_EQ(outcome.code, 2);
    EXPECT_TRUE(outcome.err.starts_with("zelkctl: local.con: error 70: ")) << outcome;
    EXPECT_EQ(read("local.con"), before);
    EXPECT_EQ(edit({"clear", "--out", "nowhere/x.con"}),
              (Outcome{2, "", "zelkctl: nowhere/x.con: error 76: Path not found\n"}));
}

} // namespace
