// SPDX-License-Identifier: MIT
#include "samples/Vehicles.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace samples {
namespace {

constexpr Colour kBufferBeam{150, 30, 26};

/// What the boilers, cabs and chimneys of steam engines have in common.
class SteamParts
{
public:
    SteamParts(Kit &kit, float cabLength, float cabFloor, float cabEaves)
        : m_kit(kit)
        , m_mesh(kit.Mesh())
        , m_cabLength(cabLength)
        , m_cab{1.38F, 1.38F, cabFloor, cabEaves}
    {
        const Plan &plan = kit.Wanted();
        m_barrel = kit.Paint(200, 150, {0, 0, 6, 6}, [&](Brush &b) {
            b.Fill(plan.base);
            for (float y = 0; y <= 6; y += 1.2F) {
                b.Rect({0, y - 0.09F, 6, y + 0.09F}, Shade(plan.base, 0.55F));
                b.Rect({0, y - 0.04F, 6, y + 0.04F}, Mix(plan.trim, kBrass, 0.5F));
            }
            b.Weather(101, 0.25F);
        });
        m_door = kit.Paint(90, 90, {-1, -1, 2, 2}, [](Brush &b) {
            b.Fill({34, 34, 36});
            b.Disc(0, 0, 0.96F, {24, 24, 26});
            b.Disc(0, 0, 0.8F, {48, 48, 50});
            b.Disc(-0.05F, 0.05F, 0.72F, {42, 42, 44});
            for (const float y : {-0.35F, 0.35F})
                b.Line(-0.85F, y, 0.3F, y, 0.09F, {70, 70, 72});
            b.Line(0, 0, 0.12F, -0.3F, 0.07F, {190, 190, 192});
            b.Line(0, 0, -0.25F, -0.2F, 0.07F, {190, 190, 192});
            b.Weather(103, 0.3F);
        });
        m_cabSide = paintPlate(150, 110, {-cabLength / 2, cabFloor, cabLength, cabEaves - cabFloor},
                               plan.number, 0.4F, cabFloor + 0.5F);
        m_cabFront = kit.Paint(
            120, 90, {-1.38F, cabFloor, 2.76F, cabEaves + 0.4F - cabFloor}, [&](Brush &b) {
                b.Fill(plan.base);
                for (const float x : {-1.0F, 1.0F})
                    b.RoundRect({x - 0.22F, cabEaves - 0.75F, x + 0.22F, cabEaves - 0.1F}, 0.08F,
                                {26, 30, 34});
                b.Weather(107, 0.25F);
            });
        m_plain = kit.Plain(Shade(plan.base, 0.85F));
        m_black = kit.Plain({34, 34, 36});
        m_brass = kit.Plain(kBrass);
        m_beam = kit.Paint(90, 24, {-1.3F, 0, 2.6F, 1}, [&](Brush &b) {
            b.Fill(kBufferBeam);
            b.Text(0.55F, 0.25F, 0.5F, plan.number, {235, 225, 190}, 0.16F);
            b.Weather(109, 0.3F);
        });
    }

protected:
    /// A lined plate with a text in the middle.
    Patch paintPlate(int wide, int high, const Window &w, const std::string &text, float height,
                     float foot)
    {
        const Plan &plan = m_kit.Wanted();
        return m_kit.Paint(wide, high, w, [&](Brush &b) {
            b.Fill(plan.base);
            const Box2 box{w.x + 0.12F, w.y + 0.12F, w.x + w.width - 0.12F, w.y + w.height - 0.12F};
            const Colour line = Mix(plan.trim, kBrass, 0.5F);
            b.Frame(box, 0.035F, line);
            b.Text(w.x + w.width / 2, foot, height, text, line, 0.16F);
            b.Fade({w.x, w.y, w.x + w.width, w.y + 0.6F}, {60, 48, 36}, 0.5F, 0);
            b.Weather(static_cast<std::uint32_t>(wide), 0.25F);
        });
    }

    void barrel(float y, std::span<const Vec2> profile, int sides, const Patch &patch)
    {
        m_mesh.Lathe({0, y, 0}, Axis::Z, profile, sides, patch);
    }

