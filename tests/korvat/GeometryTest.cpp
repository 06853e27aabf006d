// SPDX-License-Identifier: MIT
#include "korvat/model/Geometry.h"

#include <gtest/gtest.h>

#include <limits>

using namespace korvat;

namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

/// Two triangles on two matrices. The second matrix is a quarter turn about Y; its parent, the
/// first, is a translation.
Shape twoParts()
{
    Shape shape;
    shape.points = {{1, 0, 0}, {0, 2, 0}, {0, 0, 3}};
    shape.normals = {{0, 0, -1}};
    shape.uvs = {{.5F, .25F}};
    shape.matrices = {{"MAIN", {{1, 0, 0, 0, 1, 0, 0, 0, 1, 10, 20, 30}}},
                      {"WHEEL", {{0, 0, -1, 0, 1, 0, 1, 0, 0, 0, 5, 0}}}};
    shape.vertexStates = {{0, 0, -5, 0, 2, -1}, {0, 1, -5, 0, 2, -1}};
    shape.primStates.resize(2);
    shape.primStates[1].vertexState = 1;
    SubObject object;
    object.vertices = {{0, 0, 0}, {1, 0, Vertex::kNoUv}, {2, 7, 0}};
    object.indices = {0, 1, 2, 2, 1, 0};
    object.triangles = {{0, 0, 3}, {1, 3, 3}};
    shape.lodControls = {{{{2000, {-1, 0}, {object}}}}};
    return shape;
}

Level &levelOf(Shape &shape)
{
    return shape.lodControls[0].levels[0];
}

TEST(GeometryTest, AppliesAMatrixThenItsParents)
{
    Shape shape = twoParts();
    const std::vector<Matrix> pose = RestPose(shape, levelOf(shape));
    ASSERT_EQ(pose.size(), 2u);
    EXPECT_EQ(Transformed({1, 0, 0}, pose[0]), (Vec3{11, 20, 30}));
    // (1 0 0) turns to (0 0 -1), rises by 5 and moves by 10 20 30; (0 0 3) turns to (3 0 0).
    EXPECT_EQ(Transformed({1, 0, 0}, pose[1]), (Vec3{10, 25, 29}));
    EXPECT_EQ(Transformed({0, 0, 3}, pose[1]), (Vec3{13, 25, 30}));
    EXPECT_EQ(Turned({1, 0, 0}, pose[1]), (Vec3{0, 0, -1}));
    EXPECT_EQ(RestBounds(shape), (Bounds{{10, 20, 29}, {13, 27, 33}}));
}

TEST(GeometryTest, IgnoresInvalidParents)
{
    const std::pair<const char *, std::vector<std::int32_t>> rows[] = {
        {"too short", {-1}},       {"its own", {-1, 1}},
        {"out of range", {-1, 2}}, {"far out of range", {-1, INT32_MAX}},
        {"negative", {-1, -2}},    {"a ring", {1, 0}},
    };
    for (const auto &[what, parents] : rows) {
        SCOPED_TRACE(what);
        Shape shape = twoParts();
        levelOf(shape).parents = parents;
        const std::vector<Matrix> pose = RestPose(shape, levelOf(shape));
        EXPECT_EQ(Transformed({1, 0, 0}, pose[1]), (Vec3{0, 5, -1}));
    }
}

TEST(GeometryTest, MakesVerticesAndParts)
{
    Shape shape = twoParts();
    const Geometry geometry = MakeGeometry(shape, levelOf(shape));
    const std::vector<DrawVertex> vertices = {{{1, 0, 0}, {0, 0, -1}, {.5F, .25F}},
                                              {{0, 2, 0}, {0, 0, -1}, {0, 0}},
                                              {{0, 0, 3}, {0, 1, 0}, {.5F, .25F}}};
    const std::vector<DrawPart> parts = {{0, 0, {0, 1, 2}}, {1, 1, {2, 1, 0}}};
    EXPECT_EQ(geometry.vertices, vertices);
    EXPECT_EQ(geometry.parts, parts);
    EXPECT_EQ(geometry.triangles, 2u);
    EXPECT_EQ(geometry.skipped, 0u);

    // A second sub-object has its own indices. If its state is that of the last part, it extends
    // that part.
    SubObject second = levelOf(shape).subObjects[0];
    second.triangles = {{1, 0, 3}, {1, 3, 3}};
    levelOf(shape).subObjects.push_back(second);
    const Geometry more = MakeGeometry(shape, levelOf(shape));
    EXPECT_EQ(more.vertices.size(), 6u);
    ASSERT_EQ(more.parts.size(), 2u);
    EXPECT_EQ(more.parts[1].indices, (std::vector<std::uint32_t>{2, 1, 0, 3, 4, 5, 5, 4, 3}));
}

TEST(GeometryTest, LeavesOutTrianglesWithInvalidReferences)
{
    const std::pair<const char *, void (*)(Shape &)> rows[] = {
        {"vertex", [](Shape &shape) { levelOf(shape).subObjects[0].indices[4] = 3; }},
        {"vertex -1", [](Shape &shape) { levelOf(shape).subObjects[0].indices[4] = UINT32_MAX; }},
        {"primitive state",
         [](Shape &shape) { levelOf(shape).subObjects[0].triangles[1].primState = 2; }},
        {"vertex state", [](Shape &shape) { shape.primStates[1].vertexState = -1; }},
        {"matrix", [](Shape &shape) { shape.vertexStates[1].matrix = 2; }},
        {"part of a triangle",
         [](Shape &shape) { levelOf(shape).subObjects[0].triangles[1].count = 2; }},
    };
    for (const auto &[what, harm] : rows) {
        SCOPED_TRACE(what);
        Shape shape = twoParts();
        harm(shape);
        const Geometry geometry = MakeGeometry(shape, levelOf(shape));
        EXPECT_EQ(geometry.triangles, 1u);
        EXPECT_EQ(geometry.skipped, 1u);
    }
    for (const auto harm : {+[](Shape &shape) { shape.points.pop_back(); },
                            +[](Shape &shape) { shape.points[0].y = kNan; }}) {
        Shape shape = twoParts();
        harm(shape);
        EXPECT_EQ(MakeGeometry(shape, levelOf(shape)).skipped, 2u);
        EXPECT_EQ(RestBounds(shape), std::nullopt);
    }
}

TEST(GeometryTest, ShapesWithoutMatricesStayInPlace)
{
    Shape shape = twoParts();
    shape.matrices.clear();
    EXPECT_EQ(RestBounds(shape), (Bounds{{0, 0, 0}, {1, 2, 3}}));
}

TEST(GeometryTest, NearestLevelHasTheSmallestDistance)
{
    Shape shape = twoParts();
    shape.lodControls[0].levels.insert(shape.lodControls[0].levels.begin(), Level{kNan, {}, {}});
    shape.lodControls[0].levels.push_back(Level{300, {}, {}});
    shape.lodControls.push_back({});
    ASSERT_EQ(NearestLevels(shape).size(), 1u);
    EXPECT_EQ(NearestLevels(shape)[0]->distance, 300);
    EXPECT_EQ(RestBounds(shape), std::nullopt) << "it is empty";
}

} // namespace
