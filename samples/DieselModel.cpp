// SPDX-License-Identifier: MIT
#include "samples/VehicleModel.h"

#include <algorithm>

namespace samples {
namespace {

constexpr float kDeck = 1.5F;
constexpr float kHoodTop = 3.72F;
constexpr float kHoodEdge = kHoodTop - 0.2F; ///< top of the vertical sides
constexpr float kHoodHalf = 0.92F;
constexpr float kNoseTop = 2.75F;
constexpr float kCabHalf = 1.5F;
constexpr float kCabEaves = 3.7F;
constexpr float kCabTop = 4.12F;
constexpr float kCabLength = 2.5F;
constexpr Colour kWarning{226, 180, 40};
constexpr Colour kGrille{120, 122, 124};
constexpr Colour kGrime{50, 42, 34};

constexpr SideShape kCabSides{kCabHalf, kCabHalf, kDeck, kCabEaves};
constexpr SideShape kHoodSides{kHoodHalf, kHoodHalf, kDeck, kHoodEdge};
const WindowRow kCabWindows{2.75F, 3.5F, {{-0.95F, -0.1F}, {0.1F, 0.95F}}};

/// A diesel engine with hoods: the long one behind the cab, the short one in front of it.
class HoodDiesel : public VehicleModel
{
public:
    explicit HoodDiesel(const Plan &plan)
        : VehicleModel(plan, 0.55F)
        , m_pivot(plan.length * 0.29F)
        , m_cabFront(m_half - 2.5F)
        , m_cabRear(m_cabFront - kCabLength)
        , m_cabMiddle(m_cabFront - kCabLength / 2)
        , m_hoodRear(-m_half + 0.75F)
    {
        addBogies({{m_pivot, 3.5F, 3, 0.52F}, {-m_pivot, 3.5F, 3, 0.52F}});
        paintHood(m_cabRear - m_hoodRear);
        paintCab();
        paintSmallThings();
    }

protected:
    void draw() override
    {
        drawHood();
        drawNose();
        drawCab();
        drawFrame();
        if (!farthest())
            drawTop();
        if (nearest())
            drawRailings();
        drawRunningGear();
        drawCouplers(m_half);
        if (!farthest())
            drawGlass();
    }

private:
    /// `front` is 1 if the front is at the right as seen, else -1.
    void hoodSide(Brush &b, float front, float half) const
    {
        b.Fill(m_plan.base);
        bands(b, half);
        const float panel = (2 * half - 0.24F) / 11;
        for (int i = 0; i < 11; ++i) {
            const float x = -half + 0.12F + panel * static_cast<float>(i);
            b.Joint({x + 0.03F, kDeck + 0.08F, x + panel - 0.03F, kHoodEdge - 0.5F}, 0.025F);
            b.Rect({x + 0.08F, kDeck + 1, x + 0.12F, kDeck + 1.12F}, {200, 200, 200}, 0.8F);
        }
        const float fan = -front * (half - 1.25F);
        b.Louvres({fan - 0.95F, kHoodEdge - 0.95F, fan + 0.95F, kHoodEdge - 0.15F}, 0.1F,
                  m_plan.base);
        const float intake = front * (half - 0.9F);
        b.Louvres({intake - 0.45F, kHoodEdge - 0.62F, intake + 0.45F, kHoodEdge - 0.12F}, 0.09F,
                  m_plan.base);
        const float room = 2 * half - 4.2F;
        const float height = std::min(0.46F, 0.46F * room / TextWidth(m_plan.initials, 0.46F));
        b.Text(-front * 0.25F, kHoodEdge - 0.78F, height, m_plan.initials, m_plan.trim, 0.17F);
        b.Fade({-half, kDeck, half, kDeck + 0.8F}, kGrime, 0.5F, 0);
        b.Fade({-half, kHoodEdge - 0.5F, half, kHoodEdge}, {20, 18, 16}, 0, 0.35F);
        b.Weather(51, 0.3F);
    }

    void bands(Brush &b, float half) const
    {
        b.Rect({-half, kDeck, half, kDeck + 0.42F}, m_plan.trim);
        b.Rect({-half, kDeck + 0.46F, half, kDeck + 0.52F}, m_plan.trim);
    }

