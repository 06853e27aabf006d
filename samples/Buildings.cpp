// SPDX-License-Identifier: MIT
#include "samples/Buildings.h"

#include "samples/HouseKit.h"

#include <array>
#include <cmath>

namespace samples {
namespace {

void buildCottage(Site &site)
{
    AddHouse(
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
    AddChimney(site, {0.3F, 4.9F, -2.6F}, 1.9F);
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
    AddHouse(site, house);
    for (const float z : {-5.0F, 5.0F})
        AddChimney(site, {0, 6, z}, 1.5F);
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
    AddHouse(site, {.width = 3.4F,
                    .length = 4.2F,
                    .eaves = 2.7F,
                    .ridge = 3.9F,
                    .walls = Walls::Boards,
                    .roof = kSlate,
                    .side = panes,
                    .gable = {{0, 0, 0.95F, 2.05F, true}},
                    .over = 0.3F});
    AddChimney(site, {0.5F, 3, 1}, 1.2F);
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
        PaintBoards(b, {0, 0, 12, 3}, {128, 98, 70});
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
    AddHouse(site, {.width = 9,
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
    AddHouse(site, nave);
    const std::vector<Hole> belfry = {{0, 6.6F, 0.9F, 1.4F}};
    const Window w{-1.5F, 0, 3, 9};
    const Patch wall = PaintedWall(
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
    AddHouse(site, house);
    AddChimney(site, {0.5F, 7.6F, 2}, 1.7F);
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
        PaintBoards(b, {0, 0, 20, 4}, {134, 116, 94});
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
    AddHouse(site, {.width = 4,
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
