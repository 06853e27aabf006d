// SPDX-License-Identifier: MIT
#include "samples/Buildings.h"

#include "samples/MeshBuilder.h"
#include "samples/Painter.h"

#include <array>
#include <cmath>
#include <functional>

namespace samples {
namespace {

constexpr std::array kSides = {1.0F, -1.0F};
constexpr Colour kBrick{142, 78, 58};
constexpr Colour kPlaster{206, 194, 168};
constexpr Colour kStone{150, 146, 138};
constexpr Colour kTimber{112, 84, 58};
constexpr Colour kTiles{132, 66, 50};
constexpr Colour kSlate{78, 82, 90};
constexpr Colour kIron{58, 60, 64};
constexpr Colour kFrames{232, 228, 216};

bool snows(Season season)
{
    return season == Season::Snow || season == Season::SpringSnow || season == Season::AutumnSnow ||
           season == Season::WinterSnow;
}

enum class Cover
{
    Wall,
    Roof,
    Metal
};

/// A shape with its sheet, painted for one season.
class Site
{
public:
    Site(Season season, const std::string &image)
        : m_season(season)
        , m_sheet(256, season == Season::Night ? Colour{40, 42, 52} : kStone)
        , m_mesh({image})
    {
    }

    MeshBuilder &Mesh() { return m_mesh; }

    /// `lit` paints what shines at night, over everything else.
    Patch Paint(int wide, int high, const Window &window, Cover cover,
                const std::function<void(Brush &)> &paint,
                const std::function<void(Brush &)> &lit = {})
    {
        const Area area = m_sheet.Take(wide, high);
        Brush brush(m_sheet, area, window);
        paint(brush);
        dress(brush, window, cover);
        if (lit && m_season == Season::Night)
            lit(brush);
        return m_sheet.PatchOf(area);
    }

    Patch Plain(Colour colour, Cover cover = Cover::Wall)
    {
        return Paint(20, 20, {}, cover, [&](Brush &b) {
            b.Fill(colour);
            b.Weather(colour.red, 0.3F);
        });
    }

    BuiltScenery Finish()
    {
        return {m_mesh.Finish(), m_sheet.Pixels(), m_mesh.Low(), m_mesh.High()};
    }

private:
    void dress(Brush &b, const Window &w, Cover cover)
    {
        const Box2 all{w.x - 1, w.y - 1, w.x + w.width + 1, w.y + w.height + 1};
        const Box2 area{w.x, w.y, w.x + w.width, w.y + w.height};
        const bool roof = cover == Cover::Roof;
        if (m_season == Season::Spring || m_season == Season::SpringSnow)
            b.Rect(all, {120, 190, 90}, roof ? 0.07F : 0.05F);
        if (m_season == Season::Autumn || m_season == Season::AutumnSnow)
            leaves(b, w, roof);
        if (m_season == Season::Winter || m_season == Season::WinterSnow)
            b.Rect(all, {170, 184, 200}, 0.22F);
        if (snows(m_season) && roof)
            b.Rect(all, {242, 246, 252}, m_season == Season::AutumnSnow ? 0.72F : 0.88F);
        if (snows(m_season) && cover == Cover::Wall) {
            const Box2 foot{area.x0, area.y0, area.x1, area.y0 + w.height * 0.16F};
            b.Fade(foot, {244, 247, 252}, 0.95F, 0);
        }
        if (m_season == Season::Night)
            b.Rect(all, {8, 12, 30}, 0.74F);
    }

