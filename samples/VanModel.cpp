// SPDX-License-Identifier: MIT
#include "samples/Vehicles.h"

#include <algorithm>
#include <array>

namespace samples {
namespace {

/// Measures of a covered goods vehicle, in metres.
struct VanShape
{
    float body; ///< length of the body
    float floor;
    float eaves;
    float top;
    float half = 1.45F; ///< of the width
    bool buffers = false;
    bool wooden = false;
    bool caboose = false;
    bool hatches = false;
};

VanShape shapeOf(Design design, float length)
{
    switch (design) {
    case Design::IceVan:
        return {.body = length - 1.1F,
                .floor = 1.08F,
                .eaves = 3.55F,
                .top = 3.85F,
                .wooden = true,
                .hatches = true};
    case Design::GoodsVan:
        return {.body = length - 1.24F,
                .floor = 1.12F,
                .eaves = 3.25F,
                .top = 3.8F,
                .half = 1.4F,
                .buffers = true,
                .wooden = true};
    case Design::Caboose:
        return {.body = length - 2.9F,
                .floor = 1.1F,
                .eaves = 3.3F,
                .top = 3.62F,
                .wooden = true,
                .caboose = true};
    default:
        return {.body = length - 1.1F, .floor = 1.08F, .eaves = 3.7F, .top = 4.02F};
    }
}

/// One upright board or pressed panel after the other.
void paintPanels(Brush &b, const VanShape &van, Colour base)
{
    const float half = van.body / 2;
    if (van.wooden) {
        int number = 0;
        for (float x = -half; x < half; x += 0.14F, ++number) {
            const float tint = 0.93F + 0.02F * static_cast<float>(number * 7 % 8);
            b.Rect({x, van.floor, x + 0.14F, van.eaves}, Shade(base, tint));
            b.Line(x, van.floor, x, van.eaves, 0.018F, {0, 0, 0}, 0.35F);
        }
        return;
    }
    for (float x = -half; x < half - 0.1F; x += 0.62F) {
        b.Rect({x, van.floor + 0.16F, x + 0.16F, van.eaves - 0.1F}, Shade(base, 1.16F));
        b.Rect({x + 0.16F, van.floor + 0.16F, x + 0.26F, van.eaves - 0.1F}, Shade(base, 0.8F));
        b.Rivets(x + 0.4F, van.floor + 0.2F, x + 0.4F, van.eaves - 0.15F, 0.13F);
    }
}

void paintDoor(Brush &b, const VanShape &van, Colour base, float half)
{
    const Box2 door{-half, van.floor + 0.06F, half, van.eaves - 0.14F};
    b.RoundRect(door, 0.02F, Shade(base, 1.04F));
    for (float x = -half + 0.2F; x < half - 0.1F; x += 0.4F)
        b.Line(x, door.y0 + 0.1F, x, door.y1 - 0.1F, 0.05F, Shade(base, 0.85F));
    b.Line(-half, door.y0 + 0.1F, half, door.y1 - 0.1F, 0.1F, Shade(base, 0.9F));
    b.Joint(door, 0.035F);
    b.Rect({-half - 0.9F, door.y1 + 0.02F, half + 0.9F, door.y1 + 0.08F}, {40, 40, 42});
    b.Rect({-half - 0.9F, van.floor + 0.01F, half + 0.9F, van.floor + 0.05F}, {40, 40, 42});
    b.Rect({half - 0.18F, van.floor + 1, half - 0.08F, van.floor + 1.5F}, {30, 30, 32});
}

void paintLettering(Brush &b, const VanShape &van, const Plan &plan, float doorHalf)
{
    const float space = van.body / 2 - doorHalf;
    const float left = -doorHalf - space / 2;
    const float height = std::min(0.62F, space * 0.19F);
    const float y = van.floor + (van.eaves - van.floor) * 0.56F;
    b.Text(left, y, height, plan.initials, plan.trim);
    b.Text(left, y - height * 1.5F, height, plan.number, plan.trim);
    b.Rect({left - space * 0.35F, y - 0.18F * height, left + space * 0.35F, y - 0.1F * height},
           plan.trim);
    b.RoundRect({-left - 0.55F, y - 0.45F, -left + 0.55F, y + 0.45F}, 0.45F, plan.trim);
    b.RoundRect({-left - 0.48F, y - 0.38F, -left + 0.48F, y + 0.38F}, 0.38F,
                Shade(plan.base, 0.75F));
    b.Text(-left, y - 0.17F, 0.34F, plan.initials.substr(0, 3), plan.trim, 0.18F);
    for (int i = 0; i < 3; ++i)
        b.Text(-left, van.floor + 0.5F - 0.15F * static_cast<float>(i), 0.09F,
               i == 0   ? "LOAD 48 T"
               : i == 1 ? "TARE 21.5 T"
                        : "REV 4-26",
               plan.trim);
}

void paintSide(Brush &b, const VanShape &van, const Plan &plan)
{
    const float half = van.body / 2;
    b.Fill(plan.base);
    paintPanels(b, van, plan.base);
    const float door = van.caboose ? 0 : std::min(1.25F, half * 0.3F);
    if (!van.caboose)
        paintDoor(b, van, plan.base, door);
    if (van.caboose) {
        b.Text(0, van.floor + 0.35F, 0.42F, plan.initials + " " + plan.number, plan.trim);
        b.Rect({-half, van.floor + 0.12F, half, van.floor + 0.2F}, plan.trim);
    } else {
        paintLettering(b, van, plan, door);
    }
    b.Rect({-half, van.floor, half, van.floor + 0.1F}, Shade(plan.base, 0.55F));
    b.Rect({-half, van.eaves - 0.07F, half, van.eaves}, Shade(plan.base, 0.7F));
    for (const float x : {-half, half - 0.1F})
        b.Rect({x, van.floor, x + 0.1F, van.eaves}, Shade(plan.base, 0.75F));
    b.Fade({-half, van.floor, half, van.floor + 1}, {60, 48, 36}, 0.5F, 0);
    b.Fade({-half, van.eaves - 0.4F, half, van.eaves}, {0, 0, 0}, 0, 0.35F);
    b.Weather(static_cast<std::uint32_t>(plan.length * 10), 0.34F);
}

void paintEnd(Brush &b, const VanShape &van, const Plan &plan)
{
    b.Fill(plan.base);
    const float half = van.half;
    if (van.wooden)
        for (float x = -half; x < half; x += 0.16F)
            b.Line(x, 0, x, 5, 0.02F, {0, 0, 0}, 0.35F);
    else
        for (float y = van.floor + 0.2F; y < van.eaves; y += 0.36F) {
            b.RoundRect({-half + 0.15F, y, half - 0.15F, y + 0.2F}, 0.08F, Shade(plan.base, 0.82F));
            b.RoundRect({-half + 0.15F, y + 0.08F, half - 0.15F, y + 0.2F}, 0.06F,
                        Shade(plan.base, 1.12F));
        }
    if (van.caboose) {
        b.RoundRect({-0.4F, van.floor, 0.4F, van.floor + 1.95F}, 0.04F, Shade(plan.base, 0.8F));
        b.Joint({-0.4F, van.floor, 0.4F, van.floor + 1.95F}, 0.04F);
        b.RoundRect({-0.25F, van.floor + 1.1F, 0.25F, van.floor + 1.75F}, 0.05F, {28, 34, 40});
    } else {
        b.Text(half * 0.45F, van.eaves - 0.45F, 0.24F, plan.number, plan.trim);
    }
    b.Rect({-half, van.floor, half, van.floor + 0.12F}, Shade(plan.base, 0.5F));
    b.Fade({-half, van.floor, half, van.floor + 1.2F}, {60, 48, 36}, 0.5F, 0);
    b.Weather(17, 0.4F);
}

/// What one van is painted and drawn with.
class Van
{
public:
    Van(Kit &kit, Design design)
        : m_kit(kit)
        , m_mesh(kit.Mesh())
        , m_van(shapeOf(design, kit.Wanted().length))
        , m_gear(m_van.buffers
                     ? RunningGear(kit, std::vector<Vec2>{{2.3F, 0.5F}, {-2.3F, 0.5F}}, false)
                     : RunningGear(kit, std::vector<Bogie>{{pivot()}, {-pivot()}}))
    {
        const Plan &plan = kit.Wanted();
        m_side =
            kit.PaintSide(m_van.body, m_van.floor, m_van.eaves, m_van.body > 9 ? 2 : 1,
                          m_van.body > 9 ? 150 : 170, [&](Brush &b) { paintSide(b, m_van, plan); });
        m_end =
            kit.Paint(130, 140, {-m_van.half, m_van.floor, 2 * m_van.half, m_van.top - m_van.floor},
                      [&](Brush &b) { paintEnd(b, m_van, plan); });
        m_roof = kit.Paint(250, 60, {0, 0, 10, 3}, [&](Brush &b) {
            b.Fill(m_van.wooden ? Colour{92, 90, 88} : Colour{150, 150, 150});
            for (float x = 0; x < 10; x += 0.8F)
                b.Line(x, 0, x, 3, 0.06F, {0, 0, 0}, 0.3F);
            b.Weather(29, 0.4F);
        });
        m_trim = kit.Plain(Shade(plan.base, 0.7F));
        m_bright = kit.Plain(plan.trim);
    }

