// SPDX-License-Identifier: MIT
#include "TreeText.h"

#include <gtest/gtest.h>

namespace {

struct Row
{
    const char *what;
    const char *text;
    const char *tree;
    const char *notes = "";
};

/// The body is on line 3, after the header.
void expectAll(const std::vector<Row> &rows)
{
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(TreeOf(WithHeader(row.text)), row.tree);
        EXPECT_EQ(NotesOf(WithHeader(row.text)), row.notes);
    }
}

TEST(StfGrammarTest, ReadsTokensAndValues)
{
    expectAll({
        {"glued brackets", "Wagon(x)Engine(y)", "Wagon(x) Engine(y)"},
        {"empty block", "Flip()", "Flip()"},
        {"empty strings are values", "A ( \"\" \"\" )", "A(|)"},
        {"string with brackets and lines", "A ( \"( x )\r\n#y\" z )", "A(( x )\r\n#y|z)"},
        {"string ends at its quote", "A ( \"a b\"c )", "A(a b|c)"},
        {"quote inside a word", "A ( abc\" def )", "A(abc|def)",
         "3: a quote at the end of a word is ignored\n"},
        {"doubled opening quote", "A ( \"\"..\\\\x.sms\" )", "A(|..\\x.sms)",
         "3: an empty string is directly before a word: a doubled quote?\n"
         "3: a quote at the end of a word is ignored\n"},
        {"escapes", R"(A ( "a\"b\\c\nd\te\qf" ..\\x.s ))", "A(a\"b\\c\nd\teqf|..\\x.s)"},
        {"control characters separate words", "A (\x01 a\x1F\x62 )", "A(a|b)"},
        {"CR CR LF", "A (\r\r\n\tB ( 1 )\r\r\n)", "A(B(1))"},
        {"values between blocks", "A ( 1 B ( 2 ) 3 )", "A(1|3 B(2))"},
    });
}

TEST(StfGrammarTest, JoinsStrings)
{
    expectAll({
        {"joined strings", "D ( \"a\\n\"+\r\n \"b\" + \"c\" )", "D(a\nbc)"},
        {"plus between words", "D ( a + b )", "D(a|+|b)"},
        {"plus after a single string", "D ( \"a\" + b )", "D(a|b)",
         "3: a \"+\" without a following string is ignored\n"},
        {"unterminated", "D ( \"a ) E ( 1 )", "D(a ) E ( 1 ))",
         "3: the string that begins here is not closed: it runs to the end of the file\n"
         "3: 1 block is not closed at the end of the file; the innermost begins here\n"},
        {"lost quote", "D ( \"a\r\n B ( 1 ) \" )", "D(a\r\n B ( 1 ) )",
         "3: the string that begins here holds whole blocks: a lost quote?\n"},
    });
}

TEST(StfGrammarTest, SkipsComments)
{
    expectAll({
        {"block", "A ( comment ( x \"y\" ( z ) ) B ( 1 ) )", "A(B(1))"},
        {"any case, token", "A ( 1 COMMENT \"x\" Skip y 2 )", "A(1|2)"},
        {"hash disables a block", "A ( #Mass ( 40t ) B ( 1 ) )", "A(B(1))"},
        {"hash and word, then a nameless block", "A ( #old Mass ( 40t ) )", "A()",
         "3: a block without a name is skipped\n"},
        {"hash skips one item only", "A ( # old value Mass ( 40t ) )", "A(value Mass(40t))"},
        {"hash glued to a bracket", "A ( #( text ) B ( 1 ) )", "A(B(1))"},
        {"before the closing bracket", "A ( 1.4 #note (see below) )", "A(1.4)"},
        {"dangling before the closing bracket", "A ( 45t #est)B ( 1 )", "A(45t) B(1)"},
        {"underscore", "A ( _Sound ( \"x\" ) 1 )", "A(1)"},
        {"inside a number", "MaxForce ( 220kN#est )", "MaxForce(220kN#est)"},
        {"a file name is not a comment", "WagonShape ( _x.s ) Sound ( #1.sms ) Name ( #5 x )",
         "WagonShape(_x.s) Sound(#1.sms) Name(#5|x)"},
        {"nor is a quoted file name", "A ( \"#x\" \"comment\" )", "A(#x|comment)"},
        {"both strings of a data block", "WagonData ( #a _b #c d )", "WagonData(#a|_b)"},
        {"a disabled block in the first place", "Wagon ( _Sound ( \"x\" ) Size ( 1 ) )",
         "Wagon(Size(1))"},
        {"between blocks at the top", "#( t ) A ( 1 ) #B ( 2 ) comment ( 3 )", "A(1)"},
        {"route data that looks like a comment", "_OpenRails ( a ( 1 ) ) Tr_RouteFile ( )",
         "_OpenRails(a(1)) Tr_RouteFile()"},
        {"a lone quote extends to the end", "A ( comment( 1t full\" ) B ( \"2\" ) C ( 3 ) )", "A()",
         "3: the comment or block skipped from here runs to the end of the file\n"
         "3: 1 block is not closed at the end of the file; the innermost begins here\n"},
        {"slashes are words", "A ( 1 // text\r\n 2 )", "A(1|//|text|2)"},
    });
}

