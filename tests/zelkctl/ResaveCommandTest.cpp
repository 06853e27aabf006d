// SPDX-License-Identifier: MIT
#include "ZelkctlTest.h"
#include "samples/Sample.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

class ResaveCommandTest : public ZelkctlTest
{
protected:
    Json treeOf(const std::string &file) const { return Json::parse(run({"tree", file}).out); }
    Outcome resave(const std::string &from, const std::string &to) const
    {
        return run({"resave", from, to});
    }
};

/// Splits the bytes at line feeds. In any encoding a changed line changes one piece.
std::vector<std::string> linesOf(const std::string &bytes)
{
    std::vector<std::string> lines(1);
    for (const char c : bytes) {
        lines.back() += c;
        if (c == '\n')
            lines.emplace_back();
    }
    return lines;
}

/// Returns the numbers of lines in `before` and in `after` that are not in their common beginning
/// and end.
std::pair<std::size_t, std::size_t> changedLines(const std::string &before,
                                                 const std::string &after)
{
    const std::vector<std::string> a = linesOf(before), b = linesOf(after);
    const std::size_t shorter = std::min(a.size(), b.size());
    std::size_t head = 0, tail = 0;
    while (head < shorter && a[head] == b[head])
        ++head;
    while (tail < shorter - head && a[a.size() - 1 - tail] == b[b.size() - 1 - tail])
        ++tail;
    return {a.size() - head - tail, b.size() - head - tail};
}

/// Removes the consist's name from both of its places in the tree and returns the two names.
std::vector<std::string> takeNames(Json &tree)
{
    std::vector<std::string> names;
    const auto take = [&names](Json &values) {
        for (const Json &value : values)
            names.push_back(value);
        values.clear();
    };
    tree.erase("notes"); // a new line changes their line numbers
    Json &config = tree["nodes"][0]["children"][0];
    take(config["values"]);
    Json &children = config["children"];
    for (std::size_t i = 0; i < children.size(); ++i)
        if (children[i]["name"] == "Name") {
            take(children[i]["values"]);
            children.erase(i);
            break;
        }
    return names;
}

TEST_F(ResaveCommandTest, ChangesOnlyTheNamesOfTheSampleConsists)
{
    const fs::path sample = m_folder.At("sample");
    samples::WriteSample(sample);
    m_folder.MakeFolder("out");
    int consists = 0;
    for (const fs::directory_entry &entry : fs::directory_iterator(sample / "TRAINS/CONSISTS")) {
        const std::string name = entry.path().stem().string();
        SCOPED_TRACE(name);
        const std::string from = "sample/trains/consists/" + name + ".con";
        const std::string to = "out/" + name + ".con", again = "out/again/" + name + ".con";
        m_folder.MakeFolder("out/again");
        ASSERT_EQ(resave(from, to), (Outcome{0, "", ""}));
        const std::string before = read("sample/TRAINS/CONSISTS/" + name + ".con");
        const auto [removed, added] = changedLines(before, read(to));
        EXPECT_LE(removed, 2u);
        EXPECT_LE(added, 2u);

        Json oldTree = treeOf(from), newTree = treeOf(to);
        if (oldTree["encoding"] == "windows-1252") // its only accent may have been in the name
            newTree["encoding"] = "windows-1252";
        takeNames(oldTree);
        EXPECT_EQ(takeNames(newTree), (std::vector<std::string>{name, name}));
        EXPECT_EQ(newTree, oldTree);
        ASSERT_EQ(resave(to, again), (Outcome{0, "", ""}));
        EXPECT_EQ(read(again), read(to));
        ++consists;
    }
    EXPECT_EQ(consists, 14);
}

TEST_F(ResaveCommandTest, LeavesOtherFilesUnchanged)
{
    std::string bytes(4096, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(i * 197 >> 3);
    const std::pair<const char *, std::string> rows[] = {
        {"train.eng", "Train ( TrainCfg ( other Name ( other ) ) )"},
        {"noTrain.con", Utf16("\r\nActivity ( TrainCfg ( other ) )\r\n")},
        {"noConfig.con", "Train ( Serial ( 1 ) )"},
        {"noData.wag", ""},
        {"packed.s", "SIMISA@F\x10\x27" + std::string(2, '\0') + "@@@@" + bytes},
        {"binary.s", "SIMISA@@@@@@@@@@JINX0s1b______\r\n" + bytes},
        {"nuls.con", std::string(512, '\0')},
    };
    for (const auto &[file, content] : rows) {
        SCOPED_TRACE(file);
        write(file, content);
        const std::string to = "copy of " + std::string(file);
        EXPECT_EQ(resave(file, to), (Outcome{0, "", ""}));
        EXPECT_EQ(read(to), content);
    }
}

TEST_F(ResaveCommandTest, SavesConsistsThatTheEditorCannotList)
{
    write("odd.con", "\nTrain ( TrainCfg ( odd Name ( odd ) Engine ( UiD ( 0 ) ) ) )\n");
    EXPECT_EQ(resave("odd.con", "New name.con"), (Outcome{0, "", ""}));
    EXPECT_EQ(read("New name.con"),
              "\nTrain ( TrainCfg ( \"New name\" Name ( \"New name\" ) Engine ( UiD ( 0 ) ) ) )\n");
}

TEST_F(ResaveCommandTest, ReplacesAnExistingFileInAnyLetterCase)
{
    write("a.con", "\nTrain ( TrainCfg ( a Name ( a ) ) )");
    write("B.CON", "old");
    EXPECT_EQ(resave("A.con", "b.con"), (Outcome{0, "", ""}));
    EXPECT_EQ(read("B.CON"), "\nTrain ( TrainCfg ( b Name ( b ) ) )");
    EXPECT_EQ(m_folder.Names(), (std::vector<std::string>{"B.CON", "a.con"}));
}

TEST_F(ResaveCommandTest, NamesTheFaultyFile)
{
    write("x.con", "Train ( TrainCfg ( x ) )");
    m_folder.MakeFolder("folder.con");
    const std::vector<std::string> before = m_folder.Names();
    const std::string longName(300, 'x');
    const std::string rows[][3] = {
        {"missing.con", "y.con", "missing.con: error 53: File not found"},
        {"x.con", "nowhere/y.con", "nowhere/y.con: error 76: Path not found"},
        {"x.con", "folder.con", "folder.con: error 75: it is a folder"},
        {"x.con", "", "\"\": error 76: no file name is given"},
        {"x.con", longName, longName + ": error 75: the name is too long: choose a shorter one"},
        {longName, "y.con", longName + ": error 75: the name is too long: choose a shorter one"},
#ifdef _WIN32
        {"x.con", "con.con",
         "con.con: error 75: Windows keeps the name for a device: choose another one"},
        {"CON", "y.con", "CON: error 75: Windows keeps the name for a device: choose another one"},
#endif
    };
    for (const auto &[from, to, message] : rows)
        EXPECT_EQ(resave(from, to), (Outcome{2, "", "zelkctl: " + message + "\n"}));
    EXPECT_EQ(m_folder.Names(), before);
}

} // namespace
