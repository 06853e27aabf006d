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
    ASSERT_EQ(2u, pose.size());
    EXPECT_EQ((Vec3{11, 20, 30}), Transformed({1, 0, 0}, pose[0]));
    // (1 0 0) turns to (0 0 -1), rises by 5 and moves by 10 20 30; (0 0 3) turns to (3 0 0).
    EXPECT_EQ((Vec3{10, 25, 29}), Transformed({1, 0, 0}, pose[1]));
    EXPECT_EQ((Vec3{13, 25, 30}), Transformed({0, 0, 3}, pose[1]));
    EXPECT_EQ((Vec3{0, 0, -1}), Turned({1, 0, 0}, pose[1]));
    EXPECT_EQ((Bounds{{10, 20, 29}, {13, 27, 33}}), RestBounds(shape));
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
        EXPECT_EQ((Vec3{0, 5, -1}), Transformed({1, 0, 0}, pose[1]));
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
    EXPECT_EQ(vertices, geometry.vertices);
    EXPECT_EQ(parts, geometry.parts);
    EXPECT_EQ(2u, geometry.triangles);
    EXPECT_EQ(0u, geometry.skipped);

    // A second sub-object has its own indices. If its state is that of the last part, it extends
    // that part.
    SubObject second = levelOf(shape).subObjects[0];
    second.triangles = {{1, 0, 3}, {1, 3, 3}};
    levelOf(shape).subObjects.push_back(second);
    const Geometry more = MakeGeometry(shape, levelOf(shape));
    EXPECT_EQ(6u, more.vertices.size());
    ASSERT_EQ(2u, more.parts.size());
    EXPECT_EQ((std::vector<std::uint32_t>{2, 1, 0, 3, 4, 5, 5, 4, 3}), more.parts[1].indices);
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
        EXPECT_EQ(1u, geometry.triangles);
        EXPECT_EQ(1u, geometry.skipped);
    }
    for (const auto harm : {+[](Shape &shape) { shape.points.pop_back(); },
                            +[](Shape &shape) { shape.points[0].y = kNan; }}) {
        Shape shape = twoParts();
        harm(shape);
        EXPECT_EQ(2u, MakeGeometry(shape, levelOf(shape)).skipped);
        EXPECT_EQ(std::nullopt, RestBounds(shape));
    }
}

TEST(GeometryTest, ShapesWithoutMatricesStayInPlace)
{
    Shape shape = twoParts();
    shape.matrices.clear();
    EXPECT_EQ((Bounds{{0, 0, 0}, {1, 2, 3}}), RestBounds(shape));
}

TEST(GeometryTest, NearestLevelHasTheSmallestDistance)
{
    Shape shape = twoParts();
    shape.lodControls[0].levels.insert(shape.lodControls[0].levels.begin(), Level{kNan, {}, {}});
    shape.lodControls[0].levels.push_back(Level{300, {}, {}});
    shape.lodControls.push_back({});
    ASSERT_EQ(1u, NearestLevels(shape).size());
    EXPECT_EQ(300, NearestLevels(shape)[0]->distance);
    EXPECT_EQ(std::nullopt, RestBounds(shape)) << "it is empty";
}

} // namespace