    static void leaves(Brush &b, const Window &w, bool roof)
    {
        b.Rect({w.x - 1, w.y - 1, w.x + w.width + 1, w.y + w.height + 1}, {190, 110, 40}, 0.1F);
        for (unsigned i = 0; i < 260; ++i) {
            const unsigned dice = (i * 2654435761U) ^ (i * 40503U << 9U);
            const float x = w.x + w.width * static_cast<float>(dice >> 22U) / 1024;
            const float share = static_cast<float>(dice >> 12U & 1023U) / 1024;
            const float y = w.y + w.height * (roof ? share : share * share * 0.3F);
            const Colour colour = i % 2 == 0 ? Colour{206, 128, 36} : Colour{168, 66, 28};
            b.Disc(x, y, 0.006F * w.width, colour, 0.8F);
        }
    }

    Season m_season;
    Sheet m_sheet;
    MeshBuilder m_mesh;
};

/// A window or a door in a wall: place of the middle of its foot, and size.
struct Hole
{
    float x;
    float y;
    float width;
    float height;
    bool door = false;
};

void paintHole(Brush &b, const Hole &hole)
{
    const Box2 box{hole.x - hole.width / 2, hole.y, hole.x + hole.width / 2, hole.y + hole.height};
    const float w = 0.09F;
    b.Rect({box.x0 - 0.18F, box.y1, box.x1 + 0.18F, box.y1 + 0.2F}, Shade(kStone, 1.1F));
    if (hole.door) {
        b.Rect(box, {74, 48, 34});
        for (float x = box.x0 + 0.2F; x < box.x1; x += 0.2F)
            b.Line(x, box.y0, x, box.y1, 0.02F, {30, 20, 14}, 0.6F);
        b.Frame(box, w, kFrames);
        b.Disc(box.x1 - 0.22F, box.y0 + 1, 0.05F, {200, 170, 80});
        return;
    }
    b.Rect(box, {44, 56, 66});
    b.Fade(box, {150, 176, 190}, 0, 0.5F);
    b.Frame(box, w, kFrames);
    b.Rect({hole.x - w / 2, box.y0, hole.x + w / 2, box.y1}, kFrames);
    b.Rect({box.x0, hole.y + hole.height * 0.6F, box.x1, hole.y + hole.height * 0.6F + w}, kFrames);
    b.Rect({box.x0 - 0.12F, box.y0 - 0.1F, box.x1 + 0.12F, box.y0}, Shade(kStone, 1.15F));
    b.Fade({box.x0 - 0.1F, box.y0 - 0.5F, box.x1 + 0.1F, box.y0 - 0.1F}, {40, 36, 30}, 0, 0.25F);
}

void lightHole(Brush &b, const Hole &hole)
{
    if (hole.door)
        return;
    const Box2 box{hole.x - hole.width / 2, hole.y, hole.x + hole.width / 2, hole.y + hole.height};
    b.RoundRect({box.x0 - 0.3F, box.y0 - 0.3F, box.x1 + 0.3F, box.y1 + 0.3F}, 0.3F, {255, 190, 90},
                0.18F);
    b.Rect(box, {255, 206, 112});
    b.Fade(box, {255, 240, 190}, 0.6F, 0);
    b.Frame(box, 0.09F, {120, 90, 50});
    b.Rect({hole.x - 0.045F, box.y0, hole.x + 0.045F, box.y1}, {120, 90, 50});
}

void paintBricks(Brush &b, const Window &w, Colour colour, float course, float length)
{
    b.Fill(colour);
    int row = 0;
    for (float y = w.y; y < w.y + w.height; y += course, ++row) {
        b.Line(w.x, y, w.x + w.width, y, course * 0.14F, Shade(colour, 1.3F), 0.5F);
        for (float x = w.x + (row % 2 == 0 ? 0 : length / 2); x < w.x + w.width; x += length)
            b.Line(x, y, x, y + course, course * 0.12F, Shade(colour, 1.3F), 0.4F);
    }
}

void paintBoards(Brush &b, const Window &w, Colour colour)
{
    b.Fill(colour);
    int number = 0;
    for (float x = w.x; x < w.x + w.width; x += 0.22F, ++number) {
        const float tint = 0.88F + 0.03F * static_cast<float>(number * 5 % 8);
        b.Rect({x, w.y, x + 0.22F, w.y + w.height}, Shade(colour, tint));
        b.Line(x, w.y, x, w.y + w.height, 0.03F, {20, 14, 10}, 0.5F);
    }
}

enum class Walls
{
    Brick,
    Plaster,
    Stone,
    Boards
};

void paintWall(Brush &b, const Window &w, Walls walls, std::span<const Hole> holes)
{
    if (walls == Walls::Brick)
        paintBricks(b, w, kBrick, 0.16F, 0.42F);
    if (walls == Walls::Stone)
        paintBricks(b, w, kStone, 0.4F, 0.8F);
    if (walls == Walls::Boards)
        paintBoards(b, w, kTimber);
    if (walls == Walls::Plaster) {
        b.Fill(kPlaster);
        for (const float x : {w.x + 0.1F, w.x + w.width / 2, w.x + w.width - 0.1F})
            b.Line(x, w.y, x, w.y + w.height, 0.2F, Shade(kTimber, 0.7F));
        for (const float y : {w.y + 0.1F, w.y + w.height * 0.5F, w.y + w.height - 0.1F})
            b.Line(w.x, y, w.x + w.width, y, 0.2F, Shade(kTimber, 0.7F));
    }
    b.Fade({w.x, w.y, w.x + w.width, w.y + 0.9F}, {50, 44, 34}, 0.45F, 0);
    b.Fade({w.x, w.y + w.height - 0.6F, w.x + w.width, w.y + w.height}, {0, 0, 0}, 0, 0.4F);
    b.Weather(static_cast<std::uint32_t>(w.width * 7), 0.3F);
    for (const Hole &hole : holes)
        paintHole(b, hole);
}

/// A house with a gable roof; its ridge runs along z.
struct House
{
    float width;
    float length;
    float eaves;
    float ridge;
    Walls walls = Walls::Brick;
    Colour roof = kTiles;
    std::vector<Hole> side = {}; ///< seen from the right, places from the middle
    std::vector<Hole> gable = {};
    std::string sign = {};
    float over = 0.45F; ///< how far the roof stands out
    Vec3 at = {};       ///< middle of its floor
};

Patch paintedWall(Site &site, int wide, int high, const Window &w, const House &house,
                  const std::vector<Hole> &holes)
{
    return site.Paint(
        wide, high, w, Cover::Wall,
        [&](Brush &b) {
            paintWall(b, w, house.walls, holes);
            if (!house.sign.empty() && w.width > house.width) {
                b.Rect({-2.6F, 2.75F, 2.6F, 3.35F}, {36, 44, 66});
                b.Text(0, 2.86F, 0.38F, house.sign, {240, 240, 232}, 0.17F);
            }
        },
        [&](Brush &b) {
            for (const Hole &hole : holes)
                lightHole(b, hole);
        });
}

/// Both slopes of the roof with the underside, and its edges.
void addRoof(Site &site, const House &h)
{
    const Patch tiles = site.Paint(118, 70, {0, 0, 8, 4}, Cover::Roof, [&](Brush &b) {
        paintBricks(b, {0, 0, 8, 4}, h.roof, 0.2F, 0.26F);
        b.Weather(131, 0.4F);
    });
    const Patch under = site.Plain(Shade(kTimber, 0.6F));
    const float half = h.width / 2;
    const float slope = (h.ridge - h.eaves) / half;
    const float out = half + h.over;
    const float low = h.eaves - slope * h.over;
    const float end = h.length / 2 + h.over;
    MeshBuilder &mesh = site.Mesh();
    for (const float side : kSides) {
        const auto at = [&](float x, float y, float z) {
            return h.at + Vec3{side * x, y, side * z};
        };
        mesh.Quad(at(0, h.ridge + 0.12F, -end), at(0, h.ridge + 0.12F, end),
                  at(out, low + 0.12F, end), at(out, low + 0.12F, -end), tiles);
        mesh.Quad(at(out, low, -end), at(out, low, end), at(0, h.ridge, end), at(0, h.ridge, -end),
                  under);
        mesh.Quad(at(out, low + 0.12F, -end), at(out, low + 0.12F, end), at(out, low, end),
                  at(out, low, -end), under);
        for (const float z : {end, -end}) {
            const std::array<Vec3, 4> edge = {{at(0, h.ridge + 0.12F, z), at(out, low + 0.12F, z),
                                               at(out, low, z), at(0, h.ridge, z)}};
            mesh.Polygon(edge, {0, 0, side * z > 0 ? 1.0F : -1.0F}, under);
        }
    }
}

void addHouse(Site &site, const House &h)
{
    const Window along{-h.length / 2, 0, h.length, h.eaves};
    const Window across{-h.width / 2, 0, h.width, h.ridge};
    const Patch side = paintedWall(site, 240, 62, along, h, h.side);
    const Patch gable = paintedWall(site, 96, 76, across, h, h.gable);
    MeshBuilder &mesh = site.Mesh();
    const float x = h.width / 2;
    const float z = h.length / 2;
    for (const float s : kSides) {
        mesh.Quad(h.at + Vec3{s * x, h.eaves, -s * z}, h.at + Vec3{s * x, h.eaves, s * z},
                  h.at + Vec3{s * x, 0, s * z}, h.at + Vec3{s * x, 0, -s * z}, side);
        const std::array<Vec3, 5> outline = {
            {h.at + Vec3{-x, 0, s * z}, h.at + Vec3{-x, h.eaves, s * z},
             h.at + Vec3{0, h.ridge, s * z}, h.at + Vec3{x, h.eaves, s * z},
             h.at + Vec3{x, 0, s * z}}};
        mesh.Polygon(outline, {0, 0, s}, gable);
    }
    addRoof(site, h);
}

void addChimney(Site &site, const Vec3 &foot, float height)
{
    const Patch brick = site.Plain(kBrick);
    const Patch cap = site.Plain(kStone, Cover::Roof);
    BoxSkin skin = BoxSkin::All(brick);
    site.Mesh().Box(foot + Vec3{-0.35F, 0, -0.35F}, foot + Vec3{0.35F, height, 0.35F}, skin);
    skin = BoxSkin::All(cap);
    site.Mesh().Box(foot + Vec3{-0.42F, height, -0.42F}, foot + Vec3{0.42F, height + 0.12F, 0.42F},
                    skin);
    for (const float z : {-0.16F, 0.16F})
        site.Mesh().Lathe(foot + Vec3{0, height + 0.1F, z}, Axis::Y,
                          std::array<Vec2, 3>{{{0, 0.12F}, {0.35F, 0.1F}, {0.36F, 0.02F}}}, 8,
                          brick);
}

void buildCottage(Site &site)
{
    addHouse(
        site,
        {.width = 6.4F,
         .length = 9,
         .eaves = 3.1F,
         .ridge = 5.9F,
         .walls = Walls::Plaster,
         .side = {{-3, 1.05F, 1.1F, 1.25F},
                  {3, 1.05F, 1.1F, 1.25F},
                  {0.9F, 1.05F, 1.1F, 1.25F},
                  {-1, 0, 1, 2.1F, true}},
         .gable = {{-1.5F, 1.05F, 1.1F, 1.2F}, {1.5F, 1.05F, 1.1F, 1.2F}, {0, 3.4F, 1, 1.1F}}});
    addChimney(site, {0.3F, 4.9F, -2.6F}, 1.9F);
    const Patch stone = site.Plain(kStone);
    for (const float side : kSides)
        site.Mesh().Box({side * 3.55F - 0.5F, 0, -side - 0.7F},
                        {side * 3.55F + 0.5F, 0.16F, -side + 0.7F}, BoxSkin::All(stone));
    const Patch fence = site.Paint(60, 26, {0, 0, 4, 1}, Cover::Wall, [](Brush &b) {
        b.Fill({86, 110, 66});
        for (float x = 0.1F; x < 4; x += 0.25F)
            b.Disc(x, 0.2F + 0.5F * std::abs(std::sin(x * 9)), 0.2F, {62, 92, 48});
        b.Weather(137, 0.5F);
    });
    for (const float z : {-6.0F, 6.0F})
        site.Mesh().Box({-5, 0, z - 0.25F}, {5, 0.95F, z + 0.25F}, BoxSkin::All(fence));
}

void buildStation(Site &site)
{
    House house{.width = 7,
                .length = 16,
                .eaves = 3.9F,
                .ridge = 6.6F,
                .roof = kSlate,
                .gable = {{-1.8F, 1, 1.1F, 1.5F}, {1.8F, 1, 1.1F, 1.5F}, {0, 4.1F, 1, 1.1F}},
                .sign = "TARNWICK"};
    for (const float x : {-6.6F, -4.0F, 4.0F, 6.6F})
        house.side.push_back({x, 0.9F, 1.2F, 1.6F});
    for (const float x : {-1.6F, 1.6F})
        house.side.push_back({x, 0, 1.3F, 2.3F, true});
    addHouse(site, house);
    for (const float z : {-5.0F, 5.0F})
        addChimney(site, {0, 6, z}, 1.5F);
    const Patch paving = site.Plain(kStone);
    const Patch edge = site.Plain(kFrames);
    const Patch canopy = site.Plain(kSlate, Cover::Roof);
    MeshBuilder &mesh = site.Mesh();
    mesh.Box({3.5F, 0, -14}, {7.5F, 0.35F, 14}, BoxSkin::All(paving));
    mesh.Box({7.3F, 0.35F, -14}, {7.5F, 0.38F, 14}, BoxSkin::All(edge));
    mesh.Box({3.5F, 3.45F, -8}, {6.6F, 3.6F, 8}, BoxSkin::All(canopy));
    for (const float z : {-7.0F, -2.4F, 2.4F, 7.0F})
        mesh.Bar({6.3F, 0.35F, z}, {6.3F, 3.45F, z}, 0.08F, 8, edge);
}

void buildHut(Site &site)
{
    const std::vector<Hole> panes = {{-1, 1.2F, 1.1F, 1.1F}, {1, 1.2F, 1.1F, 1.1F}};
    addHouse(site, {.width = 3.4F,
                    .length = 4.2F,
                    .eaves = 2.7F,
                    .ridge = 3.9F,
                    .walls = Walls::Boards,
                    .roof = kSlate,
                    .side = panes,
                    .gable = {{0, 0, 0.95F, 2.05F, true}},
                    .over = 0.3F});
    addChimney(site, {0.5F, 3, 1}, 1.2F);
}

void buildLamp(Site &site)
{
    const Patch iron = site.Plain({40, 58, 48}, Cover::Metal);
    const Patch glass = site.Paint(
        40, 40, {-1, -1, 2, 2}, Cover::Metal,
        [](Brush &b) {
            b.Fill({196, 206, 200});
            b.Frame({-1, -1, 1, 1}, 0.14F, {40, 58, 48});
            b.Disc(0, -0.2F, 0.3F, {240, 236, 210});
        },
        [](Brush &b) {
            b.Fill({255, 214, 120});
            b.Disc(0, -0.1F, 0.5F, {255, 250, 220});
            b.Frame({-1, -1, 1, 1}, 0.14F, {60, 50, 30});
        });
    const Patch cap = site.Plain({40, 58, 48}, Cover::Roof);
    MeshBuilder &mesh = site.Mesh();
    mesh.Lathe({}, Axis::Y,
               std::array<Vec2, 7>{{{0, 0.2F},
                                    {0.25F, 0.18F},
                                    {0.35F, 0.09F},
                                    {2.4F, 0.06F},
                                    {2.5F, 0.1F},
                                    {2.6F, 0.06F},
                                    {3.1F, 0.05F}}},
               12, iron);
    mesh.Bar({-0.4F, 2.75F, 0}, {0.4F, 2.75F, 0}, 0.025F, 6, iron);
    mesh.Lathe({0, 3.1F, 0}, Axis::Y, std::array<Vec2, 2>{{{0, 0.14F}, {0.5F, 0.24F}}}, 4, glass);
    mesh.Lathe({0, 3.6F, 0}, Axis::Y,
               std::array<Vec2, 4>{{{0, 0.3F}, {0.16F, 0.12F}, {0.24F, 0.05F}, {0.3F, 0.01F}}}, 8,
               cap);
}

void buildWaterTower(Site &site)
{
    const Patch tank = site.Paint(150, 60, {0, 0, 12, 3}, Cover::Wall, [](Brush &b) {
        paintBoards(b, {0, 0, 12, 3}, {128, 98, 70});
        for (const float y : {0.4F, 1.3F, 2.2F, 2.8F})
            b.Rect({0, y, 12, y + 0.08F}, kIron);
        b.Fade({0, 0, 12, 1}, {40, 50, 40}, 0.5F, 0);
        b.Weather(139, 0.4F);
    });
    const Patch roof = site.Plain(kSlate, Cover::Roof);
    const Patch legs = site.Plain(kTimber);
    const Patch iron = site.Plain(kIron, Cover::Metal);
    MeshBuilder &mesh = site.Mesh();
    mesh.Lathe({0, 4.4F, 0}, Axis::Y, std::array<Vec2, 3>{{{0, 0.01F}, {0, 2}, {2.8F, 2}}}, 20,
               tank);
    mesh.Lathe({0, 7.2F, 0}, Axis::Y,
               std::array<Vec2, 3>{{{-0.05F, 2.2F}, {0.05F, 2.2F}, {1.1F, 0.02F}}}, 20, roof);
    for (const float x : {-1.3F, 1.3F})
        for (const float z : {-1.3F, 1.3F}) {
            mesh.Box({x - 0.15F, 0, z - 0.15F}, {x + 0.15F, 4.4F, z + 0.15F}, BoxSkin::All(legs));
            mesh.Bar({x, 0.4F, z}, {x, 4, -z}, 0.05F, 5, iron);
            mesh.Bar({x, 0.4F, z}, {-x, 4, z}, 0.05F, 5, iron);
        }
    mesh.Box({-1.8F, 4.2F, -1.8F}, {1.8F, 4.4F, 1.8F}, BoxSkin::All(legs));
    mesh.Bar({1.9F, 4.9F, 0}, {3.4F, 3.6F, 0}, 0.14F, 10, iron);
    mesh.Bar({3.4F, 3.6F, 0}, {3.4F, 2.6F, 0}, 0.12F, 10, iron);
}

void buildBarn(Site &site)
{
    addHouse(site, {.width = 9,
                    .length = 14,
                    .eaves = 4,
                    .ridge = 8,
                    .walls = Walls::Boards,
                    .side = {{0, 0, 3.6F, 3.4F, true}},
                    .gable = {{0, 0, 3, 3, true}, {0, 5, 1.2F, 1.2F}}});
}

void buildChapel(Site &site)
{
    House nave{.width = 7,
               .length = 12,
               .eaves = 4.5F,
               .ridge = 8.2F,
               .walls = Walls::Stone,
               .roof = kSlate,
               .gable = {{0, 0, 1.5F, 2.6F, true}, {0, 4.4F, 1.3F, 2}}};
    for (const float x : {-4.0F, -1.4F, 1.4F, 4.0F})
        nave.side.push_back({x, 1.5F, 0.9F, 2.4F});
    addHouse(site, nave);
    const std::vector<Hole> belfry = {{0, 6.6F, 0.9F, 1.4F}};
    const Window w{-1.5F, 0, 3, 9};
    const Patch wall = paintedWall(
        site, 60, 70, w, {.width = 9, .length = 3, .eaves = 9, .ridge = 9, .walls = Walls::Stone},
        belfry);
    const Patch spire = site.Plain(kSlate, Cover::Roof);
    site.Mesh().Box({-1.5F, 0, 5.2F}, {1.5F, 9, 8.2F}, BoxSkin::All(wall));
    site.Mesh().Lathe({0, 9, 6.7F}, Axis::Y,
                      std::array<Vec2, 4>{{{-0.05F, 1.95F}, {0, 2}, {1, 1.3F}, {5.5F, 0.01F}}}, 8,
                      spire);
}

void buildFerryHouse(Site &site)
{
    House house{.width = 7.5F,
                .length = 11,
                .eaves = 5.4F,
                .ridge = 8.6F,
                .walls = Walls::Plaster,
                .gable = {{-2, 0.9F, 1.1F, 1.4F},
                          {2, 0.9F, 1.1F, 1.4F},
                          {0, 3.4F, 1.6F, 1.5F},
                          {0, 6, 1, 1.1F}},
                .over = 0.8F};
    for (const float x : {-4.0F, -1.6F, 1.6F, 4.0F})
        for (const float y : {0.9F, 3.4F})
            house.side.push_back({x, y, 1, 1.35F});
    addHouse(site, house);
    addChimney(site, {0.5F, 7.6F, 2}, 1.7F);
    const Patch wood = site.Plain(kTimber);
    MeshBuilder &mesh = site.Mesh();
    for (const float side : kSides) {
        mesh.Box({side * 4.35F - 0.6F, 2.85F, -5}, {side * 4.35F + 0.6F, 3, 5}, BoxSkin::All(wood));
        mesh.Box({side * 4.9F - 0.04F, 3.75F, -5}, {side * 4.9F + 0.04F, 3.85F, 5},
                 BoxSkin::All(wood));
        for (float z = -5; z <= 5; z += 1)
            mesh.Box({side * 4.9F - 0.04F, 3, z - 0.05F}, {side * 4.9F + 0.04F, 3.75F, z + 0.05F},
                     BoxSkin::All(wood));
    }
}

void buildCrane(Site &site)
{
    const Patch iron = site.Plain({168, 132, 40}, Cover::Metal);
    const Patch dark = site.Plain(kIron, Cover::Metal);
    const Patch stone = site.Plain(kStone);
    MeshBuilder &mesh = site.Mesh();
    mesh.Lathe({}, Axis::Y, std::array<Vec2, 3>{{{0, 1.6F}, {0.8F, 1.5F}, {0.82F, 0.01F}}}, 16,
               stone);
    mesh.Lathe({0, 0.8F, 0}, Axis::Y, std::array<Vec2, 2>{{{0, 0.4F}, {5.5F, 0.25F}}}, 12, iron);
    mesh.Box({-0.9F, 1.2F, -1.6F}, {0.9F, 2.8F, 0.4F}, BoxSkin::All(dark));
    for (const float x : {-0.4F, 0.4F}) {
        mesh.Bar({x, 1.8F, 0.4F}, {x * 0.3F, 7.2F, 6}, 0.12F, 6, iron);
        mesh.Bar({x * 0.5F, 6.2F, 0}, {x * 0.3F, 7.2F, 6}, 0.04F, 5, dark);
    }
    for (float share = 0.15F; share < 1; share += 0.17F)
        mesh.Bar({-0.4F + 0.28F * share, 1.8F + 5.4F * share, 0.4F + 5.6F * share},
                 {0.4F - 0.28F * share, 1.8F + 5.4F * share, 0.4F + 5.6F * share}, 0.05F, 5, iron);
    mesh.Bar({0, 7.1F, 6}, {0, 3.4F, 6}, 0.025F, 4, dark);
    mesh.Lathe({0, 3.1F, 6}, Axis::Y,
               std::array<Vec2, 4>{{{-0.2F, 0.01F}, {0, 0.16F}, {0.2F, 0.16F}, {0.35F, 0.02F}}}, 8,
               dark);
}

void buildPier(Site &site)
{
    const Patch deck = site.Paint(200, 60, {0, 0, 20, 4}, Cover::Roof, [](Brush &b) {
        paintBoards(b, {0, 0, 20, 4}, {134, 116, 94});
        b.Weather(149, 0.4F);
    });
    const Patch wood = site.Plain(kTimber);
    MeshBuilder &mesh = site.Mesh();
    BoxSkin skin = BoxSkin::All(wood);
    skin.top = deck;
    mesh.Box({-2, 0.9F, -10}, {2, 1.15F, 10}, skin);
    for (float z = -9.5F; z <= 9.5F; z += 3.8F)
        for (const float x : {-1.8F, 1.8F})
            mesh.Bar({x, -2.5F, z}, {x, 1.9F, z}, 0.18F, 8, wood);
}

void buildShed(Site &site)
{
    addHouse(site, {.width = 4,
                    .length = 6,
                    .eaves = 2.4F,
                    .ridge = 3.6F,
                    .walls = Walls::Boards,
                    .roof = kSlate,
                    .side = {{-1.6F, 1, 0.9F, 0.8F}, {1.6F, 1, 0.9F, 0.8F}},
                    .gable = {{0, 0, 1.6F, 2, true}},
                    .over = 0.25F});
}

void buildBridge(Site &site)
{
    const Patch girder = site.Paint(200, 50, {0, 0, 20, 1.6F}, Cover::Metal, [](Brush &b) {
        b.Fill({74, 96, 84});
        for (float x = 0; x < 20; x += 2)
            b.Joint({x + 0.08F, 0.12F, x + 1.92F, 1.48F}, 0.06F);
        b.Rivets(0, 0.06F, 20, 0.06F, 0.2F);
        b.Weather(151, 0.4F);
    });
    const Patch deck = site.Plain({96, 92, 86}, Cover::Roof);
    const Patch stone = site.Plain(kStone);
    MeshBuilder &mesh = site.Mesh();
    mesh.Box({-2.4F, -0.4F, -10}, {2.4F, -0.1F, 10}, BoxSkin::All(deck));
    for (const float x : {-2.5F, 2.5F})
        mesh.Box({x - 0.15F, -0.9F, -10}, {x + 0.15F, 1.1F, 10}, BoxSkin::All(girder));
    for (const float end : kSides)
        mesh.Box({-3, -5, end * 9.6F - 0.9F}, {3, -0.9F, end * 9.6F + 0.9F}, BoxSkin::All(stone));
}

void build(Site &site, Building building)
{
    switch (building) {
    case Building::Station:
        return buildStation(site);
    case Building::SignalHut:
        return buildHut(site);
    case Building::GasLamp:
        return buildLamp(site);
    case Building::WaterTower:
        return buildWaterTower(site);
    case Building::Barn:
        return buildBarn(site);
    case Building::Chapel:
        return buildChapel(site);
    case Building::Cottage:
        return buildCottage(site);
    case Building::FerryHouse:
        return buildFerryHouse(site);
    case Building::Crane:
        return buildCrane(site);
    case Building::Pier:
        return buildPier(site);
    case Building::Shed:
        return buildShed(site);
    case Building::Bridge:
        return buildBridge(site);
    }
}

} // namespace

BuiltScenery BuildScenery(Building building, Season season, const std::string &image)
{
    Site site(season, image);
    site.Mesh().BeginLevel(2000);
    build(site, building);
    return site.Finish();
}

} // namespace samples
