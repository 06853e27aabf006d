// SPDX-License-Identifier: MIT
// Compares pictures of the sample's models with those in tests/fixtures/pictures.
//
// If a picture differs, the test saves it and an image of the differences in the folder
// $ZELK_TEST_PICTURES, or else in "failed-pictures" in the working folder; the message names the
// files. If the difference is intended, run this test with ZELK_RENEW_PICTURES=1, which rewrites
// the pictures. Look at each before you commit it: lettering must read from left to right.
#include "OffscreenScene.h"
#include "korvat/TestShape.h"
#include "samples/Sample.h"
#include "viewer/ScenePoses.h"
#include "viewer/Stage.h"

#include <QDir>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>

using korvat::Ground;
using viewer::CameraPose;

namespace {

constexpr int kWidth = 160, kHeight = 100;
constexpr int kClear = 48; ///< of 255: another OpenGL may cause smaller differences
constexpr int kVisible = 20;
constexpr double kAllowed = 0.02, kMirrored = 0.04; ///< as shares of the pixels

class BaselineTest : public OffscreenScene
{
protected:
    BaselineTest()
        : OffscreenScene(kWidth, kHeight)
    {
        if (!canvas)
            return;
        samples::WriteSample(folder.At("s"), {.loads = true, .looks = true});
        canvas->SetRangeNear(50);
        canvas->SetRangeFar(600);
    }

    /// Gives the only object the texture from a season's folder.
    void dress(const std::string &season)
    {
        ShapeModel &model = view.Models.Item(1).Model();
        model.SetTexture(0, model.LoadTexture(season + '\\' + model.TextureInfo(0)));
    }
    void show(const std::string &shapeFile)
    {
        view.DestroyModels();
        Load(shapeFile, 0, 0);
    }
    void show(const std::vector<Panel> &panels)
    {
        // A new name each time, because the library remembers files in use.
        show(folder.Write("made-up" + std::to_string(++m_shapes) + ".s", ShapeText(panels)));
    }
    QImage take(const CameraPose &camera) { return take(camera, view); }
    QImage take(const CameraPose &camera, TSView &scene)
    {
        static_cast<CameraPose &>(scene) = camera;
        scene.ResetCamera();
        // The lowest bits are noise, which makes files larger.
        return canvas->Picture()
            .convertToFormat(QImage::Format_RGB16)
            .convertToFormat(QImage::Format_RGB888);
    }

private:
    int m_shapes = 0;
};

/// Returns the largest difference of the three colours of a pixel.
int apart(QRgb a, QRgb b)
{
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                     std::abs(qBlue(a) - qBlue(b))});
}

/// Returns the share of the pixels that differ by more than `least`, or 1 if the sizes differ.
double difference(const QImage &a, const QImage &b, int least = kClear)
{
    if (a.size() != b.size())
        return 1;
    int clear = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            clear += apart(a.pixel(x, y), b.pixel(x, y)) > least;
    return static_cast<double>(clear) / (a.width() * a.height());
}

/// Saves the painted picture, and an image in which brighter pixels differ more from the wanted
/// one. Returns a message that names the files.
std::string leave(const std::string &name, const QImage &picture, const QImage &wanted)
{
    const char *named = std::getenv("ZELK_TEST_PICTURES");
    QDir where(named ? QString::fromLocal8Bit(named) : QStringLiteral("failed-pictures"));
    where.mkpath(QStringLiteral("."));
    QImage differences(picture.size(), QImage::Format_Grayscale8);
    differences.fill(255);
    for (int y = 0; y < std::min(picture.height(), wanted.height()); ++y)
        for (int x = 0; x < std::min(picture.width(), wanted.width()); ++x)
            differences.scanLine(y)[x] =
                static_cast<uchar>(apart(picture.pixel(x, y), wanted.pixel(x, y)));
    const QString base = where.absoluteFilePath(QString::fromStdString(name));
    const QString painted = base + QStringLiteral(".png");
    const QString different = base + QStringLiteral("-difference.png");
    EXPECT_TRUE(picture.save(painted) && differences.save(different));
    return painted.toStdString() + " and " + different.toStdString();
}

