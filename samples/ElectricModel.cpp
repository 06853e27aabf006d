// SPDX-License-Identifier: MIT
#include "samples/Vehicles.h"

#include <algorithm>
#include <array>

namespace samples {
namespace {

constexpr float kFloor = 1.2F;
constexpr float kBelt = 2.3F; ///< where the windscreens begin to lean back
constexpr float kEaves = 3.45F;
constexpr float kTop = 3.85F;
constexpr float kWide = 1.46F;
constexpr float kLean = 0.75F;

/// An electric engine: one body with a cab at each end.
class BoxCab
{
public:
    explicit BoxCab(Kit &kit)
        : m_kit(kit)
        , m_mesh(kit.Mesh())
        , m_half(kit.Wanted().length / 2 - 0.65F)
        , m_gear(kit, std::vector<Bogie>{{kit.Wanted().length * 0.27F, 4.2F, 3, 0.62F},
                                         {-kit.Wanted().length * 0.27F, 4.2F, 3, 0.62F}})
    {
        m_side = kit.PaintSide(2 * m_half, kFloor, kEaves, 2, 130, [&](Brush &b) { paintSide(b); });
        const Plan &plan = kit.Wanted();
        m_face = kit.Paint(140, 56, {-kWide, kFloor, 2 * kWide, kBelt - kFloor}, [&](Brush &b) {
            b.Fill(plan.base);
            b.Rect({-2, 1.6F, 2, 1.72F}, plan.trim);
            b.RoundRect({-0.62F, 1.8F, 0.62F, 2.16F}, 0.05F, Shade(plan.base, 0.5F));
            b.Text(0, 1.86F, 0.24F, plan.number, plan.trim, 0.17F);
            b.Fade({-2, kFloor, 2, 1.9F}, {60, 48, 36}, 0.5F, 0);
            b.Weather(95, 0.25F);
        });
        m_screen = kit.Paint(140, 70, {-kWide, 0, 2 * kWide, 1}, [&](Brush &b) {
            b.Fill(plan.base);
            for (const float x : {-0.68F, 0.68F}) {
                b.RoundRect({x - 0.58F, 0.12F, x + 0.58F, 0.86F}, 0.06F, Shade(plan.base, 0.45F));
                b.RoundRect({x - 0.53F, 0.16F, x + 0.53F, 0.82F}, 0.05F, {24, 30, 36});
                b.Line(x - 0.3F, 0.18F, x + 0.15F, 0.6F, 0.03F, {8, 8, 8});
            }
            b.Weather(97, 0.2F);
        });
        m_roof = kit.Paint(220, 60, {0, 0, 12, 3}, [](Brush &b) {
            b.Fill({112, 114, 116});
            for (float x = 0; x < 12; x += 2)
                b.Joint({x + 0.1F, 0.3F, x + 1.9F, 2.7F}, 0.05F);
            b.Weather(99, 0.4F);
        });
        m_plain = kit.Plain(Shade(plan.base, 0.8F));
        m_insulator = kit.Plain({116, 70, 52});
    }

    void Draw(int detail)
    {
        m_kit.UseBody();
        drawBody(detail);
        drawUnderframe(detail);
        if (detail < 2)
            drawRoofGear(detail);
        m_gear.Draw(detail);
        DrawBuffers(m_kit, detail, m_half);
        if (detail < 2 && m_kit.UseGlass())
            drawGlass();
    }

private:
    void paintSide(Brush &b)
    {
        const Plan &plan = m_kit.Wanted();
        b.Fill(plan.base);
        b.Rect({-m_half, 1.6F, m_half, 1.72F}, plan.trim);
        b.Rect({-m_half, kFloor, m_half, kFloor + 0.14F}, Shade(plan.base, 0.5F));
        for (const float s : kSides) {
            const float cab = s * (m_half - 1.55F);
            b.RoundRect({cab - 0.36F, 2.3F, cab + 0.36F, 3.05F}, 0.08F, {26, 32, 38});
            const float door = s * (m_half - 2.55F);
            b.Joint({door - 0.4F, kFloor + 0.1F, door + 0.4F, 3.2F}, 0.035F);
            b.RoundRect({door - 0.24F, 2.45F, door + 0.24F, 3.05F}, 0.05F, {26, 32, 38});
            b.Rect({door - 0.52F, 1.5F, door - 0.47F, 2.9F}, {210, 200, 160});
        }
        for (int i = 0; i < 6; ++i) {
            const float x = -m_half + 4.2F + (2 * m_half - 8.4F) / 5 * static_cast<float>(i);
            b.Louvres({x - 0.6F, 2.55F, x + 0.6F, 3.2F}, 0.09F, plan.base);
        }
        b.Text(0, 1.88F, 0.42F, plan.initials, plan.trim, 0.16F);
        for (const float x : {-m_half * 0.45F, m_half * 0.45F})
            b.Text(x, 1.92F, 0.32F, plan.number, plan.trim, 0.16F);
        b.Fade({-m_half, kFloor, m_half, 2}, {64, 50, 38}, 0.45F, 0);
        b.Fade({-m_half, kEaves - 0.25F, m_half, kEaves}, {0, 0, 0}, 0, 0.4F);
        b.Weather(93, 0.25F);
    }

