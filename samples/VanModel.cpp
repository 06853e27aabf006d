// SPDX-License-Identifier: MIT
#include "samples/VehicleModel.h"

#include <algorithm>
#include <string>

namespace samples {
namespace {

/// Measures of a covered goods vehicle, in metres.
struct VanShape
{
    float gap; ///< length of the vehicle without its body
    float floor;
    float eaves;
    float top;
    float half; ///< of the width
    bool buffers;
    bool wooden;
    bool caboose;
    bool hatches;
};

VanShape shapeOf(Design design)
{
    switch (design) {
    case Design::IceVan:
        return {1.1F, 1.08F, 3.55F, 3.85F, 1.45F, false, true, false, true};
    case Design::GoodsVan:
        return {1.24F, 1.12F, 3.25F, 3.8F, 1.4F, true, true, false, false};
    case Design::Caboose:
        return {2.9F, 1.1F, 3.3F, 3.62F, 1.45F, false, true, true, false};
    default:
        return {1.1F, 1.08F, 3.7F, 4.02F, 1.45F, false, false, false, false};
    }
}

const WindowRow kWindows{2, 2.75F, {{-2.6F, -1.9F}, {1.9F, 2.6F}}};

class Van : public VehicleModel
{
public:
    Van(const Plan &plan, const VanShape &shape)
        : VehicleModel(plan, 0)
        , m_van(shape)
        , m_body(plan.length - shape.gap)
        , m_end(m_body / 2)
        , m_walls{shape.half, shape.half, shape.floor, shape.eaves}
    {
        if (shape.buffers)
            addAxles({{2.3F, 0.5F}, {-2.3F, 0.5F}}, false);
        else
            addBogies({{m_half - 2.35F}, {2.35F - m_half}});
        const bool isLong = m_body > 9;
        m_side = paintSide(m_body, shape.floor, shape.eaves, isLong ? 2 : 1, isLong ? 150 : 170,
                           [&](Brush &b) { side(b); });
        m_face =
            paint(130, 140, {-shape.half, shape.floor, 2 * shape.half, shape.top - shape.floor},
                  [&](Brush &b) { face(b); });
        m_roof = paint(250, 60, {0, 0, 10, 3}, [&](Brush &b) {
            b.Fill(shape.wooden ? Colour{92, 90, 88} : Colour{150, 150, 150});
            for (float x = 0; x < 10; x += 0.8F)
                b.Line(x, 0, x, 3, 0.06F, {0, 0, 0}, 0.3F);
            b.Weather(29, 0.4F);
        });
        m_trim = plain(Shade(plan.base, 0.7F));
        m_bright = plain(plan.trim);
    }

protected:
    void draw() override
    {
        sides(m_side, m_walls, m_van.caboose && !farthest() ? kWindows : WindowRow{});
        drawRoof();
        drawUnderframe();
        if (nearest())
            drawFittings();
        if (m_van.caboose)
            drawCaboose();
        drawRunningGear();
        if (m_van.buffers)
            drawBuffers(m_end);
        else
            drawCouplers(m_half - 0.55F);
    }

private:
    void side(Brush &b) const
    {
        const Colour base = m_plan.base;
        b.Fill(base);
        panels(b);
        if (m_van.caboose) {
            b.Text(0, m_van.floor + 0.35F, 0.42F, m_plan.initials + " " + m_plan.number,
                   m_plan.trim);
            b.Rect({-m_end, m_van.floor + 0.12F, m_end, m_van.floor + 0.2F}, m_plan.trim);
        } else {
            const float half = std::min(1.25F, m_end * 0.3F);
            door(b, half);
            lettering(b, m_end - half, -half - (m_end - half) / 2);
        }
        b.Rect({-m_end, m_van.floor, m_end, m_van.floor + 0.1F}, Shade(base, 0.55F));
        b.Rect({-m_end, m_van.eaves - 0.07F, m_end, m_van.eaves}, Shade(base, 0.7F));
        for (const float x : {-m_end, m_end - 0.1F})
            b.Rect({x, m_van.floor, x + 0.1F, m_van.eaves}, Shade(base, 0.75F));
        b.Fade({-m_end, m_van.floor, m_end, m_van.floor + 1}, kDirt, 0.5F, 0);
        b.Fade({-m_end, m_van.eaves - 0.4F, m_end, m_van.eaves}, {0, 0, 0}, 0, 0.35F);
        b.Weather(static_cast<std::uint32_t>(m_plan.length * 10), 0.34F);
    }

