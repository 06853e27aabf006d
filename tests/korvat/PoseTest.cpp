// SPDX-License-Identifier: MIT
#include "korvat/model/Pose.h"

#include "korvat/draw/Lines.h"
#include "korvat/model/MakeModel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

using namespace korvat;

namespace {

constexpr float kPi = std::numbers::pi_v<float>;
constexpr float kHalf = 0.70710678F; ///< sine and cosine of 45 degrees

Matrix at(float x, float y, float z)
{
    return {{1, 0, 0, 0, 1, 0, 0, 0, 1, x, y, z}};
}

/// A quarter turn forwards: the top of a wheel moves to its front.
RotationKey quarters(std::uint32_t frame, int count)
{
    const float half = static_cast<float>(count) * kPi / 4;
    return {frame, -std::sin(half), 0, 0, std::cos(half)};
}

/// A vehicle without triangles: BOGIE1 with its wheels, a driven wheel with its rod, a pantograph.
/// Axles are half a metre above the rails.
Model vehicle()
{
    Model model;
    model.joints = {{"MAIN", -1, true, at(0, 0, 0), {}, {}, 0},
                    {"Bogie1", 0, true, at(0, 0.5F, 4), {}, {}, 0},
                    {"WHEELS11", 1, true, at(0, 0, 1), {}, {}, 0},
                    {"WHEELS1", 0, true, at(0, 0.5F, 0), {}, {}, 8},
                    {"ROD1", 3, true, at(0, 0.25F, 0), {}, {}, 8},
                    {"PantographTop1", 0, true, at(0, 4, 0), {}, {}, 2}};
    for (int i = 0; i <= 4; ++i)
        model.joints[3].rotations.push_back(quarters(static_cast<std::uint32_t>(2 * i), i));
    // The rod keeps its direction while the wheel turns.
    for (int i = 0; i <= 4; ++i)
        model.joints[4].rotations.push_back(quarters(static_cast<std::uint32_t>(2 * i), -i));
    model.joints[5].positions = {{0, {0, 4, 0}}, {2, {0, 5.5F, 0.5F}}};
    for (std::uint32_t i = 0; i < model.joints.size(); ++i) {
        model.parts.push_back({});
        model.parts.back().joint = i;
    }
    return model;
}

Vec3 moved(const PosePtr &pose, std::size_t joint, Vec3 point)
{
    return TransformPoint(point, pose->moved[joint]);
}

void expectAt(Vec3 got, Vec3 wanted, const char *what)
{
    EXPECT_LT(Length(got - wanted), 1e-4F) << what << ": " << got.x << ' ' << got.y << ' ' << got.z;
}

} // namespace

TEST(PoseTest, WheelsTurnOnceForEachCircumference)
{
    const Model model = vehicle();
    // A quarter of the circumference of the wheels of 0.5 m.
    const PosePtr pose = MakePose(model, {kPi / 4, 0.5F, 0.25F, false});
    ASSERT_TRUE(pose);
    expectAt(moved(pose, 2, {0, 1, 5}), {0, 0.5F, 5.5F}, "the top of a wheel goes to its front");
    expectAt(moved(pose, 2, {0.7F, 0.5F, 5}), {0.7F, 0.5F, 5}, "the axle stays");
    EXPECT_EQ(pose->moved[1], Identity()) << "the bogie";
    EXPECT_EQ(pose->moved[0], Identity());
    // The driven wheels have half the radius: half a turn. The rod hangs on the wheel.
    expectAt(moved(pose, 3, {0, 1, 0}), {0, 0, 0}, "the driven wheel");
    expectAt(moved(pose, 4, {0, 0.75F, 1}), {0, 0.25F, 1}, "the rod is level");
    EXPECT_EQ(pose->moved[5], Identity()) << "the pantograph";
    EXPECT_FALSE(MakePose(model, {0, 0.5F, 0.25F, false})) << "at rest";

    const PosePtr back = MakePose(model, {-kPi / 4, 0.5F, 0, false});
    expectAt(moved(back, 2, {0, 1, 5}), {0, 0.5F, 4.5F}, "backwards");
    const PosePtr far = MakePose(model, {kPi / 4 + 1000 * kPi, 0.5F, 0, false});
    EXPECT_NEAR(moved(far, 2, {0, 1, 5}).z, 5.5F, 1e-3F) << "after a thousand turns";
}

