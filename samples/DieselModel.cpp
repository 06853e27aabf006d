// SPDX-License-Identifier: MIT
#include "samples/Vehicles.h"

#include <algorithm>
#include <array>

namespace samples {
namespace {

constexpr float kDeck = 1.5F;
constexpr float kHoodTop = 3.72F;
constexpr float kHoodHalf = 0.92F;
constexpr float kNoseTop = 2.75F;
constexpr float kCabHalf = 1.5F;
constexpr float kCabEaves = 3.7F;
constexpr float kCabTop = 4.12F;
constexpr float kCabLength = 2.5F;
constexpr Colour kWarning{226, 180, 40};

/// A diesel engine with hoods: the long one behind the cab, the short one in front of it.
class HoodDiesel
{
public:
    explicit HoodDiesel(Kit &kit)
        : m_kit(kit)
        , m_mesh(kit.Mesh())
        , m_half(kit.Wanted().length / 2 - 0.55F)
        , m_cabFront(m_half - 2.5F)
        , m_gear(kit, std::vector<Bogie>{{kit.Wanted().length * 0.29F, 3.5F, 3, 0.52F},
                                         {-kit.Wanted().length * 0.29F, 3.5F, 3, 0.52F}})
    {
        paintHood();
        paintCab();
        paintSmallThings();
    }

    void Draw(int detail)
    {
        m_kit.UseBody();
        drawHood(detail);
        drawNose();
        drawCab(detail);
        drawFrame(detail);
        if (detail < 2)
            drawTop(detail);
        if (detail == 0)
            drawRailings();
        m_gear.Draw(detail);
        DrawCouplers(m_kit, detail, m_half);
        if (detail < 2 && m_kit.UseGlass())
            drawGlass();
    }

private:
    float cabRear() const { return m_cabFront - kCabLength; }
    float hoodRear() const { return -m_half + 0.75F; }
    float hoodLength() const { return cabRear() - hoodRear(); }
    float hoodMiddle() const { return (cabRear() + hoodRear()) / 2; }
    static WindowRow cabWindows() { return {2.75F, 3.5F, {{-0.95F, -0.1F}, {0.1F, 0.95F}}}; }
    static SideShape cabSides() { return {kCabHalf, kCabHalf, kDeck, kCabEaves}; }
    static SideShape hoodSides() { return {kHoodHalf, kHoodHalf, kDeck, kHoodTop - 0.2F}; }

    /// `front` is 1 where the front is at the right as seen, else -1.
    void hoodSide(Brush &b, float front)
    {
        const Plan &plan = m_kit.Wanted();
        const float half = hoodLength() / 2;
        const float top = kHoodTop - 0.2F;
        b.Fill(plan.base);
        b.Rect({-half, kDeck, half, kDeck + 0.42F}, plan.trim);
        b.Rect({-half, kDeck + 0.46F, half, kDeck + 0.52F}, plan.trim);
        for (int i = 0; i < 11; ++i) {
            const float x = -half + 0.12F + (2 * half - 0.24F) / 11 * static_cast<float>(i);
            b.Joint({x + 0.03F, kDeck + 0.08F, x + (2 * half - 0.24F) / 11 - 0.03F, top - 0.5F},
                    0.025F);
            b.Rect({x + 0.08F, kDeck + 1, x + 0.12F, kDeck + 1.12F}, {200, 200, 200}, 0.8F);
        }
        const float fan = -front * (half - 1.25F);
        b.Louvres({fan - 0.95F, top - 0.95F, fan + 0.95F, top - 0.15F}, 0.1F, plan.base);
        const float intake = front * (half - 0.9F);
        b.Louvres({intake - 0.45F, top - 0.62F, intake + 0.45F, top - 0.12F}, 0.09F, plan.base);
        const float room = 2 * half - 4.2F;
        const float height = std::min(0.46F, 0.46F * room / TextWidth(plan.initials, 0.46F));
        b.Text(-front * 0.25F, top - 0.78F, height, plan.initials, plan.trim, 0.17F);
        b.Fade({-half, kDeck, half, kDeck + 0.8F}, {50, 42, 34}, 0.5F, 0);
        b.Fade({-half, top - 0.5F, half, top}, {20, 18, 16}, 0, 0.35F);
        b.Weather(51, 0.3F);
    }