/// Compares a picture with the stored one of this name, or stores it if pictures are renewed.
/// Returns the stored picture.
QImage compare(const std::string &name, const QImage &picture)
{
    const QString file = QStringLiteral(ZELK_PICTURES "/%1.png").arg(QString::fromStdString(name));
    if (std::getenv("ZELK_RENEW_PICTURES")) {
        EXPECT_TRUE(picture.save(file)) << file.toStdString();
        return picture;
    }
    const QImage wanted(file);
    const double share = difference(picture, wanted);
    if (share > kAllowed)
        ADD_FAILURE() << 100 * share << " % of the picture differ from " << file.toStdString()
                      << ", see " << leave(name, picture, wanted);
    return wanted;
}

/// Expects that something is visible in a picture that is not in the other.
void expectOther(const QImage &with, const QImage &without)
{
    EXPECT_GT(difference(with, without, kVisible), kAllowed);
}

/// Returns a boiler: sixteen flat panels around an axis along Z.
std::vector<Panel> boiler(int lightMaterial)
{
    std::vector<Panel> panels;
    constexpr int sides = 16;
    const auto at = [](int side, float z) {
        const float angle = 2 * std::numbers::pi_v<float> * static_cast<float>(side) / sides;
        return korvat::Vec3{1.4F * std::sin(angle), 2.2F + 1.4F * std::cos(angle), z};
    };
    for (int i = 0; i < sides; ++i) {
        panels.push_back({{at(i, -5), at(i, 5), at(i + 1, 5), at(i + 1, -5)}});
        panels.back().shader = "TexDiff";
        panels.back().image = "paint.dds";
        panels.back().lightMaterial = lightMaterial;
    }
    return panels;
}

/// Returns a bush: two crossed panels that are seen from both sides, with normals to the sides.
std::vector<Panel> bush(int lightMaterial)
{
    std::vector<Panel> panels;
    for (const float facing : {1.0F, -1.0F}) {
        panels.push_back(SidePanel(0, facing, {0, 1.5F, 0}, 3, 3));
        panels.push_back(EndPanel(0, facing, {0, 1.5F, 0}, 3, 3));
    }
    for (Panel &panel : panels) {
        panel.shader = "BlendATexDiff";
        panel.image = "leaves.dds";
        panel.alphaTest = 1;
        panel.lightMaterial = lightMaterial;
    }
    return panels;
}

/// Returns an engine with a lettered wheel, which turns, and a pantograph, which rises by one
/// metre.
std::string engineText()
{
    std::vector<Panel> panels = {SidePanel(1, 1, {0, 2.5F, 0}, 8, 2), SidePanel(1.1F, 1, {}, 2, 2),
                                 SidePanel(0.9F, 1, {}, 3, 0.3F)};
    std::string text = ShapeText(panels);
    const auto replace = [&text](const std::string &from, const std::string &to) {
        text.replace(text.find(from), from.size(), to);
    };
    const std::string state = "vtx_state ( 00000000 0 ";
    replace(state, "vtx_state ( 00000000 ");
    for (const char *matrix : {"1 ", "2 "}) // of the second and the third panel
        text.replace(text.find(state), state.size(), "vtx_state ( 00000000 " + std::string(matrix));
    replace("vtx_state ( 00000000 ", state);
    replace("matrix MAIN ( 1 0 0 0 1 0 0 0 1 0 0 0 ) ",
            "matrix MAIN ( 1 0 0 0 1 0 0 0 1 0 0 0 ) matrix WHEELS1 ( 1 0 0 0 1 0 0 0 1 0 1 0 ) "
            "matrix PANTOGRAPHTOP1 ( 1 0 0 0 1 0 0 0 1 0 3.7 1 ) ");
    replace("hierarchy ( 1 -1 )", "hierarchy ( 3 -1 0 0 )");
    const std::string animation =
        "animations ( 1 animation ( 2 30 anim_nodes ( 3 anim_node MAIN ( controllers ( 0 ) ) "
        "anim_node WHEELS1 ( controllers ( 0 ) ) anim_node PANTOGRAPHTOP1 ( controllers ( 1 "
        "linear_pos ( 2 linear_key ( 0 0 3.7 1 ) linear_key ( 2 0 4.7 1 ) ) ) ) ) ) ) ";
    return text.insert(text.rfind(')'), animation);
}