    void smokebox(float y, float radius, float from, float to, int detail)
    {
        const int sides = detail == 0 ? 24 : 12;
        const std::array<Vec2, 4> profile = {
            {{from, radius}, {to - 0.04F, radius}, {to, radius - 0.05F}, {to, radius - 0.06F}}};
        barrel(y, profile, sides, m_black);
        m_mesh.Disc({0, y, to}, Axis::Z, false, radius - 0.055F, sides, m_door);
        if (detail > 0)
            return;
        m_kit.UseGear();
        m_mesh.Bar({0, y + radius + 0.02F, to - 0.1F}, {0, y + radius + 0.2F, to - 0.1F}, 0.03F, 5,
                   m_kit.Gear().black);
        m_mesh.Disc({0, y + radius + 0.22F, to + 0.02F}, Axis::Z, false, 0.13F, 12,
                    m_kit.Gear().lamp);
        m_mesh.Bar({0, y + radius + 0.22F, to - 0.16F}, {0, y + radius + 0.22F, to + 0.02F}, 0.13F,
                   12, m_kit.Gear().black);
        m_kit.UseBody();
    }

    void chimney(float y, float z, float height, int detail)
    {
        const std::array<Vec2, 7> profile = {{{height, 0.16F},
                                              {height, 0.3F},
                                              {height - 0.1F, 0.3F},
                                              {height - 0.14F, 0.23F},
                                              {0.15F, 0.21F},
                                              {0.02F, 0.34F},
                                              {-0.2F, 0.36F}}};
        std::vector<Vec2> growing(profile.rbegin(), profile.rend());
        m_mesh.Lathe({0, y, z}, Axis::Y, growing, detail == 0 ? 16 : 8, m_black);
    }

    void dome(float y, float z, float radius, float height, const Patch &patch, int detail)
    {
        const std::array<Vec2, 6> profile = {{{-0.3F, radius * 1.15F},
                                              {0, radius},
                                              {height * 0.5F, radius * 0.97F},
                                              {height * 0.8F, radius * 0.75F},
                                              {height * 0.95F, radius * 0.4F},
                                              {height, 0.01F}}};
        m_mesh.Lathe({0, y, z}, Axis::Y, profile, detail == 0 ? 16 : 8, patch);
    }

    /// The cab with its rear at `rear`; open at the back unless a bunker is there.
    void cab(float rear, int detail)
    {
        const float middle = rear + m_cabLength / 2;
        const float front = rear + m_cabLength;
        const WindowRow windows{
            m_cab.y1 - 0.95F,
            m_cab.y1 - 0.25F,
            {{-m_cabLength / 2 + 0.2F, -0.08F}, {0.08F, m_cabLength / 2 - 0.2F}}};
        const Stretch side{-m_cabLength / 2, m_cabLength / 2, m_cabSide};
        m_kit.Sides(std::span(&side, 1), m_cab, detail < 2 ? windows : WindowRow{}, middle);
        m_kit.Linings(m_cabLength, m_cab, windows, m_black, middle);
        const std::vector<Vec2> arc =
            RoofArc(m_cab.out1 + 0.06F, m_cab.y1, m_cab.y1 + 0.4F, detail == 0 ? 8 : 4);
        m_mesh.Extrude(arc, rear - 0.2F, front + 0.1F, m_black);
        std::vector<Vec2> wall = {{-m_cab.out0, m_cab.y0}};
        wall.insert(wall.end(), arc.begin(), arc.end());
        wall.push_back({m_cab.out0, m_cab.y0});
        m_kit.EndWall(wall, front, true, m_cabFront);
        m_kit.EndWall(wall, front - 0.06F, false, m_black);
        m_kit.EndWall(arc, rear - 0.2F, false, m_black);
        m_kit.Soffit(m_cab.out1 + 0.06F, m_cab.y1, rear - 0.2F, front + 0.1F, m_black);
        m_mesh.Box({-1.38F, m_cab.y0 - 0.08F, rear}, {1.38F, m_cab.y0 + 0.02F, front},
                   BoxSkin::All(m_black));
        if (detail > 0)
            return;
        m_mesh.Lathe({0, m_cab.y0 + 1.05F, front - 0.5F}, Axis::Z,
                     std::array<Vec2, 3>{{{-0.05F, 0.01F}, {0, 0.72F}, {0.5F, 0.75F}}}, 14,
                     m_black);
        for (const float x : {-0.3F, 0.1F, 0.4F})
            m_mesh.Bar({x, m_cab.y0 + 1.5F, front - 0.55F},
                       {x + 0.1F, m_cab.y0 + 1.7F, front - 0.5F}, 0.03F, 5, m_brass);
    }