TEST(PoseTest, UnknownRadiiComeFromAnimationsAndAxles)
{
    Model model = vehicle();
    model.joints[3].rotations[1] = quarters(2, 0); // a jerky animation
    model.joints[3].rotations[2] = quarters(4, 1);
    const PosePtr pose = MakePose(model, {kPi / 4, 0, 0, false});
    expectAt(moved(pose, 2, {0, 1, 5}), {0, 0.5F, 5.5F}, "the height of the axle");
    expectAt(moved(pose, 3, {0, 1, 0}), {0, 1, 0}, "the keys of frame 2");
    const PosePtr between = MakePose(model, {kPi * 3 / 8, 0, 0, false});
    expectAt(moved(between, 3, {0, 1, 0}), {0, 0.5F + kHalf / 2, kHalf / 2},
             "between the frames 2 and 4");
    model.joints[2].rest = {{-1, 0, 0, 0, 1, 0, 0, 0, -1, 0, 0, 1}};
    expectAt(moved(MakePose(model, {kPi / 4, 0.5F, 0, false}), 2, {0, 1, 5}), {0, 0.5F, 5.5F},
             "a wheel that was turned round rolls the same way");
}

TEST(PoseTest, PantographsRiseToTheirLastKeys)
{
    const Model model = vehicle();
    const PosePtr pose = MakePose(model, {0, 0, 0, true});
    ASSERT_TRUE(pose);
    expectAt(moved(pose, 5, {1, 4, 0}), {1, 5.5F, 0.5F}, "raised");
    EXPECT_EQ(pose->moved[3], Identity());
    EXPECT_GE(pose->box.most.y, 1.5F) << "so that it is not culled";
    EXPECT_FALSE(MakePose(Model(), {1, 0, 0, true})) << "a shape without matrices";
}

TEST(PoseTest, HidesTheJointsOfTheseNamesOnly)
{
    Model model = vehicle();
    const auto hides = [](const Joint &joint) { return joint.name == "Bogie1"; };
    const PosePtr pose = MakePose(model, {}, hides);
    ASSERT_TRUE(pose);
    for (const Part &part : model.parts)
        EXPECT_EQ(pose->Hides(part), part.joint == 1) << part.joint;
    model.joints[1].drawn = false;
    EXPECT_FALSE(MakePose(model, {}, hides)) << "nothing belongs to it";
}

TEST(PoseTest, LinesMoveWithTheirParts)
{
    Model model;
    for (std::uint32_t joint : {1U, 0U, 1U}) {
        Part part;
        part.firstIndex = static_cast<std::uint32_t>(model.mesh.indices.size());
        part.indexCount = 3;
        part.joint = joint;
        model.parts.push_back(part);
        for (int corner = 0; corner < 3; ++corner) {
            model.mesh.indices.push_back(static_cast<std::uint32_t>(model.mesh.vertices.size()));
            model.mesh.vertices.push_back({{}, {0, 1, 0}, {}});
        }
    }
    for (const LineKind kind : {LineKind::Edges, LineKind::Normals}) {
        const auto lines = MakeLines(model, kind, {});
        ASSERT_EQ(lines->parts.size(), 2U);
        EXPECT_EQ(lines->parts[0].joint, 0U);
        EXPECT_EQ(lines->parts[0].indexCount, 6U);
        EXPECT_EQ(lines->parts[1].joint, 1U);
        EXPECT_EQ(lines->parts[1].firstIndex, 6U);
        EXPECT_EQ(lines->parts[1].indexCount, 12U);
        const std::uint32_t vertex = lines->mesh.indices[0];
        EXPECT_EQ(kind == LineKind::Edges ? vertex / 3 : vertex / 6, 1U) << "of the second part";
    }
}

