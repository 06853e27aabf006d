// SPDX-License-Identifier: MIT
#include "ZelkctlTest.h"

#include <nlohmann/json.hpp>

namespace {

class TreeCommandTest : public ZelkctlTest
{
};

TEST_F(TreeCommandTest, PrintsTheWholeFile)
{
    const std::string header = "SIMISA@@@@@@@@@@JINX0D0t______";
    struct Row
    {
        const char *name;
        std::string bytes;
        std::string out;
    };
    const Row rows[] = {
        {"empty", "",
         "{\"header\":null,\"encoding\":\"utf-8\",\"bom\":false,\"nodes\":[],\n\"notes\":[]}\n"},
        {"UTF-16 with header and nested blocks",
         Utf16(header + "\r\n\r\nTrain ( TrainCfg ( \"Two words\" Name ( x ) Flip ( ) ) )\r\n"),
         "{\"header\":\"" + header +
             "\",\"encoding\":\"utf-16le\",\"bom\":true,\"nodes\":[\n"
             " {\"name\":\"Train\",\"values\":[],\"children\":[\n"
             "  {\"name\":\"TrainCfg\",\"values\":[\"Two words\"],\"children\":[\n"
             "   {\"name\":\"Name\",\"values\":[\"x\"],\"children\":[]},\n"
             "   {\"name\":\"Flip\",\"values\":[],\"children\":[]}]}]}],\n\"notes\":[]}\n"},
        {"label and values", "\nshape ( matrix MAIN ( 1 0.5 ) )",
         "{\"header\":null,\"encoding\":\"utf-8\",\"bom\":false,\"nodes\":[\n"
         " {\"name\":\"shape\",\"values\":[],\"children\":[\n"
         "  {\"name\":\"matrix\",\"label\":\"MAIN\",\"values\":[\"1\",\"0.5\"],"
         "\"children\":[]}]}],\n\"notes\":[]}\n"},
        {"characters that JSON escapes", "\na ( \"..\\\\x.s\" \"q\\\"\\n\t\x01\" )",
         "{\"header\":null,\"encoding\":\"utf-8\",\"bom\":false,\"nodes\":[\n"
         " {\"name\":\"a\",\"values\":[\"..\\\\x.s\",\"q\\\"\\n\\t\\u0001\"],\"children\":[]}],\n"
         "\"notes\":[]}\n"},
        {"Windows-1252 becomes UTF-8", "\na ( Z\xfcge )",
         "{\"header\":null,\"encoding\":\"windows-1252\",\"bom\":false,\"nodes\":[\n"
         " {\"name\":\"a\",\"values\":[\"Z\u00fcge\"],\"children\":[]}],\n\"notes\":[]}\n"},
        {"notes about repairs", "a ( 1\nb ( 2 ) )\n)",
         "{\"header\":null,\"encoding\":\"utf-8\",\"bom\":false,\"nodes\":[\n"
         " {\"name\":\"a\",\"values\":[\"1\"],\"children\":[\n"
         "  {\"name\":\"b\",\"values\":[\"2\"],\"children\":[]}]}],\n\"notes\":[\n"
         " {\"line\":1,\"text\":\"no header line: a simulator would not read this line\"},\n"
         " {\"line\":3,\"text\":\"a surplus closing bracket is ignored\"}]}\n"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        write("x.s", row.bytes);
        EXPECT_EQ(run({"tree", "x.s"}), (Outcome{0, row.out, ""}));
        EXPECT_TRUE(nlohmann::json::accept(row.out));
    }
}

TEST_F(TreeCommandTest, PrintsValidJsonForAnyBytes)
{
    std::string bytes = "a ( ";
    for (int round = 0; round < 2000; ++round)
        bytes += static_cast<char>(round * 151 % 256);
    for (const char *start : {"", "\xff\xfe", "\xfe\xff", "\xef\xbb\xbf"}) {
        write("x.con", start + bytes);
        const Outcome outcome = run({"tree", "x.con"});
        EXPECT_EQ(outcome.code, 0) << outcome;
        EXPECT_TRUE(nlohmann::json::accept(outcome.out)) << outcome;
    }
}

TEST_F(TreeCommandTest, PrintsLargeAndDeepFilesCompletely)
{
    constexpr int kBlocks = 50'000, kDepth = 150;
    std::string wide, deep;
    for (int i = 0; i < kBlocks; ++i)
        wide += "point ( " + std::to_string(i) + " )\n";
    for (int i = 0; i < kDepth; ++i)
        deep += "a ( ";
    write("x.s", wide + deep);
    const Outcome outcome = run({"tree", "x.s"});
    ASSERT_EQ(outcome.code, 0) << outcome.err;
    nlohmann::json nodes = nlohmann::json::parse(outcome.out)["nodes"];
    ASSERT_EQ(nodes.size(), kBlocks + 1u);
    EXPECT_EQ(nodes[kBlocks - 1]["values"][0], std::to_string(kBlocks - 1));
    int depth = 0;
    for (nlohmann::json node = nodes[kBlocks]; !node.is_null(); ++depth)
        node = node["children"].empty() ? nlohmann::json() : nlohmann::json(node["children"][0]);
    EXPECT_EQ(depth, kDepth);
}

TEST_F(TreeCommandTest, FindsFilesInAnyLetterCase)
{
    const std::string foreign = std::string("Stock/") + support::kForeignZuege + ".ENG";
    write(foreign, "a ( )");
    const Outcome exact = run({"tree", "Stock/Z\u00fcge.ENG"});
    EXPECT_EQ(exact.code, 0) << exact;
    EXPECT_EQ(run({"tree", "stock\\z\u00dcGE.eng"}), exact);
    EXPECT_EQ(run({"tree", foreign}), exact) << "the bytes of the name on disk";
}

TEST_F(TreeCommandTest, ReportsWhyAFileCannotBeRead)
{
    write("folder.con/x", "");
    const std::pair<const char *, const char *> rows[] = {
        {"missing.con", "error 53: File not found"},
        {"folder.con", "error 53: File not found"},
        {"nowhere/x.con", "error 76: Path not found"},
    };
    for (const auto &[file, message] : rows)
        EXPECT_EQ(run({"tree", file}),
                  (Outcome{2, "", "zelkctl: " + std::string(file) + ": " + message + "\n"}));
}

} // namespace
