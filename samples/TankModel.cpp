// SPDX-License-Identifier: MIT
#include "samples/Vehicles.h"

#include <array>
#include <cmath>
#include <numbers>

namespace samples {
namespace {

constexpr float kRadius = 1.38F;
constexpr float kMiddle = 2.5F; ///< height of the tank's axis
constexpr float kDish = 0.42F;
constexpr float kDeck = 1.06F;

void paintBarrel(Brush &b, const Plan &plan, float half)
{
    const float low = kMiddle - kRadius * std::numbers::pi_v<float> / 2;
    const float high = kMiddle + kRadius * std::numbers::pi_v<float> / 2;
    b.Fill(plan.base);
    for (const float x : {-half * 0.5F, 0.0F, half * 0.5F}) {
        b.Rect({x - 0.05F, low, x + 0.05F, high}, Shade(plan.base, 0.8F));
        b.Rivets(x - 0.12F, low, x - 0.12F, high, 0.16F);
        b.Rivets(x + 0.12F, low, x + 0.12F, high, 0.16F);
    }
    b.Rect({-half, kMiddle - 0.62F, half, kMiddle - 0.5F}, plan.trim);
    b.Text(0, kMiddle - 0.14F, 0.62F, plan.initials, plan.trim);
    b.Text(half * 0.55F, kMiddle - 1, 0.34F, plan.number, plan.trim);
    b.Text(-half * 0.55F, kMiddle - 1, 0.2F, "54 000 L", plan.trim);
    b.Text(-half * 0.55F, kMiddle - 1.28F, 0.14F, "NO OPEN FLAMES", plan.trim);
    for (const float x : {-half * 0.25F, half * 0.3F, 0.1F})
        b.Fade({x - 0.12F, low + 0.8F, x + 0.12F, high}, {38, 30, 24}, 0, 0.5F);
    b.Fade({-half, low, half, kMiddle - 0.4F}, {50, 40, 32}, 0.7F, 0);
    b.Fade({-half, kMiddle, half, high}, {255, 255, 250}, 0, 0.12F);
    b.Weather(41, 0.32F);
}

/// Half of a circle from the top down on the right; outside on the left as one walks.
std::vector<Vec2> halfCircle(int pieces)
{
    std::vector<Vec2> points;
    for (int i = 0; i <= pieces; ++i) {
        const float angle =
            std::numbers::pi_v<float> * static_cast<float>(i) / static_cast<float>(pieces);
        points.push_back({std::sin(angle) * kRadius, kMiddle + std::cos(angle) * kRadius});
    }
    return points;
}

class TankCar
{
public:
    explicit TankCar(Kit &kit)
        : m_kit(kit)
        , m_mesh(kit.Mesh())
        , m_half(kit.Wanted().length / 2 - 1.05F)
        , m_gear(kit, std::vector<Bogie>{{kit.Wanted().length / 2 - 2.2F},
                                         {-kit.Wanted().length / 2 + 2.2F}})
    {
        const Plan &plan = kit.Wanted();
        const float height = kRadius * std::numbers::pi_v<float>;
        m_barrel = kit.Paint(500, 220, {-m_half, kMiddle - height / 2, 2 * m_half, height},
                             [&](Brush &b) { paintBarrel(b, plan, m_half); });
        m_dish = kit.Paint(100, 60, {-1, -1, 2, 2}, [&](Brush &b) {
            b.Fill(plan.base);
            b.Rivets(-1, -0.9F, 1, -0.9F, 0.08F);
            b.Weather(5, 0.4F);
        });
        m_plain = kit.Plain(Shade(plan.base, 0.9F));
    }

    void Draw(int detail)
    {
        drawBarrel(detail);
        drawFrame(detail);
        if (detail < 2)
            drawTop(detail);
        if (detail == 0)
            drawRailings();
        m_gear.Draw(detail);
        DrawCouplers(m_kit, detail, m_kit.Wanted().length / 2 - 0.55F);
    }

private:
    void drawBarrel(int detail)
    {
        m_kit.UseBody();
        const std::vector<Vec2> right = halfCircle(detail == 0 ? 14 : detail == 1 ? 8 : 5);
        std::vector<Vec2> left;
        for (auto at = right.rbegin(); at != right.rend(); ++at)
            left.push_back({-at->x, at->y});
        m_mesh.Extrude(right, -m_half, m_half, m_barrel);
        m_mesh.Extrude(left, -m_half, m_half, {m_barrel.u1, m_barrel.v1, m_barrel.u0, m_barrel.v0});
        const int sides = detail == 0 ? 28 : detail == 1 ? 16 : 10;
        std::vector<Vec2> front = {{m_half, kRadius}};
        std::vector<Vec2> rear = {{-m_half - kDish, 0.01F}};
        for (const float share : {0.5F, 0.85F})
            front.push_back({m_half + kDish * share, kRadius * std::sqrt(1 - share * share)});
        front.push_back({m_half + kDish, 0.01F});
        for (auto at = front.rbegin() + 1; at != front.rend(); ++at)
            rear.push_back({-at->x, at->y});
        m_mesh.Lathe({0, kMiddle, 0}, Axis::Z, front, sides, m_dish);
        m_mesh.Lathe({0, kMiddle, 0}, Axis::Z, rear, sides, m_dish);
    }

