// SPDX-License-Identifier: MIT
#include "samples/ShapeWriter.h"
#include "InstallationScan.h"
#include "samples/ShapeSink.h"

#include <gtest/gtest.h>

#include <regex>
#include <stdexcept>
#include <string>

namespace {

using samples::ShapeBytes;
using samples::ShapeForm;
using samples::ShapeModel;
using samples::SmallestShape;
using std::string_literals::operator""s;

unsigned unsignedAt(const std::string &bytes, std::size_t at, int size)
{
    unsigned value = 0;
    while (size-- > 0)
        value = value << 8 | static_cast<unsigned char>(bytes.at(at + static_cast<unsigned>(size)));
    return value;
}

/// Returns a text without the blanks that may differ between two layouts of it.
std::string squeezed(const std::string &text)
{
    return std::regex_replace(text, std::regex("\\s+"), " ");
}

/// Two parts on two matrices. The second is moved, and its parent is the first.
ShapeModel twoParts()
{
    ShapeModel model = SmallestShape({"a.ace", "b.ace"});
    model.matrices.push_back({"BOGIE1", {1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0.5F, 2}, 0});
    model.matrices.push_back({"SPARE", {}, 0});
    samples::ShapePart glass = model.levels.front().parts.front();
    glass.name = "glass";
    glass.shader = "BlendATexDiff";
    glass.image = 1;
    glass.matrix = 1;
    glass.alphaTest = true;
    model.levels.front().parts.push_back(glass);
    return model;
}

TEST(ShapeWriterTest, SmallestShapeHasKnownSizes)
{
    const std::string payload =
        scan::Payload(ShapeBytes(SmallestShape({"a.ace"}), ShapeForm::Binary));
    EXPECT_EQ(payload.size(), 1306);
    EXPECT_EQ(payload.substr(0, 50), "JINX0s1b______\r\n"s + "\x47\0\0\0\2\5\0\0\0"s +
                                         "\x46\0\0\0\x09\0\0\0\0\0\0\0\0\0\0\0\0"s +
                                         "\x44\0\0\0\x27\0\0\0"s);
    for (
        const std::string &block : {
            "\x81\0\0\0\x11\0\0\0\0\7\0T\0e\0x\0D\0i\0f\0f\0"s,
            "\x41\0\0\0\x39\0\0\0\4M\0A\0I\0N\0\0\0\x80\x3F\0\0\0\0"s,
            "\x30\0\0\0\x26\0\0\0\0\0\0\0\0\2\0\0\0\0\0\0\0\xFF\xFF\xFF\xFF\0\0\0\xFF"
            "\x31\0\0\0\x09\0\0\0\0\1\0\0\0\2\0\0\0"s,
            "\x3C\0\0\0\x40\0\0\0\0\x3F\0\0\0\x11\0\0\0\0\3\0\0\0\0\0\0\0\1\0\0\0\2\0\0\0"
            "\x06\0\0\0\x0D\0\0\0\0\1\0\0\0\0\0\0\0\3\0\0\0\x40\0\0\0\x09\0\0\0\0\1\0\0\0\0\0\0\0"s,
        })
        EXPECT_NE(payload.find(block), std::string::npos) << testing::PrintToString(block);
}

/// Compares the whole text form, so that the order of blocks and every field are fixed.
TEST(ShapeWriterTest, WritesTheSmallestShapeAsText)
{
    const std::string expected = R"(SIMISA@@@@@@@@@@JINX0s1t______
        shape ( shape_header ( 00000000 00000000 )
        volumes ( 1 vol_sphere ( vector ( 0 0 0 ) 1.5 ) )
        shader_names ( 1 named_shader ( TexDiff ) )
        texture_filter_names ( 1 named_filter_mode ( MipLinear ) )
        points ( 3 point ( 0 0 0 ) point ( 0 1 0 ) point ( 1 0 0 ) )
        uv_points ( 3 uv_point ( 0 1 ) uv_point ( 0 0 ) uv_point ( 1 1 ) )
        normals ( 1 vector ( 0 0 -1 ) ) sort_vectors ( 0 ) colours ( 0 )
        matrices ( 1 matrix MAIN ( 1 0 0 0 1 0 0 0 1 0 0 0 ) )
        images ( 1 image ( a.ace ) ) textures ( 1 texture ( 0 0 -3 ff000000 ) )
        light_materials ( 0 )
        light_model_cfgs ( 1 light_model_cfg ( 00000000 uv_ops ( 1 uv_op_copy ( 1 0 ) ) ) )
        vtx_states ( 1 vtx_state ( 00000000 0 -5 0 00000002 ) )
        prim_states ( 1 prim_state MAIN_a ( 00000000 0 tex_idxs ( 1 0 ) 0 0 0 0 1 ) )
        lod_controls ( 1 lod_control ( distance_levels_header ( 0 )
        distance_levels ( 1 distance_level (
        distance_level_header ( dlevel_selection ( 2000 ) hierarchy ( 1 -1 ) )
        sub_objects ( 1 sub_object (
        sub_object_header ( 00000400 -1 -1 000001d2 000001c4
        geometry_info ( 1 1 0 3 0 0 1 0 0 0
        geometry_nodes ( 1 geometry_node ( 1 0 0 0 0 cullable_prims ( 1 1 3 ) ) )
        geometry_node_map ( 1 0 ) )
        subobject_shaders ( 1 0 ) subobject_light_cfgs ( 1 0 ) 0 )
        vertices ( 3 vertex ( 00000000 0 0 ffffffff ff000000 vertex_uvs ( 1 0 ) )
        vertex ( 00000000 1 0 ffffffff ff000000 vertex_uvs ( 1 1 ) )
        vertex ( 00000000 2 0 ffffffff ff000000 vertex_uvs ( 1 2 ) ) )
        vertex_sets ( 1 vertex_set ( 0 0 3 ) )
        primitives ( 2 prim_state_idx ( 0 )
        indexed_trilist ( vertex_idxs ( 3 0 1 2 ) normal_idxs ( 1 0 3 ) flags ( 1 00000000 ) ) )
        ) ) ) ) ) ) )
)";
    for (const ShapeForm form : {ShapeForm::TextUtf16, ShapeForm::Text8Bit})
        EXPECT_EQ(squeezed(scan::Decode(ShapeBytes(SmallestShape({"a.ace"}), form))),
                  squeezed(expected));
    EXPECT_EQ(ShapeBytes(SmallestShape({"a.ace"}), ShapeForm::TextLateMark),
              "\r\n" + ShapeBytes(SmallestShape({"a.ace"}), ShapeForm::Text8Bit));
}

