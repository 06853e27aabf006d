// SPDX-License-Identifier: MIT
// Tests pictures of made-up shapes in places whose colours are known.
#include "korvat/TestShape.h"

#include "OffscreenScene.h"
#include "korvat/draw/ShapeModel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <initializer_list>
#include <memory>

using korvat::Vec3;

namespace {

constexpr int kWidth = 320, kHeight = 200;
constexpr Pixel kRed{220, 30, 30, 255}, kGreen{30, 200, 30, 255}, kWhite{255, 255, 255, 255};

class PictureTest : public OffscreenScene
{
protected:
    PictureTest()
        : OffscreenScene(kWidth, kHeight)
    {
        lookFrom({10, 2, 0}, {0, 2, 0});
        folder.Write("side.dds", LetterFile());
        folder.Write("red.dds", PictureFile(kRed));
        folder.Write("green.dds", PictureFile(kGreen));
        folder.Write("white.dds", PictureFile(kWhite));
    }

    void lookFrom(Vec3 eye, Vec3 target)
    {
        static_cast<viewer::CameraPose &>(view) = {eye.x,    eye.y,    eye.z,
                                                   target.x, target.y, target.z};
    }
    /// Adds a shape at this place along the track.
    void add(const std::vector<Panel> &panels, float z = 0, float degrees = 0)
    {
        const std::string name = "shape" + std::to_string(view.Models.Count()) + ".s";
        Load(folder.Write(name, ShapeText(panels)), z, degrees);
    }
    /// Paints the picture and, if $ZELK_TEST_PICTURES is set, saves a copy there.
    void take(const char *name)
    {
        view.ResetCamera();
        picture = canvas->Picture();
        if (const char *where = std::getenv("ZELK_TEST_PICTURES"))
            picture.save(QString::fromLatin1(where) + QLatin1Char('/') + QLatin1String(name) +
                         QLatin1String(".png"));
    }
    /// Returns the pixel that shows a place in the scene.
    QColor at(Vec3 place) const
    {
        const korvat::FrameSetup setup = canvas->Device()->Setup(kWidth, kHeight);
        const korvat::Transform all = setup.view * setup.projection;
        const float w =
            place.x * all.At(0, 3) + place.y * all.At(1, 3) + place.z * all.At(2, 3) + all.At(3, 3);
        const Vec3 seen = korvat::TransformPoint(place, all) * (1 / w);
        return picture.pixelColor(static_cast<int>((seen.x + 1) / 2 * kWidth),
                                  static_cast<int>((1 - seen.y) / 2 * kHeight));
    }
    static bool close(const QColor &got, const Pixel &wanted, int tolerance = 6)
    {
        return std::abs(got.red() - wanted[0]) <= tolerance &&
               std::abs(got.green() - wanted[1]) <= tolerance &&
               std::abs(got.blue() - wanted[2]) <= tolerance;
    }
    /// Returns the letter on a side panel as it appears from left to right on the screen, which is
    /// the direction `right` in the scene.
    std::string letterSeen(float x, Vec3 middle, float length, float height, float right) const
    {
        std::string rows;
        for (int row = 0; row < 7; ++row) {
            for (int column = 0; column < 5; ++column) {
                const float z = middle.z + right * length * (static_cast<float>(column) - 2) / 5;
                const float y = middle.y + height * (3 - static_cast<float>(row)) / 7;
                rows += at({x, y, z}).red() > 128 ? '#' : '.';
            }
            rows += '\n';
        }
        return rows;
    }

    QImage picture;
};

std::string letter()
{
    std::string rows;
    for (const char *row : kLetter)
        rows += std::string(row) + '\n';
    return rows;
}

} // namespace

TEST_F(PictureTest, LetteringIsNotMirroredOnEitherSide)
{
    const Vec3 middle{0, 2, 0};
    const std::vector<Panel> wagon = {SidePanel(1, 1, middle, 5, 3),
                                      SidePanel(-1, -1, middle, 5, 3)};
    add(wagon);
    take("right-side");
    EXPECT_EQ(letterSeen(1, middle, 5, 3, 1), letter());
    lookFrom({-10, 2, 0}, {0, 2, 0});
    take("left-side");
    EXPECT_EQ(letterSeen(-1, middle, 5, 3, -1), letter());
    view.DestroyModels();
    add(wagon, 8, -180); // a flipped vehicle: its place becomes -8
    lookFrom({10, 2, -8}, {0, 2, -8});
    take("flipped");
    EXPECT_EQ(letterSeen(1, {0, 2, -8}, 5, 3, 1), letter());
}

