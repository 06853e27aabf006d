// SPDX-License-Identifier: MIT
#include "samples/Vehicles.h"

#include <algorithm>
#include <array>

namespace samples {
namespace {

constexpr std::array kEnds = {1.0F, -1.0F};

/// Flat cars and hoppers: what stands open to the sky.
class FlatCar
{
public:
    FlatCar(Kit &kit, bool loaded)
        : m_kit(kit)
        , m_mesh(kit.Mesh())
        , m_half(kit.Wanted().length / 2 - 0.5F)
        , m_loaded(loaded)
        , m_gear(kit, std::vector<Bogie>{{kit.Wanted().length / 2 - 2.9F},
                                         {-kit.Wanted().length / 2 + 2.9F}})
    {
        const Plan &plan = kit.Wanted();
        m_sill = kit.Paint(500, 56, {-m_half, 0.5F, 2 * m_half, 0.75F}, [&](Brush &b) {
            b.Fill(plan.base);
            b.Rect({-m_half, 1.16F, m_half, 1.25F}, Shade(plan.base, 1.15F));
            b.Rivets(-m_half, 1.12F, m_half, 1.12F, 0.25F);
            b.Text(-m_half * 0.45F, 0.76F, 0.26F, plan.initials + " " + plan.number, plan.trim);
            b.Text(m_half * 0.4F, 0.8F, 0.16F, "62 FT  LOAD 70 T", plan.trim);
            b.Fade({-m_half, 0.5F, m_half, 1}, {50, 40, 30}, 0.5F, 0);
            b.Weather(13, 0.35F);
        });
        m_deck = kit.Paint(500, 96, {-m_half, -1.45F, 2 * m_half, 2.9F}, [&](Brush &b) {
            b.Fill({124, 104, 82});
            int number = 0;
            for (float x = -m_half; x < m_half; x += 0.24F, ++number) {
                b.Rect({x, -1.45F, x + 0.24F, 1.45F},
                       Shade({124, 104, 82}, 0.8F + 0.05F * static_cast<float>(number * 5 % 9)));
                b.Line(x, -1.45F, x, 1.45F, 0.03F, {34, 26, 20}, 0.8F);
            }
            for (const float y : {-1.2F, 0.0F, 1.2F})
                b.Rivets(-m_half, y, m_half, y, 0.24F);
            b.Weather(19, 0.4F);
        });
        m_plain = kit.Plain(Shade(plan.base, 0.85F));
        m_pipe = kit.Paint(200, 80, {0, 0, 16, 1}, [](Brush &b) {
            b.Fill({112, 128, 118});
            b.Rect({7.8F, 0, 8.2F, 1}, {60, 66, 62});
            b.Weather(23, 0.5F);
        });
        m_hole = kit.Paint(40, 40, {-1, -1, 2, 2}, [](Brush &b) {
            b.Fill({112, 128, 118});
            b.Disc(0, 0, 0.88F, {14, 15, 15});
        });
    }

    void Draw(int detail)
    {
        m_kit.UseBody();
        const std::array<Vec2, 6> sill = {{{-m_half, 1.25F},
                                           {m_half, 1.25F},
                                           {m_half, 0.95F},
                                           {m_half * 0.45F, 0.62F},
                                           {-m_half * 0.45F, 0.62F},
                                           {-m_half, 0.95F}}};
        for (const float side : kEnds)
            m_mesh.Slab(sill, side * 1.3F, side * 1.42F, m_sill, m_plain);
        BoxSkin deck = BoxSkin::All(m_plain);
        deck.top = m_deck;
        m_mesh.Box({-1.45F, 1.17F, -m_half}, {1.45F, 1.27F, m_half}, deck);
        for (const float end : kEnds)
            m_mesh.Box({-1.45F, 0.85F, std::min(end * m_half, end * (m_half - 0.12F))},
                       {1.45F, 1.17F, std::max(end * m_half, end * (m_half - 0.12F))},
                       BoxSkin::All(m_plain));
        if (detail == 0)
            drawPockets();
        if (m_loaded)
            drawPipes(detail);
        m_kit.UseGear();
        m_mesh.Box({-0.3F, 0.7F, -m_half}, {0.3F, 1.17F, m_half}, BoxSkin::All(m_kit.Gear().dark));
        m_gear.Draw(detail);
        DrawCouplers(m_kit, detail, m_half);
    }

private:
    void drawPockets()
    {
        for (float z = -m_half + 0.9F; z < m_half; z += (2 * m_half - 1.8F) / 12)
            for (const float side : kEnds)
                m_mesh.Box({std::min(side * 1.42F, side * 1.49F), 1, z - 0.09F},
                           {std::max(side * 1.42F, side * 1.49F), 1.27F, z + 0.09F},
                           BoxSkin::All(m_plain));
        m_kit.UseGear();
        m_mesh.Bar({1.1F, 1.27F, m_half - 0.2F}, {1.1F, 2, m_half - 0.2F}, 0.03F, 6,
                   m_kit.Gear().black);
        m_mesh.Lathe({1.1F, 1.95F, m_half - 0.2F}, Axis::Z,
                     std::array<Vec2, 2>{{{0, 0.24F}, {0.05F, 0.24F}}}, 12, m_kit.Gear().rust);
        m_kit.UseBody();
    }

