// SPDX-License-Identifier: MIT
#include "samples/VehicleModel.h"

namespace samples {
namespace {

constexpr float kFloor = 1.2F;
constexpr float kBelt = 2.3F; ///< foot of the slanting windscreens
constexpr float kEaves = 3.45F;
constexpr float kTop = 3.85F;
constexpr float kWide = 1.46F;
constexpr float kLean = 0.75F;
constexpr Colour kScreens{26, 32, 38};

/// An electric engine: one body with a cab at each end.
class BoxCab : public VehicleModel
{
public:
    explicit BoxCab(const Plan &plan)
        : VehicleModel(plan, 0.65F)
        , m_pivot(plan.length * 0.27F)
    {
        addBogies({{m_pivot, 4.2F, 3, 0.62F}, {-m_pivot, 4.2F, 3, 0.62F}});
        m_side = paintSide(2 * m_half, kFloor, kEaves, 2, 130, [&](Brush &b) { side(b); });
        m_face = paint(140, 56, {-kWide, kFloor, 2 * kWide, kBelt - kFloor}, [&](Brush &b) {
            b.Fill(plan.base);
            b.Rect({-2, 1.6F, 2, 1.72F}, plan.trim);
            b.RoundRect({-0.62F, 1.8F, 0.62F, 2.16F}, 0.05F, Shade(plan.base, 0.5F));
            b.Text(0, 1.86F, 0.24F, plan.number, plan.trim, 0.17F);
            b.Fade({-2, kFloor, 2, 1.9F}, kDirt, 0.5F, 0);
            b.Weather(95, 0.25F);
        });
        m_screen = paint(140, 70, {-kWide, 0, 2 * kWide, 1}, [&](Brush &b) {
            b.Fill(plan.base);
            for (const float x : {-0.68F, 0.68F}) {
                b.RoundRect({x - 0.58F, 0.12F, x + 0.58F, 0.86F}, 0.06F, Shade(plan.base, 0.45F));
                b.RoundRect({x - 0.53F, 0.16F, x + 0.53F, 0.82F}, 0.05F, {24, 30, 36});
                b.Line(x - 0.3F, 0.18F, x + 0.15F, 0.6F, 0.03F, {8, 8, 8});
            }
            b.Weather(97, 0.2F);
        });
        m_roof = paint(220, 60, {0, 0, 12, 3}, [](Brush &b) {
            b.Fill({112, 114, 116});
            for (float x = 0; x < 12; x += 2)
                b.Joint({x + 0.1F, 0.3F, x + 1.9F, 2.7F}, 0.05F);
            b.Weather(99, 0.4F);
        });
        m_plain = plain(Shade(plan.base, 0.8F));
        m_insulator = plain({116, 70, 52});
    }

protected:
    void draw() override
    {
        drawSides();
        drawEnds();
        drawUnderframe();
        if (!farthest())
            drawRoofGear();
        drawRunningGear();
        drawBuffers(m_half);
        if (!farthest())
            drawGlass();
    }

private:
    void side(Brush &b) const
    {
        b.Fill(m_plan.base);
        b.Rect({-m_half, 1.6F, m_half, 1.72F}, m_plan.trim);
        b.Rect({-m_half, kFloor, m_half, kFloor + 0.14F}, Shade(m_plan.base, 0.5F));
        for (const float s : kSides) {
            const float cab = s * (m_half - 1.55F);
            b.RoundRect({cab - 0.36F, 2.3F, cab + 0.36F, 3.05F}, 0.08F, kScreens);
            const float door = s * (m_half - 2.55F);
            b.Joint({door - 0.4F, kFloor + 0.1F, door + 0.4F, 3.2F}, 0.035F);
            b.RoundRect({door - 0.24F, 2.45F, door + 0.24F, 3.05F}, 0.05F, kScreens);
            b.Rect({door - 0.52F, 1.5F, door - 0.47F, 2.9F}, {210, 200, 160});
        }
        for (int i = 0; i < 6; ++i) {
            const float x = -m_half + 4.2F + (2 * m_half - 8.4F) / 5 * static_cast<float>(i);
            b.Louvres({x - 0.6F, 2.55F, x + 0.6F, 3.2F}, 0.09F, m_plan.base);
        }
        b.Text(0, 1.88F, 0.42F, m_plan.initials, m_plan.trim, 0.16F);
        for (const float x : {-m_half * 0.45F, m_half * 0.45F})
            b.Text(x, 1.92F, 0.32F, m_plan.number, m_plan.trim, 0.16F);
        b.Fade({-m_half, kFloor, m_half, 2}, {64, 50, 38}, 0.45F, 0);
        b.Fade({-m_half, kEaves - 0.25F, m_half, kEaves}, {0, 0, 0}, 0, 0.4F);
        b.Weather(93, 0.25F);
    }

