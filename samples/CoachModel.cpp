// SPDX-License-Identifier: MIT
#include "samples/VehicleModel.h"

#include <algorithm>
#include <string_view>

namespace samples {
namespace {

/// The differences between passenger vehicles, in metres.
struct CoachShape
{
    float gap = 0.5F; ///< from the body's end to the coupling
    float eaves = 3.2F;
    float top = 3.95F;
    float half = 1.47F; ///< of the width
    float sill = 1.98F;
    float lintel = 2.82F;
    float bay = 1.9F; ///< from window to window
    float window = 1.35F;
    float blind = 0; ///< length without windows at the rear, as seen from the right
    std::string_view notice = "1";
    bool frontCab = false;
    bool rearCab = false;
    bool pantograph = false;
    bool oldStyle = false; ///< buffers, a door for each bay instead of two at the ends
    float wheelbase = 2.5F;
};

// clang-format off
// Gap, eaves, top, half, sill, lintel, bay, window, blind, notice, then front cab, rear cab, pantograph, old style, and
// the wheelbase.
const CoachShape kCoach;
const CoachShape kDiner{.bay = 2.15F, .window = 1.7F, .blind = 5.4F, .notice = "RESTAURANT"};
const CoachShape kCompartments{0.6F, 3.1F, 3.75F, 1.4F, 2.0F, 2.72F, 1.75F, 1.28F, 0, "3",
                               false, false, false, true, 2.1F};
const CoachShape kBrake{0.6F, 3.1F, 3.75F, 1.4F, 2.0F, 2.72F, 1.75F, 1.28F, 5.2F, "GUARD",
                        false, false, false, true, 2.1F};
const CoachShape kMotorCoach{0.45F, 3.2F, 3.95F, 1.47F, 1.98F, 2.82F, 1.75F, 1.3F, 0, "2", true, false, true};
const CoachShape kTrailer{0.45F, 3.2F, 3.95F, 1.47F, 1.98F, 2.82F, 1.75F, 1.3F, 0, "2"};
const CoachShape kRailcar{0.45F, 3.2F, 3.85F, 1.47F, 1.98F, 2.82F, 1.8F, 1.3F, 0, "2", true, true};
// clang-format on

const CoachShape &shapeOf(Design design)
{
    switch (design) {
    case Design::DiningCar:
        return kDiner;
    case Design::CompartmentCoach:
        return kCompartments;
    case Design::BrakeCoach:
        return kBrake;
    case Design::MotorCoach:
        return kMotorCoach;
    case Design::Trailer:
        return kTrailer;
    case Design::Railcar:
        return kRailcar;
    default:
        return kCoach;
    }
}

constexpr float kFloor = 1.15F;
constexpr Colour kHandles{210, 190, 120};
constexpr Colour kScreens{26, 32, 38};

class Coach : public VehicleModel
{
public:
    Coach(const Plan &plan, const CoachShape &shape)
        : VehicleModel(plan, shape.gap)
        , m_coach(shape)
        , m_pivot(plan.length * 0.345F)
        , m_wall{shape.half - 0.04F, shape.half, kFloor, shape.eaves}
    {
        addBogies({{m_pivot, shape.wheelbase, 2, 0.46F, true},
                   {-m_pivot, shape.wheelbase, 2, 0.46F, true}});
        layWindows();
        m_side = paintSide(2 * m_half, kFloor, shape.eaves, 2, 118, [&](Brush &b) { side(b); });
        const Window face{-shape.half, kFloor, 2 * shape.half, shape.top - kFloor};
        m_end = paint(136, 122, face, [&](Brush &b) { end(b); });
        if (shape.frontCab)
            m_cab = paint(136, 122, face, [&](Brush &b) { cab(b); });
        paintRest();
    }

protected:
    void draw() override
    {
        sides(m_side, m_wall, farthest() ? WindowRow{} : m_windows);
        drawRoof();
        if (!farthest())
            drawInside();
        drawUnderframe();
        if (!farthest())
            drawEnds();
        if (m_coach.pantograph && !farthest())
            drawPantograph(m_half - 3.6F, m_coach.top);
        drawRunningGear();
        if (m_coach.oldStyle)
            drawBuffers(m_half);
        else
            drawCouplers(m_half);
        if (!farthest())
            panes(m_wall, m_windows);
    }

private:
    /// Lays out the windows of each half separately, because the picture of a side is cut in the
    /// middle.
    void layWindows()
    {
        m_windows = {m_coach.sill, m_coach.lintel, {}};
        const float ends = m_coach.oldStyle ? 0.25F : 1.55F;
        const auto add = [&](float middle, float width) {
            m_windows.spans.push_back({middle - width / 2, middle + width / 2});
        };
        const float door = m_half - 0.85F;
        if (!m_coach.oldStyle)
            add(-door, 0.48F);
        for (const float side : {-1.0F, 1.0F}) {
            const float blind = side < 0 ? m_coach.blind : 0;
            const float room = m_half - ends - blind;
            const int number = static_cast<int>(room / m_coach.bay);
            const float bay = number > 0 ? room / static_cast<float>(number) : 0;
            for (int i = 0; i < number; ++i) {
                const float place = bay * (static_cast<float>(i) + 0.5F);
                add(side < 0 ? -m_half + ends + blind + place : place, m_coach.window);
            }
        }
        if (!m_coach.oldStyle)
            add(door, 0.48F);
    }