    void drawPipes(int detail)
    {
        constexpr float radius = 0.45F;
        constexpr std::array<Vec2, 5> rows = {
            {{-0.92F, 0}, {0, 0}, {0.92F, 0}, {-0.46F, 0.8F}, {0.46F, 0.8F}}};
        const int sides = detail == 0 ? 18 : 8;
        for (const Vec2 &at : rows) {
            const float y = 1.27F + 0.14F + radius + at.y;
            m_mesh.Bar({at.x, y, -7.2F}, {at.x, y, 7.2F}, radius, sides, m_pipe);
            for (const float end : kEnds)
                m_mesh.Disc({at.x, y, end * 7.2F}, Axis::Z, end < 0, radius, sides, m_hole);
        }
        m_kit.UseGear();
        const GearPatches &gear = m_kit.Gear();
        for (const float z : {-6.0F, -2.0F, 2.0F, 6.0F}) {
            m_mesh.Box({-1.4F, 1.27F, z - 0.1F}, {1.4F, 1.41F, z + 0.1F}, BoxSkin::All(gear.wood));
            for (const float side : kEnds)
                if (detail < 2)
                    m_mesh.Box({side * 1.44F - 0.05F, 1, z - 0.07F},
                               {side * 1.44F + 0.05F, 2.6F, z + 0.07F}, BoxSkin::All(gear.wood));
            if (detail == 0) {
                m_mesh.Bar({-1.44F, 2.55F, z}, {-0.46F, 3.13F, z}, 0.02F, 4, gear.steel);
                m_mesh.Bar({-0.46F, 3.13F, z}, {0.46F, 3.13F, z}, 0.02F, 4, gear.steel);
                m_mesh.Bar({0.46F, 3.13F, z}, {1.44F, 2.55F, z}, 0.02F, 4, gear.steel);
            }
        }
        m_kit.UseBody();
    }

    Kit &m_kit;
    MeshBuilder &m_mesh;
    float m_half;
    bool m_loaded;
    RunningGear m_gear;
    Patch m_sill, m_deck, m_plain, m_pipe, m_hole;
};

class Hopper
{
public:
    explicit Hopper(Kit &kit)
        : m_kit(kit)
        , m_mesh(kit.Mesh())
        , m_half(kit.Wanted().length / 2 - 0.6F)
        , m_gear(kit, std::vector<Bogie>{{kit.Wanted().length / 2 - 2.1F},
                                         {-kit.Wanted().length / 2 + 2.1F}})
    {
        const Plan &plan = kit.Wanted();
        m_side = kit.Paint(500, 150, {-m_half, 1.5F, 2 * m_half, 1.95F},
                           [&](Brush &b) { paintSide(b, plan, m_half); });
        m_plain = kit.Plain(plan.base, 40);
        m_rib = kit.Plain(Shade(plan.base, 1.2F));
        m_chute = kit.Paint(120, 50, {-1, 0, 2, 1}, [&](Brush &b) {
            b.Fill(Shade(plan.base, 0.85F));
            b.Joint({-0.5F, 0.02F, 0.5F, 0.4F});
            b.Rivets(-0.9F, 0.9F, 0.9F, 0.9F, 0.12F);
            b.Weather(31, 0.5F);
        });
        m_coal = kit.Paint(128, 100, {0, 0, 2, 2}, [](Brush &b) {
            b.Fill({44, 44, 47});
            for (unsigned i = 0; i < 900; ++i) {
                const unsigned dice = (i * 2654435761U) ^ (i * 40503U << 7U);
                const float x = static_cast<float>(dice >> 20U) / 2048;
                const float y = static_cast<float>(dice >> 8U & 4095U) / 2048;
                const auto tone = static_cast<std::uint8_t>(26 + dice % 66);
                b.Disc(x, y, 0.03F + 0.001F * static_cast<float>(dice % 40),
                       {tone, tone, static_cast<std::uint8_t>(tone + 4)});
            }
            b.Weather(37, 0.4F);
        });
    }