TEST_F(PictureTest, FrontIsOnTheRightAndOnTheLeftIfFlipped)
{
    std::vector<Panel> engine = {
        SidePanel(1, 1, {0, 2, -2}, 2, 2), SidePanel(1, 1, {0, 2, 2}, 2, 2),
        SidePanel(-1, -1, {0, 2, -2}, 2, 2), SidePanel(-1, -1, {0, 2, 2}, 2, 2),
        EndPanel(4, 1, {0, 2, 0}, 2, 2)};
    for (const std::size_t front : {1u, 3u, 4u})
        engine[front].image = "red.dds";
    for (const std::size_t rear : {0u, 2u})
        engine[rear].image = "green.dds";
    add(engine);
    take("front");
    EXPECT_TRUE(close(at({1, 2, 2}), kRed));
    EXPECT_TRUE(close(at({1, 2, -2}), kGreen));
    EXPECT_TRUE(close(picture.pixelColor(kWidth * 5 / 8, kHeight / 2), kRed)) << "on the right";
    lookFrom({0, 2, 15}, {0, 2, 0});
    take("nose");
    EXPECT_TRUE(close(at({0, 2, 4}), kRed)) << "the nose is at +Z";
    view.DestroyModels();
    add(engine, 0, -180);
    lookFrom({10, 2, 0}, {0, 2, 0});
    take("turned");
    EXPECT_TRUE(close(at({1, 2, 2}), kGreen));
    EXPECT_TRUE(close(at({1, 2, -2}), kRed));
}

TEST_F(PictureTest, BackFacesAreNotDrawn)
{
    Panel wall = SidePanel(0, 1, {0, 2, 0}, 4, 4);
    wall.image = "red.dds";
    add({wall});
    take("facing");
    EXPECT_TRUE(close(at({0, 2, 0}), kRed));
    lookFrom({-10, 2, 0}, {0, 2, 0});
    take("from-behind");
    EXPECT_FALSE(close(at({0, 2, 0}), kRed, 60));
}

TEST_F(PictureTest, AlphaIsTestedBlendedAddedOrIgnored)
{
    folder.Write("half.dds", PictureFile({200, 200, 200, 128}));
    folder.Write("clear.dds", PictureFile({200, 200, 200, 0}));
    const struct
    {
        const char *image, *shader;
        int alphaTest;
        Pixel seen; ///< in front of a red wall
    } rows[] = {
        {"half.dds", "Tex", 0, {200, 200, 200, 255}},
        {"half.dds", "Tex", 1, kRed},
        {"white.dds", "Tex", 1, kWhite},
        {"half.dds", "BlendATex", 0, {210, 115, 115, 255}},
        {"clear.dds", "BlendATex", 0, kRed},
        {"half.dds", "AddATex", 0, {255, 130, 130, 255}},
        {"white.dds", "BlendATex", 1, kWhite},
    };
    for (const auto &row : rows) {
        view.DestroyModels();
        Panel wall = SidePanel(-1, 1, {0, 2, 0}, 6, 4), pane = SidePanel(1, 1, {0, 2, 0}, 4, 2);
        wall.image = "red.dds";
        pane.image = row.image;
        pane.shader = row.shader;
        pane.alphaTest = row.alphaTest;
        add({pane, wall}); // the pane in front comes first in the file
        take((std::string("alpha-") + row.shader + std::to_string(row.alphaTest) + row.image)
                 .c_str());
        const QColor seen = at({1, 2, 0});
        EXPECT_TRUE(close(seen, row.seen)) << row.image << ' ' << row.shader << ' ' << row.alphaTest
                                           << ": " << seen.name().toStdString();
    }
}

TEST_F(PictureTest, BlendedPartsShowObjectsBehindThemInAnyFileOrder)
{
    folder.Write("blue.dds", PictureFile({0, 0, 255, 128}));
    folder.Write("yellow.dds", PictureFile({255, 255, 0, 128}));
    Panel nearer = SidePanel(1, 1, {0, 2, 0}, 4, 2), farther = SidePanel(-1, 1, {0, 2, 0}, 6, 4);
    nearer.image = "blue.dds";
    farther.image = "yellow.dds";
    nearer.shader = farther.shader = "BlendATex";
    Panel wall = SidePanel(-2, 1, {0, 2, 0}, 8, 4);
    wall.image = "white.dds";
    QColor first;
    for (const std::vector<Panel> &order :
         {std::vector{nearer, farther, wall}, std::vector{wall, farther, nearer}}) {
        view.DestroyModels();
        add(order);
        take("panes");
        // White behind half yellow behind half blue.
        EXPECT_TRUE(close(at({1, 2, 0}), {127, 127, 191, 255}))
            << at({1, 2, 0}).name().toStdString();
    }
}

