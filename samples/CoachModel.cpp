// SPDX-License-Identifier: MIT
#include "samples/Vehicles.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace samples {
namespace {

/// What distinguishes one passenger vehicle from another; metres.
struct CoachShape
{
    float gap = 0.5F; ///< from the body's end to the coupling
    float floor = 1.15F;
    float eaves = 3.2F;
    float top = 3.95F;
    float half = 1.47F;
    float sill = 1.98F;
    float lintel = 2.82F;
    float bay = 1.9F; ///< from window to window
    float window = 1.35F;
    float blind = 0;   ///< length without windows at the rear, as seen from the right
    bool doors = true; ///< at the ends, else one for each bay
    bool frontCab = false;
    bool rearCab = false;
    bool panto = false;
    bool buffers = false;
    float wheelbase = 2.5F;
    const char *notice = "";
};

CoachShape shapeOf(Design design)
{
    switch (design) {
    case Design::DiningCar:
        return {.bay = 2.15F, .window = 1.7F, .blind = 5.4F, .notice = "RESTAURANT"};
    case Design::CompartmentCoach:
        return {.gap = 0.6F,
                .eaves = 3.1F,
                .top = 3.75F,
                .half = 1.4F,
                .sill = 2.0F,
                .lintel = 2.72F,
                .bay = 1.75F,
                .window = 1.28F,
                .doors = false,
                .buffers = true,
                .wheelbase = 2.1F,
                .notice = "3"};
    case Design::BrakeCoach:
        return {.gap = 0.6F,
                .eaves = 3.1F,
                .top = 3.75F,
                .half = 1.4F,
                .sill = 2.0F,
                .lintel = 2.72F,
                .bay = 1.75F,
                .window = 1.28F,
                .blind = 5.2F,
                .doors = false,
                .buffers = true,
                .wheelbase = 2.1F,
                .notice = "GUARD"};
    case Design::MotorCoach:
        return {.gap = 0.45F,
                .bay = 1.75F,
                .window = 1.3F,
                .frontCab = true,
                .panto = true,
                .notice = "2"};
    case Design::Trailer:
        return {.gap = 0.45F, .bay = 1.75F, .window = 1.3F, .notice = "2"};
    case Design::Railcar:
        return {.gap = 0.45F,
                .top = 3.85F,
                .bay = 1.8F,
                .window = 1.3F,
                .frontCab = true,
                .rearCab = true,
                .notice = "2"};
    default:
        return {.notice = "1"};
    }
}

class Coach
{
public:
    Coach(Kit &kit, Design design)
        : m_kit(kit)
        , m_mesh(kit.Mesh())
        , m_coach(shapeOf(design))
        , m_half(kit.Wanted().length / 2 - m_coach.gap)
        , m_gear(kit, std::vector<Bogie>{{pivot(), m_coach.wheelbase, 2, 0.46F, true},
                                         {-pivot(), m_coach.wheelbase, 2, 0.46F, true}})
    {
        layWindows();
        m_side = kit.PaintSide(2 * m_half, m_coach.floor, m_coach.eaves, 2, 118,
                               [&](Brush &b) { paintSide(b); });
        m_end = kit.Paint(
            136, 122, {-m_coach.half, m_coach.floor, 2 * m_coach.half, m_coach.top - m_coach.floor},
            [&](Brush &b) { paintEnd(b); });
        if (m_coach.frontCab)
            m_cab = kit.Paint(
                136, 122,
                {-m_coach.half, m_coach.floor, 2 * m_coach.half, m_coach.top - m_coach.floor},
                [&](Brush &b) { paintCab(b); });
        paintRest();
    }

    void Draw(int detail)
    {
        m_kit.UseBody();
        const WindowRow windows = detail < 2 ? m_windows : WindowRow{};
        m_kit.Sides(m_side, sides(), windows);
        drawRoof(detail);
        if (detail < 2)
            drawInside(detail);
        drawUnderframe(detail);
        drawEnds(detail);
        if (m_coach.panto)
            drawPantograph(detail);
        m_gear.Draw(detail);
        if (m_coach.buffers)
            DrawBuffers(m_kit, detail, m_half);
        else
            DrawCouplers(m_kit, detail, m_half);
        if (detail < 2 && m_kit.UseGlass())
            m_kit.Panes(sides(), m_windows);
    }

private:
    float pivot() const { return m_kit.Wanted().length * 0.345F; }
    SideShape sides() const
    {
        return {m_coach.half - 0.04F, m_coach.half, m_coach.floor, m_coach.eaves};
    }

