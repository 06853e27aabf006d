// SPDX-License-Identifier: MIT
#include "korvat/formats/Shape.h"

#include "Build.h"
#include "korvat/formats/ReadShape.h"
#include "korvat/model/Geometry.h"
#include "samples/ShapeWriter.h"

#include <gtest/gtest.h>

#include <cctype>
#include <random>

using korvat::ReadShape;
using korvat::Shape;
using korvat::ShapeFile;
using korvat::Status;
using samples::ShapeForm;

namespace {

Shape smallest()
{
    Shape shape;
    shape.volumes = {{{0, 0, 0}, 1.5F}};
    shape.shaders = {"TexDiff"};
    shape.filters = {"MipLinear"};
    shape.points = {{0, 0, 0}, {0, 1, 0}, {1, 0, 0}};
    shape.uvs = {{0, 1}, {0, 0}, {1, 1}};
    shape.normals = {{0, 0, -1}};
    shape.matrices = {{"MAIN", {}}};
    shape.images = {"a.ace"};
    shape.textures = {{0, 0, -3, 0xFF000000}};
    shape.lightModels = {{}};
    shape.vertexStates = {{0, 0, -5, 0, 2, -1}};
    shape.primStates = {{"MAIN_a", 0, 0, {0}, 0, 0, 0, 0, 1}};
    korvat::SubObject object;
    object.flags = 0x400;
    object.vertices = {{0, 0, 0}, {1, 0, 1}, {2, 0, 2}};
    object.vertexSets = {{0, 0, 3}};
    object.indices = {0, 1, 2};
    object.triangles = {{0, 0, 3}};
    shape.lodControls = {{{{2000, {-1}, {object}}}}};
    return shape;
}

TEST(ReadShapeTest, AllFormsGiveTheSameShape)
{
    const std::pair<ShapeForm, const char *> forms[] = {
        {ShapeForm::TextUtf16, "text"},
        {ShapeForm::Text8Bit, "text"},
        {ShapeForm::TextLateMark, "text"},
        {ShapeForm::Binary, "binary"},
        {ShapeForm::Compressed, "compressed"},
        {ShapeForm::CompressedOddHeader, "compressed"},
        {ShapeForm::CompressedTrailingBytes, "compressed"},
    };
    const Shape expected = smallest();
    for (const auto &[form, name] : forms) {
        SCOPED_TRACE(static_cast<int>(form));
        const ShapeFile file = ReadShape(ShapeBytes(samples::SmallestShape({"a.ace"}), form));
        EXPECT_EQ(file.error.text, "");
        EXPECT_STREQ(ShapeFormName(file.form), name);
        EXPECT_EQ(file.notes, std::vector<std::string>());
        EXPECT_TRUE(expected == file.shape);
    }
    const std::string text =
        ShapeBytes(samples::SmallestShape({"a.ace"}), ShapeForm::Text8Bit).substr(16);
    const ShapeFile packedText = ReadShape(samples::CompressPayload(text));
    EXPECT_EQ(packedText.error.text, "");
    EXPECT_TRUE(expected == packedText.shape) << "compressed text";
}

const char *const kRare =
    "SIMISA@@@@@@@@@@JINX0s1t______\r\n"
    "shape ( points ( 9 POINT ( +1 -2.5e1 .5m ) )\n"
    "colours ( 1 colour ( 1 .25 .5 .75 ) )\n"
    "matrices ( 1 matrix #W_1 ( 1 0 0 0 1 0 0 0 1 4 5 6 ) )\n"
    "images ( 1 image ( \"Z\xFCge 1.ace\" ) )\n"
    "textures ( 1 texture ( 4294967295 -1 0 ) )\n"
    "light_materials ( 1 light_material ( 0000000a 1 2 3 4 5.5 ) )\n"
    "light_model_cfgs ( 2 light_model_cfg ( 0 uv_ops ( 1 uv_op_copy ( 3 0 ) ) )"
    " light_model_cfg ( 0 uv_ops ( 1 uv_op_reflectmap ( 3 ) ) ) )\n"
    "vtx_states ( 1 vtx_state ( ffffffff 1 2 3 4 5 ) )\n"
    "sort_vectors ( 0 ) unknown ( x y ( z ) )\n"
    "animations ( 1 animation ( 8 30 anim_nodes ( 1 anim_node _w ( controllers ("
    " 3 tcb_rot ( 2 tcb_key ( 0 1 2 3 4 0 0 0 0 0 ) slerp_rot ( 8 5 6 7 8 ) )"
    " linear_pos ( 1 linear_key ( 2 1 2 3 ) )"
    " tcb_pos ( 1 tcb_key ( 4 4 5 6 0 0 0 0 0 ) ) ) ) ) ) ) )";

TEST(ReadShapeTest, ReadsRareBlocksAndSpellings)
{
    const ShapeFile file = ReadShape(kRare);
    ASSERT_EQ(file.error.text, "");
    Shape expected;
    expected.points = {{1, -25, .5F}};
    expected.colours = {{1, .25F, .5F, .75F}};
    expected.matrices = {{"#W_1", {{1, 0, 0, 0, 1, 0, 0, 0, 1, 4, 5, 6}}}};
    expected.images = {"Z\u00fcge 1.ace"};
    expected.textures = {{UINT32_MAX, UINT32_MAX, 0, 0xFF000000}};
    expected.lightMaterials = {{10, 1, 2, 3, 4, 5.5F}};
    expected.lightModels = {{0, korvat::AddressMode::Clamp}, {0, korvat::AddressMode::Wrap}};
    expected.vertexStates = {{0xFFFFFFFF, 1, 2, 3, 4, 5}};
    expected.animations = {
        {8, 30, {{"_w", {{0, 1, 2, 3, 4}, {8, 5, 6, 7, 8}}, {{2, {1, 2, 3}}, {4, {4, 5, 6}}}}}}};
    EXPECT_TRUE(expected == file.shape);
}

TEST(ReadShapeTest, ReadsRareBinaryBlocks)
{
    const std::string key = U32s({7, 0x3F800000, 0x40000000, 0x40400000}); // frame 7: 1 2 3
    const std::string node =
        Block(0x1A, Block(0x19, U32s({1}) + Block(0x15, U32s({1}) + Block(0x13, key))), "W");
    const std::string name("\x03\0A\0=\xD8\0\xDE", 8); // a letter and a pair
    const ShapeFile file = ReadShape(BinaryShape(
        Block(1, "a comment") + Block(0x0E, U32s({1}) + Block(1, "x") + Block(0x0D, name)) +
        Block(0x04FF, "") + Block(0x2F, U32s({1}) + Block(0x2E, U32s({0, 1, 2, 3, 4, 5}))) +
        Block(0x1D, U32s({1}) + Block(0x1C, U32s({8, 30}) + Block(0x1B, U32s({1}) + node)))));
    ASSERT_EQ(file.error.text, "");
    Shape expected;
    expected.images = {"A\U0001F600"};
    expected.vertexStates = {{0, 1, 2, 3, 4, 5}};
    expected.animations = {{8, 30, {{"W", {}, {{7, {1, 2, 3}}}}}}};
    EXPECT_TRUE(expected == file.shape);
}

TEST(ReadShapeTest, ReadsUnusualRecordsBetweenUsualOnes)
{
    const auto vertex = [](std::uint32_t point, const std::string &uvs, const std::string &label) {
        return Block(0x30, U32s({0, point, point + 1, 9, 9}) + uvs, label);
    };
    const std::string one = Block(0x31, U32s({1, 7}));
    const std::string vertices =
        U32s({6}) + vertex(1, one, "") + vertex(2, Block(0x31, U32s({2, 8, 9})), "") +
        vertex(3, Block(0x31, U32s({0, 5})), "") + vertex(4, one, "x") +
        vertex(5, Block(0x30, U32s({1, 7})), "") + Block(0x33, "") + vertex(6, one, "");
    const std::string points = U32s({4}) + Block(2, U32s({0, 0, 0})) +
                               Block(2, U32s({0, 0, 0, 0})) + Block(3, U32s({0, 0, 0})) +
                               Block(2, U32s({0, 0, 0x3F800000}), "x") + Block(2, U32s({0, 0, 0}));
    std::string object = Block(0x27, Block(0x32, vertices));
    object = Block(0x25, Block(0x26, U32s({1}) + object));
    object = Block(0x1F, U32s({1}) + Block(0x20, Block(0x24, U32s({1}) + object)));
    const ShapeFile file = ReadShape(BinaryShape(Block(7, points) + object));
    EXPECT_EQ(file.error.text, "");
    const std::vector<korvat::Vec3> expected = {{}, {}, {0, 0, 1}, {}};
    EXPECT_TRUE(file.shape.points == expected);
    ASSERT_EQ(file.shape.lodControls.size(), 1u);
    constexpr auto kNone = korvat::Vertex::kNoUv;
    const std::vector<korvat::Vertex> read = {{1, 2, 7}, {2, 3, 8},     {3, 4, kNone},
                                              {4, 5, 7}, {5, 6, kNone}, {6, 7, 7}};
    EXPECT_TRUE(file.shape.lodControls[0].levels[0].subObjects[0].vertices == read);
}

TEST(ReadShapeTest, ReportsTheFaultAndItsPlace)
{
    const std::string point = Block(0x02, U32s({0, 0, 0}));
    struct Row
    {
        const char *what;
        std::string bytes;
        Status status;
        std::size_t where;
        const char *text;
    };
    const Row rows[] = {
        {"another file", "GIF89a", Status::NotThisFormat, 0,
         "the file does not begin with SIMISA@"},
        {"a texture", samples::StorePayload(Bytes8({1, 0, 0, 0})), Status::NotThisFormat, 0,
         "there is no shape in the file"},
        {"without a shape block", samples::StorePayload("JINX0s1b______\r\n" + Block(0x46, "")),
         Status::NotThisFormat, 0, "there is no shape in the file"},
        {"length 0", BinaryShape(U32s({7, 0})), Status::Damaged, 41,
         "a block in shape does not fit into it"},
        {"longer than its parent", BinaryShape(WithU32(Block(7, U32s({1}) + point), 4, 500)),
         Status::Damaged, 41, "a block in shape does not fit into it"},
        {"label longer than its block", BinaryShape(U32s({7, 1}) + "\x05"), Status::Damaged, 41,
         "a block in shape does not fit into it"},
        {"value missing", BinaryShape(Block(7, U32s({1}) + Block(2, U32s({0, 0})))),
         Status::Damaged, 71, "the block point ends before its last value"},
        {"text longer than its block",
         BinaryShape(Block(0x0E, U32s({1}) + Block(0x0D, "\xFF\xFF"))), Status::Damaged, 65,
         "the block image ends before its last value"},
        {"more numbers than bytes",
         BinaryShape(
             Block(0x37, U32s({1}) + Block(0x36, U32s({0, 0}) + Block(0x3D, U32s({9, 0}))))),
         Status::Damaged, 84, "a list of 9 numbers has room for 1"},
        {"text: value missing", "shape (\n points ( 1\n point ( 1 2 ) ) )", Status::Damaged, 3,
         "the block point ends before its last value"},
        {"text: not a number", "shape ( points ( 1 point ( 1 x 2 ) ) )", Status::Damaged, 1,
         "a number was expected in the block point, not x"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        const korvat::ReadError error = ReadShape(row.bytes).error;
        EXPECT_EQ(error.status, row.status);
        EXPECT_EQ(error.text, row.text);
        EXPECT_EQ(error.where, row.where);
    }
}

/// Sets every number in the file that could be a count to harmful values.
TEST(ReadShapeTest, WrongCountsAllocateNothing)
{
    const std::string valid = ShapeBytes(samples::SmallestShape({"a.ace"}), ShapeForm::Binary);
    for (std::size_t at = 32; at + 4 <= valid.size(); ++at)
        for (const std::uint32_t value : {0U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
            const ShapeFile file = ReadShape(WithU32(valid, at, value));
            const auto bounds = RestBounds(file.shape); // fails on an index out of range
            EXPECT_TRUE(!bounds || bounds->least.x <= bounds->most.x);
            EXPECT_LE(file.shape.points.capacity(), valid.size());
        }
}

TEST(ReadShapeTest, SurvivesWrongNumbersInText)
{
    const std::string valid = ShapeBytes(samples::SmallestShape({"a.ace"}), ShapeForm::Text8Bit);
    for (std::size_t at = valid.find('('); at < valid.size(); ++at) {
        const std::size_t end = valid.find_first_of(" )\n", at);
        if (valid[at - 1] != ' ' || !std::isdigit(static_cast<unsigned char>(valid[at])))
            continue;
        for (const char *value : {"0", "-1", "2147483647", "99999999999999999999", "1e99", "nan"}) {
            const ShapeFile file = ReadShape(std::string(valid).replace(at, end - at, value));
            const auto bounds = RestBounds(file.shape);
            EXPECT_TRUE(!bounds || bounds->least.x <= bounds->most.x) << value << " at " << at;
            EXPECT_LE(file.shape.points.capacity(), valid.size());
        }
    }
}

TEST(ReadShapeTest, SurvivesFilesCutAtEveryLength)
{
    const Shape whole = smallest();
    for (const ShapeForm form :
         {ShapeForm::TextUtf16, ShapeForm::Text8Bit, ShapeForm::Binary, ShapeForm::Compressed}) {
        const std::string valid = ShapeBytes(samples::SmallestShape({"a.ace"}), form);
        const bool isText = samples::IsTextForm(form);
        // The reader does not need the checksum, nor the blanks and brackets at the end of a text.
        const std::size_t needed = form == ShapeForm::Compressed ? valid.size() - 4
                                   : isText                      ? valid.find_last_of('0')
                                                                 : valid.size();
        for (std::size_t size = 0; size < needed; ++size) {
            const ShapeFile file = ReadShape(std::string_view(valid).substr(0, size));
            RestBounds(file.shape);
            ASSERT_TRUE(isText ? file.error || !file.notes.empty() : bool(file.error))
                << static_cast<int>(form) << " cut at " << size;
            ASSERT_FALSE(whole == file.shape && !isText) << "cut at " << size;
        }
    }
}

/// A comment makes the reader apply all rules of structured files; the shape is the same.
TEST(ReadShapeTest, UnusualTextGivesTheSameShapeAsThePlainOne)
{
    const std::string start = "SIMISA@@@@@@@@@@JINX0s1t______\r\n";
    const struct
    {
        const char *text;
        const char *notes; ///< the first one
        const char *error = "";
    } rows[] = {
        {"shape ( points ( 1 point ( 0.1 -123.4567890 16777217.5 ) ) )", ""},
        {"shape ( points ( 3 point ( 1 2 3 ) point ( .3 1e-5 -0 ) ) )", ""},
        {"shape ( points ( 99 point ( 1 2 3 4 5 ) point ( 1. 7m +7 ) ) )", ""},
        {"shape ( points ( 1 point ( 1 2 ( 3 ) 4 ) ) )", "",
         "the block point ends before its last value"},
        {"shape ( points ( 1 point ( 1 \"2\" ( 3 ) 4 ) ) )",
         "line 2: a block without a name is skipped"},
        {"shape ( points ( 1 point ( 1 2 x ( 3 ) 4 ) ) )", ""},
        {"shape ( points ( 1 point ( 1 2 3 ( 3 ) 4 ) ) )", ""},
        {"shape ( volumes ( 1 vol_sphere ( 4 vector ( 1 2 3 ) ) ) )", ""},
        {"shape ( volumes ( 1 vol_sphere ( vector ( 1 2 3 4 ) 5 ) ) )", ""},
        {"shape ( images ( 4 image ( \"a b\" ) image ( a\\\\b ) image ( \"c\" + \"d\" ) image ( _e "
         ") ) )",
         ""},
        {"shape ( images ( 1 image ( \"\"a ) ) )",
         "line 2: an empty string is directly before a word: a doubled quote?"},
        {"shape ( images ( 1 image ( a\" ) ) )", "line 2: a quote at the end of a word is ignored"},
        {"shape ( matrices ( 1 matrix images ( 1 0 0 0 1 0 0 0 1 4 5 6 ) ) )", ""},
        {"shape ( matrices ( 1 matrix ( 1 0 0 0 1 0 0 0 1 4 5 6 ) ) images ( 1 image ( a ) ) )",
         ""},
        {"shape ( matrices ( 1 x matrix M ( 1 0 0 0 1 0 0 0 1 4 5 6 ) ) )", ""},
        {"SHAPE ( Points ( 1 POINT ( 1 2 3 ) ) ) tree ( 1 )", ""},
        {"shape ( other ( \"a\" ( ) ) points ( 1 point ( 1 2 3 ) ) )",
         "line 2: a block without a name is skipped"},
        {"shape ( points ( 1 point ( 1 2 3 ) ) ) )",
         "line 2: a surplus closing bracket is ignored"},
        {"shape ( points ( 1 point ( 1 2 3 ) )",
         "line 2: 1 block is not closed at the end of the file; the innermost begins here"},
        {"shape ( points ( 1 point ( 1 2 3 ) ) ) shape ( points ( 1 point ( 4 5 6 ) ) )", ""},
        {"shape ( points ( 1 point ( 1 # 9 2 3 ) ) )", ""},
        {"shape ( vtx_states ( 1 vtx_state ( c0mment 0 0 0 0 ) ) )", ""},
        {"shape ( points ( 1 point ( 1 comment 2 3 ) ) )", "",
         "the block point ends before its last value"},
        {"shape ( points ( 1 point ( 1 - 3 ) ) )", "",
         "a number was expected in the block point, not -"},
        {"shape ( points ( one point ( 1 2 3 ) ) )", "",
         "a number was expected in the block points, not one"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.text);
        const ShapeFile plain = ReadShape(start + row.text + "\r\n");
        const ShapeFile unusual = ReadShape(start + row.text + "\r\n#x y");
        EXPECT_TRUE(plain.shape == unusual.shape);
        EXPECT_EQ(plain.notes, unusual.notes);
        EXPECT_EQ(plain.notes.empty() ? "" : plain.notes.front(), row.notes);
        EXPECT_EQ(plain.error.text, row.error);
        EXPECT_EQ(unusual.error.text, row.error);
    }
}

TEST(ReadShapeTest, ShortSpellingsOfNumbersAreRoundedOnce)
{
    std::mt19937_64 random(1);
    std::string points;
    for (int i = 0; i < 20000; ++i) {
        std::string number = std::to_string(random() >> random() % 60);
        number.insert(random() % (number.size() + 1), ".");
        points += " point ( 0 " + std::string(i % 2 ? "-" : "") + number + " 8388608.5 )";
    }
    const std::string text =
        "SIMISA@@@@@@@@@@JINX0s1t______\r\nshape ( points ( 20000" + points + " ) )";
    const ShapeFile plain = ReadShape(text), unusual = ReadShape(text + " #x y");
    EXPECT_EQ(plain.shape.points.size(), 20000u);
    EXPECT_TRUE(plain.shape == unusual.shape);
}

} // namespace