    void Draw(int detail)
    {
        const float half = m_van.body / 2;
        m_kit.UseBody();
        const SideShape sides{m_van.half, m_van.half, m_van.floor, m_van.eaves};
        m_kit.Sides(m_side, sides, m_van.caboose && detail < 2 ? windows() : WindowRow{});
        drawRoof(detail);
        drawUnderframe(detail);
        if (detail == 0)
            drawFittings(half);
        if (m_van.caboose)
            drawCaboose(detail);
        m_gear.Draw(detail);
        if (m_van.buffers)
            DrawBuffers(m_kit, detail, half);
        else
            DrawCouplers(m_kit, detail, m_kit.Wanted().length / 2 - 0.55F);
    }

private:
    float pivot() const { return m_kit.Wanted().length / 2 - 2.35F; }
    static WindowRow windows() { return {2, 2.75F, {{-2.6F, -1.9F}, {1.9F, 2.6F}}}; }

    void drawRoof(int detail)
    {
        const float half = m_van.body / 2;
        std::vector<Vec2> arc = RoofArc(m_van.half + 0.04F, m_van.eaves, m_van.top,
                                        detail == 0   ? 10
                                        : detail == 1 ? 6
                                                      : 2);
        const float over = m_van.caboose ? 1 : 0.05F;
        m_mesh.Extrude(arc, -half - over, half + over, m_roof);
        m_kit.Soffit(m_van.half + 0.04F, m_van.eaves, -half - over, half + over, m_trim);
        for (const bool front : {true, false}) {
            std::vector<Vec2> end = {{-m_van.half, m_van.floor}};
            for (const Vec2 &at : arc)
                end.push_back({at.x * m_van.half / (m_van.half + 0.04F), at.y});
            end.push_back({m_van.half, m_van.floor});
            m_kit.EndWall(end, front ? half : -half, front, m_end);
            if (over > 0.5F)
                m_kit.EndWall(arc, front ? half + over : -half - over, front, m_roof);
        }
        if (detail < 2 && !m_van.caboose && !m_van.buffers) {
            m_kit.UseGear();
            m_mesh.Box({-0.3F, m_van.top + 0.04F, -half - 0.05F},
                       {0.3F, m_van.top + 0.09F, half + 0.05F}, BoxSkin::All(m_kit.Gear().wood));
            m_kit.UseBody();
        }
        if (m_van.hatches && detail < 2)
            for (const float z : {-half + 0.6F, half - 0.6F})
                for (const float x : {-0.75F, 0.75F})
                    m_mesh.Box({x - 0.35F, m_van.top - 0.3F, z - 0.4F},
                               {x + 0.35F, m_van.top + 0.12F, z + 0.4F}, BoxSkin::All(m_trim));
    }

