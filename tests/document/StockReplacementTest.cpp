// SPDX-License-Identifier: MIT
#include "document/StockReplacement.h"

#include "host/GameFiles.h"
#include "host/RuntimeError.h"
#include "host/Text.h"
#include "stavfile/TextCodec.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

using document::StockReplacement;
using install::StockItem;
using stavfile::Encoding;

namespace {

const std::string kHead = "SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\nTrain ( TrainCfg ( \"a b\"\r\n";

/// Returns a text with every `from` replaced.
std::string with(std::string text, const std::string &from, const std::string &to)
{
    for (std::size_t at = 0; (at = text.find(from, at)) != text.npos; at += to.size())
        text.replace(at, from.size(), to);
    return text;
}

class StockReplacementTest : public testing::Test
{
protected:
    StockReplacement replacing(const std::string &from, const std::string &to)
    {
        return {files, *document::VehicleOf(from), *document::VehicleOf(to)};
    }
    /// Returns the bytes after the replacement, "unused" if no unit uses the vehicle.
    std::string changed(const StockReplacement &replacement, const std::string &bytes,
                        const std::vector<bool> &chosen = {})
    {
        const auto found = replacement.Find(folder.Write("a.con", bytes));
        if (!found)
            return "unused";
        const host::FileChange change = replacement.ChangeOf(*found, chosen);
        EXPECT_EQ(change.before, bytes);
        EXPECT_EQ(change.path, folder.Shown("a.con"));
        return change.after;
    }
    std::string changedUnit(const std::string &unit, const std::string &from, const std::string &to)
    {
        const std::string end = "\r\n) )\r\n";
        const std::string after = changed(replacing(from, to), kHead + unit + end);
        if (after == "unused")
            return after;
        EXPECT_TRUE(after.starts_with(kHead) && after.ends_with(end)) << after;
        return after.substr(kHead.size(), after.size() - kHead.size() - end.size());
    }