    /// Windows in each half by itself, since the picture of a side is cut in the middle.
    void layWindows()
    {
        m_windows = {m_coach.sill, m_coach.lintel, {}};
        const float ends = m_coach.doors ? 1.55F : 0.25F;
        for (const float side : {-1.0F, 1.0F}) {
            const bool left = side < 0;
            const float blind = left ? m_coach.blind : 0;
            const float room = m_half - ends - blind;
            const int number = static_cast<int>(room / m_coach.bay);
            const float bay = number > 0 ? room / static_cast<float>(number) : 0;
            for (int i = 0; i < number; ++i) {
                const float place = bay * (static_cast<float>(i) + 0.5F);
                const float x = left ? -m_half + ends + blind + place : place;
                m_windows.spans.push_back({x - m_coach.window / 2, x + m_coach.window / 2});
            }
        }
        if (m_coach.doors) {
            const float door = m_half - 0.85F;
            m_windows.spans.insert(m_windows.spans.begin(), {-door - 0.24F, -door + 0.24F});
            m_windows.spans.push_back({door - 0.24F, door + 0.24F});
        }
    }

    void paintBands(Brush &b)
    {
        const Plan &plan = m_kit.Wanted();
        b.Fill(plan.base);
        b.Rect({-m_half - 1, m_coach.sill - 0.12F, m_half + 1, m_coach.lintel + 0.1F}, plan.trim);
        b.Rect({-m_half - 1, m_coach.sill - 0.17F, m_half + 1, m_coach.sill - 0.12F},
               Shade(plan.base, 0.6F));
        b.Rect({-m_half - 1, m_coach.lintel + 0.1F, m_half + 1, m_coach.lintel + 0.13F},
               Shade(plan.base, 0.6F));
        b.Rect({-m_half - 1, m_coach.floor, m_half + 1, m_coach.floor + 0.12F},
               Shade(plan.base, 0.5F));
    }

    void paintDoor(Brush &b, float x, float width)
    {
        const Plan &plan = m_kit.Wanted();
        b.Joint({x - width / 2, m_coach.floor + 0.06F, x + width / 2, m_coach.eaves - 0.1F}, 0.03F);
        b.Rect({x - width / 2 - 0.09F, m_coach.floor + 0.4F, x - width / 2 - 0.05F,
                m_coach.floor + 1.5F},
               {210, 190, 120});
        b.Rect({x + width / 2 - 0.16F, m_coach.floor + 0.74F, x + width / 2 - 0.06F,
                m_coach.floor + 0.79F},
               {220, 200, 130});
        if (std::string_view(m_coach.notice).size() == 1)
            b.Text(x, m_coach.floor + 0.3F, 0.26F, m_coach.notice, plan.trim, 0.17F);
    }

    void paintSide(Brush &b)
    {
        const Plan &plan = m_kit.Wanted();
        paintBands(b);
        for (const Vec2 &span : m_windows.spans) {
            b.RoundRect(
                {span.x - 0.06F, m_coach.sill - 0.06F, span.y + 0.06F, m_coach.lintel + 0.06F},
                0.1F, Shade(plan.base, 0.45F));
            if (!m_coach.doors)
                paintDoor(b, (span.x + span.y) / 2, m_coach.window * 0.52F);
        }
        if (m_coach.doors)
            for (const float x : {-m_half + 0.85F, m_half - 0.85F})
                paintDoor(b, x, 0.86F);
        if (m_coach.blind > 0)
            paintBlind(b);
        b.Fade({-m_half, m_coach.floor, m_half, m_coach.floor + 0.7F}, {70, 58, 46}, 0.45F, 0);
        b.Fade({-m_half, m_coach.eaves - 0.22F, m_half, m_coach.eaves}, {0, 0, 0}, 0, 0.4F);
        paintLettering(b);
        b.Weather(81, 0.2F);
    }

    void paintLettering(Brush &b)
    {
        const Plan &plan = m_kit.Wanted();
        const float foot = m_coach.floor + 0.28F;
        b.Text(0, m_coach.eaves - 0.24F, 0.19F, plan.initials, plan.trim, 0.18F);
        if (m_coach.doors)
            for (const float x : {-m_half * 0.5F, m_half * 0.5F})
                b.Text(x, foot, 0.27F, plan.number, plan.trim, 0.16F);
        else
            b.Text(0, foot, 0.27F, plan.number, plan.trim, 0.16F);
        if (std::string_view(m_coach.notice).size() > 1)
            b.Text(m_coach.doors ? 0 : -m_half * 0.55F, foot, 0.27F, m_coach.notice, plan.trim,
                   0.16F);
    }

