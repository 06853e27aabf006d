// SPDX-License-Identifier: MIT
#include "samples/VehicleModel.h"

#include <cmath>
#include <numbers>

namespace samples {
namespace {

constexpr float kPi = std::numbers::pi_v<float>;
constexpr float kRadius = 1.38F;
constexpr float kMiddle = 2.5F; ///< height of the tank's axis
constexpr float kTop = kMiddle + kRadius;
constexpr float kDish = 0.42F;
constexpr float kDeck = 1.06F;

/// Half of a circle from the top down on the right; its outside is on the left as one walks.
Outline halfCircle(int pieces)
{
    Outline points;
    for (int i = 0; i <= pieces; ++i) {
        const float angle = kPi * static_cast<float>(i) / static_cast<float>(pieces);
        points.push_back({std::sin(angle) * kRadius, kMiddle + std::cos(angle) * kRadius});
    }
    return points;
}

/// The outline on the other side, walked back.
Outline mirrored(const Outline &outline)
{
    Outline other;
    for (auto at = outline.rbegin(); at != outline.rend(); ++at)
        other.push_back({-at->x, at->y});
    return other;
}

class TankCar : public VehicleModel
{
public:
    explicit TankCar(const Plan &plan)
        : VehicleModel(plan, 1.05F)
        , m_end(plan.length / 2 - 0.5F)
    {
        addBogies({{plan.length / 2 - 2.2F}, {-plan.length / 2 + 2.2F}});
        const float height = kRadius * kPi;
        m_barrel = paint(500, 220, {-m_half, kMiddle - height / 2, 2 * m_half, height},
                         [&](Brush &b) { barrel(b); });
        m_dish = paint(100, 60, {-1, -1, 2, 2}, [&](Brush &b) {
            b.Fill(plan.base);
            b.Rivets(-1, -0.9F, 1, -0.9F, 0.08F);
            b.Weather(5, 0.4F);
        });
        m_plain = plain(Shade(plan.base, 0.9F));
    }

protected:
    void draw() override
    {
        drawBarrel();
        drawFrame();
        if (!farthest())
            drawTop();
        if (nearest())
            drawRails();
        drawRunningGear();
        drawCouplers(m_plan.length / 2 - 0.55F);
    }

private:
    void barrel(Brush &b) const
    {
        const float low = kMiddle - kRadius * kPi / 2;
        const float high = kMiddle + kRadius * kPi / 2;
        b.Fill(m_plan.base);
        for (const float x : {-m_half * 0.5F, 0.0F, m_half * 0.5F}) {
            b.Rect({x - 0.05F, low, x + 0.05F, high}, Shade(m_plan.base, 0.8F));
            b.Rivets(x - 0.12F, low, x - 0.12F, high, 0.16F);
            b.Rivets(x + 0.12F, low, x + 0.12F, high, 0.16F);
        }
        b.Rect({-m_half, kMiddle - 0.62F, m_half, kMiddle - 0.5F}, m_plan.trim);
        b.Text(0, kMiddle - 0.14F, 0.62F, m_plan.initials, m_plan.trim);
        b.Text(m_half * 0.55F, kMiddle - 1, 0.34F, m_plan.number, m_plan.trim);
        b.Text(-m_half * 0.55F, kMiddle - 1, 0.2F, "54 000 L", m_plan.trim);
        b.Text(-m_half * 0.55F, kMiddle - 1.28F, 0.14F, "NO OPEN FLAMES", m_plan.trim);
        for (const float x : {-m_half * 0.25F, m_half * 0.3F, 0.1F})
            b.Fade({x - 0.12F, low + 0.8F, x + 0.12F, high}, {38, 30, 24}, 0, 0.5F);
        b.Fade({-m_half, low, m_half, kMiddle - 0.4F}, {50, 40, 32}, 0.7F, 0);
        b.Fade({-m_half, kMiddle, m_half, high}, {255, 255, 250}, 0, 0.12F);
        b.Weather(41, 0.32F);
    }