    void paintHood(float length)
    {
        const float half = length / 2;
        for (const float side : kSides)
            (side > 0 ? m_right : m_left) = paintSide(length, kDeck, kHoodEdge, 1, 108,
                                                      [&](Brush &b) { hoodSide(b, side, half); });
        m_hoodTop = paint(170, 56, {-half, -1, length, 2}, [&](Brush &b) {
            b.Fill(Shade(m_plan.base, 0.75F));
            for (float x = -half; x < half; x += 1.1F)
                b.Joint({x, -0.9F, x + 1.05F, 0.9F}, 0.04F);
            b.Weather(53, 0.4F);
        });
        m_hoodEnd = paint(70, 80, {-1, kDeck, 2, kHoodTop - kDeck}, [&](Brush &b) {
            stripes(b, 2.5F);
            b.Louvres({-0.45F, 2.75F, 0.45F, 3.25F}, 0.09F, m_plan.base);
            b.Weather(57, 0.3F);
        });
        m_nose = paint(70, 60, {-1, kDeck, 2, kNoseTop - kDeck}, [&](Brush &b) {
            stripes(b, kNoseTop);
            b.Weather(59, 0.3F);
        });
    }

    /// Slanting warning stripes on the body's colour, from the deck up to this height.
    void stripes(Brush &b, float top) const
    {
        b.Fill(m_plan.base);
        for (float x = -2; x < 2; x += 0.5F) {
            const float slant = (x < -0.25F ? -1 : 1) * (top - kDeck);
            b.Line(x, kDeck - 0.2F, x + slant, top + 0.2F, 0.17F, m_plan.trim);
        }
        b.Rect({-1, top, 1, 9}, m_plan.base);
    }

    void paintCab()
    {
        const auto wall = [&](Brush &b) {
            b.Fill(m_plan.base);
            bands(b, 2);
            b.Fade({-2, kDeck, 2, kDeck + 0.9F}, kGrime, 0.4F, 0);
            b.Fade({-2, kCabEaves - 0.2F, 2, kCabEaves}, {0, 0, 0}, 0, 0.3F);
        };
        const Window side{-kCabLength / 2, kDeck, kCabLength, kCabEaves - kDeck};
        const Window end{-kCabHalf, kDeck, 2 * kCabHalf, kCabTop - kDeck};
        m_cab = paint(140, 108, side, [&](Brush &b) {
            wall(b);
            b.RoundRect({-1.1F, 2.65F, 1.1F, 3.6F}, 0.08F, Shade(m_plan.base, 0.5F));
            b.Text(0, 2.15F, 0.36F, m_plan.number, m_plan.trim, 0.17F);
            b.Weather(61, 0.25F);
        });
        m_cabEnd = paint(140, 108, end, [&](Brush &b) {
            wall(b);
            b.RoundRect({0.95F, kDeck + 0.1F, 1.42F, 3.55F}, 0.05F, Shade(m_plan.base, 0.85F));
            b.Weather(67, 0.25F);
        });
    }

    void paintSmallThings()
    {
        m_plain = plain(Shade(m_plan.base, 0.8F));
        m_black = plain(kSoot);
        m_inside = plain({150, 160, 148});
        m_sill = paint(120, 24, {0, 0, 10, 1}, [&](Brush &b) {
            b.Fill({40, 40, 42});
            b.Rect({0, 0.62F, 10, 0.9F}, m_plan.trim);
            b.Weather(71, 0.3F);
        });
        m_pilot = paint(60, 30, {-1.5F, 0, 3, 1}, [](Brush &b) {
            b.Fill(kSoot);
            for (float x = -2; x < 2; x += 0.6F)
                b.Line(x, -0.1F, x + 0.6F, 1.1F, 0.22F, kWarning);
            b.Weather(73, 0.4F);
        });
        m_board = paint(60, 24, {-1, 0, 2, 1}, [&](Brush &b) {
            b.Fill({20, 20, 22});
            b.Text(0, 0.2F, 0.6F, m_plan.number, {250, 246, 220}, 0.18F);
        });
        m_fan = paint(40, 40, {-1, -1, 2, 2}, [](Brush &b) {
            b.Fill({50, 52, 54});
            b.Disc(0, 0, 0.95F, {22, 22, 24});
            for (const float r : {0.85F, 0.6F, 0.35F}) {
                b.Disc(0, 0, r, kGrille);
                b.Disc(0, 0, r - 0.07F, {24, 24, 26});
            }
            for (const float x : {-0.7F, 0.0F, 0.7F}) {
                b.Line(x, -0.95F, x, 0.95F, 0.05F, kGrille);
                b.Line(-0.95F, x, 0.95F, x, 0.05F, kGrille);
            }
        });
    }