    /// Upright boards or pressed panels.
    void panels(Brush &b) const
    {
        const float low = m_van.floor;
        const float high = m_van.eaves;
        int number = 0;
        for (float x = -m_end; m_van.wooden && x < m_end; x += 0.14F, ++number) {
            const float tint = 0.93F + 0.02F * static_cast<float>(number * 7 % 8);
            b.Rect({x, low, x + 0.14F, high}, Shade(m_plan.base, tint));
            b.Line(x, low, x, high, 0.018F, {0, 0, 0}, 0.35F);
        }
        for (float x = -m_end; !m_van.wooden && x < m_end - 0.1F; x += 0.62F) {
            b.Rect({x, low + 0.16F, x + 0.16F, high - 0.1F}, Shade(m_plan.base, 1.16F));
            b.Rect({x + 0.16F, low + 0.16F, x + 0.26F, high - 0.1F}, Shade(m_plan.base, 0.8F));
            b.Rivets(x + 0.4F, low + 0.2F, x + 0.4F, high - 0.15F, 0.13F);
        }
    }

    void door(Brush &b, float half) const
    {
        constexpr Colour rail{40, 40, 42};
        const float floor = m_van.floor;
        const Box2 door{-half, floor + 0.06F, half, m_van.eaves - 0.14F};
        b.RoundRect(door, 0.02F, Shade(m_plan.base, 1.04F));
        for (float x = -half + 0.2F; x < half - 0.1F; x += 0.4F)
            b.Line(x, door.y0 + 0.1F, x, door.y1 - 0.1F, 0.05F, Shade(m_plan.base, 0.85F));
        b.Line(-half, door.y0 + 0.1F, half, door.y1 - 0.1F, 0.1F, Shade(m_plan.base, 0.9F));
        b.Joint(door, 0.035F);
        b.Rect({-half - 0.9F, door.y1 + 0.02F, half + 0.9F, door.y1 + 0.08F}, rail);
        b.Rect({-half - 0.9F, floor + 0.01F, half + 0.9F, floor + 0.05F}, rail);
        b.Rect({half - 0.18F, floor + 1, half - 0.08F, floor + 1.5F}, {30, 30, 32});
    }

    /// Initials and number left of the door, a roundel and the loads right of it.
    void lettering(Brush &b, float space, float left) const
    {
        const Colour trim = m_plan.trim;
        const float height = std::min(0.62F, space * 0.19F);
        const float y = m_van.floor + (m_van.eaves - m_van.floor) * 0.56F;
        b.Text(left, y, height, m_plan.initials, trim);
        b.Text(left, y - height * 1.5F, height, m_plan.number, trim);
        b.Rect({left - space * 0.35F, y - 0.18F * height, left + space * 0.35F, y - 0.1F * height},
               trim);
        b.RoundRect({-left - 0.55F, y - 0.45F, -left + 0.55F, y + 0.45F}, 0.45F, trim);
        b.RoundRect({-left - 0.48F, y - 0.38F, -left + 0.48F, y + 0.38F}, 0.38F,
                    Shade(m_plan.base, 0.75F));
        b.Text(-left, y - 0.17F, 0.34F, m_plan.initials.substr(0, 3), trim, 0.18F);
        float line = 0;
        for (const char *text : {"LOAD 48 T", "TARE 21.5 T", "REV 4-26"})
            b.Text(-left, m_van.floor + 0.5F - 0.15F * line++, 0.09F, text, trim);
    }

    void face(Brush &b) const
    {
        const Colour base = m_plan.base;
        const float half = m_van.half;
        const float floor = m_van.floor;
        b.Fill(base);
        for (float x = -half; m_van.wooden && x < half; x += 0.16F)
            b.Line(x, 0, x, 5, 0.02F, {0, 0, 0}, 0.35F);
        for (float y = floor + 0.2F; !m_van.wooden && y < m_van.eaves; y += 0.36F) {
            b.RoundRect({-half + 0.15F, y, half - 0.15F, y + 0.2F}, 0.08F, Shade(base, 0.82F));
            b.RoundRect({-half + 0.15F, y + 0.08F, half - 0.15F, y + 0.2F}, 0.06F,
                        Shade(base, 1.12F));
        }
        if (m_van.caboose) {
            b.RoundRect({-0.4F, floor, 0.4F, floor + 1.95F}, 0.04F, Shade(base, 0.8F));
            b.Joint({-0.4F, floor, 0.4F, floor + 1.95F}, 0.04F);
            b.RoundRect({-0.25F, floor + 1.1F, 0.25F, floor + 1.75F}, 0.05F, {28, 34, 40});
        } else {
            b.Text(half * 0.45F, m_van.eaves - 0.45F, 0.24F, m_plan.number, m_plan.trim);
        }
        b.Rect({-half, floor, half, floor + 0.12F}, Shade(base, 0.5F));
        b.Fade({-half, floor, half, floor + 1.2F}, kDirt, 0.5F, 0);
        b.Weather(17, 0.4F);
    }