    /// Luggage doors or a kitchen's wall.
    void paintBlind(Brush &b)
    {
        const Plan &plan = m_kit.Wanted();
        const float from = -m_half + (m_coach.doors ? 1.6F : 0.3F);
        const float middle = from + m_coach.blind / 2;
        if (!m_coach.doors) {
            for (const float x : {middle - 0.62F, middle + 0.62F}) {
                b.RoundRect({x - 0.42F, m_coach.sill, x + 0.42F, m_coach.lintel - 0.05F}, 0.06F,
                            {34, 40, 46});
                b.Joint({x - 0.58F, m_coach.floor + 0.06F, x + 0.58F, m_coach.eaves - 0.1F}, 0.03F);
            }
            return;
        }
        b.Louvres({middle + 0.8F, m_coach.sill + 0.1F, middle + 1.9F, m_coach.lintel}, 0.09F,
                  plan.trim);
        for (const float x : {middle - 1.6F, middle - 0.5F})
            b.RoundRect({x - 0.4F, m_coach.sill + 0.3F, x + 0.4F, m_coach.lintel}, 0.06F,
                        {200, 206, 204});
    }

    void paintEnd(Brush &b)
    {
        const Plan &plan = m_kit.Wanted();
        b.Fill(Shade(plan.base, 0.85F));
        b.RoundRect({-0.55F, m_coach.floor, 0.55F, m_coach.floor + 2.05F}, 0.08F, {30, 30, 32});
        b.Joint({-m_coach.half + 0.2F, m_coach.floor + 0.2F, m_coach.half - 0.2F, m_coach.eaves},
                0.04F);
        b.Text(1, m_coach.floor + 0.35F, 0.18F, plan.number, plan.trim);
        b.Fade({-2, m_coach.floor, 2, m_coach.floor + 0.9F}, {60, 48, 36}, 0.5F, 0);
        b.Weather(83, 0.3F);
    }

    void paintCab(Brush &b)
    {
        const Plan &plan = m_kit.Wanted();
        paintBands(b);
        for (float x = -2; x < 2; x += 0.5F)
            b.Line(x, m_coach.floor - 0.1F, x + (x < -0.01F ? 0.55F : -0.55F) * -1,
                   m_coach.floor + 0.62F, 0.15F, plan.trim);
        for (const float x : {-0.82F, 0.82F})
            b.RoundRect({x - 0.5F, 2.12F, x + 0.5F, 2.95F}, 0.1F, {26, 32, 38});
        b.RoundRect({-0.24F, 2.12F, 0.24F, 2.95F}, 0.08F, {26, 32, 38});
        b.RoundRect({-0.5F, 3.2F, 0.5F, 3.46F}, 0.05F, {20, 20, 22});
        b.Text(0, 3.24F, std::min(0.17F, 0.17F * 0.9F / TextWidth(plan.initials, 0.17F)),
               plan.initials, {255, 190, 60}, 0.17F);
        b.Text(0, 1.86F, 0.2F, plan.number, Shade(plan.base, 0.5F), 0.17F);
        for (const float x : {-0.8F, 0.8F})
            b.Line(x - 0.3F, 2.15F, x + 0.2F, 2.6F, 0.03F, {10, 10, 10});
        b.Fade({-2, m_coach.floor, 2, m_coach.floor + 0.6F}, {60, 48, 36}, 0.4F, 0);
        b.Weather(87, 0.2F);
    }

    void paintRest()
    {
        m_roof = m_kit.Paint(220, 70, {0, 0, 12, 4}, [&](Brush &b) {
            b.Fill({104, 106, 108});
            for (float x = 0; x < 12; x += 1.5F)
                b.Line(x, 0, x, 4, 0.06F, {40, 40, 42}, 0.5F);
            b.Weather(89, 0.35F);
        });
        m_floor = m_kit.Plain({96, 88, 78});
        m_lining = m_kit.Plain({206, 194, 168});
        m_rubber = m_kit.Plain({40, 40, 42});
        m_box = m_kit.Paint(60, 40, {0, 0, 2, 1}, [](Brush &b) {
            b.Fill({66, 66, 66});
            b.Joint({0.08F, 0.08F, 0.95F, 0.92F}, 0.05F);
            b.Joint({1.05F, 0.08F, 1.92F, 0.92F}, 0.05F);
            b.Weather(91, 0.4F);
        });
    }