    void paintHood()
    {
        const float length = hoodLength();
        const float top = kHoodTop - 0.2F;
        m_right = m_kit.PaintSide(length, kDeck, top, 1, 108, [&](Brush &b) { hoodSide(b, 1); });
        m_left = m_kit.PaintSide(length, kDeck, top, 1, 108, [&](Brush &b) { hoodSide(b, -1); });
        m_hoodTop = m_kit.Paint(170, 56, {-length / 2, -1, length, 2}, [&](Brush &b) {
            b.Fill(Shade(m_kit.Wanted().base, 0.75F));
            for (float x = -length / 2; x < length / 2; x += 1.1F)
                b.Joint({x, -0.9F, x + 1.05F, 0.9F}, 0.04F);
            b.Weather(53, 0.4F);
        });
        m_hoodEnd = m_kit.Paint(70, 80, {-1, kDeck, 2, kHoodTop - kDeck}, [&](Brush &b) {
            stripes(b, kDeck, 2.5F);
            b.Louvres({-0.45F, 2.75F, 0.45F, 3.25F}, 0.09F, m_kit.Wanted().base);
            b.Weather(57, 0.3F);
        });
        m_nose = m_kit.Paint(70, 60, {-1, kDeck, 2, kNoseTop - kDeck}, [&](Brush &b) {
            stripes(b, kDeck, kNoseTop);
            b.Weather(59, 0.3F);
        });
    }

    /// Slanting warning stripes on the body's colour.
    void stripes(Brush &b, float y0, float y1)
    {
        const Plan &plan = m_kit.Wanted();
        b.Fill(plan.base);
        for (float x = -2; x < 2; x += 0.5F) {
            b.Line(x, y0 - 0.2F, x + (x < -0.25F ? 1 : -1) * -(y1 - y0), y1 + 0.2F, 0.17F,
                   plan.trim);
        }
        b.Rect({-1, y1, 1, 9}, plan.base);
    }

    void paintCab()
    {
        const Plan &plan = m_kit.Wanted();
        const auto wall = [&](Brush &b) {
            b.Fill(plan.base);
            b.Rect({-2, kDeck, 2, kDeck + 0.42F}, plan.trim);
            b.Rect({-2, kDeck + 0.46F, 2, kDeck + 0.52F}, plan.trim);
            b.Fade({-2, kDeck, 2, kDeck + 0.9F}, {50, 42, 34}, 0.4F, 0);
            b.Fade({-2, kCabEaves - 0.2F, 2, kCabEaves}, {0, 0, 0}, 0, 0.3F);
        };
        const Window side{-kCabLength / 2, kDeck, kCabLength, kCabEaves - kDeck};
        const Patch patch = m_kit.Paint(140, 108, side, [&](Brush &b) {
            wall(b);
            b.RoundRect({-1.1F, 2.65F, 1.1F, 3.6F}, 0.08F, Shade(plan.base, 0.5F));
            b.Text(0, 2.15F, 0.36F, plan.number, plan.trim, 0.17F);
            b.Weather(61, 0.25F);
        });
        m_cab = {{-kCabLength / 2, kCabLength / 2, patch}};
        m_cabEnd =
            m_kit.Paint(140, 108, {-kCabHalf, kDeck, 2 * kCabHalf, kCabTop - kDeck}, [&](Brush &b) {
                wall(b);
                b.RoundRect({0.95F, kDeck + 0.1F, 1.42F, 3.55F}, 0.05F, Shade(plan.base, 0.85F));
                b.Weather(67, 0.25F);
            });
    }

    void paintSmallThings()
    {
        const Plan &plan = m_kit.Wanted();
        m_plain = m_kit.Plain(Shade(plan.base, 0.8F));
        m_black = m_kit.Plain({34, 34, 36});
        m_inside = m_kit.Plain({150, 160, 148});
        m_sill = m_kit.Paint(120, 24, {0, 0, 10, 1}, [&](Brush &b) {
            b.Fill({40, 40, 42});
            b.Rect({0, 0.62F, 10, 0.9F}, plan.trim);
            b.Weather(71, 0.3F);
        });
        m_pilot = m_kit.Paint(60, 30, {-1.5F, 0, 3, 1}, [](Brush &b) {
            b.Fill({34, 34, 36});
            for (float x = -2; x < 2; x += 0.6F)
                b.Line(x, -0.1F, x + 0.6F, 1.1F, 0.22F, kWarning);
            b.Weather(73, 0.4F);
        });
        m_board = m_kit.Paint(60, 24, {-1, 0, 2, 1}, [&](Brush &b) {
            b.Fill({20, 20, 22});
            b.Text(0, 0.2F, 0.6F, plan.number, {250, 246, 220}, 0.18F);
        });
        m_fan = m_kit.Paint(40, 40, {-1, -1, 2, 2}, [](Brush &b) {
            b.Fill({50, 52, 54});
            b.Disc(0, 0, 0.95F, {22, 22, 24});
            for (const float r : {0.85F, 0.6F, 0.35F}) {
                b.Disc(0, 0, r, {120, 122, 124});
                b.Disc(0, 0, r - 0.07F, {24, 24, 26});
            }
            for (const float x : {-0.7F, 0.0F, 0.7F}) {
                b.Line(x, -0.95F, x, 0.95F, 0.05F, {120, 122, 124});
                b.Line(-0.95F, x, 0.95F, x, 0.05F, {120, 122, 124});
            }
        });
    }