    void cylinders(float y, float from, float to, int detail)
    {
        for (const float side : kSides) {
            const float x = side * 1.08F;
            const std::array<Vec2, 4> profile = {
                {{from, 0.01F}, {from, 0.36F}, {to, 0.36F}, {to, 0.01F}}};
            m_mesh.Lathe({x, y, 0}, Axis::Z, profile, detail == 0 ? 16 : 8, m_plain);
            m_mesh.Box({x - 0.3F, y + 0.2F, from}, {x + 0.3F, y + 0.75F, to},
                       BoxSkin::All(m_plain));
        }
    }

    /// Coupling rods along these wheels, with main rods to the cylinders.
    void rods(std::span<const Vec2> wheels, float cylinderY, float cylinderRear)
    {
        m_kit.UseGear();
        const Patch &steel = m_kit.Gear().steel;
        const float pin = wheels.front().y - 0.3F;
        for (const float side : kSides) {
            const float near = side * 0.86F;
            const float far = side * 0.92F;
            m_mesh.Box({std::min(near, far), pin - 0.07F, wheels.back().x - 0.12F},
                       {std::max(near, far), pin + 0.07F, wheels.front().x + 0.12F},
                       BoxSkin::All(steel));
            for (const Vec2 &wheel : wheels)
                m_mesh.Bar({side * 0.8F, pin, wheel.x}, {side * 0.98F, pin, wheel.x}, 0.1F, 10,
                           steel);
            const float drive = wheels[wheels.size() / 2].x;
            m_mesh.Bar({side * 1.02F, pin, drive}, {side * 1.06F, cylinderY, cylinderRear - 0.9F},
                       0.06F, 6, steel);
            m_mesh.Bar({side * 1.06F, cylinderY, cylinderRear - 1},
                       {side * 1.06F, cylinderY, cylinderRear}, 0.045F, 6, steel);
            m_mesh.Box({side * 1.06F - 0.07F, cylinderY - 0.12F, cylinderRear - 1.05F},
                       {side * 1.06F + 0.07F, cylinderY + 0.12F, cylinderRear - 0.75F},
                       BoxSkin::All(steel));
            for (const float y : {-0.14F, 0.14F})
                m_mesh.Box({side * 1.06F - 0.06F, cylinderY + y - 0.03F, cylinderRear - 1.5F},
                           {side * 1.06F + 0.06F, cylinderY + y + 0.03F, cylinderRear},
                           BoxSkin::All(steel));
            m_mesh.Disc({side * 0.985F, pin, drive}, Axis::X, side < 0, 0.12F, 10, steel);
        }
        m_kit.UseBody();
    }

    void handRails(float y, float out, float from, float to)
    {
        m_kit.UseGear();
        for (const float side : kSides)
            m_mesh.Bar({side * out, y, from}, {side * out, y, to}, 0.022F, 5, m_kit.Gear().steel);
        m_kit.UseBody();
    }

    void beam(float z, bool forwards)
    {
        const float s = forwards ? 1.0F : -1.0F;
        BoxSkin skin = BoxSkin::All(m_black);
        skin.end = m_beam;
        m_mesh.Box({-1.3F, 0.82F, std::min(z, z - s * 0.12F)},
                   {1.3F, 1.32F, std::max(z, z - s * 0.12F)}, skin);
    }

    void splasher(float z, float radius, float plate)
    {
        std::vector<Vec2> outline;
        for (int i = 0; i <= 8; ++i) {
            const float angle = 3.14159F * static_cast<float>(i) / 8;
            const float reach = radius + 0.1F;
            const float y = radius + std::sin(angle) * reach;
            outline.push_back({z - std::cos(angle) * reach, std::max(y, plate)});
        }
        for (const float side : kSides)
            m_mesh.Slab(outline, side * 0.66F, side * 1.0F, m_plain, m_plain);
    }

    Kit &m_kit;
    MeshBuilder &m_mesh;
    float m_cabLength;
    SideShape m_cab;
    Patch m_barrel, m_door, m_cabSide, m_cabFront, m_plain, m_black, m_brass, m_beam;
};

/// An express engine: bogie in front, three driving axles, one behind.
class ExpressEngine : SteamParts
{
public:
    explicit ExpressEngine(Kit &kit)
        : SteamParts(kit, 1.9F, 1.5F, 3.5F)
        , m_front(kit.Wanted().length / 2 - 0.6F)
        , m_rear(-kit.Wanted().length / 2 + 0.25F)
        , m_drivers{{{1.35F, 0.94F}, {-0.65F, 0.94F}, {-2.65F, 0.94F}}}
        , m_bogie(kit, std::vector<Bogie>{{m_front - 1.65F, 1.9F, 2, 0.46F}})
        , m_wheels(kit, {m_drivers.begin(), m_drivers.end()}, true)
        , m_trailing(kit.Mesh().AddMatrix("WHEELS4", {0, 0.52F, -4.75F}, 0, true))
    {
    }

