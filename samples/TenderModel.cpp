// SPDX-License-Identifier: MIT
#include "samples/VehicleModel.h"

namespace samples {
namespace {

constexpr float kFloor = 1.25F;
constexpr float kTop = 2.95F;
constexpr float kWide = 1.38F; ///< half the width

class Tender : public VehicleModel
{
public:
    explicit Tender(const Plan &plan)
        : VehicleModel(plan, 0.6F)
    {
        const Colour line = lining();
        addAxles({{2.1F, 0.6F}, {0, 0.6F}, {-2.1F, 0.6F}}, false);
        m_side = paintSide(2 * m_half, kFloor, kTop, 1, 140, [&](Brush &b) {
            b.Fill(plan.base);
            b.Frame({-m_half + 0.15F, kFloor + 0.15F, m_half - 0.15F, kTop - 0.15F}, 0.035F, line);
            b.Text(0, 1.95F, 0.55F, plan.initials, line, 0.16F);
            b.Rivets(-m_half, kTop - 0.06F, m_half, kTop - 0.06F, 0.16F);
            b.Fade({-m_half, kFloor, m_half, kFloor + 0.7F}, kDirt, 0.5F, 0);
            b.Weather(113, 0.25F);
        });
        m_end = paint(120, 100, {-kWide, kFloor, 2 * kWide, kTop - kFloor}, [&](Brush &b) {
            b.Fill(plan.base);
            b.Frame({-1.26F, kFloor + 0.12F, 1.26F, kTop - 0.12F}, 0.035F, line);
            b.Text(0, 1.6F, 0.35F, plan.number, line, 0.16F);
            b.Weather(127, 0.25F);
        });
        m_plain = plain(Shade(plan.base, 0.85F));
        m_black = plain(kSoot);
        m_coal = plain({26, 26, 28}, 48);
    }

protected:
    void draw() override
    {
        constexpr float low = kTop - 0.35F;
        const Outline wall = {{-kWide, kFloor}, {-kWide, kTop}, {kWide, kTop}, {kWide, kFloor}};
        sides(m_side, {kWide, kWide, kFloor, kTop});
        endWall(wall, -m_half, -1, m_end);
        endWall(wall, m_half, 1, m_end);
        soffit(kWide, low, m_half, -m_half, m_black);
        linings(2 * m_half, {1.42F, 1.42F, low, kTop}, {}, m_plain);
        Box({-1.36F, low, -m_half}, {1.36F, kTop, -m_half + 0.06F}, m_plain, Copies::Ends);
        Box({-1.3F, low, -1.5F}, {1.3F, kTop + 0.25F, -1.44F}, m_plain);
        if (!farthest())
            for (const Vec2 heap :
                 Outline{{-0.3F, 0.5F}, {0.3F, 1.2F}, {0.1F, 2.1F}, {-0.1F, -0.3F}})
                Lathe({heap.x, low - 0.1F, heap.y}, Axis::Y,
                      {{0, 0.95F}, {0.35F, 0.7F}, {0.6F, 0.3F}, {0.68F, 0.02F}}, 9, m_coal);
        if (nearest())
            Lathe({0, low, -2.4F}, Axis::Y, {{0, 0.3F}, {0.25F, 0.3F}, {0.27F, 0.01F}}, 12,
                  m_black);
        Box({-1.2F, 0.85F, -m_half}, {1.2F, kFloor, m_half}, m_gear.dark);
        Box({0.9F, 0.55F, -m_half + 0.3F}, {0.94F, kFloor, m_half - 0.3F}, m_gear.dark,
            Copies::Sides);
        drawRunningGear();
        drawBuffers(m_half);
    }

private:
    std::vector<Stretch> m_side;
    Patch m_end, m_plain, m_black, m_coal;
};

} // namespace

PaintedModel BuildTender(const Plan &plan, Design)
{
    return Tender(plan).Build();
}

} // namespace samples