    /// The wall runs to the belt's ends and leans back with the windscreens above.
    void drawBody(int detail)
    {
        for (const float side : kSides) {
            for (const Stretch &s : m_side) {
                const bool first = s.from < -0.01F;
                const float edge = first ? s.from : s.to;
                const float lean = first ? kLean : -kLean;
                const float share = (kBelt - kFloor) / (kEaves - kFloor);
                const auto at = [&](float x, float y) { return Vec3{side * kWide, y, side * x}; };
                m_mesh.Quad(at(s.from, kBelt), at(s.to, kBelt), at(s.to, kFloor),
                            at(s.from, kFloor), s.patch.Part(0, 0, 1, share));
                const float cut = kLean / (s.to - s.from);
                const Patch upper =
                    first ? s.patch.Part(cut, share, 1, 1) : s.patch.Part(0, share, 1 - cut, 1);
                const float a = first ? edge + lean : s.from;
                const float b = first ? s.to : edge + lean;
                m_mesh.Quad(at(a, kEaves), at(b, kEaves), at(b, kBelt), at(a, kBelt), upper);
                const std::array<Vec3, 3> corner = {
                    {at(edge, kBelt), at(edge + lean, kEaves), at(edge + lean, kBelt)}};
                m_mesh.Polygon(corner, {side, 0, 0}, m_plain);
            }
        }
        for (const float end : kSides) {
            const float z = end * m_half;
            const float back = end * (m_half - kLean);
            m_mesh.Quad({end * kWide, kBelt, z}, {-end * kWide, kBelt, z},
                        {-end * kWide, kFloor, z}, {end * kWide, kFloor, z}, m_face);
            m_mesh.Quad({end * kWide, kEaves, back}, {-end * kWide, kEaves, back},
                        {-end * kWide, kBelt, z}, {end * kWide, kBelt, z}, m_screen);
        }
        const std::vector<Vec2> arc = RoofArc(kWide, kEaves, kTop, detail == 0 ? 8 : 4);
        const float back = m_half - kLean;
        m_mesh.Extrude(arc, -back, back, m_roof);
        for (const bool front : {true, false})
            m_kit.EndWall(arc, front ? back : -back, front, m_plain);
    }

    void drawUnderframe(int detail)
    {
        m_kit.UseGear();
        const GearPatches &gear = m_kit.Gear();
        m_mesh.Box({-1.4F, 0.95F, -m_half}, {1.4F, kFloor, m_half}, BoxSkin::All(gear.dark));
        const float room = m_kit.Wanted().length * 0.27F - 2.9F;
        m_mesh.Box({-1.2F, 0.45F, -room}, {1.2F, 0.95F, room}, BoxSkin::All(gear.dark));
        if (detail > 0)
            return;
        for (const float end : kSides) {
            const float z = end * (m_half + 0.02F);
            for (const float x : {-0.95F, 0.95F}) {
                m_mesh.Bar({x, 1.95F, end * m_half}, {x, 1.95F, z + end * 0.08F}, 0.16F, 12,
                           gear.black);
                m_mesh.Disc({x, 1.95F, z + end * 0.08F}, Axis::Z, end < 0, 0.16F, 12, gear.lamp);
            }
            m_mesh.Disc({0, 3.62F, end * (m_half - kLean + 0.01F)}, Axis::Z, end < 0, 0.13F, 12,
                        gear.lamp);
            for (const float x : {-1.25F, 1.25F})
                for (const float y : {0.5F, 0.85F})
                    m_mesh.Box({x - 0.14F, y, end * (m_half - 2.55F) - 0.35F},
                               {x + 0.14F, y + 0.03F, end * (m_half - 2.55F) + 0.35F},
                               BoxSkin::All(gear.steel));
            const std::array<Vec2, 4> plough = {{{end * m_half, 0.95F},
                                                 {end * (m_half + 0.15F), 0.28F},
                                                 {end * (m_half + 0.05F), 0.28F},
                                                 {end * (m_half - 0.1F), 0.95F}}};
            m_mesh.Slab(plough, -1.3F, 1.3F, gear.dark, gear.dark);
        }
    }

