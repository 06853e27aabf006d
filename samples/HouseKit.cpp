// SPDX-License-Identifier: MIT
#include "samples/HouseKit.h"

#include <span>

namespace samples {
namespace {

bool snows(Season s)
{
    return s == Season::Snow || s == Season::SpringSnow || s == Season::AutumnSnow ||
           s == Season::WinterSnow;
}

void leaves(Brush &b, const Window &w, bool roof)
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

void paintHole(Brush &b, const Hole &hole)
{
    const Box2 box = hole.Bounds();
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
    const Box2 box = hole.Bounds();
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

void paintWall(Brush &b, const Window &w, Walls walls, std::span<const Hole> holes)
{
    if (walls == Walls::Brick)
        paintBricks(b, w, kBrick, 0.16F, 0.42F);
    if (walls == Walls::Stone)
        paintBricks(b, w, kStone, 0.4F, 0.8F);
    if (walls == Walls::Boards)
        PaintBoards(b, w, kTimber);
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

/// Both slopes of the roof with the underside, and its edges.
void addRoof(Site &site, const House &h)
{
    constexpr float thick = 0.12F;
    const Patch tiles = site.Paint(118, 70, {0, 0, 8, 4}, Cover::Roof, [&](Brush &b) {
        paintBricks(b, {0, 0, 8, 4}, h.roof, 0.2F, 0.26F);
        b.Weather(131, 0.4F);
    });
    const Patch under = site.Plain(Shade(kTimber, 0.6F));
    const float half = h.width / 2;
    const float out = half + h.over;
    const float low = h.eaves - (h.ridge - h.eaves) / half * h.over;
    const float end = h.length / 2 + h.over;
    for (const float side : kSides) {
        const auto ridge = [&](float above, float z) { return Vec3{0, h.ridge + above, side * z}; };
        const auto eaves = [&](float above, float z) {
            return Vec3{side * out, low + above, side * z};
        };
        site.Quad(ridge(thick, -end), ridge(thick, end), eaves(thick, end), eaves(thick, -end),
                  tiles);
        site.Quad(eaves(0, -end), eaves(0, end), ridge(0, end), ridge(0, -end), under);
        site.Quad(eaves(thick, -end), eaves(thick, end), eaves(0, end), eaves(0, -end), under);
        for (const float z : {end, -end})
            site.Polygon({ridge(thick, z), eaves(thick, z), eaves(0, z), ridge(0, z)},
                         {0, 0, side * z > 0 ? 1.0F : -1.0F}, under);
    }
}

} // namespace

Site::Site(Season season, const std::string &image)
    : MeshBuilder({image})
    , m_season(season)
    , m_sheet(256, season == Season::Night ? Colour{40, 42, 52} : kStone)
{
}

Patch Site::Paint(int wide, int high, const Window &window, Cover cover,
                  const std::function<void(Brush &)> &paint,
                  const std::function<void(Brush &)> &lit)
{
    return m_sheet.Paint(wide, high, window, [&](Brush &brush) {
        paint(brush);
        dress(brush, window, cover);
        if (lit && m_season == Season::Night)
            lit(brush);
    });
}

Patch Site::Plain(Colour colour, Cover cover)
{
    return Paint(20, 20, {}, cover, [&](Brush &b) {
        b.Fill(colour);
        b.Weather(colour.red, 0.3F);
    });
}

void Site::dress(Brush &b, const Window &w, Cover cover) const
{
    const Box2 all{w.x - 1, w.y - 1, w.x + w.width + 1, w.y + w.height + 1};
    const bool roof = cover == Cover::Roof;
    if (m_season == Season::Spring || m_season == Season::SpringSnow)
        b.Rect(all, {120, 190, 90}, roof ? 0.07F : 0.05F);
    if (m_season == Season::Autumn || m_season == Season::AutumnSnow)
        leaves(b, w, roof);
    if (m_season == Season::Winter || m_season == Season::WinterSnow)
        b.Rect(all, {170, 184, 200}, 0.22F);
    if (snows(m_season) && roof)
        b.Rect(all, {242, 246, 252}, m_season == Season::AutumnSnow ? 0.72F : 0.88F);
    if (snows(m_season) && cover == Cover::Wall)
        b.Fade({w.x, w.y, w.x + w.width, w.y + w.height * 0.16F}, {244, 247, 252}, 0.95F, 0);
    if (m_season == Season::Night)
        b.Rect(all, {8, 12, 30}, 0.74F);
}

void PaintBoards(Brush &b, const Window &w, Colour colour)
{
    b.Fill(colour);
    int number = 0;
    for (float x = w.x; x < w.x + w.width; x += 0.22F, ++number) {
        const float tint = 0.88F + 0.03F * static_cast<float>(number * 5 % 8);
        b.Rect({x, w.y, x + 0.22F, w.y + w.height}, Shade(colour, tint));
        b.Line(x, w.y, x, w.y + w.height, 0.03F, {20, 14, 10}, 0.5F);
    }
}

Patch PaintedWall(Site &site, int wide, int high, const Window &w, const House &house,
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

void AddHouse(Site &site, const House &h)
{
    const Window along{-h.length / 2, 0, h.length, h.eaves};
    const Window across{-h.width / 2, 0, h.width, h.ridge};
    const Patch side = PaintedWall(site, 240, 62, along, h, h.side);
    const Patch gable = PaintedWall(site, 96, 76, across, h, h.gable);
    const float x = h.width / 2;
    const float z = h.length / 2;
    for (const float s : kSides) {
        site.Quad({s * x, h.eaves, -s * z}, {s * x, h.eaves, s * z}, {s * x, 0, s * z},
                  {s * x, 0, -s * z}, side);
        site.Polygon({{-x, 0, s * z},
                      {-x, h.eaves, s * z},
                      {0, h.ridge, s * z},
                      {x, h.eaves, s * z},
                      {x, 0, s * z}},
                     {0, 0, s}, gable);
    }
    addRoof(site, h);
}

void AddChimney(Site &site, const Vec3 &foot, float height)
{
    const Patch brick = site.Plain(kBrick);
    const Patch cap = site.Plain(kStone, Cover::Roof);
    site.Box(foot + Vec3{-0.35F, 0, -0.35F}, foot + Vec3{0.35F, height, 0.35F}, brick);
    site.Box(foot + Vec3{-0.42F, height, -0.42F}, foot + Vec3{0.42F, height + 0.12F, 0.42F}, cap);
    for (const float z : {-0.16F, 0.16F})
        site.Lathe(foot + Vec3{0, height + 0.1F, z}, Axis::Y,
                   {{0, 0.12F}, {0.35F, 0.1F}, {0.36F, 0.02F}}, 8, brick);
}

} // namespace samples