    void Draw(int detail)
    {
        m_kit.UseBody();
        const std::array<Vec2, 6> body = {{{-m_half, kRim},
                                           {m_half, kRim},
                                           {m_half, 2.55F},
                                           {m_half - 1.7F, 1.5F},
                                           {-m_half + 1.7F, 1.5F},
                                           {-m_half, 2.55F}}};
        m_mesh.Slab(body, -1.4F, 1.4F, m_side, m_plain);
        drawLoad(detail);
        if (detail < 2) {
            drawBays();
            drawRibs();
        }
        drawFrame(detail);
        m_gear.Draw(detail);
        DrawCouplers(m_kit, detail, m_half);
    }

private:
    static constexpr float kRim = 3.45F;

    static void paintSide(Brush &b, const Plan &plan, float half)
    {
        b.Fill(plan.base);
        b.Rivets(-half, 3.38F, half, 3.38F, 0.2F);
        b.Rivets(-half, 1.6F, half, 1.6F, 0.2F);
        b.Text(-half * 0.5F, 2.45F, 0.58F, plan.initials, plan.trim);
        b.Text(half * 0.5F, 2.5F, 0.48F, plan.number, plan.trim);
        b.Text(half * 0.5F, 2.12F, 0.16F, "COAL SERVICE", plan.trim);
        b.Text(-half * 0.5F, 1.9F, 0.14F, "LOAD 63 T", plan.trim);
        b.RoundRect({-0.42F, 2.3F, 0.42F, 3.1F}, 0.06F, {214, 176, 62});
        b.Text(0, 2.53F, 0.34F, "AV", Shade(plan.base, 0.6F), 0.2F);
        b.Fade({-half, 1.5F, half, 2.4F}, {84, 62, 44}, 0.55F, 0);
        b.Fade({-half, 3, half, 3.45F}, {20, 20, 20}, 0, 0.5F);
        b.Weather(43, 0.45F);
    }

    /// A heap of coal with a few tops, over a lid just below the rim.
    void drawLoad(int detail)
    {
        const float end = m_half - 0.06F;
        const float y = kRim - 0.16F;
        m_mesh.Quad({-1.34F, kRim + 0.002F, -end}, {-1.34F, kRim + 0.002F, end},
                    {1.34F, kRim + 0.002F, end}, {1.34F, kRim + 0.002F, -end}, m_coal);
        if (detail > 1)
            return;
        const std::vector<Vec2> arc = RoofArc(1.34F, kRim, kRim + 0.28F, 6);
        const float step = (2 * end - 1.4F) / 5;
        for (float z = -end + 0.7F; z < end - 0.8F; z += step)
            m_mesh.Extrude(arc, z, z + step, m_coal);
        for (const float side : kEnds) {
            for (std::size_t i = 0; i + 1 < arc.size(); ++i) {
                const Vec2 &a = side > 0 ? arc[i + 1] : arc[i];
                const Vec2 &b = side > 0 ? arc[i] : arc[i + 1];
                m_mesh.Quad({a.x, a.y, side * (end - 0.7F)}, {b.x, b.y, side * (end - 0.7F)},
                            {b.x, kRim, side * end}, {a.x, kRim, side * end}, m_coal);
            }
        }
        for (const float z : {-2.9F, 0.1F, 2.8F})
            m_mesh.Lathe(
                {0.1F, y, z}, Axis::Y,
                std::array<Vec2, 4>{{{0.1F, 1.3F}, {0.36F, 0.95F}, {0.58F, 0.4F}, {0.68F, 0.02F}}},
                9, m_coal);
    }

