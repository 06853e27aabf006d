// SPDX-License-Identifier: MIT
#include "korvat/model/MakeModel.h"

#include "korvat/model/Transform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace korvat;

namespace {

/// One triangle on the second matrix (a quarter turn about Y, 5 up), with everything that decides
/// its appearance.
Shape oneTriangle()
{
    Shape shape;
    shape.shaders = {"TexDiff"};
    shape.filters = {"MipLinear", "point"};
    shape.points = {{1, 0, 0}, {0, 2, 0}, {0, 0, 3}};
    shape.normals = {{0, 0, -1}};
    shape.uvs = {{0.5f, 0.25f}};
    shape.matrices = {{"MAIN", {}}, {"WHEEL", {{0, 0, -1, 0, 1, 0, 1, 0, 0, 0, 5, 0}}}};
    shape.colours = {{1, 0.25f, 0.5f, 2}};
    shape.images = {"a.ace", "b.ace"};
    shape.textures = {{1, 0, 0, 0}, {0, 1, 0, 0}, {9, 0, 0, 0}};
    shape.lightMaterials = {{0, 0, 0, 0, 0, 0}};
    shape.lightModels = {{0, AddressMode::Clamp}};
    shape.vertexStates = {{0, 1, -5, 0, 2, -1}};
    shape.primStates.resize(1);
    shape.primStates[0].textures = {0};
    SubObject object;
    object.vertices = {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}};
    object.indices = {0, 1, 2};
    object.triangles = {{0, 0, 3}};
    shape.lodControls = {{{{2000, {-1, 0}, {}}, {100, {-1, 0}, {object}}}}};
    return shape;
}

} // namespace

TEST(MakeModelTest, PlacesTheNearestLevelByItsMatrices)
{
    const Model model = MakeModel(oneTriangle());
    ASSERT_EQ(model.mesh.indices, (std::vector<std::uint32_t>{0, 1, 2}));
    EXPECT_EQ(model.mesh.vertices[0], (DrawVertex{{0, 5, -1}, {-1, 0, 0}, {0.5f, 0.25f}}));
    EXPECT_EQ(model.mesh.vertices[2].position, (Vec3{3, 5, 0}));
    EXPECT_EQ(model.box, (Bounds{{0, 5, -1}, {3, 7, 0}}));
    EXPECT_EQ(model.bounds.centre, (Vec3{1.5f, 6, -0.5f}));
    ASSERT_EQ(model.parts.size(), 1u);
    EXPECT_EQ(model.parts[0].indexCount, 3u);
    EXPECT_EQ(model.textures, (std::vector<std::string>{"a.ace", "b.ace"}));
}

TEST(MakeModelTest, StatesDecideTheAppearanceOfAPart)
{
    using Change = void (*)(Shape &);
    const auto look = [](int slot, Finish finish, Blending blending, bool test) {
        Part part;
        part.slot = slot;
        part.surface.finish = finish;
        part.surface.blending = blending;
        part.surface.alphaTest = test;
        part.surface.addressing = AddressMode::Clamp;
        return part;
    };
    const Part plain = look(1, Finish::Normal, Blending::None, false);
    Part wrapped = plain, sharp = look(0, Finish::Normal, Blending::None, false);
    Part sharper = plain, softer = plain;
    sharper.surface.sharpness = -1;
    softer.surface.sharpness = 0.5f;
    wrapped.surface.addressing = AddressMode::Wrap;
    sharp.surface.mipmaps = false;
    Part grey = look(-1, Finish::Normal, Blending::None, false), coloured = grey;
    grey.surface.colour = {0.62f, 0.62f, 0.62f, 1};
    coloured.surface.colour = {0.25f, 0.5f, 1, 1};
    const struct
    {
        const char *name;
        Change change;
        Part part;
    } rows[] = {
        {"unchanged", [](Shape &) {}, plain},
        {"full bright", [](Shape &s) { s.shaders = {"tex"}; },
         look(1, Finish::FullBright, Blending::None, false)},
        {"glass", [](Shape &s) { s.shaders = {"BlendATexDiff"}; },
         look(1, Finish::Normal, Blending::Alpha, false)},
        {"light", [](Shape &s) { s.shaders = {"AddATex"}; },
         look(1, Finish::FullBright, Blending::Add, false)},
        {"unknown shader", [](Shape &s) { s.shaders = {"Marble"}; }, plain},
        {"no shader", [](Shape &s) { s.primStates[0].shader = 7; }, plain},
        {"fence", [](Shape &s) { s.primStates[0].alphaTestMode = 1; },
         look(1, Finish::Normal, Blending::None, true)},
        {"shiny", [](Shape &s) { s.vertexStates[0].lightMaterial = -6; },
         look(1, Finish::Shiny, Blending::None, false)},
        {"very shiny", [](Shape &s) { s.vertexStates[0].lightMaterial = -7; },
         look(1, Finish::VeryShiny, Blending::None, false)},
        {"lamp", [](Shape &s) { s.vertexStates[0].lightMaterial = -8; },
         look(1, Finish::FullBright, Blending::None, false)},
        {"leaves", [](Shape &s) { s.vertexStates[0].lightMaterial = -9; },
         look(1, Finish::Plant, Blending::None, false)},
        {"more leaves", [](Shape &s) { s.vertexStates[0].lightMaterial = -10; },
         look(1, Finish::Plant, Blending::None, false)},
        {"half", [](Shape &s) { s.vertexStates[0].lightMaterial = -11; },
         look(1, Finish::HalfBright, Blending::None, false)},
        {"dark", [](Shape &s) { s.vertexStates[0].lightMaterial = -12; },
         look(1, Finish::DarkShade, Blending::None, false)},
        {"no light model", [](Shape &s) { s.vertexStates[0].lightModel = 3; }, wrapped},
        {"sharp filter", [](Shape &s) { s.primStates[0].textures = {1}; }, sharp},
        {"larger mipmap levels", [](Shape &s) { s.textures[0].mipLodBias = -3; }, sharper},
        {"smaller mipmap levels", [](Shape &s) { s.textures[0].mipLodBias = 0.5f; }, softer},
        {"not a number", [](Shape &s) { s.textures[0].mipLodBias = NAN; }, plain},
        {"no texture", [](Shape &s) { s.primStates[0].textures.clear(); }, grey},
        {"no such texture", [](Shape &s) { s.primStates[0].textures = {5}; }, grey},
        {"no such image", [](Shape &s) { s.primStates[0].textures = {2}; }, grey},
        {"shader without a texture",
         [](Shape &s) {
             s.shaders = {"Diffuse"};
             s.vertexStates[0].lightMaterial = 0;
         },
         coloured},
        {"separate colour",
         [](Shape &s) {
             s.primStates[0].textures.clear();
             s.vertexStates[0].lightMaterial = 0;
         },
         coloured},
    };
    for (const auto &row : rows) {
        Shape shape = oneTriangle();
        row.change(shape);
        const Model model = MakeModel(shape);
        ASSERT_EQ(model.parts.size(), 1u) << row.name;
        EXPECT_EQ(model.parts[0].slot, row.part.slot) << row.name;
        EXPECT_TRUE(model.parts[0].surface == row.part.surface) << row.name;
    }
}