TEST_F(PictureTest, HazeHidesDistantObjects)
{
    canvas->SetRangeNear(50);
    canvas->SetRangeFar(600);
    Panel wall = SidePanel(0, 1, {0, 15, 0}, 60, 30);
    wall.image = "red.dds";
    add({wall});
    const korvat::Tint horizon = canvas->Device()->Setup(1, 1).horizon;
    const auto expected = [&horizon](float hidden) {
        const auto mixed = [hidden](float haze, std::uint8_t own) {
            return static_cast<std::uint8_t>(
                std::lerp(static_cast<float>(own), haze * 255, hidden));
        };
        return Pixel{mixed(horizon.r, kRed[0]), mixed(horizon.g, kRed[1]),
                     mixed(horizon.b, kRed[2]), 255};
    };
    for (const float distance : {40.0f, 325.0f, 590.0f}) {
        lookFrom({distance, 15, 0}, {0, 15, 0});
        take("haze");
        const float hidden = std::max(0.0f, (distance - 50) / 550);
        EXPECT_TRUE(close(at({0, 15, 0}), expected(hidden)))
            << distance << ": " << at({0, 15, 0}).name().toStdString();
    }
}

TEST_F(PictureTest, MissingTextureIsACheckerPattern)
{
    Panel wall = SidePanel(1, 1, {0, 2, 0}, 4, 4);
    wall.image = "nowhere.ace";
    add({wall});
    EXPECT_EQ(view.Models.Item(1).Model().Problems(),
              std::vector<std::string>{"Texture nowhere.ace is missing"});
    take("checker");
    int bright = 0, dark = 0;
    for (float z = -1.9f; z < 1.9f; z += 0.1f) {
        bright += close(at({1, 2.2f, z}), {255, 64, 255, 255}, 40);
        dark += close(at({1, 2.2f, z}), {32, 32, 32, 255}, 40);
    }
    EXPECT_GT(bright, 10);
    EXPECT_GT(dark, 10);
    view.Models.Item(1).Flash();
    take("flashed");
    EXPECT_TRUE(close(at({1, 2, 0}), kWhite)) << "plain after Flash";
}

TEST_F(PictureTest, CompressedTextureWithOneLevelDoesNotShimmer)
{
    // A single level of alternating black and white rows of pixels: 64 x 64 blocks.
    std::string file = "DDS ";
    const auto put = [&file](std::initializer_list<std::uint32_t> numbers) {
        for (const std::uint32_t number : numbers)
            for (unsigned shift = 0; shift < 32; shift += 8)
                file += static_cast<char>(number >> shift & 255U);
    };
    put({124, 0x1007, 256, 256, 0, 0, 1});
    file.resize(76);
    put({32, 4});
    file += "DXT1";
    file.resize(128);
    for (int block = 0; block < 64 * 64; ++block)
        put({0x0000FFFF, 0x55005500});
    folder.Write("rows.dds", file);
    Panel wall = SidePanel(0, 1, {0, 2, 0}, 4, 4);
    wall.image = "rows.dds";
    Load(folder.Write("wall.s", ShapeText({wall}, "MipLinear")), 0, 0);
    lookFrom({30, 2, 0}, {0, 2, 0});
    take("rows");
    for (float y = 0.5f; y < 3.5f; y += 0.05f)
        ASSERT_TRUE(close(at({0, y, 0}), {128, 128, 128, 255}, 16))
            << y << ": " << at({0, y, 0}).name().toStdString();
}

TEST_F(PictureTest, SceneHasSkyGroundAndTrack)
{
    lookFrom({10, 2, 0}, {0, 2, 0});
    take("scenery");
    int blue = 0;
    for (int x = 0; x < kWidth; ++x) {
        const QColor sky = picture.pixelColor(x, 5);
        blue += sky.blue() > sky.red() + 20;
    }
    EXPECT_GT(blue, kWidth / 2) << "more sky than clouds";
    const QColor grass = at({-20, -0.72f, 0});
    EXPECT_GT(grass.green(), grass.blue() + 20);
    const QColor rail = at({0.75f, 0, 0});
    EXPECT_LT(std::abs(rail.red() - rail.blue()), 40) << "steel is grey";
}