TEST(ShapeWriterTest, WritesPartsOnSeveralMatrices)
{
    const std::string text = squeezed(ShapeBytes(twoParts(), ShapeForm::Text8Bit));
    for (const char *piece : {
             "shader_names ( 2 named_shader ( TexDiff ) named_shader ( BlendATexDiff ) )",
             "matrix BOGIE1 ( 1 0 0 0 1 0 0 0 1 0 0.5 2 )",
             "vtx_state ( 00000000 1 -5 0 00000002 )",
             "prim_state glass ( 00000000 1 tex_idxs ( 1 1 ) 0 1 1 0 1 )",
             "hierarchy ( 3 -1 0 0 )",
             "geometry_info ( 2 2 0 6 0 0 2 0 0 0 geometry_nodes ( 2 ",
             "geometry_node_map ( 3 0 1 -1 )",
             "vertex_sets ( 2 vertex_set ( 0 0 3 ) vertex_set ( 1 3 3 ) )",
             "primitives ( 4 prim_state_idx ( 0 ) ",
             "prim_state_idx ( 1 ) indexed_trilist ( vertex_idxs ( 3 3 4 5 )",
         })
        EXPECT_NE(text.find(piece), std::string::npos) << piece << "\nin\n" << text;
}

/// States are numbered through all levels, vertices separately in each level.
TEST(ShapeWriterTest, WritesLevelsMaterialsAndTurningNodes)
{
    ShapeModel model = twoParts();
    model.levels.push_back({.distance = 5000, .parts = {model.levels.front().parts.back()}});
    model.levels.back().parts.front().material = samples::kShinyMaterial;
    model.centre = {0, 2, -1};
    model.frames = 16;
    model.matrices[1].turn = {{0, {0, 0, 0, 1}}, {16, {-1, 0, 0, 0}}};
    const std::string text = squeezed(ShapeBytes(model, ShapeForm::Text8Bit));
    for (const char *piece : {
             "vol_sphere ( vector ( 0 2 -1 ) 1.5 )",
             "vtx_states ( 3 vtx_state ( 00000000 0 -5 0 00000002 ) "
             "vtx_state ( 00000000 1 -5 0 00000002 ) vtx_state ( 00000000 1 -6 0 00000002 ) )",
             "prim_states ( 3 ",
             "prim_state glass ( 00000000 1 tex_idxs ( 1 1 ) 0 2 1 0 1 )",
             "distance_levels ( 2 ",
             "dlevel_selection ( 5000 )",
             "geometry_node_map ( 3 -1 0 -1 )",
             "vertex_sets ( 1 vertex_set ( 2 0 3 ) ) primitives ( 2 prim_state_idx ( 2 ) "
             "indexed_trilist ( vertex_idxs ( 3 0 1 2 )",
             "animations ( 1 animation ( 16 30 anim_nodes ( 3 anim_node MAIN ( controllers ( 0 ) ) "
             "anim_node BOGIE1 ( controllers ( 1 tcb_rot ( 2 slerp_rot ( 0 0 0 0 1 ) "
             "slerp_rot ( 16 -1 0 0 0 ) ) ) )",
         })
        EXPECT_NE(text.find(piece), std::string::npos) << piece << "\nin\n" << text;
    EXPECT_NO_THROW(ShapeBytes(model, ShapeForm::Binary));
}

