// SPDX-License-Identifier: MIT
#include "korvat/draw/Renderer.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

using namespace korvat;

namespace {

/// A device that records its calls: "+m1" for the first mesh uploaded, "-t2" for the second texture
/// released. A draw call is a mark, its first index, "/" and its texture, "*" and its number of
/// places if there are several. The marks are "!" for alpha-tested, "#" for the solid part of a
/// blended surface, "~" for blended, "^" for added, "_" for the ground. "(" and a number begin a
/// shadow map; in it, a call is its first index, ":" and its number of indices.
class RecordingDevice : public Device
{
public:
    unsigned UploadMesh(std::span<const DrawVertex>,
                        std::span<const std::uint32_t> indices) override
    {
        log += "+m" + std::to_string(++m_given) + ' ';
        uploaded.assign(indices.begin(), indices.end());
        return m_given;
    }
    unsigned UploadTexture(const Texture &) override
    {
        log += "+t" + std::to_string(++m_given) + ' ';
        return m_given;
    }
    void ReleaseMesh(unsigned mesh) override { log += "-m" + std::to_string(mesh) + ' '; }
    void ReleaseTexture(unsigned texture) override { log += "-t" + std::to_string(texture) + ' '; }
    void BeginShadow(const ShadowMap &, std::size_t number) override
    {
        log += '(' + std::to_string(number) + ' ';
    }
    void DrawShadow(const ShadowCall &call, std::span<const Transform> at) override
    {
        EXPECT_EQ(call.alphaLimit > 0, call.texture != 0);
        log += std::to_string(call.firstIndex) + ':' + std::to_string(call.indexCount);
        finish(call.texture, at);
    }
    void BeginFrame(const FrameSetup &setup) override
    {
        log += "[ ";
        clouds = setup.clouds;
        shadows = setup.hasShadows;
    }
    void Draw(const DrawCall &call, std::span<const Transform> at) override
    {
        const bool solid = call.mixing == Mixing::Replace;
        const char *kind = call.mixing == Mixing::Add     ? "^"
                           : call.mixing == Mixing::Alpha ? "~"
                           : call.alphaLimit > 0.9f       ? "#"
                           : call.alphaLimit > 0          ? "!"
                           : call.isGround                ? "_"
                                                          : "";
        EXPECT_EQ(call.writesDepth, solid);
        EXPECT_EQ(call.opaque, solid && call.alphaLimit == 0);
        worlds.insert(worlds.end(), at.begin(), at.end());
        log += kind + std::to_string(call.firstIndex);
        finish(call.texture, at);
    }
    void EndFrame() override { log += "]"; }

    std::string TakeLog() { return std::exchange(log, {}); }
    std::string log;
    std::vector<Transform> worlds; ///< of the calls
    unsigned clouds = 0;           ///< of the last frame
    bool shadows = false;
    std::vector<std::uint32_t> uploaded; ///< the indices of the last mesh
    std::vector<Transform> places;       ///< of the last call

private:
    void finish(unsigned texture, std::span<const Transform> at)
    {
        log += (texture ? "/" + std::to_string(texture) : "") +
               (at.size() == 1 ? " " : "*" + std::to_string(at.size()) + ' ');
        places.assign(at.begin(), at.end());
    }