TEST(PoseTest, FramesAreBetweenKeys)
{
    Joint joint{"X", -1, true, at(7, 8, 9), {}, {}, 10};
    EXPECT_EQ(LocalAt(joint, 3), joint.rest) << "no keys";
    joint.positions = {{2, {0, 0, 0}}, {6, {4, 0, -8}}};
    EXPECT_EQ(LocalAt(joint, 0), at(0, 0, 0)) << "before the first key";
    EXPECT_EQ(LocalAt(joint, 3), at(1, 0, -2));
    EXPECT_EQ(LocalAt(joint, 9), at(4, 0, -8)) << "behind the last one";
    joint.rotations = {{0, 0, 0, 0, 1}, {4, 0, 0, 0, -1}, {8, 0, -2 * kHalf, 0, 2 * kHalf}};
    const Matrix same = LocalAt(joint, 2);
    expectAt(Turned({0, 0, 1}, same), {0, 0, 1}, "opposite keys are the same rotation");
    // A quarter turn about Y takes Z to X, here half of it; keys need not have length 1.
    expectAt(Turned({0, 0, 1}, LocalAt(joint, 6)), {kHalf, 0, kHalf}, "half a quarter");
    expectAt(Turned({0, 0, 1}, LocalAt(joint, 8)), {1, 0, 0}, "a quarter");
}

TEST(PoseTest, JointsThatCannotMoveStayAtRest)
{
    for (const Matrix &rest :
         {Matrix{{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0}},
          Matrix{{std::numeric_limits<float>::quiet_NaN(), 0, 0, 0, 1, 0, 0, 0, 1, 0, 1, 0}}}) {
        Model model = vehicle();
        model.joints[1].rest = rest;
        const PosePtr pose = MakePose(model, {1, 0.5F, 0, false});
        ASSERT_TRUE(pose);
        EXPECT_EQ(pose->moved[2], Identity()) << "a wheel of the broken bogie";
        EXPECT_NE(pose->moved[3], Identity());
    }
}

namespace {

/// A shape with these matrices, one level and an animation.
Shape shapeWith(const std::vector<std::int32_t> &parents, const std::vector<AnimNode> &nodes)
{
    Shape shape;
    shape.matrices = {{"MAIN", at(0, 0, 0)}, {"WHEELS1", at(0, 0.5F, 0)}, {"", at(0, 1, 0)}};
    shape.lodControls = {{{{100, parents, {}}}}};
    shape.animations = {{8, 30, nodes}};
    return shape;
}

} // namespace

TEST(JointsTest, NodesMoveTheMatrixOfTheirNameElseOfTheirPlace)
{
    const std::vector<PositionKey> a = {{1, {1, 0, 0}}}, b = {{1, {2, 0, 0}}};
    const Model model = MakeModel(shapeWith(
        {-1, 0, 1}, {{"wheels1", {}, a}, {"main", {}, {}}, {"nobody", {}, b}, {"x", {}, a}}));
    ASSERT_EQ(model.joints.size(), 3U);
    EXPECT_TRUE(model.joints[0].positions.empty());
    EXPECT_EQ(model.joints[1].positions, a);
    EXPECT_EQ(model.joints[2].positions, b);
    EXPECT_EQ(model.joints[2].parent, 1);
    EXPECT_EQ(model.joints[1].frames, 8U);
    EXPECT_EQ(model.faults, std::vector<std::string>());
}

TEST(JointsTest, ReportsWhatLevelsAndAnimationsLack)
{
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    const std::vector<PositionKey> backwards = {{5, {1, 0, 0}}, {1, {2, 0, 0}}, {9, {kNan, 0, 0}}};
    Shape shape = shapeWith({-1, 2, 1}, {{"WHEELS1", {{0, 0, 0, 0, 0}}, backwards}});
    shape.lodControls.push_back({});
    const Model model = MakeModel(shape);
    EXPECT_EQ(model.faults,
              (std::vector<std::string>{"the hierarchy of parts is a loop for WHEELS1 and 1 more",
                                        "the times of the animation go backwards for WHEELS1",
                                        "a part has no levels of detail"}));
    EXPECT_EQ(model.joints[1].positions, (std::vector<PositionKey>{{1, {2, 0, 0}}, {5, {1, 0, 0}}}))
        << "sorted, and without the key that is not finite";
    EXPECT_TRUE(model.joints[1].rotations.empty()) << "a rotation of length 0";
    EXPECT_EQ(model.joints[1].parent, -1);

    Shape still = shapeWith({-1, 0, 1}, {{"WHEELS1", {}, {}}});
    still.lodControls.clear();
    EXPECT_EQ(MakeModel(still).faults, (std::vector<std::string>{"there are no levels of detail"}))
        << "without a level, there is nothing to animate";
    still.lodControls = {{{{100, {}, {}}}}};
    EXPECT_EQ(MakeModel(still).faults, std::vector<std::string>{"the animation has no keys"});
    still.animations.clear();
    EXPECT_TRUE(MakeModel(still).faults.empty());
}