    void drawHood()
    {
        const float middle = (m_cabRear + m_hoodRear) / 2;
        sideOf(1, m_right, kHoodSides, {}, middle);
        sideOf(-1, m_left, kHoodSides, {}, middle);
        const Outline top = {{-kHoodHalf, kHoodEdge},
                             {-kHoodHalf + 0.22F, kHoodTop},
                             {kHoodHalf - 0.22F, kHoodTop},
                             {kHoodHalf, kHoodEdge}};
        Extrude(top, m_hoodRear, m_cabRear, m_hoodTop);
        endWall(Gable(top, kHoodHalf, kDeck), m_hoodRear, -1, m_hoodEnd);
        if (!farthest())
            lamps(m_hoodRear, -1, 3.4F);
    }

    void drawNose()
    {
        const float end = m_half - 0.7F;
        const Outline outline = {{-kHoodHalf, kDeck},
                                 {-kHoodHalf, kNoseTop - 0.2F},
                                 {-kHoodHalf + 0.22F, kNoseTop},
                                 {kHoodHalf - 0.22F, kNoseTop},
                                 {kHoodHalf, kNoseTop - 0.2F},
                                 {kHoodHalf, kDeck}};
        Extrude(outline, m_cabFront, end, m_plain);
        endWall(outline, end, 1, m_nose);
        lamps(end, 1, 2.5F);
    }

    void lamps(float z, float facing, float y)
    {
        const float out = facing * 0.02F;
        Box({-0.26F, y - 0.12F, z}, {0.26F, y + 0.12F, z + 3 * out}, m_gear.black);
        for (const float x : {-0.13F, 0.13F})
            Disc({x, y, z + 3.2F * out}, Axis::Z, facing < 0, 0.1F, 10, m_gear.lamp);
    }

    /// The cab's end with two windows above the hood, from outside and from inside.
    void cabEnd(float z, float facing)
    {
        const std::vector<Span> windows = {{0.08F, 0.42F}, {0.58F, 0.92F}};
        const auto wall = [&](float half, float at, const Patch &patch) {
            Wall({{{half, kCabEaves, at},
                   {-half, kCabEaves, at},
                   {-half, kDeck, at},
                   {half, kDeck, at}}},
                 patch, 0.59F, 0.92F, windows);
        };
        const float share = (kCabEaves - kDeck) / (kCabTop - kDeck);
        wall(facing * kCabHalf, z, m_cabEnd.Part(0, 0, 1, share));
        wall(-facing * kCabHalf, z - facing * 0.07F, m_inside);
    }

    void drawCab()
    {
        const float rear = m_cabRear - 0.1F;
        const float front = m_cabFront + 0.15F;
        sides({{-kCabLength / 2, kCabLength / 2, m_cab}}, kCabSides, kCabWindows, m_cabMiddle);
        linings(kCabLength, kCabSides, kCabWindows, m_inside, m_cabMiddle);
        const Outline arc = RoofArc(kCabHalf + 0.05F, kCabEaves, kCabTop, facets(8, 4));
        Extrude(arc, rear, front, m_hoodTop);
        cabEnd(m_cabFront, 1);
        endWall(arc, front, 1, m_plain);
        cabEnd(m_cabRear, -1);
        endWall(arc, rear, -1, m_plain);
        soffit(kCabHalf + 0.05F, kCabEaves, rear, front, m_inside);
        if (!nearest())
            return;
        Box({-1.2F, kDeck, m_cabFront - 0.75F}, {-0.2F, 2.6F, m_cabFront - 0.35F}, m_black);
        Box({-1.1F, kDeck + 0.5F, m_cabMiddle - 0.4F}, {-0.6F, 2.75F, m_cabMiddle - 0.2F},
            m_gear.seat, Copies::Sides);
    }

    void drawGlass()
    {
        constexpr float low = kDeck + 0.59F * (kCabEaves - kDeck);
        constexpr float high = kDeck + 0.92F * (kCabEaves - kDeck);
        panes(kCabSides, kCabWindows, m_cabMiddle);
        for (const float s : kSides) {
            const float z = (s > 0 ? m_cabFront : m_cabRear) - s * 0.03F;
            for (const Span &x : {Span{0.84F, 0.16F}, Span{-0.16F, -0.84F}}) {
                const float left = s * x.from * kCabHalf;
                const float right = s * x.to * kCabHalf;
                Quad({left, high, z}, {right, high, z}, {right, low, z}, {left, low, z}, m_pane);
            }
        }
    }