    unsigned m_given = 0;
};

std::shared_ptr<Texture> pictureOf(int alpha)
{
    auto picture = std::make_shared<Texture>();
    picture->alphaBits = alpha;
    return picture;
}

/// A row of triangles at X = 0, 1, 2 ..., one for each surface. Part i begins at index 3 i.
std::shared_ptr<Model> modelOf(const std::vector<Surface> &surfaces)
{
    auto model = std::make_shared<Model>();
    for (const Surface &surface : surfaces) {
        const auto first = static_cast<std::uint32_t>(model->mesh.vertices.size());
        for (const Vec3 at : {Vec3{0, 0, 0}, Vec3{0, 1, 0}, Vec3{0, 0, 1}})
            model->mesh.vertices.push_back(
                {at + Vec3{static_cast<float>(first) / 3, 0, 0}, {}, {}});
        for (std::uint32_t i = 0; i < 3; ++i)
            model->mesh.indices.push_back(first + i);
        Part part{first, 3, 0, surface, {}};
        model->parts.push_back(part);
    }
    MeasureBounds(*model);
    return model;
}

class RendererTest : public testing::Test
{
protected:
    RendererTest() { renderer.SetCamera({10, 0, 0}, {0, 0, 0}); }
    std::string paint()
    {
        device.TakeLog();
        renderer.Paint(device, 100, 100);
        return device.TakeLog();
    }
    void frameOf(const std::shared_ptr<Model> &model, const TexturePtr &picture,
                 const Transform &world = Identity())
    {
        renderer.Begin();
        renderer.Add(model, world, std::vector{picture});
        renderer.End();
    }

    Renderer renderer;
    RecordingDevice device;
};

constexpr auto kNone = Blending::None, kAlpha = Blending::Alpha, kAdd = Blending::Add;

} // namespace

TEST_F(RendererTest, ShaderAndAlphaDecideThePass)
{
    const struct
    {
        Blending blending;
        bool test;
        int alpha;
        const char *drawn;
    } rows[] = {
        {kNone, false, 0, "0/2"},        {kNone, true, 0, "0/2"},        {kNone, false, 1, "0/2"},
        {kNone, true, 1, "!0/2"},        {kNone, false, 8, "0/2"},       {kNone, true, 8, "!0/2"},
        {kAlpha, false, 0, "0/2"},       {kAlpha, true, 0, "0/2"},       {kAlpha, true, 1, "!0/2"},
        {kAlpha, false, 1, "#0/2 ~0/2"}, {kAlpha, true, 8, "#0/2 ~0/2"}, {kAdd, false, 8, "^0/2"},
        {kAdd, true, 1, "!0/2"},         {kAdd, false, 0, "0/2"},
    };
    for (const auto &row : rows) {
        Surface surface;
        surface.blending = row.blending;
        surface.alphaTest = row.test;
        renderer.Forget();
        device = {};
        frameOf(modelOf({surface}), pictureOf(row.alpha));
        EXPECT_EQ(paint(), "[ +m1 +t2 " + std::string(row.drawn) + " ]")
            << static_cast<int>(row.blending) << row.test << row.alpha;
    }
    Surface glass;
    glass.blending = kAlpha;
    frameOf(modelOf({glass}), nullptr);
    EXPECT_EQ(paint(), "[ -m1 -t2 +m3 0 ]") << "without a texture nothing is transparent";
}

TEST_F(RendererTest, DrawsBlendedPartsLastFromFarToNear)
{
    Surface glass, fence, wall;
    glass.blending = kAlpha;
    fence.alphaTest = true;
    // The camera is at X = 10: the first glass is the farthest from it, the last the nearest.
    frameOf(modelOf({glass, fence, glass, wall, glass}), pictureOf(8));
    EXPECT_EQ(paint(), "[ +m1 +t2 0/2 !3/2 #6/2 #9/2 #12/2 ~6/2 ~9/2 ~12/2 ]");
    renderer.SetCamera({-10, 0, 0}, {0, 0, 0});
    EXPECT_EQ(paint(), "[ 0/2 !3/2 #6/2 #9/2 #12/2 ~12/2 ~9/2 ~6/2 ]");
    renderer.SetCamera({2, 0, -40}, {2, 0, 0}); // almost equally far: file order decides
    frameOf(modelOf({glass, glass}), pictureOf(8), Translation({1.5f, 0, 0}));
    EXPECT_NE(paint().find("~0/4 ~3/4 ]"), std::string::npos);
}

