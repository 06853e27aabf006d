// SPDX-License-Identifier: MIT
#include "samples/VehicleModel.h"

#include <algorithm>
#include <cmath>

namespace samples {
namespace {

constexpr float kRim = 3.45F;
constexpr float kFoot = 1.5F;  ///< top of the discharge bays
constexpr float kSlope = 1.7F; ///< length of the slanting floor at each end

class Hopper : public VehicleModel
{
public:
    explicit Hopper(const Plan &plan)
        : VehicleModel(plan, 0.6F)
    {
        addBogies({{plan.length / 2 - 2.1F}, {-plan.length / 2 + 2.1F}});
        m_side = paint(500, 150, {-m_half, kFoot, 2 * m_half, 1.95F}, [&](Brush &b) { side(b); });
        m_plain = plain(plan.base, 40);
        m_rib = plain(Shade(plan.base, 1.2F));
        m_chute = paint(120, 50, {-1, 0, 2, 1}, [&](Brush &b) {
            b.Fill(Shade(plan.base, 0.85F));
            b.Joint({-0.5F, 0.02F, 0.5F, 0.4F});
            b.Rivets(-0.9F, 0.9F, 0.9F, 0.9F, 0.12F);
            b.Weather(31, 0.5F);
        });
        m_coal = paint(128, 100, {0, 0, 2, 2}, [](Brush &b) {
            b.Fill({44, 44, 47});
            for (unsigned i = 0; i < 900; ++i) {
                const unsigned dice = (i * 2654435761U) ^ (i * 40503U << 7U);
                const float x = static_cast<float>(dice >> 20U) / 2048;
                const float y = static_cast<float>(dice >> 8U & 4095U) / 2048;
                const auto tone = static_cast<std::uint8_t>(26 + dice % 66);
                b.Disc(x, y, 0.03F + 0.001F * static_cast<float>(dice % 40),
                       {tone, tone, static_cast<std::uint8_t>(tone + 4)});
            }
            b.Weather(37, 0.4F);
        });
    }

protected:
    void draw() override
    {
        Slab({{-m_half, kRim},
              {m_half, kRim},
              {m_half, 2.55F},
              {m_half - kSlope, kFoot},
              {-m_half + kSlope, kFoot},
              {-m_half, 2.55F}},
             -1.4F, 1.4F, m_side, m_plain);
        drawLoad();
        if (!farthest()) {
            for (const float z : {-1.75F, 1.75F})
                Slab({{z - 1.6F, kFoot}, {z + 1.6F, kFoot}, {z + 0.55F, 0.62F}, {z - 0.55F, 0.62F}},
                     -1.15F, 1.15F, m_chute, m_plain);
            drawRibs();
        }
        drawFrame();
        drawRunningGear();
        drawCouplers(m_half);
    }

private:
    void side(Brush &b) const
    {
        const float half = m_half;
        b.Fill(m_plan.base);
        b.Rivets(-half, 3.38F, half, 3.38F, 0.2F);
        b.Rivets(-half, 1.6F, half, 1.6F, 0.2F);
        b.Text(-half * 0.5F, 2.45F, 0.58F, m_plan.initials, m_plan.trim);
        b.Text(half * 0.5F, 2.5F, 0.48F, m_plan.number, m_plan.trim);
        b.Text(half * 0.5F, 2.12F, 0.16F, "COAL SERVICE", m_plan.trim);
        b.Text(-half * 0.5F, 1.9F, 0.14F, "LOAD 63 T", m_plan.trim);
        b.RoundRect({-0.42F, 2.3F, 0.42F, 3.1F}, 0.06F, {214, 176, 62});
        b.Text(0, 2.53F, 0.34F, "AV", Shade(m_plan.base, 0.6F), 0.2F);
        b.Fade({-half, kFoot, half, 2.4F}, {84, 62, 44}, 0.55F, 0);
        b.Fade({-half, 3, half, kRim}, {20, 20, 20}, 0, 0.5F);
        b.Weather(43, 0.45F);
    }

    /// A heap of coal with a few tops, over a lid just below the rim.
    void drawLoad()
    {
        const float end = m_half - 0.06F;
        soffit(1.34F, kRim + 0.002F, end, -end, m_coal);
        if (farthest())
            return;
        const Outline arc = RoofArc(1.34F, kRim, kRim + 0.28F, 6);
        const float step = (2 * end - 1.4F) / 5;
        for (float z = -end + 0.7F; z < end - 0.8F; z += step)
            Extrude(arc, z, z + step, m_coal);
        for (const float side : kSides) {
            for (std::size_t i = 0; i + 1 < arc.size(); ++i) {
                const Vec2 a = side > 0 ? arc[i + 1] : arc[i];
                const Vec2 b = side > 0 ? arc[i] : arc[i + 1];
                const float top = side * (end - 0.7F);
                Quad({a.x, a.y, top}, {b.x, b.y, top}, {b.x, kRim, side * end},
                     {a.x, kRim, side * end}, m_coal);
            }
        }
        for (const float z : {-2.9F, 0.1F, 2.8F})
            Lathe({0.1F, kRim - 0.16F, z}, Axis::Y,
                  {{0.1F, 1.3F}, {0.36F, 0.95F}, {0.58F, 0.4F}, {0.68F, 0.02F}}, 9, m_coal);
    }

    /// Upright ribs beside the lettering, and the rim.
    void drawRibs()
    {
        for (const float place : {-1.0F, -0.75F, -0.25F, 0.25F, 0.75F, 1.0F}) {
            const float z = (m_half - 0.05F) * place;
            const float above = std::max(0.0F, (std::abs(z) - m_half + kSlope) / kSlope * 1.05F);
            Box({1.4F, kFoot + above, z - 0.06F}, {1.5F, kRim, z + 0.06F}, m_rib, Copies::Sides);
        }
        for (const float side : kSides) {
            Box({side * 1.36F, kRim - 0.02F, -m_half}, {side * 1.52F, kRim + 0.1F, m_half}, m_rib);
            Box({-1.4F, kRim - 0.02F, side * m_half - 0.08F},
                {1.4F, kRim + 0.1F, side * m_half + 0.08F}, m_rib);
        }
    }

    void drawFrame()
    {
        Box({-0.3F, 0.75F, -m_half}, {0.3F, 1.1F, m_half}, m_gear.dark);
        for (const float end : kSides) {
            const float z = end * (m_half - 0.1F);
            Box({-1.4F, 1.02F, z - 0.1F}, {1.4F, 1.2F, z + 0.1F}, m_gear.dark);
            if (farthest())
                continue;
            for (const float x : {-1.25F, -0.42F, 0.42F, 1.25F})
                Box({x - 0.05F, 1.2F, z - 0.05F}, {x + 0.05F, 2.6F, z + 0.05F}, m_gear.dark);
            Box({-1.41F, 1.08F, end * kFoot}, {-1.29F, 1.2F, end * m_half}, m_gear.dark,
                Copies::Sides);
        }
        const float z = m_half - 0.1F;
        if (nearest())
            Quad({1.47F, 2.6F, z - 0.5F}, {1.47F, 2.6F, z}, {1.47F, 0.8F, z},
                 {1.47F, 0.8F, z - 0.5F}, m_gear.ladder, Copies::Turned);
    }

    Patch m_side, m_plain, m_rib, m_chute, m_coal;
};

} // namespace

PaintedModel BuildHopper(const Plan &plan, Design)
{
    return Hopper(plan).Build();
}

} // namespace samples