TEST(StfGrammarTest, ReadsLabels)
{
    expectAll({
        {"shape blocks", "shape ( matrix MAIN ( 1 ) prim_state \"a b\" ( 2 ) anim_node #W ( 3 ) )",
         "shape(matrix:MAIN(1) prim_state:a b(2) anim_node:#W(3))"},
        {"values before a block are not labels", "shape ( x ( ff000000 vertex_uvs ( 1 0 ) ) )",
         "shape(x(ff000000 vertex_uvs(1|0)))"},
        {"a service and its blocks", "S ( SRV 3600 UiD ( 1 ) )", "S(SRV|3600 UiD(1))"},
        {"known stock block", "Wagon ( x WagonShape \"text\" ( \"x.s\" ) )",
         "Wagon(x WagonShape:text(x.s))"},
        {"two known names", "Wagon ( Sound Type ( Freight ) )", "Wagon(Sound Type(Freight))"},
        {"a shape's name in a consist", "TrainCfg ( matrix Name ( x ) )",
         "TrainCfg(matrix Name(x))"},
        {"no label across a comment", "Wagon ( Sound #n x foo ( 1 ) )", "Wagon(Sound foo(1))"},
    });
}

TEST(StfGrammarTest, ReadsBrokenStructure)
{
    expectAll({
        {"missing brackets", "A (\r\n B ( 1", "A(B(1))",
         "4: 2 blocks are not closed at the end of the file; the innermost begins here\n"},
        {"surplus bracket inside closes early", "A ( 1 ) B ( 2 ) )", "A(1) B(2)",
         "3: a surplus closing bracket is ignored\n"},
        {"only a bracket", ")", "", "3: a surplus closing bracket is ignored\n"},
        {"words outside of blocks", "x A ( 1 ) y z", "A(1)",
         "3: words outside of any block are ignored\n"
         "3: words outside of any block are ignored\n"},
        {"nameless block", "A ( 1 \"x\" ( B ( 2 ) ) 3 )", "A(1|x|3)",
         "3: a block without a name is skipped\n"},
        {"nameless block in a nameless block", "( ( ( ) ) ) A ( )", "A()",
         "3: a block without a name is skipped\n"},
        {"a file name followed by a comment is not a block name", "Sound ( _x #c d ( 1 ) )",
         "Sound(_x)", "3: a block without a name is skipped\n"},
        {"header only", "", ""},
    });
}

TEST(StfGrammarTest, CutsDeepNestingAndReadsTheRest)
{
    std::string text = "B ( 1 ) ";
    for (int i = 0; i < 100000; ++i)
        text += "A(";
    const std::string tree = TreeOf(WithHeader(text + std::string(100000, ')') + " C ( 2 )"));
    EXPECT_TRUE(tree.starts_with("B(1) A(A(A("));
    EXPECT_TRUE(tree.ends_with(") C(2)"));
    EXPECT_EQ(std::count(tree.begin(), tree.end(), 'A'), stavfile::kMaxBlockDepth);
}

TEST(StfGrammarTest, LimitsTheNumberOfNotes)
{
    MemoryFile memory(WithHeader(std::string(1 << 20, ')')));
    EXPECT_EQ(memory.file.Notes().size(), 201u);
}

struct HeaderRow
{
    const char *what;
    std::string text;
    const char *header;
    const char *tree;
};

TEST(StfGrammarTest, ReadsHeaders)
{
    const char *usual = "SIMISA@@@@@@@@@@JINX0D0t______";
    const HeaderRow rows[] = {
        {"usual", WithHeader("A ( 1 )"), usual, "A(1)"},
        {"line feed only", "SIMISA@@@@@@@@@@JINX0D0t______\nA ( 1 )", usual, "A(1)"},
        {"tree on the same line", "SIMISA@@@@@@@@@@JINX0r1t________Tr ( 1 )",
         "SIMISA@@@@@@@@@@JINX0r1t________", "Tr(1)"},
        {"trailing blanks", "SIMISA@@@@@@@@@@JINX0D0t______  \r\nA ( 1 )", usual, "A(1)"},
        {"blank lines before", "\r\n\r\nSIMISA@@@@@@@@@@JINX0D0t______\r\nA ( 1 )", usual, "A(1)"},
        {"skips a malformed line", "SIMISA@@@@ something ( x )\r\nA ( 1 )",
         "SIMISA@@@@ something ( x )", "A(1)"},
        {"cut short", "SIMISA@@@@S", "SIMISA@@@@S", ""},
        {"in Windows-1252", "SIMISA@@@@\xE9\r\nA ( \xE9 )", "SIMISA@@@@\xC3\xA9", "A(\xC3\xA9)"},
        {"none", "A ( 1 )", "", "A(1)"},
        {"no header and an empty first line", "\r\nA ( 1 )", "", "A(1)"},
        {"no line end at all", "SIMISA@@@@@@@@@@JINX0D0t______", usual, ""},
    };
    for (const HeaderRow &row : rows) {
        SCOPED_TRACE(row.what);
        MemoryFile memory(row.text);
        EXPECT_EQ(memory.file.Header(), row.header);
        EXPECT_EQ(TreeText(memory.file.Nodes()), row.tree);
        EXPECT_EQ(memory.file.ToBytes(), row.text);
    }
    EXPECT_EQ(NotesOf("A ( 1 )"), "1: no header line: a simulator would not read this line\n");
    EXPECT_EQ(NotesOf("\r\nA ( 1 )"), "");
}

} // namespace
