// SPDX-License-Identifier: MIT
#include "samples/VehicleModel.h"

#include <string>

namespace samples {
namespace {

constexpr float kDeckTop = 1.27F;
constexpr Colour kPlanks{124, 104, 82};
constexpr Colour kPipes{112, 128, 118};

class FlatCar : public VehicleModel
{
public:
    FlatCar(const Plan &plan, bool loaded)
        : VehicleModel(plan, 0.5F)
        , m_loaded(loaded)
    {
        addBogies({{plan.length / 2 - 2.9F}, {-plan.length / 2 + 2.9F}});
        m_sill = paint(500, 56, {-m_half, 0.5F, 2 * m_half, 0.75F}, [&](Brush &b) { sill(b); });
        m_deck = paint(500, 96, {-m_half, -1.45F, 2 * m_half, 2.9F}, [&](Brush &b) { deck(b); });
        m_plain = plain(Shade(plan.base, 0.85F));
        m_pipe = paint(200, 80, {0, 0, 16, 1}, [](Brush &b) {
            b.Fill(kPipes);
            b.Rect({7.8F, 0, 8.2F, 1}, {60, 66, 62});
            b.Weather(23, 0.5F);
        });
        m_hole = paint(40, 40, {-1, -1, 2, 2}, [](Brush &b) {
            b.Fill(kPipes);
            b.Disc(0, 0, 0.88F, {14, 15, 15});
        });
    }

protected:
    void draw() override
    {
        const Outline sill = {{-m_half, 1.25F},        {m_half, 1.25F},          {m_half, 0.95F},
                              {m_half * 0.45F, 0.62F}, {-m_half * 0.45F, 0.62F}, {-m_half, 0.95F}};
        Slab(sill, 1.3F, 1.42F, m_sill, m_plain, Copies::Sides);
        Box({-1.45F, 1.17F, -m_half}, {1.45F, kDeckTop, m_half},
            {m_plain, m_plain, m_deck, m_plain});
        Box({-1.45F, 0.85F, m_half - 0.12F}, {1.45F, 1.17F, m_half}, m_plain, Copies::Ends);
        if (nearest())
            drawPockets();
        if (m_loaded)
            drawPipes();
        Box({-0.3F, 0.7F, -m_half}, {0.3F, 1.17F, m_half}, m_gear.dark);
        drawRunningGear();
        drawCouplers(m_half);
    }

private:
    void sill(Brush &b) const
    {
        b.Fill(m_plan.base);
        b.Rect({-m_half, 1.16F, m_half, 1.25F}, Shade(m_plan.base, 1.15F));
        b.Rivets(-m_half, 1.12F, m_half, 1.12F, 0.25F);
        b.Text(-m_half * 0.45F, 0.76F, 0.26F, m_plan.initials + " " + m_plan.number, m_plan.trim);
        b.Text(m_half * 0.4F, 0.8F, 0.16F, "62 FT  LOAD 70 T", m_plan.trim);
        b.Fade({-m_half, 0.5F, m_half, 1}, {50, 40, 30}, 0.5F, 0);
        b.Weather(13, 0.35F);
    }

    void deck(Brush &b) const
    {
        int number = 0;
        b.Fill(kPlanks);
        for (float x = -m_half; x < m_half; x += 0.24F, ++number) {
            const float tint = 0.8F + 0.05F * static_cast<float>(number * 5 % 9);
            b.Rect({x, -1.45F, x + 0.24F, 1.45F}, Shade(kPlanks, tint));
            b.Line(x, -1.45F, x, 1.45F, 0.03F, {34, 26, 20}, 0.8F);
        }
        for (const float y : {-1.2F, 0.0F, 1.2F})
            b.Rivets(-m_half, y, m_half, y, 0.24F);
        b.Weather(19, 0.4F);
    }

    /// Pockets for stakes along the sides, and the hand brake.
    void drawPockets()
    {
        for (float z = -m_half + 0.9F; z < m_half; z += (2 * m_half - 1.8F) / 12)
            Box({1.42F, 1, z - 0.09F}, {1.49F, kDeckTop, z + 0.09F}, m_plain, Copies::Sides);
        const float z = m_half - 0.2F;
        Bar({1.1F, kDeckTop, z}, {1.1F, 2, z}, 0.03F, 6, m_gear.black);
        Lathe({1.1F, 1.95F, z}, Axis::Z, {{0, 0.24F}, {0.05F, 0.24F}}, 12, m_gear.rust);
    }

    void drawPipes()
    {
        constexpr float radius = 0.45F;
        const Outline rows = {{-0.92F, 0}, {0, 0}, {0.92F, 0}, {-0.46F, 0.8F}, {0.46F, 0.8F}};
        for (const Vec2 at : rows) {
            const float y = kDeckTop + 0.14F + radius + at.y;
            Bar({at.x, y, -7.2F}, {at.x, y, 7.2F}, radius, facets(18, 8), m_pipe);
            for (const float end : kSides)
                Disc({at.x, y, end * 7.2F}, Axis::Z, end < 0, radius, facets(18, 8), m_hole);
        }
        for (const float z : {-6.0F, -2.0F, 2.0F, 6.0F}) {
            Box({-1.4F, kDeckTop, z - 0.1F}, {1.4F, 1.41F, z + 0.1F}, m_gear.wood);
            if (!farthest())
                Box({1.39F, 1, z - 0.07F}, {1.49F, 2.6F, z + 0.07F}, m_gear.wood, Copies::Sides);
            if (nearest()) {
                const Outline chain = {
                    {-1.44F, 2.55F}, {-0.46F, 3.13F}, {0.46F, 3.13F}, {1.44F, 2.55F}};
                for (std::size_t i = 0; i < 3; ++i)
                    Bar({chain[i].x, chain[i].y, z}, {chain[i + 1].x, chain[i + 1].y, z}, 0.02F, 4,
                        m_gear.steel);
            }
        }
    }

    bool m_loaded;
    Patch m_sill, m_deck, m_plain, m_pipe, m_hole;
};

} // namespace

PaintedModel BuildFlatCar(const Plan &plan, Design design)
{
    return FlatCar(plan, design == Design::PipeFlat).Build();
}

} // namespace samples