constexpr const char *kStock = "s/TRAINS/TRAINSET/", *kCottage = "ROUTES/TARNWICK/SHAPES/cottage.s";

} // namespace

TEST_F(BaselineTest, ModelsMatchTheStoredPictures)
{
    const CameraPose garden{15, 6, 13, 0, 2.2F, 0};
    const struct
    {
        const char *name, *shape;
        float z, degrees;
        int count; ///< one after the other
        const char *season;
        CameraPose camera;
    } rows[] = {
        {"lettering-right",
         "Boxes & Vans/box_501.s",
         0,
         0,
         1,
         "",
         {7, 2.3F, -2.5F, 0, 2.3F, -2.5F}},
        {"lettering-left", "Boxes & Vans/box_501.s", 0, 0, 1, "", {-7, 2.3F, 2.5F, 0, 2.3F, 2.5F}},
        {"flipped", "Ardmoor Valley/avr_d401.s", 8.6F, -180, 1, "", {13, 3, -8.6F, 0, 2.2F, -8.6F}},
        {"glass", "Coastline/coach_first.s", 0, 0, 1, "", {5, 2.8F, 4, 0, 2.5F, 1}},
        {"railings", "Ardmoor Valley/avr_caboose.s", 0, 0, 1, "", {5, 3, 9, 0, 2, 4}},
        {"haze", "Ardmoor Valley/avr_hopper_11.s", 0, 0, 50, "", {30, 10, -90, 0, 4, -190}},
        {"cottage-summer", kCottage, 0, 0, 1, "", garden},
        {"cottage-snow", kCottage, 0, 0, 1, "Snow", garden},
        {"cottage-night", kCottage, 0, 0, 1, "Night", garden},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        view.DestroyModels();
        canvas->SetGround(row.shape == kCottage ? Ground::Plain : Ground::Track);
        for (int i = 0; i < row.count; ++i)
            Load(folder.At((row.shape == kCottage ? "s/" : kStock) + std::string(row.shape)),
                 row.z - 11.5F * static_cast<float>(i), row.degrees);
        if (*row.season)
            dress(row.season);
        const QImage picture = take(row.camera);
        const QImage wanted = compare(row.name, picture);
        EXPECT_GT(difference(picture.mirrored(true, false), wanted), kMirrored)
            << "this picture would not show a mirrored model";
    }
    EXPECT_EQ(dialogs.Log(), "");
}

