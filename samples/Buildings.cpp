// SPDX-License-Identifier: MIT
#include "samples/Buildings.h"

#include "samples/HouseKit.h"

#include <array>
#include <cmath>

namespace samples {
namespace {

constexpr Colour kLampIron{40, 58, 48};

// Houses: width, length, eaves, ridge, walls, roof, holes in the sides and in the gables (middle,
// foot, width, height, door), sign, overhang.
// clang-format off
const House kCottage{6.4F, 9, 3.1F, 5.9F, Walls::Plaster, kTiles,
    {{-3, 1.05F, 1.1F, 1.25F}, {3, 1.05F, 1.1F, 1.25F}, {0.9F, 1.05F, 1.1F, 1.25F}, {-1, 0, 1, 2.1F, true}},
    {{-1.5F, 1.05F, 1.1F, 1.2F}, {1.5F, 1.05F, 1.1F, 1.2F}, {0, 3.4F, 1, 1.1F}}};
const House kStation{7, 16, 3.9F, 6.6F, Walls::Brick, kSlate,
    {{-6.6F, 0.9F, 1.2F, 1.6F}, {-4, 0.9F, 1.2F, 1.6F}, {4, 0.9F, 1.2F, 1.6F}, {6.6F, 0.9F, 1.2F, 1.6F},
     {-1.6F, 0, 1.3F, 2.3F, true}, {1.6F, 0, 1.3F, 2.3F, true}},
    {{-1.8F, 1, 1.1F, 1.5F}, {1.8F, 1, 1.1F, 1.5F}, {0, 4.1F, 1, 1.1F}}, "TARNWICK"};
const House kHut{3.4F, 4.2F, 2.7F, 3.9F, Walls::Boards, kSlate,
    {{-1, 1.2F, 1.1F, 1.1F}, {1, 1.2F, 1.1F, 1.1F}}, {{0, 0, 0.95F, 2.05F, true}}, "", 0.3F};
const House kBarn{9, 14, 4, 8, Walls::Boards, kTiles,
    {{0, 0, 3.6F, 3.4F, true}}, {{0, 0, 3, 3, true}, {0, 5, 1.2F, 1.2F}}};
const House kNave{7, 12, 4.5F, 8.2F, Walls::Stone, kSlate,
    {{-4, 1.5F, 0.9F, 2.4F}, {-1.4F, 1.5F, 0.9F, 2.4F}, {1.4F, 1.5F, 0.9F, 2.4F}, {4, 1.5F, 0.9F, 2.4F}},
    {{0, 0, 1.5F, 2.6F, true}, {0, 4.4F, 1.3F, 2}}};
const House kTower{9, 3, 9, 9, Walls::Stone};
const House kFerryHouse{7.5F, 11, 5.4F, 8.6F, Walls::Plaster, kTiles,
    {{-4, 0.9F, 1, 1.35F}, {-4, 3.4F, 1, 1.35F}, {-1.6F, 0.9F, 1, 1.35F}, {-1.6F, 3.4F, 1, 1.35F},
     {1.6F, 0.9F, 1, 1.35F}, {1.6F, 3.4F, 1, 1.35F}, {4, 0.9F, 1, 1.35F}, {4, 3.4F, 1, 1.35F}},
    {{-2, 0.9F, 1.1F, 1.4F}, {2, 0.9F, 1.1F, 1.4F}, {0, 3.4F, 1.6F, 1.5F}, {0, 6, 1, 1.1F}}, "", 0.8F};
const House kShed{4, 6, 2.4F, 3.6F, Walls::Boards, kSlate,
    {{-1.6F, 1, 0.9F, 0.8F}, {1.6F, 1, 0.9F, 0.8F}}, {{0, 0, 1.6F, 2, true}}, "", 0.25F};
// clang-format on

void buildCottage(Site &site)
{
    AddHouse(site, kCottage);
    AddChimney(site, {0.3F, 4.9F, -2.6F}, 1.9F);
    const Patch stone = site.Plain(kStone);
    site.Box({3.05F, 0, -1.7F}, {4.05F, 0.16F, -0.3F}, stone, Copies::Turned);
    const Patch fence = site.Paint(60, 26, {0, 0, 4, 1}, Cover::Wall, [](Brush &b) {
        b.Fill({86, 110, 66});
        for (float x = 0.1F; x < 4; x += 0.25F)
            b.Disc(x, 0.2F + 0.5F * std::abs(std::sin(x * 9)), 0.2F, {62, 92, 48});
        b.Weather(137, 0.5F);
    });
    site.Box({-5, 0, -6.25F}, {5, 0.95F, -5.75F}, fence, Copies::Ends);
}

void buildStation(Site &site)
{
    AddHouse(site, kStation);
    for (const float z : {-5.0F, 5.0F})
        AddChimney(site, {0, 6, z}, 1.5F);
    const Patch paving = site.Plain(kStone);
    const Patch edge = site.Plain(kFrames);
    const Patch canopy = site.Plain(kSlate, Cover::Roof);
    site.Box({3.5F, 0, -14}, {7.5F, 0.35F, 14}, paving);
    site.Box({7.3F, 0.35F, -14}, {7.5F, 0.38F, 14}, edge);
    site.Box({3.5F, 3.45F, -8}, {6.6F, 3.6F, 8}, canopy);
    for (const float z : {-7.0F, -2.4F, 2.4F, 7.0F})
        site.Bar({6.3F, 0.35F, z}, {6.3F, 3.45F, z}, 0.08F, 8, edge);
}

void buildHut(Site &site)
{
    AddHouse(site, kHut);
    AddChimney(site, {0.5F, 3, 1}, 1.2F);
}

void buildLamp(Site &site)
{
    const auto glassByDay = [](Brush &b) {
        b.Fill({196, 206, 200});
        b.Frame({-1, -1, 1, 1}, 0.14F, kLampIron);
        b.Disc(0, -0.2F, 0.3F, {240, 236, 210});
    };
    const auto glassByNight = [](Brush &b) {
        b.Fill({255, 214, 120});
        b.Disc(0, -0.1F, 0.5F, {255, 250, 220});
        b.Frame({-1, -1, 1, 1}, 0.14F, {60, 50, 30});
    };
    const Patch iron = site.Plain(kLampIron, Cover::Metal);
    const Patch glass = site.Paint(40, 40, {-1, -1, 2, 2}, Cover::Metal, glassByDay, glassByNight);
    const Patch cap = site.Plain(kLampIron, Cover::Roof);
    site.Lathe({}, Axis::Y,
               {{0, 0.2F},
                {0.25F, 0.18F},
                {0.35F, 0.09F},
                {2.4F, 0.06F},
                {2.5F, 0.1F},
                {2.6F, 0.06F},
                {3.1F, 0.05F}},
               12, iron);
    site.Bar({-0.4F, 2.75F, 0}, {0.4F, 2.75F, 0}, 0.025F, 6, iron);
    site.Lathe({0, 3.1F, 0}, Axis::Y, {{0, 0.14F}, {0.5F, 0.24F}}, 4, glass);
    site.Lathe({0, 3.6F, 0}, Axis::Y, {{0, 0.3F}, {0.16F, 0.12F}, {0.24F, 0.05F}, {0.3F, 0.01F}}, 8,
               cap);
}

void buildWaterTower(Site &site)
{
    const Patch tank = site.Paint(150, 60, {0, 0, 12, 3}, Cover::Wall, [](Brush &b) {
        PaintBoards(b, {0, 0, 12, 3}, {128, 98, 70});
        for (const float y : {0.4F, 1.3F, 2.2F, 2.8F})
            b.Rect({0, y, 12, y + 0.08F}, kIron);
        b.Fade({0, 0, 12, 1}, {40, 50, 40}, 0.5F, 0);
        b.Weather(139, 0.4F);
    });
    const Patch roof = site.Plain(kSlate, Cover::Roof);
    const Patch legs = site.Plain(kTimber);
    const Patch iron = site.Plain(kIron, Cover::Metal);
    site.Lathe({0, 4.4F, 0}, Axis::Y, {{0, 0.01F}, {0, 2}, {2.8F, 2}}, 20, tank);
    site.Lathe({0, 7.2F, 0}, Axis::Y, {{-0.05F, 2.2F}, {0.05F, 2.2F}, {1.1F, 0.02F}}, 20, roof);
    for (const float x : {-1.3F, 1.3F})
        for (const float z : {-1.3F, 1.3F}) {
            site.Box({x - 0.15F, 0, z - 0.15F}, {x + 0.15F, 4.4F, z + 0.15F}, legs);
            site.Bar({x, 0.4F, z}, {x, 4, -z}, 0.05F, 5, iron);
            site.Bar({x, 0.4F, z}, {-x, 4, z}, 0.05F, 5, iron);
        }
    site.Box({-1.8F, 4.2F, -1.8F}, {1.8F, 4.4F, 1.8F}, legs);
    site.Bar({1.9F, 4.9F, 0}, {3.4F, 3.6F, 0}, 0.14F, 10, iron);
    site.Bar({3.4F, 3.6F, 0}, {3.4F, 2.6F, 0}, 0.12F, 10, iron);
}

void buildBarn(Site &site)
{
    AddHouse(site, kBarn);
}

void buildChapel(Site &site)
{
    AddHouse(site, kNave);
    const Patch wall = PaintedWall(site, 60, 70, {-1.5F, 0, 3, 9}, kTower, {{0, 6.6F, 0.9F, 1.4F}});
    const Patch spire = site.Plain(kSlate, Cover::Roof);
    site.Box({-1.5F, 0, 5.2F}, {1.5F, 9, 8.2F}, wall);
    site.Lathe({0, 9, 6.7F}, Axis::Y, {{-0.05F, 1.95F}, {0, 2}, {1, 1.3F}, {5.5F, 0.01F}}, 8,
               spire);
}

/// The balconies have a floor, a hand rail and posts.
void buildFerryHouse(Site &site)
{
    AddHouse(site, kFerryHouse);
    AddChimney(site, {0.5F, 7.6F, 2}, 1.7F);
    const Patch wood = site.Plain(kTimber);
    for (const float side : kSides) {
        site.Box({side * 3.75F, 2.85F, -5}, {side * 4.95F, 3, 5}, wood);
        site.Box({side * 4.86F, 3.75F, -5}, {side * 4.94F, 3.85F, 5}, wood);
        for (float z = -5; z <= 5; z += 1)
            site.Box({side * 4.86F, 3, z - 0.05F}, {side * 4.94F, 3.75F, z + 0.05F}, wood);
    }
}

void buildCrane(Site &site)
{
    const Patch iron = site.Plain({168, 132, 40}, Cover::Metal);
    const Patch dark = site.Plain(kIron, Cover::Metal);
    const Patch stone = site.Plain(kStone);
    site.Lathe({}, Axis::Y, {{0, 1.6F}, {0.8F, 1.5F}, {0.82F, 0.01F}}, 16, stone);
    site.Lathe({0, 0.8F, 0}, Axis::Y, {{0, 0.4F}, {5.5F, 0.25F}}, 12, iron);
    site.Box({-0.9F, 1.2F, -1.6F}, {0.9F, 2.8F, 0.4F}, dark);
    for (const float x : {-0.4F, 0.4F}) {
        site.Bar({x, 1.8F, 0.4F}, {x * 0.3F, 7.2F, 6}, 0.12F, 6, iron);
        site.Bar({x * 0.5F, 6.2F, 0}, {x * 0.3F, 7.2F, 6}, 0.04F, 5, dark);
    }
    for (float share = 0.15F; share < 1; share += 0.17F) {
        const Vec3 left{-0.4F + 0.28F * share, 1.8F + 5.4F * share, 0.4F + 5.6F * share};
        site.Bar(left, {-left.x, left.y, left.z}, 0.05F, 5, iron);
    }
    site.Bar({0, 7.1F, 6}, {0, 3.4F, 6}, 0.025F, 4, dark);
    site.Lathe({0, 3.1F, 6}, Axis::Y, {{-0.2F, 0.01F}, {0, 0.16F}, {0.2F, 0.16F}, {0.35F, 0.02F}},
               8, dark);
}

void buildPier(Site &site)
{
    const Patch deck = site.Paint(200, 60, {0, 0, 20, 4}, Cover::Roof, [](Brush &b) {
        PaintBoards(b, {0, 0, 20, 4}, {134, 116, 94});
        b.Weather(149, 0.4F);
    });
    const Patch wood = site.Plain(kTimber);
    site.Box({-2, 0.9F, -10}, {2, 1.15F, 10}, {wood, wood, deck, wood});
    for (float z = -9.5F; z <= 9.5F; z += 3.8F)
        site.Bar({-1.8F, -2.5F, z}, {-1.8F, 1.9F, z}, 0.18F, 8, wood, Copies::Sides);
}

void buildShed(Site &site)
{
    AddHouse(site, kShed);
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
    site.Box({-2.4F, -0.4F, -10}, {2.4F, -0.1F, 10}, deck);
    site.Box({-2.65F, -0.9F, -10}, {-2.35F, 1.1F, 10}, girder, Copies::Sides);
    site.Box({-3, -5, 8.7F}, {3, -0.9F, 10.5F}, stone, Copies::Ends);
}

// In the order of Building.
constexpr std::array kBuilders = {
    buildStation, buildHut,        buildLamp,  buildWaterTower, buildBarn, buildChapel,
    buildCottage, buildFerryHouse, buildCrane, buildPier,       buildShed, buildBridge,
};

} // namespace

PaintedModel BuildScenery(Building building, Season season, const std::string &image)
{
    Site site(season, image);
    site.BeginLevel(2000);
    kBuilders.at(static_cast<std::size_t>(building))(site);
    return site.Finish(site.Pixels());
}

} // namespace samples