TEST(ShapeWriterTest, CompressedFormsInflateToTheDeclaredSize)
{
    const ShapeModel model = twoParts();
    const std::string plain = scan::Payload(ShapeBytes(model, ShapeForm::Binary));
    EXPECT_EQ(scan::Payload(ShapeBytes(model, ShapeForm::Compressed)), plain);
    const std::string odd = scan::Payload(ShapeBytes(model, ShapeForm::CompressedOddHeader));
    EXPECT_EQ(odd.substr(0, 16), "JINX0s1b_____\r\n ");
    EXPECT_EQ(odd.substr(16), plain.substr(16));
    EXPECT_EQ(ShapeBytes(model, ShapeForm::CompressedTrailingBytes),
              ShapeBytes(model, ShapeForm::Compressed) + "left over");
}

TEST(ShapeWriterTest, OutermostBlockEndsWithTheFile)
{
    for (const ShapeModel &model : {SmallestShape({"x.ace", "y.ace"}), twoParts()}) {
        const std::string payload = scan::Payload(ShapeBytes(model, ShapeForm::Binary));
        std::size_t at = 16 + 9;
        EXPECT_EQ(unsignedAt(payload, 16 + 4, 4), payload.size() - 16 - 8);
        int children = 0;
        while (at < payload.size()) {
            at += 8 + unsignedAt(payload, at + 4, 4);
            ++children;
        }
        EXPECT_EQ(at, payload.size());
        EXPECT_EQ(children, 17);
    }
}

TEST(ShapeWriterTest, DeclaresTheGivenNumberOfImages)
{
    ShapeModel model = SmallestShape({"a.ace", "b.ace"});
    model.imagesDeclared = 3;
    const std::string text = squeezed(ShapeBytes(model, ShapeForm::Text8Bit));
    EXPECT_NE(text.find("images ( 3 image ( a.ace ) image ( b.ace ) )"), std::string::npos);
    EXPECT_NE(text.find("textures ( 2 "), std::string::npos);
}

TEST(ShapeWriterTest, RefusesUnknownBlocks)
{
    samples::BinaryShapeSink sink;
    EXPECT_THROW(sink.Begin("shap", ""), std::invalid_argument);
}

} // namespace