TEST_F(BaselineTest, LoadsAndCouplersMatchTheStoredPictures)
{
    const struct
    {
        const char *name, *file; ///< a wagon of the loaded cars, or "" for their consist
        bool loads;
        CameraPose camera;
    } rows[] = {
        {"load-msts", "lc_crates", true, {9, 4.5F, 12, 0, 1.8F, 4}},
        {"load-static", "lc_pair", true, {9, 4.5F, 12, 0, 1.8F, 4}},
        {"load-full", "lc_ore", true, {4, 3, 8, 0, 1.3F, 4}},
        {"coupler-free", "lc_pair", false, {2.2F, 1.8F, 11.2F, 0, 0.9F, 9.4F}},
        {"coupler-coupled", "", false, {-2.4F, 1.9F, -53.5F, 0, 0.9F, -55}},
    };
    const install::Environment environment{dialogs, files, settings, installation, shapes};
    const auto mute = [](const std::string &) {};
    viewer::Stage bare(environment, canvas.get(), mute), full(environment, canvas.get(), mute);
    full.ShowAllAdded();
    const std::string stock = folder.At("s/TRAINS/TRAINSET/");
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        bare.ShowLoads(false);
        full.ShowLoads(row.loads);
        QImage pictures[2];
        for (viewer::Stage *stage : {&bare, &full}) {
            if (*row.file)
                stage->RenderShape(stock + "Kestrel 62' Flats/flat 6201.s",
                                   stock + "Loaded Cars/" + row.file + ".wag");
            else
                stage->RenderConsist(folder.At("s/TRAINS/CONSISTS/Loaded Cars.con"),
                                     folder.At("s"));
            while (stage->Step())
                continue;
            pictures[stage == &full] = take(row.camera, *stage->View());
        }
        compare(row.name, pictures[1]);
        EXPECT_GT(difference(pictures[0], pictures[1]), kAllowed) << "nothing is added";
    }
    EXPECT_EQ(dialogs.Log(), "");
}

TEST_F(BaselineTest, LooksMatchTheStoredPictures)
{
    const CameraPose corner{7, 3.5F, 7, 0, 1.6F, -5}, garden{15, 6, 13, 0, 2.2F, 0};
    const std::string train = "s/TRAINS/CONSISTS/Night Line.con",
                      house = "s/" + std::string(kCottage);
    const std::string engine = kStock + std::string("Ardmoor Valley/avr_d401.s");
    const viewer::ViewOptions dark{.night = true};
    const struct
    {
        const char *name;
        std::string file;
        viewer::ViewOptions with, without;
        CameraPose camera;
    } rows[] = {
        {"winter", house, {.season = viewer::Season::Winter, .snow = true}, {}, garden},
        {"night", house, dark, {}, garden},
        {"snow", train, {.snow = true}, {}, corner},
        {"headlights", train, {.night = true, .lights = true}, dark, {4, 2.5F, 6, 0, 1.6F, 0}},
        {"headlights-day", train, {.lights = true}, {}, {4, 2.5F, 6, 0, 1.6F, 0}},
        {"tail-lights", train, {.night = true, .lights = true}, dark, {3, 2, -40, 0, 1.6F, -35}},
        {"cone", train, {.night = true, .lights = true}, dark, {-4, 5, 2, 0, 0, 22}},
        {"wireframe", engine, {.wireframe = true}, {}, {8, 4, 9, 0, 2, 2}},
        {"normals", engine, {.normals = true}, {}, {4, 4, 9, 0, 2, 5}},
        {"boxes", train, {.boxes = true}, {}, {5, 3, 5, 0, 1.6F, -5}},
        {"missing", train, {.marksMissing = true}, {}, {7, 3.5F, -10, 0, 1.6F, -20}},
    };
    const install::Environment environment{dialogs, files, settings, installation, shapes};
    viewer::Stage stage(environment, canvas.get(), [](const std::string &) {});
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        stage.SetOptions(row.without);
        if (row.file == train)
            stage.RenderConsist(folder.At(row.file), folder.At("s"));
        else
            stage.RenderShape(folder.At(row.file));
        while (stage.Step())
            continue;
        const QImage without = take(row.camera, *stage.View());
        stage.SetOptions(row.with);
        expectOther(compare(row.name, take(row.camera, *stage.View())), without);
        stage.SetOptions(row.without);
        EXPECT_EQ(difference(take(row.camera, *stage.View()), without, 0), 0) << "nothing is left";
    }
    EXPECT_EQ(dialogs.Log(), "");
}