    /// The wall reaches to the ends below the belt and leans back with the windscreens above.
    void drawSides()
    {
        constexpr float belt = (kBelt - kFloor) / (kEaves - kFloor);
        for (const float side : kSides) {
            const auto at = [&](float x, float y) { return Vec3{side * kWide, y, side * x}; };
            for (const Stretch &s : m_side) {
                const bool first = s.from < -0.01F;
                const float cut = kLean / (s.to - s.from);
                const float edge = first ? s.from : s.to;
                const float lean = edge + (first ? kLean : -kLean);
                const float a = first ? lean : s.from;
                const float b = first ? s.to : lean;
                Quad(at(s.from, kBelt), at(s.to, kBelt), at(s.to, kFloor), at(s.from, kFloor),
                     s.patch.Part(0, 0, 1, belt));
                Quad(at(a, kEaves), at(b, kEaves), at(b, kBelt), at(a, kBelt),
                     s.patch.Part(first ? cut : 0, belt, first ? 1 : 1 - cut, 1));
                Polygon({at(edge, kBelt), at(lean, kEaves), at(lean, kBelt)}, {side, 0, 0},
                        m_plain);
            }
        }
    }

    void drawEnds()
    {
        const float back = m_half - kLean;
        for (const float end : kSides) {
            const auto at = [&](float x, float y, float z) { return Vec3{end * x, y, end * z}; };
            const Vec3 left = at(kWide, kBelt, m_half);
            const Vec3 right = at(-kWide, kBelt, m_half);
            Quad(left, right, at(-kWide, kFloor, m_half), at(kWide, kFloor, m_half), m_face);
            Quad(at(kWide, kEaves, back), at(-kWide, kEaves, back), right, left, m_screen);
        }
        const Outline arc = RoofArc(kWide, kEaves, kTop, facets(8, 4));
        Extrude(arc, -back, back, m_roof);
        endWalls(arc, back, m_plain, m_plain);
    }

    void drawUnderframe()
    {
        const float room = m_pivot - 2.9F;
        Box({-1.4F, 0.95F, -m_half}, {1.4F, kFloor, m_half}, m_gear.dark);
        Box({-1.2F, 0.45F, -room}, {1.2F, 0.95F, room}, m_gear.dark);
        if (!nearest())
            return;
        for (const float end : kSides) {
            const auto z = [&](float fromEnd) { return end * (m_half + fromEnd); };
            for (const float x : {-0.95F, 0.95F}) {
                Bar({x, 1.95F, z(0)}, {x, 1.95F, z(0.1F)}, 0.16F, 12, m_gear.black);
                Disc({x, 1.95F, z(0.1F)}, Axis::Z, end < 0, 0.16F, 12, m_gear.lamp);
            }
            Disc({0, 3.62F, z(0.01F - kLean)}, Axis::Z, end < 0, 0.13F, 12, m_gear.lamp);
            for (const float x : {-1.25F, 1.25F})
                for (const float y : {0.5F, 0.85F})
                    Box({x - 0.14F, y, z(-2.9F)}, {x + 0.14F, y + 0.03F, z(-2.2F)}, m_gear.steel);
            const Outline plough = {
                {z(0), 0.95F}, {z(0.15F), 0.28F}, {z(0.05F), 0.28F}, {z(-0.1F), 0.95F}};
            Slab(plough, -1.3F, 1.3F, m_gear.dark, m_gear.dark);
        }
    }

    void drawRoofGear()
    {
        const float end = m_half - 2.2F;
        for (const float z : {m_half - 3.3F, -m_half + 3.3F})
            drawPantograph(z, kTop);
        Bar({0.35F, kTop + 0.22F, -end}, {0.35F, kTop + 0.22F, end}, 0.025F, 5, m_gear.rust);
        Box({-0.8F, kTop - 0.15F, -1.6F}, {0.1F, kTop + 0.2F, 1.6F}, m_roof);
        for (float z = -4; z <= 4; z += 2)
            Lathe({0.35F, kTop - 0.03F, z}, Axis::Y,
                  {{0, 0.08F}, {0.06F, 0.11F}, {0.12F, 0.06F}, {0.18F, 0.1F}, {0.24F, 0.03F}}, 8,
                  m_insulator);
    }

    void drawGlass()
    {
        for (const float end : kSides)
            for (const float x : {-0.68F, 0.68F}) {
                const auto at = [&](float across, float up) {
                    return Vec3{x + end * across, kBelt + (kEaves - kBelt) * up,
                                end * (m_half - kLean * up + 0.015F)};
                };
                Quad(at(0.53F, 0.82F), at(-0.53F, 0.82F), at(-0.53F, 0.16F), at(0.53F, 0.16F),
                     m_pane);
            }
    }

    float m_pivot; ///< z of the bogies
    std::vector<Stretch> m_side;
    Patch m_face, m_screen, m_roof, m_plain, m_insulator;
};

} // namespace

PaintedModel BuildElectric(const Plan &plan, Design)
{
    return BoxCab(plan).Build();
}

} // namespace samples