TEST_F(RendererTest, PosesMoveAndHideParts)
{
    const auto model = modelOf({Surface{}, Surface{}, Surface{}});
    for (std::uint32_t i = 0; i < 3; ++i)
        model->parts[i].joint = i;
    const auto paintIn = [&](const Pose &pose) {
        renderer.Begin();
        renderer.Add(model, Translation({0, 0, 1}), std::vector<TexturePtr>{pictureOf(0)},
                     Renderer::Role::Object, std::make_shared<const Pose>(pose));
        renderer.End();
        device.worlds.clear();
        return paint();
    };
    Pose pose{
        {Identity(), Translation({0, 2, 0})}, {false, false, true}, model->box, model->bounds};
    EXPECT_EQ(paintIn(pose), "[ +m1 +t2 0/2 3/2 ]");
    ASSERT_EQ(device.worlds.size(), 2U);
    EXPECT_EQ(device.worlds[0], Translation({0, 0, 1}));
    EXPECT_EQ(device.worlds[1], Translation({0, 2, 1}));
    pose.bounds.centre = {100, 0, 0};
    pose.bounds.radius = 1;
    EXPECT_EQ(paintIn(pose), "[ -t2 ]") << "the pose decides what the camera sees";
    EXPECT_EQ(paintIn({{}, {}, model->box, model->bounds}).find("-"), std::string::npos)
        << "joints without an entry are at rest";
    EXPECT_EQ(device.worlds.size(), 3U);
}

TEST_F(RendererTest, DeviceHoldsEachResourceOnceAndOnlyWhileInUse)
{
    auto car = modelOf({Surface{}}), other = modelOf({Surface{}});
    auto paint1 = pictureOf(0), paint2 = pictureOf(0);
    renderer.Begin();
    for (int i = 0; i < 3; ++i)
        renderer.Add(car, Identity(), std::vector<TexturePtr>{i < 2 ? paint1 : paint2});
    renderer.Add(other, Identity(), std::vector<TexturePtr>{paint2});
    EXPECT_EQ(paint(), "[ ]") << "the frame is not complete yet";
    renderer.End();
    EXPECT_EQ(paint(), "[ +m1 +t2 +t3 +m4 0/2*2 0/3 0/3 ]");
    EXPECT_EQ(paint(), "[ 0/2*2 0/3 0/3 ]");
    renderer.Forget();
    EXPECT_EQ(paint().substr(0, 9), "[ +m5 +t6") << "another device gets everything again";
    frameOf(car, paint1);
    other.reset();
    paint2.reset();
    const std::string log = paint();
    EXPECT_TRUE(log == "[ -m8 -t7 0/6 ]") << log;
    renderer.Clear();
    EXPECT_EQ(paint(), "[ ]");
    renderer.ReleaseAll(device);
    EXPECT_EQ(device.TakeLog(), "-m5 -t6 ");
}

TEST_F(RendererTest, PartsAndModelsThatLookAlikeAreOneCall)
{
    Surface plain, shiny, fence, glass;
    shiny.finish = Finish::Shiny;
    fence.alphaTest = true;
    glass.blending = kAlpha;
    const auto car = modelOf({plain, glass, fence, shiny, plain, glass, fence});
    car->parts[4].slot = 1;
    const TexturePtr side = pictureOf(8), roof = pictureOf(8);
    renderer.SetShadows(true);
    renderer.Begin();
    for (const float x : {0.0f, -10.0f, -20.0f})
        renderer.Add(car, Translation({x, 0, 0}),
                     std::vector<TexturePtr>{x == -10 ? nullptr : side, roof});
    renderer.End();
    const std::string log = paint();
    EXPECT_EQ(device.uploaded, (std::vector<std::uint32_t>{0, 1,  2,  9,  10, 11, 12, 13, 14, 6, 7,
                                                           8, 18, 19, 20, 3,  4,  5,  15, 16, 17}));
    // Without its texture, the second one is solid.
    EXPECT_EQ(
        log.substr(log.find('[')),
        "[ +t3 0 3 9 15 18 0/2*2 3/2*2 6/3*3 !9/2*2 #15/2*2 #18/2*2 ~15/2 ~18/2 ~15/2 ~18/2 ]");
    EXPECT_NE(log.find("0:9*2 0:21 9:6/2*2 15:3/2*2 18:3/2*2 "), std::string::npos) << log;
    const auto pane = modelOf({glass});
    renderer.SetShadows(false);
    renderer.Begin();
    for (const float x : {0.0f, -10.0f, 5.0f})
        renderer.Add(pane, Translation({x, 0, 0}), std::vector{side});
    renderer.End();
    EXPECT_EQ(paint(), "[ +m4 #0/2*3 ~0/2*3 ]");
    EXPECT_EQ(device.places,
              (std::vector{Translation({-10, 0, 0}), Identity(), Translation({5, 0, 0})}))
        << "from far to near";
}