TEST(MakeModelTest, NotesEachUnknownShaderInUseOnce)
{
    Shape shape = oneTriangle();
    shape.shaders = {"Marble", "Unused"};
    shape.primStates.push_back(shape.primStates[0]);
    shape.lodControls[0].levels[1].subObjects[0].triangles.push_back({1, 0, 3});
    EXPECT_EQ(MakeModel(shape).notes,
              std::vector<std::string>{"unknown shader Marble, drawn lit and solid"});
    shape.shaders = {"diffuse"};
    EXPECT_TRUE(MakeModel(shape).notes.empty());
}

TEST(MakeModelTest, LeavesOutTrianglesWithoutAPlace)
{
    Shape shape = oneTriangle();
    shape.matrices[1].matrix.rows[10] = std::numeric_limits<float>::quiet_NaN();
    EXPECT_TRUE(MakeModel(shape).parts.empty());
    const Model nothing = MakeModel(Shape());
    EXPECT_TRUE(nothing.parts.empty());
    EXPECT_EQ(nothing.bounds.radius, 0);
    shape = oneTriangle();
    shape.matrices.push_back({"", {{2, 0, 0, 0, 2, 0, 0, 0, 2, 0, 0, 0}}});
    shape.vertexStates.push_back({0, 2, -5, 0, 2, -1});
    shape.primStates.push_back(shape.primStates[0]);
    shape.primStates[1].vertexState = 1;
    shape.lodControls[0].levels[1].subObjects[0].triangles.push_back({1, 0, 3});
    const Model twice = MakeModel(shape);
    ASSERT_EQ(twice.mesh.vertices.size(), 6u) << "the same corners under two matrices";
    EXPECT_EQ(twice.mesh.vertices[3].position, (Vec3{2, 0, 0}));
    EXPECT_EQ(twice.mesh.vertices[3].normal, (Vec3{0, 0, -1})) << "normals keep length 1";
}

TEST(MakeModelTest, LevelsCountFromTheNearest)
{
    Shape shape = oneTriangle(); // the farther level is empty
    SubObject twice = shape.lodControls[0].levels[1].subObjects[0];
    twice.triangles = {{0, 0, 3}, {0, 0, 3}};
    const float none = std::numeric_limits<float>::quiet_NaN();
    shape.lodControls[0].levels.insert(shape.lodControls[0].levels.begin(),
                                       Level{none, {-1, 0}, {twice}});
    const auto indices = [&shape](int level) {
        return MakeModel(shape, level).mesh.indices.size();
    };
    EXPECT_EQ(indices(1), 3U);
    EXPECT_EQ(indices(0), 3U);
    EXPECT_EQ(indices(2), 0U) << "up to 2000 m";
    EXPECT_EQ(indices(3), 6U) << "without a distance";
    EXPECT_EQ(indices(99), 6U) << "the farthest one";
    const std::vector<float> levels = MakeModel(shape).levels;
    ASSERT_EQ(levels.size(), 3U);
    EXPECT_EQ(levels[0], 100);
    EXPECT_EQ(levels[1], 2000);
    EXPECT_TRUE(std::isnan(levels[2]));
    const Model model = MakeModel(shape);
    EXPECT_EQ(model.parts[0].joint, 1U);
    EXPECT_TRUE(model.joints[1].drawn && !model.joints[0].drawn);
    EXPECT_EQ(model.joints[1].parent, 0);
}