    void drawFrame()
    {
        const float end = m_half - 0.1F;
        Box({-1.5F, kDeck - 0.28F, -end}, {1.5F, kDeck, end}, {m_sill, m_sill, m_black, m_black});
        Box({-1.5F, 0.32F, end}, {1.5F, kDeck, m_half}, {m_black, m_pilot, m_black, m_black},
            Copies::Ends);
        const float tank = m_pivot - 2.45F;
        const Outline outline = {{1.35F, kDeck - 0.28F}, {1.35F, 0.75F},  {1.0F, 0.42F},
                                 {-1.0F, 0.42F},         {-1.35F, 0.75F}, {-1.35F, kDeck - 0.28F}};
        Extrude(outline, -tank, tank, m_black);
        endWalls({outline.rbegin(), outline.rend()}, tank, m_black, m_black);
        if (!nearest())
            return;
        Bar({1.1F, 1.05F, -tank - 0.1F}, {1.1F, 1.05F, tank + 0.1F}, 0.13F, 10, m_gear.rust,
            Copies::Sides);
        for (const float side : kSides)
            for (const float s : kSides)
                for (const float y : {0.45F, 0.8F, 1.15F})
                    Box({side * 1.19F, y - 0.03F, s * (m_half - 0.54F)},
                        {side * 1.47F, y, s * (m_half - 0.1F)}, m_gear.steel);
    }

    void drawTop()
    {
        for (const float z : {m_hoodRear + 0.75F, m_hoodRear + 1.95F}) {
            Lathe({0, kHoodTop - 0.02F, z}, Axis::Y, {{0, 0.55F}, {0.16F, 0.52F}}, facets(18, 10),
                  m_black);
            Disc({0, kHoodTop + 0.14F, z}, Axis::Y, false, 0.52F, facets(18, 10), m_fan);
        }
        const float middle = (m_cabRear + m_hoodRear) / 2;
        Box({-0.3F, kHoodTop - 0.02F, middle - 0.1F}, {0.3F, kHoodTop + 0.28F, middle + 0.7F},
            m_black);
        Box({-0.55F, kHoodTop - 0.02F, m_cabRear - 1.9F},
            {0.55F, kHoodTop + 0.18F, m_cabRear - 0.6F}, m_plain);
        const float board = m_cabFront + 0.17F;
        for (const float x : {-0.85F, 0.85F})
            Quad({x + 0.32F, kCabEaves + 0.26F, board}, {x - 0.32F, kCabEaves + 0.26F, board},
                 {x - 0.32F, kCabEaves + 0.02F, board}, {x + 0.32F, kCabEaves + 0.02F, board},
                 m_board);
        if (!nearest())
            return;
        Box({0.3F, kCabTop - 0.1F, m_cabFront - 0.85F}, {0.7F, kCabTop + 0.06F, m_cabFront - 0.75F},
            m_gear.black);
        for (const Vec2 horn : {Vec2{0.35F, 0.5F}, Vec2{0.5F, 0.38F}, Vec2{0.65F, 0.45F}})
            Lathe({horn.x, kCabTop + 0.08F, m_cabFront - 0.9F}, Axis::Z,
                  {{0, 0.03F}, {horn.y - 0.12F, 0.04F}, {horn.y, 0.11F}}, 8, m_gear.steel);
    }

    /// Hand rails along the walkways and across the ends.
    void drawRailings()
    {
        const auto rail = [&](const Vec3 &from, const Vec3 &to) {
            const Vec3 up{0, 1, 0};
            DoubleQuad(from + up, to + up, to, from, m_railing);
        };
        const auto rails = [&](float x, float from, float length, int bays) {
            const float step = length / static_cast<float>(bays);
            for (int i = 0; i < bays; ++i) {
                const float z = from + step * static_cast<float>(i);
                rail({x, kDeck, z}, {x, kDeck, z + step});
            }
        };
        const float along = m_cabRear + m_half - 0.7F;
        for (const float side : kSides) {
            const float x = side * 1.45F;
            rails(x, -m_half + 0.7F, along, static_cast<int>(along / 1.25F));
            rails(x, m_cabFront, m_half - 0.7F - m_cabFront, 2);
            for (const float end : {m_half - 0.12F, -m_half + 0.12F})
                rail({x, kDeck, end}, {side * 0.35F, kDeck, end});
        }
    }

    float m_pivot; ///< z of the bogies
    float m_cabFront;
    float m_cabRear;
    float m_cabMiddle;
    float m_hoodRear;
    std::vector<Stretch> m_right, m_left;
    Patch m_cab, m_hoodTop, m_hoodEnd, m_nose, m_cabEnd, m_plain, m_black, m_inside, m_sill,
        m_pilot, m_board, m_fan;
};

} // namespace

PaintedModel BuildDiesel(const Plan &plan, Design)
{
    return HoodDiesel(plan).Build();
}

} // namespace samples