    void drawBays()
    {
        for (const float z : {-1.75F, 1.75F}) {
            const std::array<Vec2, 4> bay = {
                {{z - 1.6F, 1.5F}, {z + 1.6F, 1.5F}, {z + 0.55F, 0.62F}, {z - 0.55F, 0.62F}}};
            m_mesh.Slab(bay, -1.15F, 1.15F, m_chute, m_plain);
        }
    }

    void drawRibs()
    {
        for (int i = 0; i <= 8; ++i) {
            const float z = (m_half - 0.05F) * (static_cast<float>(i) / 4 - 1);
            const float low = std::abs(z) > m_half - 1.7F
                                  ? 1.5F + (std::abs(z) - m_half + 1.7F) / 1.7F * 1.05F
                                  : 1.5F;
            for (const float side : kEnds)
                if (i != 2 && i != 4 && i != 6)
                    m_mesh.Box({std::min(side * 1.4F, side * 1.5F), low, z - 0.06F},
                               {std::max(side * 1.4F, side * 1.5F), kRim, z + 0.06F},
                               BoxSkin::All(m_rib));
        }
        for (const float side : kEnds) {
            m_mesh.Box({side * 1.44F - 0.08F, kRim - 0.02F, -m_half},
                       {side * 1.44F + 0.08F, kRim + 0.1F, m_half}, BoxSkin::All(m_rib));
            m_mesh.Box({-1.4F, kRim - 0.02F, side * m_half - 0.08F},
                       {1.4F, kRim + 0.1F, side * m_half + 0.08F}, BoxSkin::All(m_rib));
        }
    }

    void drawFrame(int detail)
    {
        const GearPatches &gear = m_kit.Gear();
        m_kit.UseGear();
        m_mesh.Box({-0.3F, 0.75F, -m_half}, {0.3F, 1.1F, m_half}, BoxSkin::All(gear.dark));
        for (const float end : kEnds) {
            m_mesh.Box({-1.4F, 1.02F, end * (m_half - 0.1F) - 0.1F},
                       {1.4F, 1.2F, end * (m_half - 0.1F) + 0.1F}, BoxSkin::All(gear.dark));
            if (detail > 1)
                continue;
            for (const float x : {-1.25F, -0.42F, 0.42F, 1.25F})
                m_mesh.Box({x - 0.05F, 1.2F, end * (m_half - 0.1F) - 0.05F},
                           {x + 0.05F, 2.6F, end * (m_half - 0.1F) + 0.05F},
                           BoxSkin::All(gear.dark));
            for (const float x : {-1.35F, 1.35F})
                m_mesh.Box({x - 0.06F, 1.08F, std::min(end * 1.5F, end * m_half)},
                           {x + 0.06F, 1.2F, std::max(end * 1.5F, end * m_half)},
                           BoxSkin::All(gear.dark));
        }
        if (detail == 0 && m_kit.UseCutout())
            for (const float side : kEnds) {
                const float x = side * 1.47F;
                const float z = side * (m_half - 0.1F);
                m_mesh.Quad({x, 2.6F, z - side * 0.5F}, {x, 2.6F, z}, {x, 0.8F, z},
                            {x, 0.8F, z - side * 0.5F}, gear.ladder);
            }
    }

    Kit &m_kit;
    MeshBuilder &m_mesh;
    float m_half;
    RunningGear m_gear;
    Patch m_side, m_plain, m_rib, m_chute, m_coal;
};

} // namespace

void BuildFlatCar(Kit &kit, bool loaded)
{
    FlatCar car(kit, loaded);
    kit.Levels([&](int detail) { car.Draw(detail); });
}

void BuildHopper(Kit &kit)
{
    Hopper car(kit);
    kit.Levels([&](int detail) { car.Draw(detail); });
}

} // namespace samples