TEST_F(BaselineTest, ShadowsAndGroundMatchTheStoredPictures)
{
    show(folder.At(kStock + std::string("Ardmoor Valley/avr_d401.s")));
    const CameraPose shadowSide{-9, 4, 13, 0, 1.5F, 2}, below{6, -2.5F, 9, 0, 1, 0};
    const QImage shadows = compare("shadows", take(shadowSide));
    {
        const support::ScopedVariable off("ZELK_SHADOWS", "off");
        expectOther(shadows, take(shadowSide));
    }
    const QImage fromBelow = compare("from-below", take(below));
    canvas->Device()->SetSurroundings(nullptr, -1000);
    canvas->Device()->Begin();
    view.Models.Item(1).Model().Render(1, -1);
    canvas->Device()->End();
    expectOther(fromBelow, canvas->Picture());

    const CameraPose corner{20, 7, 22, 0, 4, 0};
    show(folder.At("s/ROUTES/TARNWICK/SHAPES/chapel.s"));
    const QImage track = take(corner);
    canvas->SetGround(Ground::Plain);
    expectOther(compare("plain-ground", take(corner)), track);
    EXPECT_EQ(dialogs.Log(), "");
}

TEST_F(BaselineTest, MaterialsMatchTheStoredPictures)
{
    folder.Write("paint.dds", PictureFile({30, 70, 45, 255}));
    folder.Write("leaves.dds", PictureFile(32, 32, [](unsigned x, unsigned y) {
                     const bool leaf = (x / 4 * 7 + y / 4 * 13 + x / 4 * y / 4) % 5 < 3;
                     return Pixel{70, 110, 40, static_cast<std::uint8_t>(leaf ? 255 : 0)};
                 }));
    const struct
    {
        const char *name;
        std::vector<Panel> (*panels)(int lightMaterial);
        int lightMaterial;
        CameraPose camera;
    } rows[] = {{"shiny", boiler, -6, {6, 4.3F, -4, 0, 2.2F, 0}},
                {"very-shiny", boiler, -7, {6, 4.3F, -4, 0, 2.2F, 0}},
                {"plant", bush, -9, {-4, 2.5F, -5, 0, 1.3F, 0}}};
    canvas->SetGround(Ground::Plain);
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        show(row.panels(row.lightMaterial));
        const QImage picture = compare(row.name, take(row.camera));
        show(row.panels(-5));
        expectOther(picture, take(row.camera));
    }
    EXPECT_EQ(dialogs.Log(), "");
}

TEST_F(BaselineTest, MovedAndHiddenPartsMatchTheStoredPictures)
{
    using viewer::ViewOptions;
    folder.Write("side.dds", LetterFile());
    show(folder.Write("engine.s", engineText()));
    view.Models.Item(1).SetWheels(1, 0);
    const CameraPose side{9, 2.5F, 0, 0, 2.5F, 0};
    const QImage still = take(side);
    const auto takeWith = [&](const ViewOptions &options, float travelled) {
        view.SetOptions(options);
        view.SetTravelled(travelled);
        return take(side);
    };
    const std::string wheel = viewer::PartKey(folder.At("engine.s"), "WHEELS1");
    const struct
    {
        const char *name;
        ViewOptions options;
        float travelled;
    } rows[] = {{"moved-wheel", {.speed = 1}, 0.8F},
                {"raised-pantograph", {.pantographs = true}, 0},
                {"hidden-part", {.hiddenParts = {wheel}}, 0}};
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        const QImage picture = takeWith(row.options, row.travelled);
        compare(row.name, picture);
        expectOther(picture, still);
    }
    EXPECT_EQ(difference(takeWith({}, 0), still, 0), 0) << "at rest again";
    EXPECT_EQ(dialogs.Log(), "");
}

TEST_F(BaselineTest, FartherLevelMatchesTheStoredPicture)
{
    show(folder.At(kStock + std::string("Ardmoor Valley/avr_d401.s")));
    const CameraPose near{7, 3.5F, 11, 0, 1.8F, 5};
    const QImage finest = take(near);
    view.SetOptions({.level = 99});
    expectOther(compare("far-level", take(near)), finest);
    view.SetOptions({.level = 1});
    EXPECT_EQ(difference(take(near), finest, 0), 0);
    EXPECT_EQ(dialogs.Log(), "");
}