    void Draw(int detail)
    {
        m_kit.UseBody();
        const int sides = detail == 0 ? 24 : 12;
        const float box = m_front - 1.75F;
        const std::array<Vec2, 4> boiler = {
            {{m_rear + 1.9F, 0.98F}, {-2.0F, 0.98F}, {-1.2F, 0.86F}, {box, 0.84F}}};
        barrel(kAxis, boiler, sides, m_barrel);
        smokebox(kAxis, 0.88F, box, m_front - 0.15F, detail);
        chimney(kAxis + 0.86F, m_front - 0.95F, 0.42F, detail);
        dome(kAxis + 0.84F, 0.8F, 0.34F, 0.42F, m_barrel, detail);
        dome(kAxis + 0.96F, -2.9F, 0.16F, 0.25F, m_brass, detail);
        cab(m_rear, detail);
        drawFrames(detail);
        if (detail < 2) {
            cylinders(0.85F, m_front - 2.3F, m_front - 1, detail);
            rods(m_drivers, 0.85F, m_front - 2.3F);
            deflectors();
        }
        if (detail == 0)
            handRails(kAxis + 0.35F, 0.94F, m_rear + 2, m_front - 0.4F);
        m_bogie.Draw(detail);
        m_wheels.Draw(detail);
        m_kit.UseGear();
        m_mesh.On(m_trailing);
        m_mesh.Bar({-0.8F, 0, 0}, {0.8F, 0, 0}, 0.52F, detail == 0 ? 20 : 8, m_kit.Gear().steel);
        for (const float side : kSides)
            m_mesh.Disc({side * 0.81F, 0, 0}, Axis::X, side < 0, 0.52F, detail == 0 ? 20 : 8,
                        m_kit.Gear().wheel);
        m_mesh.On(0);
        DrawBuffers(m_kit, detail, m_front, false);
        if (detail < 2 && m_kit.UseGlass())
            m_kit.Panes(m_cab, {2.55F, 3.25F, {{-0.75F, -0.08F}, {0.08F, 0.75F}}}, m_rear + 0.95F);
    }

private:
    static constexpr float kAxis = 2.75F;
    static constexpr float kPlate = 1.62F;

    void drawFrames(int detail)
    {
        m_mesh.Box({-0.6F, 0.75F, m_rear}, {0.6F, 1.85F, m_front}, BoxSkin::All(m_black));
        for (const float side : kSides)
            m_mesh.Box({side * 1.0F - 0.36F, kPlate, m_rear + 1.9F},
                       {side * 1.0F + 0.36F, kPlate + 0.07F, m_front - 0.3F},
                       BoxSkin::All(m_plain));
        m_mesh.Box({-1.3F, 1.3F, m_front - 0.5F}, {1.3F, 1.38F, m_front}, BoxSkin::All(m_black));
        beam(m_front, true);
        if (detail < 2)
            for (const Vec2 &wheel : m_drivers)
                splasher(wheel.x, wheel.y, kPlate);
        const float box = m_front - 1.75F;
        m_mesh.Box({-0.55F, 1.6F, box}, {0.55F, kAxis - 0.5F, m_front - 0.4F},
                   BoxSkin::All(m_black));
        m_mesh.Box({-0.98F, 1.55F, m_rear + 1.9F}, {0.98F, kAxis, -2}, BoxSkin::All(m_plain));
    }

    void deflectors()
    {
        for (const float side : kSides)
            m_mesh.Box({side * 1.28F - 0.02F, kPlate + 0.05F, m_front - 1.9F},
                       {side * 1.28F + 0.02F, kAxis + 0.6F, m_front - 0.3F}, BoxSkin::All(m_plain));
    }

    float m_front;
    float m_rear;
    std::array<Vec2, 3> m_drivers;
    RunningGear m_bogie;
    RunningGear m_wheels;
    std::uint32_t m_trailing;
};

/// A small tank engine on three axles.
class TankEngine : SteamParts
{
public:
    explicit TankEngine(Kit &kit)
        : SteamParts(kit, 1.8F, 1.3F, 3.35F)
        , m_end(kit.Wanted().length / 2 - 0.6F)
        , m_cabRear(-m_end + 1.3F)
        , m_drivers{{{1.9F, 0.64F}, {0.1F, 0.64F}, {-1.9F, 0.64F}}}
        , m_wheels(kit, {m_drivers.begin(), m_drivers.end()}, true)
    {
        const float tank = tankLength();
        m_tank =
            paintPlate(240, 96, {-tank / 2, 1.3F, tank, 1.3F}, kit.Wanted().initials, 0.5F, 1.7F);
        m_bunker = paintPlate(90, 80, {-1.38F, 1.3F, 2.76F, 1.3F}, kit.Wanted().number, 0.4F, 1.7F);
    }

