// SPDX-License-Identifier: MIT
#include "ZelkctlTest.h"
#include "korvat/Build.h"
#include "samples/AceWriter.h"
#include "samples/ShapeWriter.h"

namespace {

class ModelCommandsTest : public ZelkctlTest
{
};

TEST_F(ModelCommandsTest, PrintsTheContentOfAShape)
{
    const samples::ShapeModel model = samples::SmallestShape({"a.ace", "Z \"b\".ace"});
    const std::pair<samples::ShapeForm, std::string> forms[] = {
        {samples::ShapeForm::TextUtf16, "text"},
        {samples::ShapeForm::Binary, "binary"},
        {samples::ShapeForm::Compressed, "compressed"},
    };
    for (const auto &[form, name] : forms) {
        write("Shapes/A.s", ShapeBytes(model, form));
        EXPECT_EQ(run({"shape", "shapes/a.S"}),
                  (Outcome{0,
                           "{\"form\":\"" + name +
                               "\",\"points\":3,\"normals\":1,\"uvs\":3,\"matrices\":[\"MAIN\"],"
                               "\"images\":[\"a.ace\",\"Z \\\"b\\\".ace\"],"
                               "\"levels\":[{\"distance\":2000,\"vertices\":3,\"triangles\":1}],"
                               "\"bounds\":[0,0,0,1,1,0],\"animations\":0}\n",
                           ""}));
    }
    write("empty.s", "shape ( )");
    EXPECT_EQ(run({"shape", "empty.s"}).out,
              "{\"form\":\"text\",\"points\":0,\"normals\":0,\"uvs\":0,\"matrices\":[],"
              "\"images\":[],\"levels\":[],\"bounds\":null,\"animations\":0}\n");
}

TEST_F(ModelCommandsTest, PrintsAndSavesTextures)
{
    samples::Picture picture = samples::PanelPicture(8, {1, 2, 3, 255}, {9, 9, 9, 255});
    picture.pixels[20].alpha = 0;
    const samples::AceFormat dxt{samples::AceAlpha::Mask, true, true, true};
    write("a.ace", AceBytes(picture, dxt));
    EXPECT_EQ(run({"texture", "A.ace"}),
              (Outcome{0,
                       "{\"width\":8,\"height\":8,\"format\":\"dxt1\",\"channels\":4,\"levels\":4,"
                       "\"alpha\":1}\n",
                       ""}));
    EXPECT_EQ(run({"texture", "a.ace", "--out", "a.png"}), (Outcome{0, "", ""}));
    EXPECT_EQ(run({"texture", "a.ace", "--out", "small.png", "--level", "2"}),
              (Outcome{0, "", ""}));
    const std::string size("\0\0\0\x08\0\0\0\x08", 8), small("\0\0\0\x02\0\0\0\x02", 8);
    EXPECT_EQ(read("a.png").substr(16, 8), size);
    EXPECT_EQ(read("small.png").substr(16, 8), small);
}

TEST_F(ModelCommandsTest, DecodesNoMorePixelsThanFitIntoMemory)
{
    write("huge.ace", CompressedBlocks(16384, 8192, 2));
    EXPECT_LT(m_folder.Read("huge.ace").size(), 500'000u);
    EXPECT_EQ(run({"texture", "huge.ace"}).code, 0);
    EXPECT_EQ(run({"texture", "huge.ace", "--out", "a.png"}),
              (Outcome{2, "",
                       "zelkctl: huge.ace: level 0 has 16384 x 8192 pixels, more than the 67108864 "
                       "that can be saved: choose a smaller level with --level\n"}));
    EXPECT_FALSE(m_folder.Exists("a.png"));
    EXPECT_EQ(run({"texture", "huge.ace", "--out", "a.png", "--level", "1"}), (Outcome{0, "", ""}));
    EXPECT_EQ(read("a.png").substr(16, 8), std::string("\0\0\x20\0\0\0\x10\0", 8));
}

TEST_F(ModelCommandsTest, ReportsWhyAFileCannotBeUsed)
{
    write("a.s", "SIMISA@@@@@@@@@@JINX0s1b______\r\nG");
    write("a.ace", "GIF89a");
    write("b.ace", AceBytes(samples::PanelPicture(4, {}, {}), {}));
    const std::pair<std::vector<std::string>, const char *> rows[] = {
        {{"shape", "a.s"}, "a.s: the file ends within its first block"},
        {{"shape", "b.s"}, "b.s: error 53: File not found"},
        {{"texture", "a.ace"}, "a.ace: the file does not begin with SIMISA@"},
        {{"texture", "b.ace", "--out", "no/x.png"}, "no/x.png: error 76: Path not found"},
        {{"texture", "b.ace", "--out", "x.png", "--level", "1"},
         "b.ace: there is no level 1, the last one is 0"},
        {{"texture", "b.ace", "--level", "0"},
         "--level requires --out (see zelkctl texture --help)"},
    };
    for (const auto &[arguments, message] : rows)
        EXPECT_EQ(run(arguments), (Outcome{2, "", "zelkctl: " + std::string(message) + "\n"}));
    EXPECT_FALSE(m_folder.Exists("x.png"));
}

} // namespace