    void bands(Brush &b) const
    {
        const auto band = [&](float low, float high, Colour colour) {
            b.Rect({-m_half - 1, low, m_half + 1, high}, colour);
        };
        b.Fill(m_plan.base);
        band(m_coach.sill - 0.12F, m_coach.lintel + 0.1F, m_plan.trim);
        band(m_coach.sill - 0.17F, m_coach.sill - 0.12F, Shade(m_plan.base, 0.6F));
        band(m_coach.lintel + 0.1F, m_coach.lintel + 0.13F, Shade(m_plan.base, 0.6F));
        band(kFloor, kFloor + 0.12F, Shade(m_plan.base, 0.5F));
    }

    void door(Brush &b, float x, float width) const
    {
        const float from = x - width / 2;
        const float to = x + width / 2;
        b.Joint({from, kFloor + 0.06F, to, m_coach.eaves - 0.1F}, 0.03F);
        b.Rect({from - 0.09F, kFloor + 0.4F, from - 0.05F, kFloor + 1.5F}, kHandles);
        b.Rect({to - 0.16F, kFloor + 0.74F, to - 0.06F, kFloor + 0.79F}, {220, 200, 130});
        if (m_coach.notice.size() == 1)
            b.Text(x, kFloor + 0.3F, 0.26F, m_coach.notice, m_plan.trim, 0.17F);
    }

    void side(Brush &b) const
    {
        bands(b);
        for (const Span &s : m_windows.spans) {
            b.RoundRect(
                {s.from - 0.06F, m_coach.sill - 0.06F, s.to + 0.06F, m_coach.lintel + 0.06F}, 0.1F,
                Shade(m_plan.base, 0.45F));
            if (m_coach.oldStyle)
                door(b, (s.from + s.to) / 2, m_coach.window * 0.52F);
        }
        if (!m_coach.oldStyle)
            for (const float x : {-m_half + 0.85F, m_half - 0.85F})
                door(b, x, 0.86F);
        if (m_coach.blind > 0)
            blind(b);
        b.Fade({-m_half, kFloor, m_half, kFloor + 0.7F}, {70, 58, 46}, 0.45F, 0);
        b.Fade({-m_half, m_coach.eaves - 0.22F, m_half, m_coach.eaves}, {0, 0, 0}, 0, 0.4F);
        lettering(b);
        b.Weather(81, 0.2F);
    }

    void lettering(Brush &b) const
    {
        const auto write = [&](float x, std::string_view text) {
            b.Text(x, kFloor + 0.28F, 0.27F, text, m_plan.trim, 0.16F);
        };
        b.Text(0, m_coach.eaves - 0.24F, 0.19F, m_plan.initials, m_plan.trim, 0.18F);
        if (m_coach.oldStyle) {
            write(0, m_plan.number);
        } else {
            write(-m_half * 0.5F, m_plan.number);
            write(m_half * 0.5F, m_plan.number);
        }
        if (m_coach.notice.size() > 1)
            write(m_coach.oldStyle ? -m_half * 0.55F : 0, m_coach.notice);
    }

    /// Luggage doors or the wall of a kitchen.
    void blind(Brush &b) const
    {
        const float middle = -m_half + (m_coach.oldStyle ? 0.3F : 1.6F) + m_coach.blind / 2;
        const float sill = m_coach.sill;
        const float lintel = m_coach.lintel;
        if (m_coach.oldStyle) {
            for (const float x : {middle - 0.62F, middle + 0.62F}) {
                b.RoundRect({x - 0.42F, sill, x + 0.42F, lintel - 0.05F}, 0.06F, {34, 40, 46});
                b.Joint({x - 0.58F, kFloor + 0.06F, x + 0.58F, m_coach.eaves - 0.1F}, 0.03F);
            }
            return;
        }
        b.Louvres({middle + 0.8F, sill + 0.1F, middle + 1.9F, lintel}, 0.09F, m_plan.trim);
        for (const float x : {middle - 1.6F, middle - 0.5F})
            b.RoundRect({x - 0.4F, sill + 0.3F, x + 0.4F, lintel}, 0.06F, {200, 206, 204});
    }