    void drawHood(int detail)
    {
        m_kit.SideOf(1, m_right, hoodSides(), {}, hoodMiddle());
        m_kit.SideOf(-1, m_left, hoodSides(), {}, hoodMiddle());
        const std::array<Vec2, 4> top = {{{-kHoodHalf, kHoodTop - 0.2F},
                                          {-kHoodHalf + 0.22F, kHoodTop},
                                          {kHoodHalf - 0.22F, kHoodTop},
                                          {kHoodHalf, kHoodTop - 0.2F}}};
        m_mesh.Extrude(top, hoodRear(), cabRear(), m_hoodTop);
        std::vector<Vec2> end = {{-kHoodHalf, kDeck}};
        end.insert(end.end(), top.begin(), top.end());
        end.push_back({kHoodHalf, kDeck});
        m_kit.EndWall(end, hoodRear(), false, m_hoodEnd);
        if (detail < 2)
            lamps(hoodRear(), false, 3.4F);
    }

    void lamps(float z, bool forwards, float y)
    {
        m_kit.UseGear();
        const float out = forwards ? 0.02F : -0.02F;
        m_mesh.Box({-0.26F, y - 0.12F, std::min(z, z + 3 * out)},
                   {0.26F, y + 0.12F, std::max(z, z + 3 * out)}, BoxSkin::All(m_kit.Gear().black));
        for (const float x : {-0.13F, 0.13F})
            m_mesh.Disc({x, y, z + 3.2F * out}, Axis::Z, !forwards, 0.1F, 10, m_kit.Gear().lamp);
        m_kit.UseBody();
    }

    void drawNose()
    {
        const float a = m_cabFront;
        const float b = m_half - 0.7F;
        const std::array<Vec2, 6> outline = {{{-kHoodHalf, kDeck},
                                              {-kHoodHalf, kNoseTop - 0.2F},
                                              {-kHoodHalf + 0.22F, kNoseTop},
                                              {kHoodHalf - 0.22F, kNoseTop},
                                              {kHoodHalf, kNoseTop - 0.2F},
                                              {kHoodHalf, kDeck}}};
        m_mesh.Extrude(outline, a, b, m_plain);
        m_kit.EndWall(outline, b, true, m_nose);
        lamps(b, true, 2.5F);
    }

    /// The cab's end with two windows above the hood; `forwards` at the front.
    void cabEnd(float z, bool forwards)
    {
        const float s = forwards ? 1.0F : -1.0F;
        const std::array<Opening, 2> windows = {{{0.08F, 0.42F}, {0.58F, 0.92F}}};
        const float height = kCabEaves - kDeck;
        const Patch lower = m_cabEnd.Part(0, 0, 1, height / (kCabTop - kDeck));
        const std::array<Vec3, 4> outer = {{{s * kCabHalf, kCabEaves, z},
                                            {-s * kCabHalf, kCabEaves, z},
                                            {-s * kCabHalf, kDeck, z},
                                            {s * kCabHalf, kDeck, z}}};
        m_mesh.Wall(outer, lower, 0.59F, 0.92F, windows);
        const float in = z - s * 0.07F;
        const std::array<Vec3, 4> inner = {{{-s * kCabHalf, kCabEaves, in},
                                            {s * kCabHalf, kCabEaves, in},
                                            {s * kCabHalf, kDeck, in},
                                            {-s * kCabHalf, kDeck, in}}};
        m_mesh.Wall(inner, m_inside, 0.59F, 0.92F, windows);
    }