    void Draw(int detail)
    {
        m_kit.UseBody();
        const float front = m_cabRear + 1.8F;
        const std::array<Vec2, 2> boiler = {{{front, 0.7F}, {m_end - 1.3F, 0.7F}}};
        barrel(kAxis, boiler, detail == 0 ? 24 : 12, m_barrel);
        smokebox(kAxis, 0.73F, m_end - 1.3F, m_end - 0.25F, detail);
        chimney(kAxis + 0.7F, m_end - 0.8F, 0.6F, detail);
        dome(kAxis + 0.68F, 1, 0.3F, 0.45F, m_brass, detail);
        cab(m_cabRear, detail);
        drawTanks();
        m_mesh.Box({-0.6F, 0.7F, -m_end}, {0.6F, 1.25F, m_end}, BoxSkin::All(m_black));
        m_mesh.Box({-1.38F, 1.2F, -m_end}, {1.38F, 1.3F, m_end}, BoxSkin::All(m_black));
        m_mesh.Box({-0.5F, 1.2F, m_end - 1.4F}, {0.5F, kAxis - 0.4F, m_end - 0.3F},
                   BoxSkin::All(m_black));
        beam(m_end, true);
        beam(-m_end, false);
        if (detail < 2) {
            cylinders(0.72F, m_end - 1.6F, m_end - 0.5F, detail);
            rods(m_drivers, 0.72F, m_end - 1.6F);
        }
        if (detail == 0)
            for (const float side : kSides)
                for (const float y : {0.45F, 0.8F})
                    m_mesh.Box({side * 1.25F - 0.13F, y, m_cabRear + 0.1F},
                               {side * 1.25F + 0.13F, y + 0.03F, m_cabRear + 0.6F},
                               BoxSkin::All(m_black));
        m_wheels.Draw(detail);
        DrawBuffers(m_kit, detail, m_end);
        if (detail < 2 && m_kit.UseGlass())
            m_kit.Panes(m_cab, {2.4F, 3.1F, {{-0.7F, -0.08F}, {0.08F, 0.7F}}}, m_cabRear + 0.9F);
    }

private:
    static constexpr float kAxis = 2.2F;
    float tankLength() const { return m_end - 1.5F - (m_cabRear + 1.8F); }

    void drawTanks()
    {
        const float from = m_cabRear + 1.8F;
        BoxSkin skin = BoxSkin::All(m_plain);
        skin.side = m_tank;
        for (const float side : kSides)
            m_mesh.Box({std::min(side * 0.72F, side * 1.38F), 1.3F, from},
                       {std::max(side * 0.72F, side * 1.38F), 2.6F, from + tankLength()}, skin);
        BoxSkin bunker = BoxSkin::All(m_plain);
        bunker.end = m_bunker;
        bunker.top = m_black;
        m_mesh.Box({-1.38F, 1.3F, -m_end + 0.1F}, {1.38F, 2.6F, m_cabRear}, bunker);
        m_mesh.Lathe({0, 2.58F, (-m_end + m_cabRear) / 2}, Axis::Y,
                     std::array<Vec2, 3>{{{0, 0.55F}, {0.18F, 0.4F}, {0.3F, 0.05F}}}, 9, m_black);
        m_mesh.Quad({-1.38F, m_cab.y1, m_cabRear}, {1.38F, m_cab.y1, m_cabRear},
                    {1.38F, 2.6F, m_cabRear}, {-1.38F, 2.6F, m_cabRear},
                    m_cabFront.Part(0, 0.6F, 1, 1));
    }

    float m_end;
    float m_cabRear;
    std::array<Vec2, 3> m_drivers;
    RunningGear m_wheels;
    Patch m_tank, m_bunker;
};

} // namespace

void BuildExpressSteam(Kit &kit)
{
    ExpressEngine engine(kit);
    kit.Levels([&](int detail) { engine.Draw(detail); });
}

void BuildTankSteam(Kit &kit)
{
    TankEngine engine(kit);
    kit.Levels([&](int detail) { engine.Draw(detail); });
}

} // namespace samples