    void drawUnderframe(int detail)
    {
        const float end = m_van.caboose ? m_van.body / 2 + 1 : m_van.body / 2;
        const GearPatches &gear = m_kit.Gear();
        m_kit.UseGear();
        m_mesh.Box({-m_van.half + 0.06F, m_van.floor - 0.16F, -end},
                   {m_van.half - 0.06F, m_van.floor, end}, BoxSkin::All(gear.dark));
        if (detail > 1)
            return;
        m_mesh.Box({-0.22F, 0.62F, -end + 0.4F}, {0.22F, m_van.floor - 0.16F, end - 0.4F},
                   BoxSkin::All(gear.dark));
        m_mesh.Box({0.5F, 0.5F, -0.5F}, {1, 0.92F, 0.2F}, BoxSkin::All(gear.dark));
        if (detail == 0)
            m_mesh.Bar({-0.8F, 0.72F, -0.7F}, {-0.8F, 0.72F, 0.5F}, 0.18F, 12, gear.dark);
        if (detail == 0)
            for (const float z : {-0.7F, 0.5F})
                m_mesh.Disc({-0.8F, 0.72F, z}, Axis::Z, z < 0, 0.18F, 12, gear.dark);
    }

    /// Ladders, grab irons and the hand brake.
    void drawFittings(float half)
    {
        if (!m_van.caboose && m_kit.UseCutout()) {
            for (const float side : {1.0F, -1.0F}) {
                const float x = side * (m_van.half + 0.05F);
                const float z = side * (half - 0.08F);
                m_mesh.Quad({x, m_van.eaves - 0.1F, z - side * 0.45F}, {x, m_van.eaves - 0.1F, z},
                            {x, m_van.floor - 0.3F, z}, {x, m_van.floor - 0.3F, z - side * 0.45F},
                            m_kit.Gear().ladder);
            }
        }
        m_kit.UseGear();
        if (!m_van.buffers && !m_van.caboose) {
            m_mesh.Bar({-0.7F, m_van.floor + 0.3F, half + 0.06F},
                       {-0.7F, m_van.eaves - 0.6F, half + 0.06F}, 0.03F, 6, m_kit.Gear().black);
            m_mesh.Lathe({-0.7F, m_van.eaves - 0.8F, half + 0.06F}, Axis::Z,
                         std::array<Vec2, 2>{{{0, 0.26F}, {0.05F, 0.26F}}}, 12, m_kit.Gear().rust);
        }
        for (const float end : {1.0F, -1.0F}) {
            for (const float x : {-m_van.half + 0.12F, m_van.half - 0.12F}) {
                const float a = end * (half - 0.1F);
                const float b = end * (half - 0.5F);
                m_mesh.Bar({x, 0.95F, a}, {x, 0.42F, a}, 0.025F, 4, m_kit.Gear().black);
                m_mesh.Bar({x, 0.95F, b}, {x, 0.42F, b}, 0.025F, 4, m_kit.Gear().black);
                m_mesh.Box({x - 0.1F, 0.4F, std::min(a, b)}, {x + 0.1F, 0.44F, std::max(a, b)},
                           BoxSkin::All(m_kit.Gear().black));
            }
        }
    }