    void drawCab(int detail)
    {
        const float middle = m_cabFront - kCabLength / 2;
        m_kit.Sides(m_cab, cabSides(), cabWindows(), middle);
        m_kit.Linings(kCabLength, cabSides(), cabWindows(), m_inside, middle);
        const std::vector<Vec2> arc =
            RoofArc(kCabHalf + 0.05F, kCabEaves, kCabTop, detail == 0 ? 8 : 4);
        m_mesh.Extrude(arc, cabRear() - 0.1F, m_cabFront + 0.15F, m_hoodTop);
        for (const bool forwards : {true, false}) {
            const float z = forwards ? m_cabFront : cabRear();
            cabEnd(z, forwards);
            m_kit.EndWall(arc, forwards ? z + 0.15F : z - 0.1F, forwards, m_plain);
        }
        m_kit.Soffit(kCabHalf + 0.05F, kCabEaves, cabRear() - 0.1F, m_cabFront + 0.15F, m_inside);
        if (detail > 0)
            return;
        m_mesh.Box({-1.2F, kDeck, m_cabFront - 0.75F}, {-0.2F, 2.6F, m_cabFront - 0.35F},
                   BoxSkin::All(m_black));
        m_kit.UseGear();
        for (const float x : {-0.85F, 0.85F})
            m_mesh.Box({x - 0.25F, kDeck + 0.5F, middle - 0.4F}, {x + 0.25F, 2.75F, middle - 0.2F},
                       BoxSkin::All(m_kit.Gear().seat));
        m_kit.UseBody();
    }

    void drawGlass()
    {
        const float middle = m_cabFront - kCabLength / 2;
        m_kit.Panes(cabSides(), cabWindows(), middle);
        for (const float s : kSides) {
            const float z = (s > 0 ? m_cabFront : cabRear()) - s * 0.03F;
            const float y0 = kDeck + 0.59F * (kCabEaves - kDeck);
            const float y1 = kDeck + 0.92F * (kCabEaves - kDeck);
            for (const Vec2 x : {Vec2{0.84F, 0.16F}, Vec2{-0.16F, -0.84F}})
                m_mesh.Quad({s * x.x * kCabHalf, y1, z}, {s * x.y * kCabHalf, y1, z},
                            {s * x.y * kCabHalf, y0, z}, {s * x.x * kCabHalf, y0, z}, m_kit.Pane());
        }
    }

    void drawFrame(int detail)
    {
        BoxSkin deck = BoxSkin::All(m_black);
        deck.side = deck.end = m_sill;
        m_mesh.Box({-1.5F, kDeck - 0.28F, -m_half + 0.1F}, {1.5F, kDeck, m_half - 0.1F}, deck);
        for (const float end : kSides) {
            const float a = end * (m_half - 0.1F);
            const float b = end * m_half;
            BoxSkin pilot = BoxSkin::All(m_black);
            pilot.end = m_pilot;
            m_mesh.Box({-1.5F, 0.32F, std::min(a, b)}, {1.5F, kDeck, std::max(a, b)}, pilot);
        }
        const float tank = m_kit.Wanted().length * 0.29F - 2.45F;
        const std::array<Vec2, 6> outline = {{{-1.35F, kDeck - 0.28F},
                                              {-1.35F, 0.75F},
                                              {-1.0F, 0.42F},
                                              {1.0F, 0.42F},
                                              {1.35F, 0.75F},
                                              {1.35F, kDeck - 0.28F}}};
        std::vector<Vec2> walked(outline.rbegin(), outline.rend());
        m_mesh.Extrude(walked, -tank, tank, m_black);
        for (const bool forwards : {true, false})
            m_kit.EndWall(outline, forwards ? tank : -tank, forwards, m_black);
        if (detail > 0)
            return;
        m_kit.UseGear();
        for (const float side : kSides)
            m_mesh.Bar({side * 1.1F, 1.05F, -tank - 0.1F}, {side * 1.1F, 1.05F, tank + 0.1F}, 0.13F,
                       10, m_kit.Gear().rust);
        for (const float side : kSides)
            for (const float end : kSides)
                for (const float y : {0.45F, 0.8F, 1.15F})
                    m_mesh.Box({side * 1.33F - 0.14F, y - 0.03F, end * (m_half - 0.32F) - 0.22F},
                               {side * 1.33F + 0.14F, y, end * (m_half - 0.32F) + 0.22F},
                               BoxSkin::All(m_kit.Gear().steel));
        m_kit.UseBody();
    }

