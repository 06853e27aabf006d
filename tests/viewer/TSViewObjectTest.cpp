// SPDX-License-Identifier: MIT
#include "viewer/TSViewObject.h"

#include "Scene.h"
#include "host/RuntimeError.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace {

class TSViewObjectTest : public SceneTest
{
protected:
    TSViewObjectTest()
    {
        shapes.textures["car.s"] = {"side.ace", "gone.ace"};
        path = game.Write("car.s", "shape");
    }
    /// Returns the places of the shape's origin and of its nose, the point (0, 0, 1), in the scene.
    static std::string noseAndOrigin(const TSViewObject &object)
    {
        const auto text = [&object](float z) {
            const korvat::Vec3 p = korvat::TransformPoint({0, 0, z}, object.Model().WorldMatrix());
            return std::to_string(std::lround(p.x)) + ',' + std::to_string(std::lround(p.y)) + ',' +
                   std::to_string(std::lround(p.z));
        };
        return text(1) + " " + text(0);
    }
    std::string path;
};

constexpr float kPi = std::numbers::pi_v<float>;

} // namespace

TEST_F(TSViewObjectTest, MovesAndTurnsInTheOrderOfTheCalls)
{
    const struct
    {
        const char *name;
        void (*act)(TSViewObject &);
        const char *noseAndOrigin;
    } rows[] = {
        {"nothing", [](TSViewObject &) {}, "0,0,1 0,0,0"},
        {"move", [](TSViewObject &o) { o.MoveTo(1, 2, 3); }, "1,2,4 1,2,3"},
        {"turn after a move",
         [](TSViewObject &o) {
             o.MoveTo(0, 0, -5);
             o.RotateTo(kPi);
         },
         "0,0,4 0,0,5"},
        {"move and turn at once", [](TSViewObject &o) { o.MoveAndRotateTo(0, 0, 5, -kPi); },
         "0,0,-6 0,0,-5"},
        {"turn on the spot", [](TSViewObject &o) { o.RotateAndMoveTo(0, 0, -5, kPi); },
         "0,0,-6 0,0,-5"},
        {"quarter turn",
         [](TSViewObject &o) {
             o.SetZ(4);
             o.SetR(kPi / 2);
         },
         "5,0,0 4,0,0"},
        {"single axes",
         [](TSViewObject &o) {
             o.SetX(1);
             o.SetY(2);
             o.SetZ(3);
         },
         "1,2,4 1,2,3"},
        {"steps",
         [](TSViewObject &o) {
             o.MoveBy(1, 0, 2);
             o.MoveBy(0, 0, 2);
             o.RotateBy(kPi);
         },
         "-1,0,-5 -1,0,-4"},
        {"no step keeps the order of the last call",
         [](TSViewObject &o) {
             o.RotateAndMoveTo(0, 0, -5, kPi);
             o.MoveBy(0, 0, 0);
             o.RotateBy(0);
         },
         "0,0,-6 0,0,-5"},
    };
    for (const auto &row : rows) {
        TSViewObject object(environment);
        row.act(object);
        EXPECT_EQ(noseAndOrigin(object), row.noseAndOrigin) << row.name;
    }
    TSViewObject object(environment);
    object.MoveTo(0, 0, 7);
    EXPECT_THROW(object.MoveBy(std::numeric_limits<float>::infinity(), 0, 0), host::RuntimeError);
    EXPECT_EQ(object.Z(), 7);
}

TEST_F(TSViewObjectTest, LoadingStoresTheNamesOfTheTextures)
{
    TSViewObject object(environment);
    object.Model().SetTexturePath("..\\textures\\");
    ASSERT_TRUE(object.LoadShape(path));
    EXPECT_EQ(object.NumTextures(), 2);
    EXPECT_EQ(object.Texture(1) + " " + object.Texture(2), "side.ace gone.ace");
    for (const int index : {0, 3, -1})
        EXPECT_THROW(object.Texture(index), host::RuntimeError) << index;
    const std::string folder = game.At("");
    EXPECT_NE(shapes.asked.find("|..\\textures\\|side.ace\n"), std::string::npos) << shapes.asked;
    EXPECT_EQ(object.Model().Problems(), std::vector<std::string>{"gone.ace is missing"});
}

TEST_F(TSViewObjectTest, ReportsEachFailureToLoadOnce)
{
    TSViewObject object(environment);
    EXPECT_FALSE(object.LoadShape(game.At("none.s")));
    EXPECT_EQ(dialogs.TakeLog(), "critical|LoadShape|" + game.At("none.s") + " does not exist!\n");
    EXPECT_EQ(object.LastError(), "");
    EXPECT_FALSE(object.LoadShape(game.Write("bad.s")));
    EXPECT_EQ(object.LastError(), "bad.s: nothing but holes");
    EXPECT_EQ(dialogs.TakeLog(), "") << "the scene reports it";
    EXPECT_FALSE(object.LoadShape(game.At("none.s")));
    EXPECT_EQ(object.LastError(), "bad.s: nothing but holes") << "the model is not asked";
    EXPECT_TRUE(object.LoadShape(path));
    EXPECT_EQ(object.LastError(), "");
}

TEST_F(TSViewObjectTest, FlashingHidesAndRestoresTheTextures)
{
    TSViewObject object(environment);
    ASSERT_TRUE(object.LoadShape(path));
    const auto worn = [&object] {
        return (object.Model().GetTexture(0) != nullptr) +
               (object.Model().GetTexture(1) != nullptr);
    };
    EXPECT_FALSE(object.Flashed());
    EXPECT_EQ(worn(), 2);
    object.Flash();
    EXPECT_TRUE(object.Flashed());
    EXPECT_EQ(worn(), 0);
    object.SetFlashOn(true);
    EXPECT_EQ(worn(), 0) << "the request alone changes nothing";
    object.SetFlashOn(false);
    EXPECT_EQ(worn(), 2);
    object.UnFlash();
    EXPECT_EQ(worn(), 2) << "also if they were visible";
    EXPECT_FALSE(object.Flashed());
    object.Destroy();
    EXPECT_EQ(worn(), 0);
}

TEST_F(TSViewObjectTest, TracesCreationAndDestruction)
{
    {
        TSViewObject first(environment), second(environment);
    }
    EXPECT_EQ(traceLines(), "> tsviewobject\n> tsviewobject\n< tsviewobject\n< tsviewobject\n");
}