TEST_F(RendererTest, NeitherUploadsNorDrawsWhatTheCameraCannotSee)
{
    frameOf(modelOf({Surface{}}), nullptr, Translation({50, 0, 0}));
    EXPECT_EQ(paint(), "[ ]");
    renderer.SetCamera({10, 0, 0}, {20, 0, 0});
    EXPECT_EQ(paint(), "[ +m1 0 ]");
    const FrameSetup setup = renderer.Setup(200, 100);
    EXPECT_EQ(setup.eye, (Vec3{10, 0, 0}));
    renderer.SetHaze(50, 600);
    EXPECT_EQ(renderer.Setup(0, 0).width, 1) << "also while the window has no size";
    EXPECT_EQ(renderer.Setup(1, 1).hazeFar, 600);
}

TEST_F(RendererTest, ShadowsAreDrawnBeforeTheFrameAndOnlyIfWanted)
{
    Surface fence, glass, light;
    fence.alphaTest = true;
    glass.blending = kAlpha;
    light.blending = kAdd;
    const auto model =
        modelOf({Surface{}, Surface{}, fence, Surface{}, glass, light, Surface{}, Surface{}});
    const TexturePtr picture = pictureOf(8);
    frameOf(model, picture);
    const std::string frame = "[ 0/2 !15/2 #18/2 ~18/2 ^21/2 ]";
    paint();
    EXPECT_EQ(paint(), frame);
    EXPECT_FALSE(device.shadows);
    renderer.SetShadows(true);
    const std::string casts = "0:15 15:3/2 18:3/2 ";
    const std::string shaded = paint();
    EXPECT_TRUE(device.shadows);
    EXPECT_EQ(shaded.substr(shaded.find('[')), frame);
    EXPECT_NE(shaded.find("(0 "), std::string::npos);
    EXPECT_NE(shaded.find(casts), std::string::npos) << shaded;
    EXPECT_EQ(shaded.find('+'), std::string::npos) << "nothing is uploaded for shadows";
    renderer.SetShadows(false);
    EXPECT_EQ(paint(), frame);
}

TEST_F(RendererTest, SceneryCastsNoShadows)
{
    const TexturePtr picture = pictureOf(0), clouds = pictureOf(8);
    renderer.SetShadows(true);
    renderer.SetSurroundings(clouds, -1);
    renderer.Begin();
    for (const auto role : {Renderer::Role::Ground, Renderer::Role::Scenery})
        renderer.Add(modelOf({Surface{}}), Identity(), std::vector{picture}, role);
    renderer.End();
    EXPECT_EQ(paint(), "+t1 (0 (1 (2 [ +m2 +t3 +m4 _0/3 0/3 ]");
    EXPECT_EQ(device.clouds, 1u);
    const FrameSetup above = renderer.Setup(1, 1);
    EXPECT_EQ(above.nadir, above.horizon) << "the ground vanishes in the haze";
    renderer.SetCamera({10, -2, 0}, {0, 0, 0});
    paint();
    EXPECT_EQ(device.clouds, 0u) << "there is no sky below the ground";
    EXPECT_GT(renderer.Setup(1, 1).horizon.r, renderer.Setup(1, 1).horizon.b);
}