    void end(Brush &b) const
    {
        const float frame = m_coach.half - 0.2F;
        b.Fill(Shade(m_plan.base, 0.85F));
        b.RoundRect({-0.55F, kFloor, 0.55F, kFloor + 2.05F}, 0.08F, {30, 30, 32});
        b.Joint({-frame, kFloor + 0.2F, frame, m_coach.eaves}, 0.04F);
        b.Text(1, kFloor + 0.35F, 0.18F, m_plan.number, m_plan.trim);
        b.Fade({-2, kFloor, 2, kFloor + 0.9F}, kDirt, 0.5F, 0);
        b.Weather(83, 0.3F);
    }

    void cab(Brush &b) const
    {
        const float width = TextWidth(m_plan.initials, 0.17F);
        bands(b);
        for (float x = -2; x < 2; x += 0.5F)
            b.Line(x, kFloor - 0.1F, x + (x < -0.01F ? -0.55F : 0.55F), kFloor + 0.62F, 0.15F,
                   m_plan.trim);
        for (const float x : {-0.82F, 0.82F})
            b.RoundRect({x - 0.5F, 2.12F, x + 0.5F, 2.95F}, 0.1F, kScreens);
        b.RoundRect({-0.24F, 2.12F, 0.24F, 2.95F}, 0.08F, kScreens);
        b.RoundRect({-0.5F, 3.2F, 0.5F, 3.46F}, 0.05F, {20, 20, 22});
        b.Text(0, 3.24F, std::min(0.17F, 0.17F * 0.9F / width), m_plan.initials, {255, 190, 60},
               0.17F);
        b.Text(0, 1.86F, 0.2F, m_plan.number, Shade(m_plan.base, 0.5F), 0.17F);
        for (const float x : {-0.8F, 0.8F})
            b.Line(x - 0.3F, 2.15F, x + 0.2F, 2.6F, 0.03F, {10, 10, 10});
        b.Fade({-2, kFloor, 2, kFloor + 0.6F}, kDirt, 0.4F, 0);
        b.Weather(87, 0.2F);
    }

    void paintRest()
    {
        m_roof = paint(220, 70, {0, 0, 12, 4}, [](Brush &b) {
            b.Fill({104, 106, 108});
            for (float x = 0; x < 12; x += 1.5F)
                b.Line(x, 0, x, 4, 0.06F, {40, 40, 42}, 0.5F);
            b.Weather(89, 0.35F);
        });
        m_floor = plain({96, 88, 78});
        m_lining = plain({206, 194, 168});
        m_rubber = plain({40, 40, 42});
        m_box = paint(60, 40, {0, 0, 2, 1}, [](Brush &b) {
            b.Fill({66, 66, 66});
            b.Joint({0.08F, 0.08F, 0.95F, 0.92F}, 0.05F);
            b.Joint({1.05F, 0.08F, 1.92F, 0.92F}, 0.05F);
            b.Weather(91, 0.4F);
        });
    }

    void drawRoof()
    {
        const Outline arc = RoofArc(m_coach.half, m_coach.eaves, m_coach.top, facets(12, 6, 4));
        Extrude(arc, -m_half, m_half, m_roof);
        endWalls(Gable(arc, m_coach.half - 0.04F, kFloor), m_half, m_coach.frontCab ? m_cab : m_end,
                 m_coach.rearCab ? m_cab : m_end);
        if (!nearest())
            return;
        for (float z = -m_half + 2; z < m_half - 1; z += 2.4F)
            if (!m_coach.pantograph || z < m_half - 6)
                Lathe({0.55F, m_coach.top - 0.12F, z}, Axis::Y,
                      {{0, 0.12F}, {0.1F, 0.12F}, {0.14F, 0.2F}, {0.2F, 0}}, 8, m_roof);
    }

    void drawInside()
    {
        const float in = m_coach.half - 0.1F;
        const float y = kFloor + 0.06F;
        linings(2 * m_half, m_wall, m_windows, m_lining);
        Quad({-in, y, -m_half}, {-in, y, m_half}, {in, y, m_half}, {in, y, -m_half}, m_floor);
        soffit(in, m_coach.eaves - 0.05F, -m_half, m_half, m_lining);
        const float walls = m_half - (m_coach.oldStyle ? 0.08F : 1.6F);
        const auto wallAt = [&](float from, float to) {
            Box({-in, y, from}, {in, m_coach.eaves, to}, m_lining);
        };
        wallAt(walls - 0.03F, walls + 0.03F);
        wallAt(-walls - 0.03F, -walls + 0.03F);
        if (m_coach.blind > 0)
            wallAt(-walls + m_coach.blind - 0.1F, -walls + m_coach.blind);
        if (nearest())
            drawSeats(-walls + m_coach.blind + 0.5F, walls);
    }

