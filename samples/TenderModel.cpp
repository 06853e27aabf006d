// SPDX-License-Identifier: MIT
#include "samples/Vehicles.h"

#include <array>

namespace samples {
namespace {

class TenderModel
{
public:
    explicit TenderModel(Kit &kit)
        : m_kit(kit)
        , m_mesh(kit.Mesh())
        , m_half(kit.Wanted().length / 2 - 0.6F)
        , m_wheels(kit, {{2.1F, 0.6F}, {0, 0.6F}, {-2.1F, 0.6F}}, false)
    {
        const Plan &plan = kit.Wanted();
        const Colour line = Mix(plan.trim, kBrass, 0.5F);
        m_side = kit.PaintSide(2 * m_half, kFloor, kTop, 1, 140, [&](Brush &b) {
            b.Fill(plan.base);
            b.Frame({-m_half + 0.15F, kFloor + 0.15F, m_half - 0.15F, kTop - 0.15F}, 0.035F, line);
            b.Text(0, 1.95F, 0.55F, plan.initials, line, 0.16F);
            b.Rivets(-m_half, kTop - 0.06F, m_half, kTop - 0.06F, 0.16F);
            b.Fade({-m_half, kFloor, m_half, kFloor + 0.7F}, {60, 48, 36}, 0.5F, 0);
            b.Weather(113, 0.25F);
        });
        m_end = kit.Paint(120, 100, {-1.38F, kFloor, 2.76F, kTop - kFloor}, [&](Brush &b) {
            b.Fill(plan.base);
            b.Frame({-1.26F, kFloor + 0.12F, 1.26F, kTop - 0.12F}, 0.035F, line);
            b.Text(0, 1.6F, 0.35F, plan.number, line, 0.16F);
            b.Weather(127, 0.25F);
        });
        m_plain = kit.Plain(Shade(plan.base, 0.85F));
        m_black = kit.Plain({34, 34, 36});
        m_coal = kit.Plain({26, 26, 28}, 48);
    }

    void Draw(int detail)
    {
        m_kit.UseBody();
        m_kit.Sides(m_side, {1.38F, 1.38F, kFloor, kTop});
        const float low = kTop - 0.35F;
        const std::array<Vec2, 4> wall = {
            {{-1.38F, kFloor}, {-1.38F, kTop}, {1.38F, kTop}, {1.38F, kFloor}}};
        m_kit.EndWall(wall, -m_half, false, m_end);
        m_kit.EndWall(wall, m_half, true, m_end);
        m_mesh.Quad({-1.38F, low, -m_half}, {-1.38F, low, m_half}, {1.38F, low, m_half},
                    {1.38F, low, -m_half}, m_black);
        m_kit.Linings(2 * m_half, {1.42F, 1.42F, low, kTop}, {kTop, kTop, {}}, m_plain);
        for (const float z : {-m_half + 0.03F, m_half - 0.03F})
            m_mesh.Box({-1.36F, low, z - 0.03F}, {1.36F, kTop, z + 0.03F}, BoxSkin::All(m_plain));
        m_mesh.Box({-1.3F, low, -1.5F}, {1.3F, kTop + 0.25F, -1.44F}, BoxSkin::All(m_plain));
        if (detail < 2)
            for (const Vec2 &heap :
                 {Vec2{-0.3F, 0.5F}, Vec2{0.3F, 1.2F}, Vec2{0.1F, 2.1F}, Vec2{-0.1F, -0.3F}})
                m_mesh.Lathe(
                    {heap.x, low - 0.1F, heap.y}, Axis::Y,
                    std::array<Vec2, 4>{{{0, 0.95F}, {0.35F, 0.7F}, {0.6F, 0.3F}, {0.68F, 0.02F}}},
                    9, m_coal);
        if (detail == 0)
            m_mesh.Lathe({0, low, -2.4F}, Axis::Y,
                         std::array<Vec2, 3>{{{0, 0.3F}, {0.25F, 0.3F}, {0.27F, 0.01F}}}, 12,
                         m_black);
        m_kit.UseGear();
        m_mesh.Box({-1.2F, 0.85F, -m_half}, {1.2F, kFloor, m_half},
                   BoxSkin::All(m_kit.Gear().dark));
        for (const float side : kSides)
            m_mesh.Box({side * 0.92F - 0.02F, 0.55F, -m_half + 0.3F},
                       {side * 0.92F + 0.02F, kFloor, m_half - 0.3F},
                       BoxSkin::All(m_kit.Gear().dark));
        m_wheels.Draw(detail);
        DrawBuffers(m_kit, detail, m_half);
    }

private:
    static constexpr float kFloor = 1.25F;
    static constexpr float kTop = 2.95F;

    Kit &m_kit;
    MeshBuilder &m_mesh;
    float m_half;
    RunningGear m_wheels;
    std::vector<Stretch> m_side;
    Patch m_end, m_plain, m_black, m_coal;
};

} // namespace

void BuildTender(Kit &kit)
{
    TenderModel tender(kit);
    kit.Levels([&](int detail) { tender.Draw(detail); });
}

} // namespace samples