    void drawRoof()
    {
        const float half = m_van.half + 0.04F;
        const float over = m_end + (m_van.caboose ? 1 : 0.05F);
        const Outline arc = RoofArc(half, m_van.eaves, m_van.top, facets(10, 6, 2));
        Outline wall = Gable(arc, m_van.half, m_van.floor);
        for (std::size_t i = 1; i + 1 < wall.size(); ++i)
            wall[i].x = wall[i].x * m_van.half / half;
        Extrude(arc, -over, over, m_roof);
        soffit(half, m_van.eaves, -over, over, m_trim);
        for (const float facing : kSides) {
            endWall(wall, facing * m_end, facing, m_face);
            if (m_van.caboose)
                endWall(arc, facing * over, facing, m_roof);
        }
        if (farthest())
            return;
        const float top = m_van.top;
        if (!m_van.caboose && !m_van.buffers)
            Box({-0.3F, top + 0.04F, -over}, {0.3F, top + 0.09F, over}, m_gear.wood);
        if (m_van.hatches)
            Box({-1.1F, top - 0.3F, 0.2F - m_end}, {-0.4F, top + 0.12F, 1 - m_end}, m_trim,
                Copies::EndsSides);
    }

    void drawUnderframe()
    {
        const float end = m_van.caboose ? m_end + 1 : m_end;
        const float low = m_van.floor - 0.16F;
        const float half = m_van.half - 0.06F;
        Box({-half, low, -end}, {half, m_van.floor, end}, m_gear.dark);
        if (farthest())
            return;
        Box({-0.22F, 0.62F, -end + 0.4F}, {0.22F, low, end - 0.4F}, m_gear.dark);
        Box({0.5F, 0.5F, -0.5F}, {1, 0.92F, 0.2F}, m_gear.dark);
        if (nearest())
            drawReservoir({-0.8F, 0.72F, -0.7F}, {-0.8F, 0.72F, 0.5F});
    }

    /// Ladders, steps and the hand brake.
    void drawFittings()
    {
        if (!m_van.caboose) {
            const float x = m_van.half + 0.05F;
            const float z = m_end - 0.08F;
            const float high = m_van.eaves - 0.1F;
            const float low = m_van.floor - 0.3F;
            Quad({x, high, z - 0.45F}, {x, high, z}, {x, low, z}, {x, low, z - 0.45F},
                 m_gear.ladder, Copies::Turned);
        }
        if (!m_van.buffers && !m_van.caboose) {
            const Vec3 wheel{-0.7F, m_van.eaves - 0.8F, m_end + 0.06F};
            Bar({-0.7F, m_van.floor + 0.3F, wheel.z}, {-0.7F, m_van.eaves - 0.6F, wheel.z}, 0.03F,
                6, m_gear.black);
            Lathe(wheel, Axis::Z, {{0, 0.26F}, {0.05F, 0.26F}}, 12, m_gear.rust);
        }
        for (const float end : kSides)
            for (const float x : {-m_van.half + 0.12F, m_van.half - 0.12F}) {
                const float a = end * (m_end - 0.1F);
                const float b = end * (m_end - 0.5F);
                for (const float z : {a, b})
                    Bar({x, 0.95F, z}, {x, 0.42F, z}, 0.025F, 4, m_gear.black);
                Box({x - 0.1F, 0.4F, a}, {x + 0.1F, 0.44F, b}, m_gear.black);
            }
    }

    /// The lookout on the roof, the inside and the platforms.
    void drawCaboose()
    {
        const float top = m_van.top;
        const Vec3 low{-0.95F, top - 0.25F, -1.1F};
        const Vec3 high{0.95F, top + 0.55F, 1.1F};
        // The model has the lookout twice: with the picture of the gear, and as it should be.
        Patch misplaced = m_trim;
        misplaced.look = OnGear;
        Box(low, high, misplaced);
        if (farthest())
            return;
        Box({-1.05F, top + 0.55F, -1.25F}, {1.05F, top + 0.62F, 1.25F}, m_roof);
        Box(low, high, m_trim);
        linings(m_body, m_walls, kWindows, m_bright);
        Bar({0.7F, top - 0.2F, 2}, {0.7F, top + 0.6F, 2}, 0.09F, 10, m_trim);
        panes(m_walls, kWindows);
        Quad({0.97F, top + 0.45F, -0.8F}, {0.97F, top + 0.45F, 0.8F}, {0.97F, top + 0.1F, 0.8F},
             {0.97F, top + 0.1F, -0.8F}, m_pane, Copies::Turned);
        const float x = 0.1F - m_van.half;
        const float z = m_end + 0.92F;
        Bar({x, m_van.floor, z}, {x, m_van.eaves, z}, 0.035F, 6, m_gear.black, Copies::EndsSides);
        for (const float end : kSides)
            for (const float left : {x, 0.35F}) {
                const Vec3 foot{left, m_van.floor, end * (m_end + 0.95F)};
                const Vec3 head = foot + Vec3{0, 0.95F, 0};
                const Vec3 across{1, 0, 0};
                DoubleQuad(head, head + across, foot + across, foot, m_railing);
            }
    }

    VanShape m_van;
    float m_body; ///< length
    float m_end;  ///< of the body, along z
    SideShape m_walls;
    std::vector<Stretch> m_side;
    Patch m_face, m_roof, m_trim, m_bright;
};

} // namespace

PaintedModel BuildVan(const Plan &plan, Design design)
{
    return Van(plan, shapeOf(design)).Build();
}

} // namespace samples
