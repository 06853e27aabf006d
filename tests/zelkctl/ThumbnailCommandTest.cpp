// SPDX-License-Identifier: MIT
#include "SampleFixture.h"

namespace {

class ThumbnailCommandTest : public SampleFixture
{
protected:
    Outcome draw(const std::string &vehicle, const std::string &size = "48") const
    {
        return run(
            {"--msts", m_folder.At("s"), "thumbnail", vehicle, "--out", "x.png", "--size", size});
    }
};

TEST_F(ThumbnailCommandTest, RefusesWrongArgumentsBeforeDrawing)
{
    const struct
    {
        const char *vehicle, *size, *said;
    } rows[] = {
        {"Coastline/coach_diner.wag", "0", "--size: expected a number from 1 to 4096, not \"0\""},
        {"Coastline/coach_diner.wag", "64x64",
         "--size: expected a number from 1 to 4096, not \"64x64\""},
        {"Coastline/gone.wag", "48", "Coastline/gone.wag: error 53: File not found"},
        {"Coastline/coach_diner.s", "48", "Coastline/coach_diner.s: expected a .eng or .wag file"},
    };
    for (const auto &row : rows) {
        const Outcome outcome = draw(row.vehicle, row.size);
        EXPECT_EQ(outcome.code, 2) << row.said;
        EXPECT_EQ(outcome.err, "zelkctl: " + std::string(row.said) + "\n");
    }
    EXPECT_FALSE(m_folder.Exists("x.png"));
}

TEST_F(ThumbnailCommandTest, DrawsAVehicleOrSaysWhyNot)
{
    const Outcome diner = draw("coastline/COACH_diner.wag");
    if (diner.err.find("cannot draw: ") != std::string::npos)
        GTEST_SKIP() << diner.err;
    EXPECT_EQ(diner, (Outcome{0, "", ""}));
    const std::string first = read("x.png");
    EXPECT_EQ(first.substr(16, 8), std::string("\0\0\0\x30\0\0\0\x30", 8)) << "48 x 48";
    EXPECT_EQ(draw(m_folder.At("s/TRAINS/TRAINSET/Coastline/coach_diner.wag")).code, 0);
    EXPECT_EQ(read("x.png"), first) << "given as a file";
    EXPECT_EQ(draw("Ardmoor Valley/avr_caboose.wag").code, 0);
    EXPECT_NE(read("x.png"), first) << "another vehicle";

    std::filesystem::remove(host::path::ToDisk(m_folder.At("x.png")));
    const Outcome unpainted = draw("Repair Sidings/rs_paint.wag");
    EXPECT_EQ(unpainted.code, 0);
    EXPECT_NE(unpainted.err.find("Texture rs_paint.ace is missing"), std::string::npos);
    std::filesystem::remove(host::path::ToDisk(m_folder.At("x.png")));
    for (const auto &[vehicle, reason] :
         {std::pair{"rs_noshape.wag", "rs_noshape.s: there is no such file"},
          {"rs_waggon.wag", "there is no Wagon block"}}) {
        const Outcome outcome = draw(std::string("Repair Sidings/") + vehicle);
        EXPECT_EQ(outcome.code, 2);
        EXPECT_NE(outcome.err.find(reason), std::string::npos) << outcome.err;
        EXPECT_FALSE(m_folder.Exists("x.png"));
    }
}

} // namespace