    void drawBarrel()
    {
        const Outline right = halfCircle(facets(14, 8, 5));
        const Patch turned{m_barrel.u1, m_barrel.v1, m_barrel.u0, m_barrel.v0};
        Extrude(right, -m_half, m_half, m_barrel);
        Extrude(mirrored(right), -m_half, m_half, turned);
        Outline front = {{m_half, kRadius}};
        for (const float share : {0.5F, 0.85F})
            front.push_back({m_half + kDish * share, kRadius * std::sqrt(1 - share * share)});
        front.push_back({m_half + kDish, 0.01F});
        for (const Outline &end : {front, mirrored(front)})
            Lathe({0, kMiddle, 0}, Axis::Z, end, facets(28, 16, 10), m_dish);
    }

    void drawFrame()
    {
        Box({-0.28F, 0.72F, -m_end}, {0.28F, kDeck, m_end}, m_gear.dark);
        for (const float z : kSides) {
            Box({-1.4F, kDeck - 0.12F, z * m_end}, {1.4F, kDeck, z * (m_end - 1)}, m_gear.dark);
            if (!farthest())
                Box({-1.15F, kDeck, z * (m_half - 1.02F)},
                    {1.15F, kMiddle - 0.75F, z * (m_half - 0.78F)}, m_gear.dark);
        }
        if (!nearest())
            return;
        Bar({0, 0.45F, 0}, {0, kMiddle - kRadius, 0}, 0.16F, 10, m_gear.dark);
        drawReservoir({-0.75F, 0.8F, 1}, {-0.75F, 0.8F, 2.1F});
        Bar({-0.28F, kDeck - 0.1F, -m_half * 0.5F}, {-1.25F, kMiddle - 0.6F, -m_half * 0.5F}, 0.04F,
            5, m_gear.black, Copies::EndsSides);
    }

    /// The dome with its valve, gratings beside it and ladders up to it.
    void drawTop()
    {
        const int sides = facets(16, 10);
        const float y = kTop + 0.06F;
        Lathe({0, kTop - 0.15F, 0}, Axis::Y,
              {{0, 0.52F}, {0.4F, 0.52F}, {0.5F, 0.5F}, {0.6F, 0.4F}, {0.62F, 0.02F}}, sides,
              m_plain);
        Lathe({0, kTop + 0.45F, 0.1F}, Axis::Y, {{0, 0.18F}, {0.12F, 0.16F}, {0.14F, 0.01F}}, sides,
              m_gear.rust);
        for (const Span &z : {Span{-2.2F, -0.7F}, Span{0.7F, 2.2F}}) {
            soffit(0.75F, y, z.to, z.from, m_gear.grating);
            soffit(-0.75F, y, z.to, z.from, m_gear.grating);
        }
        for (const float side : kSides) {
            const float x = side * (kRadius + 0.1F);
            const float a = side * (m_half - 0.75F);
            const float b = side * (m_half - 0.25F);
            DoubleQuad({x, kTop - 0.6F, a}, {x, kTop - 0.6F, b}, {x, kDeck - 0.3F, b},
                       {x, kDeck - 0.3F, a}, m_gear.ladder);
        }
    }

    /// A rail around each end platform, and one along each side of the tank.
    void drawRails()
    {
        const auto bar = [&](const Vec3 &a, const Vec3 &b, Copies copies = Copies::One) {
            Bar(a, b, 0.025F, 5, m_gear.black, copies);
        };
        const float high = kDeck + 0.95F;
        for (const float side : kSides) {
            const float z = side * (m_end - 0.02F);
            bar({-1.38F, high, z}, {1.38F, high, z});
            for (const float x : {-1.38F, -0.5F, 0.5F, 1.38F})
                bar({x, kDeck, z}, {x, high, z});
            bar({-1.38F, high, z}, {-1.38F, high, z - side * 0.95F}, Copies::Sides);
        }
        const Vec3 rear{-kRadius - 0.06F, kMiddle - 0.3F, -m_half - 0.3F};
        bar(rear, {rear.x, rear.y, -rear.z}, Copies::Sides);
    }

    float m_end; ///< of the frame
    Patch m_barrel, m_dish, m_plain;
};

} // namespace

PaintedModel BuildTankCar(const Plan &plan, Design)
{
    return TankCar(plan).Build();
}

} // namespace samples