    void drawRoof(int detail)
    {
        const std::vector<Vec2> arc = RoofArc(m_coach.half, m_coach.eaves, m_coach.top,
                                              detail == 0   ? 12
                                              : detail == 1 ? 6
                                                            : 4);
        m_mesh.Extrude(arc, -m_half, m_half, m_roof);
        std::vector<Vec2> end = {{-m_coach.half + 0.04F, m_coach.floor}};
        end.insert(end.end(), arc.begin(), arc.end());
        end.push_back({m_coach.half - 0.04F, m_coach.floor});
        for (const bool front : {true, false}) {
            const bool cab = front ? m_coach.frontCab : m_coach.rearCab;
            m_kit.EndWall(end, front ? m_half : -m_half, front, cab ? m_cab : m_end);
        }
        if (detail > 0)
            return;
        for (float z = -m_half + 2; z < m_half - 1; z += 2.4F)
            if (!m_coach.panto || z < m_half - 6)
                m_mesh.Lathe(
                    {0.55F, m_coach.top - 0.12F, z}, Axis::Y,
                    std::array<Vec2, 4>{{{0, 0.12F}, {0.1F, 0.12F}, {0.14F, 0.2F}, {0.2F, 0}}}, 8,
                    m_roof);
    }

    void drawInside(int detail)
    {
        m_kit.Linings(2 * m_half, sides(), m_windows, m_lining);
        const float in = m_coach.half - 0.1F;
        m_mesh.Quad({-in, m_coach.floor + 0.06F, -m_half}, {-in, m_coach.floor + 0.06F, m_half},
                    {in, m_coach.floor + 0.06F, m_half}, {in, m_coach.floor + 0.06F, -m_half},
                    m_floor);
        m_kit.Soffit(in, m_coach.eaves - 0.05F, -m_half, m_half, m_lining);
        const float walls = m_coach.doors ? m_half - 1.6F : m_half - 0.08F;
        for (const float z : {walls, -walls})
            m_mesh.Box({-in, m_coach.floor + 0.06F, z - 0.03F}, {in, m_coach.eaves, z + 0.03F},
                       BoxSkin::All(m_lining));
        if (m_coach.blind > 0)
            m_mesh.Box({-in, m_coach.floor + 0.06F, -walls + m_coach.blind - 0.1F},
                       {in, m_coach.eaves, -walls + m_coach.blind}, BoxSkin::All(m_lining));
        if (detail == 0)
            drawSeats(walls);
    }

    void drawSeats(float walls)
    {
        const GearPatches &gear = m_kit.Gear();
        m_kit.UseGear();
        const float from = -walls + m_coach.blind + 0.5F;
        const int number = static_cast<int>((walls - from) / m_coach.bay);
        const float step = (walls - from) / static_cast<float>(std::max(1, number));
        const float y = m_coach.floor + 0.06F;
        for (int i = 0; i < number; ++i) {
            const float z = from + step * (static_cast<float>(i) + 0.5F);
            for (const float x : {-0.85F, 0.85F})
                m_mesh.Box({x - 0.48F, y, z - 0.06F}, {x + 0.48F, y + 1.1F, z + 0.06F},
                           BoxSkin::All(gear.seat));
            for (const float x : {-0.85F, 0.85F})
                m_mesh.Box({x - 0.48F, y + 0.3F, z - 0.5F}, {x + 0.48F, y + 0.45F, z + 0.5F},
                           BoxSkin::All(gear.seat));
        }
        m_kit.UseBody();
    }