    void drawTop(int detail)
    {
        const int sides = detail == 0 ? 18 : 10;
        const float back = hoodRear();
        m_kit.UseBody();
        for (const float z : {back + 0.75F, back + 1.95F}) {
            m_mesh.Lathe({0, kHoodTop - 0.02F, z}, Axis::Y,
                         std::array<Vec2, 2>{{{0, 0.55F}, {0.16F, 0.52F}}}, sides, m_black);
            m_mesh.Disc({0, kHoodTop + 0.14F, z}, Axis::Y, false, 0.52F, sides, m_fan);
        }
        m_mesh.Box({-0.3F, kHoodTop - 0.02F, hoodMiddle() - 0.1F},
                   {0.3F, kHoodTop + 0.28F, hoodMiddle() + 0.7F}, BoxSkin::All(m_black));
        m_mesh.Box({-0.55F, kHoodTop - 0.02F, cabRear() - 1.9F},
                   {0.55F, kHoodTop + 0.18F, cabRear() - 0.6F}, BoxSkin::All(m_plain));
        for (const float x : {-0.85F, 0.85F})
            m_mesh.Quad({x + 0.32F, kCabEaves + 0.26F, m_cabFront + 0.17F},
                        {x - 0.32F, kCabEaves + 0.26F, m_cabFront + 0.17F},
                        {x - 0.32F, kCabEaves + 0.02F, m_cabFront + 0.17F},
                        {x + 0.32F, kCabEaves + 0.02F, m_cabFront + 0.17F}, m_board);
        if (detail > 0)
            return;
        m_kit.UseGear();
        m_mesh.Box({0.3F, kCabTop - 0.1F, m_cabFront - 0.85F},
                   {0.7F, kCabTop + 0.06F, m_cabFront - 0.75F}, BoxSkin::All(m_kit.Gear().black));
        for (const Vec2 horn : {Vec2{0.35F, 0.5F}, Vec2{0.5F, 0.38F}, Vec2{0.65F, 0.45F}})
            m_mesh.Lathe(
                {horn.x, kCabTop + 0.08F, m_cabFront - 0.9F}, Axis::Z,
                std::array<Vec2, 3>{{{0, 0.03F}, {horn.y - 0.12F, 0.04F}, {horn.y, 0.11F}}}, 8,
                m_kit.Gear().steel);
    }

    /// Hand rails along the walkways and across the ends.
    void drawRailings()
    {
        if (!m_kit.UseRailing())
            return;
        const Patch &bay = m_kit.Railing();
        const auto rail = [&](const Vec3 &from, const Vec3 &to) {
            const Vec3 up{0, 1, 0};
            m_mesh.Quad(from + up, to + up, to, from, bay);
            m_mesh.Quad(to + up, from + up, from, to, bay);
        };
        for (const float side : kSides) {
            const float x = side * 1.45F;
            const int bays = static_cast<int>((cabRear() + m_half - 0.7F) / 1.25F);
            const float step = (cabRear() + m_half - 0.7F) / static_cast<float>(bays);
            for (int i = 0; i < bays; ++i) {
                const float z = -m_half + 0.7F + step * static_cast<float>(i);
                rail({x, kDeck, z}, {x, kDeck, z + step});
            }
            for (int i = 0; i < 2; ++i) {
                const float step2 = (m_half - 0.7F - m_cabFront) / 2;
                const float z = m_cabFront + step2 * static_cast<float>(i);
                rail({x, kDeck, z}, {x, kDeck, z + step2});
            }
            for (const float end : kSides)
                rail({side * 1.45F, kDeck, end * (m_half - 0.12F)},
                     {side * 0.35F, kDeck, end * (m_half - 0.12F)});
        }
    }

    Kit &m_kit;
    MeshBuilder &m_mesh;
    float m_half;
    float m_cabFront;
    RunningGear m_gear;
    std::vector<Stretch> m_right, m_left, m_cab;
    Patch m_hoodTop, m_hoodEnd, m_nose, m_cabEnd, m_plain, m_black, m_inside, m_sill, m_pilot,
        m_board, m_fan;
};

} // namespace

void BuildDiesel(Kit &kit)
{
    HoodDiesel engine(kit);
    kit.Levels([&](int detail) { engine.Draw(detail); });
}

} // namespace samples