    void drawRoofGear(int detail)
    {
        for (const float end : kSides)
            DrawPantograph(m_kit, end * (m_half - 3.3F), kTop, detail);
        m_kit.UseGear();
        m_mesh.Bar({0.35F, kTop + 0.22F, -m_half + 2.2F}, {0.35F, kTop + 0.22F, m_half - 2.2F},
                   0.025F, 5, m_kit.Gear().rust);
        m_kit.UseBody();
        m_mesh.Box({-0.8F, kTop - 0.15F, -1.6F}, {0.1F, kTop + 0.2F, 1.6F}, BoxSkin::All(m_roof));
        for (float z = -4; z <= 4; z += 2)
            m_mesh.Lathe(
                {0.35F, kTop - 0.03F, z}, Axis::Y,
                std::array<Vec2, 5>{
                    {{0, 0.08F}, {0.06F, 0.11F}, {0.12F, 0.06F}, {0.18F, 0.1F}, {0.24F, 0.03F}}},
                8, m_insulator);
    }

    void drawGlass()
    {
        for (const float end : kSides) {
            for (const float x : {-0.68F, 0.68F}) {
                const auto at = [&](float across, float up) {
                    return Vec3{x + end * across, kBelt + (kEaves - kBelt) * up,
                                end * (m_half - kLean * up + 0.015F)};
                };
                m_mesh.Quad(at(0.53F, 0.82F), at(-0.53F, 0.82F), at(-0.53F, 0.16F),
                            at(0.53F, 0.16F), m_kit.Pane());
            }
        }
    }

    Kit &m_kit;
    MeshBuilder &m_mesh;
    float m_half;
    RunningGear m_gear;
    std::vector<Stretch> m_side;
    Patch m_face, m_screen, m_roof, m_plain, m_insulator;
};

} // namespace

void DrawPantograph(Kit &kit, float z, float roof, int detail)
{
    kit.UseGear();
    MeshBuilder &mesh = kit.Mesh();
    const Patch &red = kit.Gear().rust;
    const int sides = detail == 0 ? 6 : 3;
    const auto bar = [&](const Vec3 &a, const Vec3 &b, float radius) {
        mesh.Bar(a, b, radius, sides, red);
    };
    for (const float x : {-0.55F, 0.55F}) {
        bar({x, roof + 0.15F, z - 0.9F}, {x, roof + 0.15F, z + 0.9F}, 0.04F);
        for (const float end : {z - 0.85F, z + 0.85F}) {
            bar({x, roof - 0.25F, end}, {x, roof + 0.15F, end}, 0.06F);
            const float knee = end < z ? z - 1.15F : z + 1.15F;
            bar({x, roof + 0.2F, end < z ? z - 0.3F : z + 0.3F}, {x * 0.9F, roof + 0.75F, knee},
                0.035F);
            bar({x * 0.9F, roof + 0.75F, knee}, {x * 0.7F, roof + 1.35F, z}, 0.025F);
        }
    }
    bar({-0.5F, roof + 0.75F, z - 1.15F}, {0.5F, roof + 0.75F, z - 1.15F}, 0.025F);
    bar({-0.5F, roof + 0.75F, z + 1.15F}, {0.5F, roof + 0.75F, z + 1.15F}, 0.025F);
    for (const float side : kSides) {
        const float at = z + side * 0.16F;
        mesh.Box({-0.6F, roof + 1.35F, at - 0.05F}, {0.6F, roof + 1.4F, at + 0.05F},
                 BoxSkin::All(kit.Gear().steel));
        for (const float x : {-1.0F, 1.0F})
            bar({x * 0.6F, roof + 1.38F, at}, {x * 0.85F, roof + 1.22F, at}, 0.03F);
    }
}

void BuildElectric(Kit &kit)
{
    BoxCab engine(kit);
    kit.Levels([&](int detail) { engine.Draw(detail); });
}

} // namespace samples
