// SPDX-License-Identifier: MIT
#include "content/Timetable.h"

#include <gtest/gtest.h>

namespace content {
namespace {

/// The names with their lines: "2:name".
std::vector<std::string> consistsOf(std::string bytes)
{
    std::vector<std::string> names;
    for (const Reference &reference : ReferencesOfTimetable(std::move(bytes)))
        names.push_back(std::to_string(reference.line) + ':' + reference.wants);
    return names;
}

std::string utf16(std::string_view ascii)
{
    std::string bytes = "\xFF\xFE";
    for (const char c : ascii)
        bytes.append({c, '\0'});
    return bytes;
}

using Names = std::vector<std::string>;

TEST(TimetableTest, ReadsConsistsInEveryForm)
{
    const struct
    {
        const char *name;
        std::string text;
        Names expected;
    } kCases[] = {
        {"semicolons", ";A;B\n#consist;one;two\n", {"2:one", "2:two"}},
        {"commas, CRLF", ",A\r\n#consist,one\r\n", {"2:one"}},
        {"tabs", "\tA\n#consist\tone\n", {"2:one"}},
        {"names with other separators",
         ";A, B, C;D\n#consist;one, two;three\n",
         {"2:one, two", "2:three"}},
        {"a title before the separator", "Times;A\n#consist;one\n", {"2:one"}},
        {"UTF-16", utf16(";A\n#consist;one\n"), {"2:one"}},
        {"UTF-8", "\xEF\xBB\xBF;A\n#consist;W\xC3\xA4rter\n", {"2:W\xC3\xA4rter"}},
        {"Windows-1252", ";A\n#consist;W\xE4rter\n", {"2:W\xC3\xA4rter"}},
        {"several, reversed",
         ";A\n#consist;one $reverse + two+three$reverse\n",
         {"2:one", "2:two", "2:three"}},
        {"brackets",
         ";A\n#consist;<loco+wagon>+<$loco+wagon>$reverse\n",
         {"2:loco+wagon", "2:$loco+wagon"}},
        {"an open bracket", ";A\n#consist;<loco + wagon\n", {"2:loco", "2:wagon"}},
        {"comments",
         ";A;#comment;B\n#comment;one;two;three\n#CONSIST;four;five;six\n",
         {"3:four", "3:six"}},
        {"a row that goes on",
         ";A;B\n#consist;one +;two\n;three;\n#path;four;\n;five;\n",
         {"2:one", "2:two", "3:three"}},
        {"a comment that goes on", ";A\n#comment;one /consist=x\n;two /consist=y\n", {}},
        {"options in any row",
         ";A\nStation;10:05 $detach /Consist=one+two /forms=x $transfer /consist=<a/b$c>$reverse\n"
         "#note;$x /consist = no /consist=three $stop\n#dispose;/consist=\n",
         {"2:one", "2:two", "2:a/b$c", "3:three"}},
        {"each once", ";A;B\n#consist;one;ONE\n", {"2:one"}},
        {"columns without a train", ";A\n#consist;one;two\n", {"2:one"}},
        {"only one column", "A\n#consist\n", {}},
        {"nothing", "", {}},
        {"no line ends", ";;;", {}},
    };
    for (const auto &each : kCases) {
        SCOPED_TRACE(each.name);
        EXPECT_EQ(consistsOf(each.text), each.expected);
    }
}

TEST(TimetableTest, ReadsTwoThousandColumns)
{
    std::string titles, consists = "#consist";
    for (int i = 0; i < 2000; ++i) {
        titles += ";T" + std::to_string(i);
        consists += ";c" + std::to_string(i);
    }
    EXPECT_EQ(consistsOf(titles + '\n' + consists).size(), 2000u);
}

TEST(TimetableTest, ListsNameOneTimetablePerLine)
{
    EXPECT_EQ(TimetablesOfList("#title\r\na.timetable-or\r\n\r\n  b c.timetable_or \r\n"),
              (Names{"a.timetable-or", "b c.timetable_or"}));
}

} // namespace
} // namespace content
