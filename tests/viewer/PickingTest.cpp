// SPDX-License-Identifier: MIT
#include "viewer/Picking.h"

#include "Scene.h"
#include "viewer/TSView.h"

using korvat::Ground;

namespace {

/// Cars with one upright triangle each, at x = 0 and 4 metres high, which faces towards positive X.
class PickingTest : public SceneTest
{
protected:
    PickingTest() { path = game.Write("car.s", "shape"); }
    void SetUp() override
    {
        shapes.corners = {{0, 0, -4}, {0, 4, 0}, {0, 0, 4}};
        ASSERT_TRUE(view.LoadShapeInToViewer("first", path, 0, 0, -10, 0));
        ASSERT_TRUE(view.LoadShapeInToViewer("turned", path, 0, 0, 30, -180)); // to -30
        ASSERT_TRUE(view.LoadShapeInToViewer("behind", path, -5, 0, -10, 0));
    }
    int placeAt(const korvat::Vec3 &from, const korvat::Vec3 &direction)
    {
        const auto hit = viewer::Pick(view.Models, {from, direction});
        return hit ? hit->place : 0;
    }

    std::string path;
    TSView view{environment};
};

} // namespace

TEST_F(PickingTest, FindsTheNearestSurfaceThatFacesTheRay)
{
    EXPECT_EQ(placeAt({10, 1, -10}, {-1, 0, 0}), 1) << "the nearest of two";
    EXPECT_EQ(placeAt({-2, 1, -10}, {-1, 0, 0}), 3) << "the first is behind the ray";
    EXPECT_EQ(placeAt({-10, 1, -10}, {1, 0, 0}), 0) << "both from behind, which is not drawn";
    EXPECT_EQ(placeAt({-10, 1, -30}, {1, 0, 0}), 2) << "this one is turned round";
    EXPECT_EQ(placeAt({10, 1, -30}, {-1, 0, 0}), 0);
    EXPECT_EQ(placeAt({10, 3, -13}, {-1, 0, 0}), 0) << "inside the box, beside the triangle";
    EXPECT_EQ(placeAt({10, 1, -17}, {-1, 0, 0}), 0) << "between the cars";
    EXPECT_EQ(placeAt({10, 1, -40}, {-2, 0, 4}), 3) << "aslant, past the first";
    EXPECT_EQ(placeAt({10, 1, -30}, {-2, 0, 4}), 1);
    const auto hit = viewer::Pick(view.Models, {{10, 1, -10}, {-2, 0, 0}});
    ASSERT_TRUE(hit);
    EXPECT_FLOAT_EQ(hit->distance, 5) << "in lengths of the direction";
}

TEST_F(PickingTest, AddedShapesBelongToTheirObject)
{
    TSViewObject &first = view.Models.Item(1);
    ASSERT_EQ(first.AddShape(path, korvat::Translation({3, 2, 0}), true), "");
    EXPECT_EQ(viewer::Pick(view.Models, {{10, 5, -10}, {-1, 0, 0}}).value_or(viewer::Hit()).place,
              1);
    EXPECT_FALSE(viewer::Pick(view.Models, {{10, 5, -10}, {-1, 0, 0}}, false)) << "hidden";
    EXPECT_EQ(viewer::CornersOfObject(view.Models, 1).size(), 16u);
    EXPECT_FLOAT_EQ(viewer::MiddleOf(viewer::CornersOfObject(view.Models, 1)).y, 3);
    EXPECT_EQ(viewer::CornersOfObject(view.Models, 1, false).size(), 8u);
}

TEST_F(PickingTest, CornersEncloseThePlacedShapes)
{
    const auto corners = viewer::CornersOf(view.Models);
    EXPECT_EQ(corners.size(), 24u);
    const korvat::Vec3 all = viewer::MiddleOf(corners);
    EXPECT_NEAR(all.x, -2.5f, 1e-4);
    EXPECT_NEAR(all.y, 2, 1e-4);
    EXPECT_NEAR(all.z, -20, 1e-4);
    EXPECT_NEAR(viewer::MiddleOf(viewer::CornersOfObject(view.Models, 2)).z, -30, 1e-4);
}

TEST_F(PickingTest, RaysThatComeDownReachTheGround)
{
    EXPECT_FLOAT_EQ(viewer::PickGround({{10, 1.28f, 0}, {0, -1, 0}}, Ground::Track).value_or(0), 2);
    EXPECT_FLOAT_EQ(viewer::PickGround({{1, 1.83f, 0}, {0, -1, 0}}, Ground::Track).value_or(0), 2)
        << "the track";
    EXPECT_FALSE(viewer::PickGround({{10, 2, 0}, {-1, 0, 0}}, Ground::Track));
    EXPECT_FALSE(viewer::PickGround({{10, -5, 0}, {0, -1, 0}}, Ground::Track)) << "below it";
    EXPECT_FLOAT_EQ(viewer::PickGround({{1, 2, 0}, {0, -1, 0}}, Ground::Plain).value_or(0), 2);
}