    void drawCaboose(int detail)
    {
        const float half = m_van.body / 2;
        m_mesh.Box({-0.95F, m_van.top - 0.25F, -1.1F}, {0.95F, m_van.top + 0.55F, 1.1F},
                   BoxSkin::All(m_trim));
        if (detail > 1)
            return;
        m_kit.UseBody();
        m_mesh.Box({-1.05F, m_van.top + 0.55F, -1.25F}, {1.05F, m_van.top + 0.62F, 1.25F},
                   BoxSkin::All(m_roof));
        m_mesh.Box({-0.95F, m_van.top - 0.25F, -1.1F}, {0.95F, m_van.top + 0.55F, 1.1F},
                   BoxSkin::All(m_trim));
        m_kit.Linings(m_van.body, {m_van.half, m_van.half, m_van.floor, m_van.eaves}, windows(),
                      m_bright);
        m_mesh.Bar({0.7F, m_van.top - 0.2F, 2}, {0.7F, m_van.top + 0.6F, 2}, 0.09F, 10, m_trim);
        if (m_kit.UseGlass()) {
            m_kit.Panes({m_van.half, m_van.half, m_van.floor, m_van.eaves}, windows());
            for (const float x : {0.97F, -0.97F})
                m_mesh.Quad({x, m_van.top + 0.45F, x > 0 ? -0.8F : 0.8F},
                            {x, m_van.top + 0.45F, x > 0 ? 0.8F : -0.8F},
                            {x, m_van.top + 0.1F, x > 0 ? 0.8F : -0.8F},
                            {x, m_van.top + 0.1F, x > 0 ? -0.8F : 0.8F}, m_kit.Pane());
        }
        drawPlatforms(half);
    }

    void drawPlatforms(float half)
    {
        m_kit.UseGear();
        for (const float end : {1.0F, -1.0F})
            for (const float x : {-m_van.half + 0.1F, m_van.half - 0.1F})
                m_mesh.Bar({x, m_van.floor, end * (half + 0.92F)},
                           {x, m_van.eaves, end * (half + 0.92F)}, 0.035F, 6, m_kit.Gear().black);
        if (!m_kit.UseRailing())
            return;
        const Patch &railing = m_kit.Railing();
        for (const float end : {1.0F, -1.0F}) {
            const float z = end * (half + 0.95F);
            for (const float x : {-m_van.half + 0.1F, 0.35F}) {
                const float y = m_van.floor + 0.95F;
                const Vec3 a{x, y, z}, b{x + 1, y, z};
                const Vec3 c{x + 1, m_van.floor, z}, d{x, m_van.floor, z};
                m_mesh.Quad(a, b, c, d, railing);
                m_mesh.Quad(b, a, d, c, railing);
            }
        }
    }

    Kit &m_kit;
    MeshBuilder &m_mesh;
    VanShape m_van;
    RunningGear m_gear;
    std::vector<Stretch> m_side;
    Patch m_end, m_roof, m_trim, m_bright;
};

} // namespace

void BuildVan(Kit &kit, Design design)
{
    Van van(kit, design);
    kit.Levels([&](int detail) { van.Draw(detail); });
}

} // namespace samples
