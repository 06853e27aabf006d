// SPDX-License-Identifier: MIT
#include "SampleFixture.h"

#include <set>

namespace {

class ContactSheetCommandTest : public SampleFixture
{
protected:
    Outcome make(std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.begin(), {"--msts", m_folder.At("s"), "contact-sheet"});
        return run(arguments);
    }
    /// Returns the texts between two marks, in the order of the file.
    static std::vector<std::string> between(const std::string &text, const std::string &begin,
                                            const std::string &end)
    {
        std::vector<std::string> found;
        for (auto at = text.find(begin); at != text.npos; at = text.find(begin, at)) {
            at += begin.size();
            found.push_back(text.substr(at, text.find(end, at) - at));
        }
        return found;
    }
    static std::uint32_t numberAt(const std::string &bytes, std::size_t place)
    {
        std::uint32_t number = 0;
        for (std::size_t i = 0; i < 4; ++i)
            number = number << 8 | static_cast<unsigned char>(bytes.at(place + i));
        return number;
    }
};

TEST_F(ContactSheetCommandTest, RefusesWrongArgumentsBeforeDrawing)
{
    const std::string sizes = "--size: expected a number from 64 to 1024, not ";
    const struct
    {
        std::vector<std::string> arguments;
        std::string said;
    } rows[] = {
        {{"--out", "x.jpg"}, "--out: expected a file that ends in .html or .png, not \"x.jpg\""},
        {{"--out", "x.png", "--size", "63"}, sizes + "\"63\""},
        {{"--out", "x.png", "--size", "1e3"}, sizes + "\"1e3\""},
        {{"night mail", "--filter", "a", "--out", "x.html"},
         "--filter chooses among all vehicles, so it cannot be used with a consist"},
        {{"night mall", "--out", "x.html"}, "night mall: error 53: File not found"},
        {{"--out", "nowhere/x.html"}, "nowhere/x.html: error 76: its folder does not exist"},
    };
    for (const auto &row : rows) {
        const Outcome outcome = make(row.arguments);
        EXPECT_EQ(outcome.code, 2) << row.said;
        EXPECT_EQ(outcome.err, "zelkctl: " + row.said + "\n");
    }
    EXPECT_EQ(m_folder.Names(), std::vector<std::string>{"s"});
}

TEST_F(ContactSheetCommandTest, PageHoldsEachVehicleWithItsPicture)
{
    const Outcome outcome =
        make({"--filter", "Repair*", "--out", "x.html", "--size", "64", "--units", "us"});
    if (outcome.err.find("cannot draw: ") != std::string::npos)
        GTEST_SKIP() << outcome.err;
    EXPECT_EQ(outcome, (Outcome{0, "", ""}));
    const std::string page = read("x.html");
    const auto figures = between(page, "<figure>", "</figure>");
    std::set<std::string> names;
    for (const std::string &figure : figures) {
        const std::string name = between(figure, "<figcaption><div>", "</div>").at(0);
        EXPECT_TRUE(name.starts_with("Repair Sidings/")) << name;
        names.insert(name.substr(15));
        const auto pictures = between(figure, "src=\"data:image/png;base64,", "\"");
        if (name.ends_with("rs_noshape.wag")) {
            EXPECT_NE(figure.find("rs_noshape.s: there is no such file</div>"), figure.npos);
            EXPECT_TRUE(pictures.empty());
        }
        if (name.ends_with("rs_paint.wag")) {
            ASSERT_EQ(pictures.size(), 1u);
            EXPECT_TRUE(pictures[0].starts_with("iVBORw0KGgo")) << "the signature of PNG";
            EXPECT_NE(figure.find(" ft"), figure.npos) << figure.substr(figure.size() - 200);
        }
    }
    std::set<std::string> installed;
    for (const char *extension : {".wag", ".eng"})
        for (const std::string &file : files(extension))
            if (file.starts_with("TRAINS/TRAINSET/Repair Sidings/"))
                installed.insert(file.substr(31));
    EXPECT_EQ(names, installed);
    EXPECT_EQ(make({"--filter", "zz*", "--out", "none.html"}).err,
              "zelkctl: no stock folder matches \"zz*\"\n");
    EXPECT_FALSE(m_folder.Exists("none.html"));
}

TEST_F(ContactSheetCommandTest, TrainIsShownInItsOrder)
{
    write("s/TRAINS/CONSISTS/contact.con",
          "SIMISA@@@@@@@@@@JINX0D0t______\n\nTrain ( TrainCfg ( \"contact\" "
          "Wagon ( WagonData ( coach_diner Coastline ) ) "
          "Wagon ( WagonData ( coach_diner Coastline ) ) "
          "Wagon ( WagonData ( avr_caboose \"Ardmoor Valley\" ) ) "
          "Wagon ( WagonData ( gone Coastline ) ) "
          "Wagon ( Flip ( ) WagonData ( coach_diner Coastline ) ) ) )");
    const Outcome outcome = make({"contact", "--out", "x.html", "--size", "64"});
    if (outcome.err.find("cannot draw: ") != std::string::npos)
        GTEST_SKIP() << outcome.err;
    EXPECT_EQ(outcome, (Outcome{0, "", ""}));
    const std::string page = read("x.html");
    EXPECT_EQ(
        between(page, "<figcaption><div>", "</div>"),
        (std::vector<std::string>{"Coastline/coach_diner.wag × 2", "Ardmoor Valley/avr_caboose.wag",
                                  "Coastline/gone.wag", "Coastline/coach_diner.wag (flipped)"}));
    EXPECT_NE(page.find("<dt>Units</dt><dd>5</dd>"), page.npos);
    const auto pictures = between(page, "src=\"", "\"");
    ASSERT_EQ(pictures.size(), 3u);
    EXPECT_NE(pictures[0], pictures[2]) << "a flipped vehicle is seen from its other side";

    EXPECT_EQ(make({"contact", "--out", "x.png", "--size", "64"}).code, 0);
    const std::string png = read("x.png");
    EXPECT_GT(numberAt(png, 16), 1300u);
    EXPECT_GT(numberAt(png, 20), 200u);
}

} // namespace