    support::TempFolder folder;
    host::GameFiles files;
};

TEST_F(StockReplacementTest, NameAndFolderAreFoundInAnySpelling)
{
    const std::string from = "Old Stock/box.wag", to = "New/tank.wag";
    const struct
    {
        const char *before, *after;
    } rows[] = {
        {"Wagon ( WagonData ( box \"Old Stock\" ) )", "Wagon ( WagonData ( tank New ) )"},
        {"Wagon ( UiD ( 3 ) WagonData ( \"BOX\"\t\t\"old stocK\" ) )",
         "Wagon ( UiD ( 3 ) WagonData ( tank\t\tNew ) )"},
        {"Wagon ( WagonData ( box Old Stock ) Flip ( ) )",
         "Wagon ( WagonData ( tank New ) Flip ( ) )"},
        {"Wagon ( WagonData (box\r\nOld  Stock) )", "Wagon ( WagonData (tank\r\nNew) )"},
        {"Wagon ( WagonData ( \"b\" + \"ox\" \"Old \" + \"Stock\" ) )",
         "Wagon ( WagonData ( tank New ) )"},
        {"wagon ( WAGONDATA ( box \"Old Stock\" Odd ( 1 ) ) )",
         "wagon ( WAGONDATA ( tank New Odd ( 1 ) ) )"},
        {") ) Wagon ( WagonData ( box Old Stock ) ) ( (",
         ") ) Wagon ( WagonData ( tank New ) ) ( ("},
        {"Wagon ( WagonData ( box #( why ) Old Stock ) )",
         "Wagon ( WagonData ( tank #( why ) New ) )"},
        {"Engine ( EngineData ( box Old Stock ) )", "unused"},
        {"Wagon ( WagonData ( box1 Old Stock ) )", "unused"},
        {"Wagon ( WagonData ( box Old ) )", "unused"},
        {"Wagon ( WagonData ( box Old Stock 2 ) )", "unused"},
        {"Wagon ( WagonData ( box ) )", "unused"},
        {"skip ( WagonData ( box Old Stock ) )", "unused"},
        {"Name ( \"WagonData ( box Old Stock )\" )", "unused"},
    };
    for (const auto &row : rows)
        EXPECT_EQ(changedUnit(row.before, from, to), row.after) << row.before;
}

TEST_F(StockReplacementTest, ReplacementIsWrittenAsGivenAndQuotedIfNecessary)
{
    const struct
    {
        const char *to, *values;
    } rows[] = {
        {"New/tank.wag", "tank New"},
        {"STOCK/BOX.WAG", "BOX STOCK"},
        {"Stock/box.wag", "box Stock"},
        {"My New/a b.wag", "\"a b\" \"My New\""},
        {"#1/comment.wag", "\"comment\" \"#1\""},
        {"N (2)/Wagon.wag", "\"Wagon\" \"N (2)\""},
        {"Züge/5.5.wag", "5.5 \"Züge\""},
    };
    for (const auto &row : rows)
        EXPECT_EQ(changedUnit("Wagon ( WagonData ( \"Box\" \"stock\" ) )", "stock/box.wag", row.to),
                  std::string("Wagon ( WagonData ( ") + row.values + " ) )");
}

TEST_F(StockReplacementTest, AllOtherBytesStayInEveryEncoding)
{
    const struct
    {
        const char *name;
        Encoding encoding;
        bool bom;
        const char *text; ///< a remark that only this encoding can hold
    } rows[] = {
        {"UTF-16LE", Encoding::Utf16Le, true, "\xe6\x97\xa5"},
        {"UTF-16LE without a mark", Encoding::Utf16Le, false, "\xe6\x97\xa5"},
        {"UTF-16BE", Encoding::Utf16Be, true, "\xe6\x97\xa5"},
        {"UTF-16BE without a mark", Encoding::Utf16Be, false, "\xe6\x97\xa5"},
        {"UTF-8", Encoding::Utf8, false, "\xe6\x97\xa5"},
        {"UTF-8 with a mark", Encoding::Utf8, true, "\xe6\x97\xa5"},
        {"Windows-1252", Encoding::Windows1252, false, "\xc3\xa4"},
    };
    const StockReplacement replacement = replacing("z\xc3\x9cge/box.wag", "\xc3\x96"
                                                                          "BB/tank.wag");
    for (const auto &row : rows)
        for (const char *const lineEnd : {"\r\n", "\n", "\r"}) {
            std::string text = kHead + "comment ( \"" + row.text +
                               "\" )\r\n\tWagon ( UiD ( 7 ) WagonData ( Box \"Z\xc3\xbcge\" ) )  "
                               "\r\n\r\n\tWagon ( WagonData ( boX Z\xc3\xbcge ) )\r\n) )  junk\r\n";
            text = with(text, "\r\n", lineEnd);
            const auto bytes = [&](const std::string &decoded) {
                return stavfile::Encode(decoded, row.encoding, row.bom, {});
            };
            ASSERT_EQ(stavfile::Decode(bytes(text)).encoding, row.encoding) << row.name;
            std::string after = with(text, "Box \"Z\xc3\xbcge\"",
                                     "tank \"\xc3\x96"
                                     "BB\"");
            after = with(after, "boX Z\xc3\xbcge",
                         "tank \"\xc3\x96"
                         "BB\"");
            EXPECT_EQ(changed(replacement, bytes(text)), bytes(after)) << row.name;
        }
}

TEST_F(StockReplacementTest, UnitsAreNumberedAndCanBeChosen)
{
    const std::string unit = " Wagon ( WagonData ( a A ) )\n",
                      other = " Engine ( EngineData ( a A ) )\n";
    const std::string bytes =
        "\nTrain ( TrainCfg ( x\n" + other + unit + unit + other + unit + " ) )";
    const StockReplacement replacement = replacing("A/a.wag", "B/b.wag");
    const auto found = replacement.Find(folder.Write("a.con", bytes));
    ASSERT_TRUE(found);
    std::string places;
    for (const document::UnitInUse &use : found->units)
        places += std::to_string(use.number) + '@' + std::to_string(use.line) + ' ';
    EXPECT_EQ(places, "2@4 3@5 5@7 ");
    EXPECT_EQ(changed(replacement, bytes, {true, false, true}),
              "\nTrain ( TrainCfg ( x\n" + other + with(unit, "a A", "b B") + unit + other +
                  with(unit, "a A", "b B") + " ) )");
    EXPECT_EQ(changed(replacement, bytes, {false, false, false}), bytes);
}

TEST_F(StockReplacementTest, LooseConsistsOfActivitiesAreNumbered)
{
    const std::string unit = "Wagon ( WagonData ( a A ) )";
    const auto object = [&](const std::string &units) {
        return "ActivityObject ( ObjectType ( WagonsList ) Train_Config ( TrainCfg ( \"\" " +
               units + " ) ) ) ";
    };
    const auto found =
        replacing("A/a.wag", "B/b.wag")
            .Find(folder.Write("a.act", "\nTr_Activity ( Tr_Activity_File ( "
                                        "ActivityObjects ( " +
                                            object("") + object(unit) +
                                            object("Wagon ( WagonData ( b A ) ) " + unit) +
                                            ") ) )"));
    ASSERT_TRUE(found);
    std::string places;
    for (const document::UnitInUse &use : found->units)
        places += std::to_string(use.loose) + '.' + std::to_string(use.number) + ' ';
    EXPECT_EQ(places, "2.1 3.2 ");
}

TEST_F(StockReplacementTest, FilesThatAreNotTextAreFaultsIfTheyMayUseTheVehicle)
{
    using namespace std::string_literals;
    const std::string binary = "SIMISA@@@@@@@@@@JINX0D0b______\r\n\0\1\0\0\4\0"s;
    const struct
    {
        const char *name;
        std::string bytes;
        bool fault;
    } rows[] = {
        {"binary.con", binary + "b\0O\0x\0 S\0T\0O\0C\0K\0"s, true},
        {"other.con", binary + "b\0o\0 S\0T\0O\0C\0K\0"s, false},
        {"compressed.con", "SIMISA@F\x10\x20\0\0@@@@\x78\x9c"s, true},
        {"nuls.con", std::string(200, '\0'), false},
        {"empty.con", "", false},
    };
    const StockReplacement replacement = replacing("Stock/box.wag", "B/b.wag");
    std::vector<std::string> paths = {folder.At("gone.con")}, expected = {"gone.con"};
    for (const auto &row : rows) {
        paths.push_back(folder.Write(row.name, row.bytes));
        if (row.fault)
            expected.emplace_back(row.name);
    }
    paths.push_back(folder.Write("good.con", kHead + "Wagon ( WagonData ( box Stock ) ) ) )"));
    const document::FoundInUse found = document::FindInUse(replacement, paths);
    std::vector<std::string> faults;
    for (const std::string &fault : found.faults)
        faults.push_back(folder.Relative(fault.substr(0, fault.find(": "))));
    EXPECT_EQ(faults, expected);
    ASSERT_EQ(found.files.size(), 1u);
    EXPECT_EQ(found.files[0].path, paths.back());
}

TEST_F(StockReplacementTest, VehiclesAreParsedAndKeepTheirKind)
{
    EXPECT_EQ(*document::VehicleOf("My Stock\\a.b.WAG"), (StockItem{"Wagon", "My Stock", "a.b"}));
    EXPECT_EQ(*document::VehicleOf("A/x.eng"), (StockItem{"Engine", "A", "x"}));
    for (const char *const text : {"", "a.wag", "/a.wag", "A/", "A/a", "A/.wag", "A/a.con"})
        EXPECT_FALSE(document::VehicleOf(text)) << text;
    EXPECT_THROW(replacing("A/a.wag", "A/a.eng"), host::RuntimeError);
}

TEST(NameSearchTest, FindsNamesInEveryEncodingAndCase)
{
    for (const std::string name : {"x", "box", "boxbox", "sd40-2", "abcabd"})
        for (const std::string before : {"", "b", "bo", "abcabc", "xxxxxxxxxxxxxxxxx"}) {
            const std::string text = before + host::ToUpper(name) + before;
            for (const Encoding encoding : {Encoding::Utf8, Encoding::Utf16Le, Encoding::Utf16Be})
                for (const bool mark : {true, false})
                    EXPECT_TRUE(document::NameSearch(name).IsIn(
                        stavfile::Encode("Train " + text, encoding, mark, {})))
                        << name << " in " << text;
            EXPECT_FALSE(document::NameSearch(name + '!').IsIn(text));
        }
    EXPECT_TRUE(document::NameSearch("").IsIn(""));
    EXPECT_EQ(document::PlainRun("\xc3\x9c"
                                 "ber \"Alles\""),
              "Alles");
    // No other letter equals an ASCII letter when case is ignored.
    for (char32_t c = 0x80; c < 0x10000; ++c)
        ASSERT_GE(host::ToUpper(c), 0x80u) << static_cast<unsigned>(c);
}

} // namespace
