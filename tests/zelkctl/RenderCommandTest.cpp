// SPDX-License-Identifier: MIT
#include "ZelkctlTest.h"
#include "samples/Sample.h"

namespace {

class RenderCommandTest : public ZelkctlTest
{
};

bool isPicture(const std::string &bytes)
{
    return bytes.starts_with("\x89PNG");
}

/// `picture` may be the message that the program gave in its place.
void expectOther(const std::string &picture, const std::string &plain, const char *what)
{
    EXPECT_TRUE(isPicture(picture)) << what << ": " << picture;
    EXPECT_TRUE(picture != plain) << what;
}

constexpr char kEmptyShape[] = "SIMISA@@@@@@@@@@JINX0s1t______\n\nshape ( )\n";

} // namespace

TEST_F(RenderCommandTest, RefusesWrongArgumentsBeforeDrawing)
{
    write("a.s", kEmptyShape);
    const struct
    {
        std::vector<std::string> options;
        std::string said;
    } rows[] = {
        {{"--size", "0x5"},
         "--size: expected two numbers from 1 to 8192, as in 1280x720, not \"0x5\""},
        {{"--size", "5"}, "--size: expected two numbers from 1 to 8192, as in 1280x720, not \"5\""},
        {{"--size", "9000x5"},
         "--size: expected two numbers from 1 to 8192, as in 1280x720, not \"9000x5\""},
        {{"--loose", "0"}, "--loose: expected a number from 1 on, not \"0\""},
        {{"--camera", "1,2,3"},
         "--camera: expected six numbers, as in 10,2,0,0,2,0, not \"1,2,3\""},
        {{"--camera", "1,2,3,4,5,6m"},
         "--camera: expected six numbers, as in 10,2,0,0,2,0, not \"1,2,3,4,5,6m\""},
        {{"--season", "Snow"}, "--season: expected spring, summer, autumn or winter, not \"Snow\""},
    };
    for (const auto &row : rows) {
        std::vector<std::string> arguments = {"render", "a.s", "--out", "a.png"};
        arguments.insert(arguments.end(), row.options.begin(), row.options.end());
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.code, 2);
        EXPECT_EQ(outcome.err, "zelkctl: " + row.said + "\n");
    }
    EXPECT_EQ(run({"render", "gone.s", "--out", "a.png"}).err,
              "zelkctl: gone.s: error 53: File not found\n");
    EXPECT_FALSE(m_folder.Exists("a.png"));
}

TEST_F(RenderCommandTest, DrawsTheLoadsOfBothSimulatorsUnlessTheyAreLeftOut)
{
    samples::WriteSample(m_folder.At("s"), {.loads = true});
    const std::string stock = "s/TRAINS/TRAINSET/";
    const auto draw = [&](const std::string &file, const std::vector<std::string> &options) {
        std::vector<std::string> arguments = {"render", stock + file, "--out",
                                              "a.png",  "--size",     "64x40"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const Outcome outcome = run(arguments);
        return outcome.code == 0 ? outcome.err + read("a.png") : std::string();
    };
    const std::string bare = draw("Kestrel 62' Flats/flat 6201.s", {});
    if (bare.empty())
        GTEST_SKIP() << "this machine cannot draw";
    for (const char *wagon : {"lc_crates", "lc_ore"}) {
        const std::string file = std::string("Loaded Cars/") + wagon + ".wag";
        EXPECT_NE(draw(file, {}), bare) << wagon;
        EXPECT_EQ(draw(file, {"--no-loads"}), bare) << wagon;
    }
    const std::string end = "--camera=3,2,13,0,1,9"; // shows the coupler at the front
    EXPECT_NE(draw("Loaded Cars/lc_pair.wag", {"--no-loads", end}),
              draw("Loaded Cars/lc_crates.wag", {"--no-loads", end}))
        << "couplers stay";
}

TEST_F(RenderCommandTest, EachSwitchChangesThePicture)
{
    samples::WriteSample(m_folder.At("s"), {.looks = true});
    const auto draw = [&](const std::string &file, const std::vector<std::string> &options) {
        std::vector<std::string> arguments = {"--msts",   m_folder.At("s"), "render", "s/" + file,
                                              "--out",    "a.png",          "--size", "96x60",
                                              "--camera", "9,4,14,0,2,0"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const Outcome outcome = run(arguments);
        return outcome.code == 0 ? read("a.png") : outcome.err;
    };
    const std::string train = "TRAINS/CONSISTS/Night Line.con",
                      cottage = "ROUTES/TARNWICK/SHAPES/cottage.s";
    const std::string plain = draw(train, {}), summer = draw(cottage, {});
    if (!isPicture(plain))
        GTEST_SKIP() << "this machine cannot draw: " << plain;
    for (const char *given :
         {"--snow", "--night", "--lights", "--wireframe", "--boxes", "--normals", "--mark-missing"})
        expectOther(draw(train, {given}), plain, given);
    const std::string same = draw(cottage, {"--season", "summer", "--lights", "--boxes"});
    EXPECT_TRUE(same == summer) << (isPicture(same) ? "another picture" : same);
    for (const char *season : {"spring", "autumn", "winter"})
        expectOther(draw(cottage, {"--season", season}), summer, season);
}

TEST_F(RenderCommandTest, FilesThatCannotBeShownGiveNoPicture)
{
    write("a.s", kEmptyShape);
    write("a.txt", "x");
    for (const char *file : {"a.s", "a.txt"}) {
        const std::string picture = std::string(file) + ".png";
        const Outcome outcome = run({"render", file, "--out", picture});
        const bool drawn = outcome.code == 0; // an empty shape gives a picture of the track
        EXPECT_EQ(m_folder.Exists(picture), drawn) << outcome.err;
        EXPECT_TRUE(drawn || outcome.code == 2) << outcome.code;
        EXPECT_EQ(outcome.err.empty(), drawn);
    }
}