    void drawSeats(float from, float to)
    {
        const int number = static_cast<int>((to - from) / m_coach.bay);
        const float step = (to - from) / static_cast<float>(std::max(1, number));
        const float y = kFloor + 0.06F;
        for (int i = 0; i < number; ++i) {
            const float z = from + step * (static_cast<float>(i) + 0.5F);
            Box({-1.33F, y, z - 0.06F}, {-0.37F, y + 1.1F, z + 0.06F}, m_gear.seat, Copies::Sides);
            Box({-1.33F, y + 0.3F, z - 0.5F}, {-0.37F, y + 0.45F, z + 0.5F}, m_gear.seat,
                Copies::Sides);
        }
    }

    void drawUnderframe()
    {
        const float in = m_coach.half - 0.12F;
        const float low = kFloor - 0.22F;
        Box({-in, low, -m_half}, {in, kFloor, m_half}, m_gear.dark);
        if (farthest())
            return;
        const float clear = m_pivot - m_coach.wheelbase / 2 - 1;
        for (const Span &box : {Span{-clear, -clear * 0.45F}, Span{-clear * 0.3F, clear * 0.25F},
                                Span{clear * 0.45F, clear}})
            Box({0.55F, 0.48F, box.from}, {in, low, box.to}, m_box, Copies::Turned);
        if (!nearest())
            return;
        if (m_coach.oldStyle) {
            Box({1.32F, 0.8F, -m_half + 0.2F}, {1.52F, 0.84F, m_half - 0.2F}, m_gear.wood,
                Copies::Sides);
            return;
        }
        for (const float side : kSides)
            for (const float end : kSides)
                for (const float y : {0.55F, 0.85F})
                    Box({side * 1.16F, y, end * (m_half - 1.25F)},
                        {side * 1.44F, y + 0.03F, end * (m_half - 0.45F)}, m_gear.dark);
    }

    /// Gangways, lamps and cab windows.
    void drawEnds()
    {
        for (const float end : kSides) {
            if (end > 0 ? m_coach.frontCab : m_coach.rearCab) {
                drawCabFace(end);
                continue;
            }
            const float near = end * m_half;
            const float far = end * (m_half + m_coach.gap * 0.8F);
            if (!m_coach.oldStyle) {
                Box({-0.62F, kFloor - 0.05F, near}, {-0.46F, kFloor + 2.1F, far}, m_rubber,
                    Copies::Sides);
                Box({-0.62F, kFloor + 2, near}, {0.62F, kFloor + 2.15F, far}, m_rubber);
            }
            for (const float x : {-1.15F, 1.15F})
                Disc({x, kFloor + 0.5F, near + end * 0.01F}, Axis::Z, end < 0, 0.08F, 8,
                     m_gear.tail);
        }
    }

    void drawCabFace(float end)
    {
        const float z = end * (m_half + 0.012F);
        const float lamp = z + end * 0.05F;
        for (const float x : {-1.02F, 1.02F}) {
            Disc({x, 1.72F, lamp}, Axis::Z, end < 0, 0.14F, 12, m_gear.lamp);
            Bar({x, 1.72F, end * m_half}, {x, 1.72F, lamp}, 0.14F, 12, m_gear.black);
            Disc({x * 0.7F, 1.72F, z}, Axis::Z, end < 0, 0.09F, 10, m_gear.tail);
        }
        for (const Span &x : {Span{0.32F, 1.32F}, Span{-1.32F, -0.32F}}) {
            const float left = end > 0 ? x.to : x.from;
            const float right = end > 0 ? x.from : x.to;
            Quad({left, 2.95F, z}, {right, 2.95F, z}, {right, 2.12F, z}, {left, 2.12F, z}, m_pane);
        }
    }

    CoachShape m_coach;
    float m_pivot; ///< z of the bogies
    SideShape m_wall;
    WindowRow m_windows;
    std::vector<Stretch> m_side;
    Patch m_end, m_cab, m_roof, m_floor, m_lining, m_rubber, m_box;
};

} // namespace

PaintedModel BuildCoach(const Plan &plan, Design design)
{
    return Coach(plan, shapeOf(design)).Build();
}

} // namespace samples
