// SPDX-License-Identifier: MIT
#include "viewer/TSView.h"

#include "Scene.h"
#include "host/RuntimeError.h"

#include <limits>
#include <numbers>

namespace {

class TSViewTest : public SceneTest
{
protected:
    TSViewTest() { path = game.Write("car.s", "shape"); }
    std::string path;
};

} // namespace

TEST_F(TSViewTest, StartsOnlyWithACanvasAndDrawsOnlyWhenStarted)
{
    TSView view(environment);
    view.Initialise();
    view.ShowModels();
    view.ResetCamera();
    view.RefreshForm();
    EXPECT_FALSE(view.FullyStarted);
    view.Viewer = &canvas;
    view.ShowModels();
    EXPECT_EQ(canvas.TakeLog(), "");
    view.Initialise();
    EXPECT_TRUE(view.FullyStarted);
    EXPECT_EQ(canvas.TakeLog(), "start rendering ");
    view.ResetCamera();
    EXPECT_EQ(canvas.TakeLog(), "camera begin end yield ");
    EXPECT_EQ(canvas.camera, (std::array<float, 6>{})) << "zeros are passed on unchanged";
    canvas.ready = false;
    view.ShowModels();
    EXPECT_EQ(canvas.TakeLog(), "refuse yield ");
    canvas.ready = true;
    view.RefreshForm();
    EXPECT_EQ(canvas.TakeLog(), "yield restore begin end yield yield ");
}

TEST_F(TSViewTest, LoadsShapesUnderKeys)
{
    TSView view(environment);
    view.Viewer = &canvas;
    view.Initialise();
    ASSERT_TRUE(view.LoadShapeInToViewer("a", path, 1, 2, 3, -180));
    ASSERT_TRUE(view.LoadShapeInToViewer("b", path, 0, 0, 0, 0));
    EXPECT_EQ(view.Models.Count(), 2);
    const TSViewObject &object = view.Models.Item("a");
    EXPECT_EQ(&object, &view.Models.Item(1));
    EXPECT_NE(&object, &view.Models.Item(2));
    EXPECT_FLOAT_EQ(object.R(), -std::numbers::pi_v<float>);
    EXPECT_EQ((std::array{object.X(), object.Y(), object.Z()}), (std::array{1.0f, 2.0f, 3.0f}));
    EXPECT_NE(shapes.asked.size() + 1, 0u);
    try {
        view.LoadShapeInToViewer("a", path, 0, 0, 0, 0);
        FAIL() << "a key twice";
    } catch (const host::RuntimeError &error) {
        EXPECT_EQ(error.Number(), 457);
    }
    EXPECT_EQ(view.Models.Count(), 2);
    EXPECT_THROW(view.Models.Item(3), host::RuntimeError);
    EXPECT_THROW(view.Models.Item("c"), host::RuntimeError);
    EXPECT_EQ(dialogs.Log(), "");
}

TEST_F(TSViewTest, ReportsAndLeavesOutWhatCannotBeLoaded)
{
    TSView view(environment);
    EXPECT_FALSE(view.LoadShapeInToViewer("a", game.Write("bad.s"), 0, 0, 0, 0));
    EXPECT_EQ(dialogs.TakeLog(), "critical|Error Loading Shape|bad.s: nothing but holes\n");
    EXPECT_FALSE(view.LoadShapeInToViewer("a", game.At("none.s"), 0, 0, 0, 0));
    EXPECT_EQ(dialogs.TakeLog(), "critical|LoadShape|" + game.At("none.s") + " does not exist!\n")
        << "one message, and no empty one after it";
    EXPECT_EQ(view.Models.Count(), 0);
}

TEST_F(TSViewTest, TracesEveryCreationAndDestruction)
{
    {
        TSView view(environment);
        view.LoadShapeInToViewer("a", path, 0, 0, 0, 0);
        view.LoadShapeInToViewer("b", game.Write("bad.s"), 0, 0, 0, 0);
        view.LoadShapeInToViewer("c", game.Write("heavy.s"), 0, 0, 0, 0);
    }
    EXPECT_EQ(traceLines(), "> tsview\n> tsviewobject\n> tsviewobject\n< tsviewobject\n"
                            "> tsviewobject\n< tsviewobject\n< tsviewobject\n< tsview\n");
}