    void drawUnderframe(int detail)
    {
        const GearPatches &gear = m_kit.Gear();
        m_kit.UseGear();
        const float in = m_coach.half - 0.12F;
        m_mesh.Box({-in, m_coach.floor - 0.22F, -m_half}, {in, m_coach.floor, m_half},
                   BoxSkin::All(gear.dark));
        if (detail > 1)
            return;
        m_kit.UseBody();
        const float clear = pivot() - m_coach.wheelbase / 2 - 1;
        const std::array<Vec2, 3> boxes = {
            {{-clear, -clear * 0.45F}, {-clear * 0.3F, clear * 0.25F}, {clear * 0.45F, clear}}};
        for (const Vec2 &box : boxes) {
            m_mesh.Box({0.55F, 0.48F, box.x}, {in, m_coach.floor - 0.22F, box.y},
                       BoxSkin::All(m_box));
            m_mesh.Box({-in, 0.48F, -box.y}, {-0.55F, m_coach.floor - 0.22F, -box.x},
                       BoxSkin::All(m_box));
        }
        if (detail > 0)
            return;
        m_kit.UseGear();
        for (const float side : kSides)
            for (const float end : kSides)
                if (m_coach.doors)
                    for (const float y : {0.55F, 0.85F})
                        m_mesh.Box({side * 1.3F - 0.14F, y, end * (m_half - 0.85F) - 0.4F},
                                   {side * 1.3F + 0.14F, y + 0.03F, end * (m_half - 0.85F) + 0.4F},
                                   BoxSkin::All(gear.dark));
        if (!m_coach.doors)
            for (const float side : kSides)
                m_mesh.Box({side * 1.42F - 0.1F, 0.8F, -m_half + 0.2F},
                           {side * 1.42F + 0.1F, 0.84F, m_half - 0.2F}, BoxSkin::All(gear.wood));
    }

    /// Gangways, lamps and cab windows.
    void drawEnds(int detail)
    {
        if (detail > 1)
            return;
        for (const bool front : {true, false}) {
            const float end = front ? 1.0F : -1.0F;
            if (front ? m_coach.frontCab : m_coach.rearCab) {
                drawCabFace(end);
                continue;
            }
            m_kit.UseBody();
            const float a = end * m_half;
            const float b = end * (m_half + m_coach.gap * 0.8F);
            if (m_coach.doors)
                for (const Vec2 x : {Vec2{-0.62F, -0.46F}, Vec2{0.46F, 0.62F}})
                    m_mesh.Box({x.x, m_coach.floor - 0.05F, std::min(a, b)},
                               {x.y, m_coach.floor + 2.1F, std::max(a, b)}, BoxSkin::All(m_rubber));
            if (m_coach.doors)
                m_mesh.Box({-0.62F, m_coach.floor + 2, std::min(a, b)},
                           {0.62F, m_coach.floor + 2.15F, std::max(a, b)}, BoxSkin::All(m_rubber));
            m_kit.UseGear();
            for (const float x : {-1.15F, 1.15F})
                m_mesh.Disc({x, m_coach.floor + 0.5F, a + end * 0.01F}, Axis::Z, !front, 0.08F, 8,
                            m_kit.Gear().tail);
        }
    }

    void drawCabFace(float end)
    {
        const float z = end * (m_half + 0.012F);
        m_kit.UseGear();
        for (const float x : {-1.02F, 1.02F}) {
            m_mesh.Disc({x, 1.72F, z + end * 0.05F}, Axis::Z, end < 0, 0.14F, 12,
                        m_kit.Gear().lamp);
            m_mesh.Bar({x, 1.72F, end * m_half}, {x, 1.72F, z + end * 0.05F}, 0.14F, 12,
                       m_kit.Gear().black);
            m_mesh.Disc({x * 0.7F, 1.72F, z}, Axis::Z, end < 0, 0.09F, 10, m_kit.Gear().tail);
        }
        if (!m_kit.UseGlass())
            return;
        for (const Vec2 x : {Vec2{0.32F, 1.32F}, Vec2{-1.32F, -0.32F}})
            m_mesh.Quad({end > 0 ? x.y : x.x, 2.95F, z}, {end > 0 ? x.x : x.y, 2.95F, z},
                        {end > 0 ? x.x : x.y, 2.12F, z}, {end > 0 ? x.y : x.x, 2.12F, z},
                        m_kit.Pane());
    }

    void drawPantograph(int detail)
    {
        if (detail > 1)
            return;
        m_kit.UseGear();
        DrawPantograph(m_kit, m_half - 3.6F, m_coach.top, detail);
        m_kit.UseBody();
    }

    Kit &m_kit;
    MeshBuilder &m_mesh;
    CoachShape m_coach;
    float m_half;
    RunningGear m_gear;
    WindowRow m_windows;
    std::vector<Stretch> m_side;
    Patch m_end, m_cab, m_roof, m_floor, m_lining, m_rubber, m_box;
};

} // namespace

void BuildCoach(Kit &kit, Design design)
{
    Coach coach(kit, design);
    kit.Levels([&](int detail) { coach.Draw(detail); });
}

} // namespace samples