    void drawFrame(int detail)
    {
        const GearPatches &gear = m_kit.Gear();
        const float end = m_kit.Wanted().length / 2 - 0.5F;
        m_kit.UseGear();
        m_mesh.Box({-0.28F, 0.72F, -end}, {0.28F, kDeck, end}, BoxSkin::All(gear.dark));
        for (const float z : {1.0F, -1.0F}) {
            const float a = z * end;
            const float b = z * (end - 1);
            m_mesh.Box({-1.4F, kDeck - 0.12F, std::min(a, b)}, {1.4F, kDeck, std::max(a, b)},
                       BoxSkin::All(gear.dark));
            if (detail < 2)
                m_mesh.Box({-1.15F, kDeck, z * (m_half - 0.9F) - 0.12F},
                           {1.15F, kMiddle - 0.75F, z * (m_half - 0.9F) + 0.12F},
                           BoxSkin::All(gear.dark));
        }
        if (detail > 0)
            return;
        m_mesh.Bar({0, 0.45F, 0}, {0, kMiddle - kRadius, 0}, 0.16F, 10, gear.dark);
        m_mesh.Bar({-0.75F, 0.8F, 1}, {-0.75F, 0.8F, 2.1F}, 0.18F, 12, gear.dark);
        for (const float z : {1.0F, 2.1F})
            m_mesh.Disc({-0.75F, 0.8F, z}, Axis::Z, z < 1.5F, 0.18F, 12, gear.dark);
        for (const float z : {-m_half * 0.5F, m_half * 0.5F})
            for (const float x : {-1.0F, 1.0F})
                m_mesh.Bar({0.28F * x, kDeck - 0.1F, z}, {1.25F * x, kMiddle - 0.6F, z}, 0.04F, 5,
                           gear.black);
    }

    void drawTop(int detail)
    {
        const float top = kMiddle + kRadius;
        const int sides = detail == 0 ? 16 : 10;
        m_kit.UseBody();
        m_mesh.Lathe({0, top - 0.15F, 0}, Axis::Y,
                     std::array<Vec2, 5>{
                         {{0, 0.52F}, {0.4F, 0.52F}, {0.5F, 0.5F}, {0.6F, 0.4F}, {0.62F, 0.02F}}},
                     sides, m_plain);
        m_kit.UseGear();
        m_mesh.Lathe({0, top + 0.45F, 0.1F}, Axis::Y,
                     std::array<Vec2, 3>{{{0, 0.18F}, {0.12F, 0.16F}, {0.14F, 0.01F}}}, sides,
                     m_kit.Gear().rust);
        if (!m_kit.UseCutout())
            return;
        for (const float z : {-1.0F, 1.0F}) {
            const float a = z * 0.7F;
            const float b = z * 2.2F;
            const float y = top + 0.06F;
            const float near = std::min(a, b);
            const float far = std::max(a, b);
            m_mesh.Quad({-0.75F, y, near}, {-0.75F, y, far}, {0.75F, y, far}, {0.75F, y, near},
                        m_kit.Gear().grating);
            m_mesh.Quad({0.75F, y, near}, {0.75F, y, far}, {-0.75F, y, far}, {-0.75F, y, near},
                        m_kit.Gear().grating);
        }
        for (const float side : {1.0F, -1.0F}) {
            const float x = side * (kRadius + 0.1F);
            const float a = side * (m_half - 0.75F);
            const float b = side * (m_half - 0.25F);
            const float y = kDeck - 0.3F;
            m_mesh.Quad({x, top - 0.6F, a}, {x, top - 0.6F, b}, {x, y, b}, {x, y, a},
                        m_kit.Gear().ladder);
            m_mesh.Quad({x, top - 0.6F, b}, {x, top - 0.6F, a}, {x, y, a}, {x, y, b},
                        m_kit.Gear().ladder);
        }
    }

    /// A rail around each end platform.
    void drawRailings()
    {
        const float end = m_kit.Wanted().length / 2 - 0.52F;
        m_kit.UseGear();
        for (const float side : {1.0F, -1.0F}) {
            const Vec3 a{-1.38F, kDeck + 0.95F, side * end};
            const Vec3 b{1.38F, kDeck + 0.95F, side * end};
            m_mesh.Bar(a, b, 0.025F, 5, m_kit.Gear().black);
            for (const float x : {-1.38F, -0.5F, 0.5F, 1.38F})
                m_mesh.Bar({x, kDeck, side * end}, {x, kDeck + 0.95F, side * end}, 0.025F, 5,
                           m_kit.Gear().black);
            for (const float x : {-1.38F, 1.38F})
                m_mesh.Bar({x, kDeck + 0.95F, side * end}, {x, kDeck + 0.95F, side * (end - 0.95F)},
                           0.025F, 5, m_kit.Gear().black);
        }
        for (const float x : {-kRadius - 0.06F, kRadius + 0.06F})
            m_mesh.Bar({x, kMiddle - 0.3F, -m_half - 0.3F}, {x, kMiddle - 0.3F, m_half + 0.3F},
                       0.025F, 5, m_kit.Gear().black);
    }

    Kit &m_kit;
    MeshBuilder &m_mesh;
    float m_half;
    RunningGear m_gear;
    Patch m_barrel, m_dish, m_plain;
};

} // namespace

void BuildTankCar(Kit &kit)
{
    TankCar car(kit);
    kit.Levels([&](int detail) { car.Draw(detail); });
}

} // namespace samples
