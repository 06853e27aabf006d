// SPDX-License-Identifier: MIT
#include "samples/VehicleModel.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace samples {
namespace {

constexpr Colour kBufferBeam{150, 30, 26};
constexpr float kWide = 1.38F; ///< half the width of cabs and tanks

/// The common parts of steam engines: boiler, cab, cylinders and rods.
class SteamEngine : public VehicleModel
{
protected:
    SteamEngine(const Plan &plan, float gap, float cabLength, float cabFloor, float cabEaves)
        : VehicleModel(plan, gap)
        , m_cabLength(cabLength)
        , m_cab{kWide, kWide, cabFloor, cabEaves}
        , m_cabWindows{cabEaves - 0.95F,
                       cabEaves - 0.25F,
                       {{-cabLength / 2 + 0.2F, -0.08F}, {0.08F, cabLength / 2 - 0.2F}}}
    {
        m_barrel = paint(200, 150, {0, 0, 6, 6}, [&](Brush &b) {
            b.Fill(plan.base);
            for (float y = 0; y <= 6; y += 1.2F) {
                b.Rect({0, y - 0.09F, 6, y + 0.09F}, Shade(plan.base, 0.55F));
                b.Rect({0, y - 0.04F, 6, y + 0.04F}, lining());
            }
            b.Weather(101, 0.25F);
        });
        m_door = paint(90, 90, {-1, -1, 2, 2}, smokeboxDoor);
        m_cabSide = plate(150, 110, {-cabLength / 2, cabFloor, cabLength, cabEaves - cabFloor},
                          plan.number, 0.4F, cabFloor + 0.5F);
        m_cabFront = paint(
            120, 90, {-kWide, cabFloor, 2 * kWide, cabEaves + 0.4F - cabFloor}, [&](Brush &b) {
                b.Fill(plan.base);
                for (const float x : {-1.0F, 1.0F})
                    b.RoundRect({x - 0.22F, cabEaves - 0.75F, x + 0.22F, cabEaves - 0.1F}, 0.08F,
                                {26, 30, 34});
                b.Weather(107, 0.25F);
            });
        m_plain = plain(Shade(plan.base, 0.85F));
        m_black = plain(kSoot);
        m_brass = plain(kBrass);
        m_beam = paint(90, 24, {-1.3F, 0, 2.6F, 1}, [&](Brush &b) {
            b.Fill(kBufferBeam);
            b.Text(0.55F, 0.25F, 0.5F, plan.number, {235, 225, 190}, 0.16F);
            b.Weather(109, 0.3F);
        });
    }

    static void smokeboxDoor(Brush &b)
    {
        constexpr Colour handle{190, 190, 192};
        b.Fill(kSoot);
        b.Disc(0, 0, 0.96F, {24, 24, 26});
        b.Disc(0, 0, 0.8F, {48, 48, 50});
        b.Disc(-0.05F, 0.05F, 0.72F, {42, 42, 44});
        for (const float y : {-0.35F, 0.35F})
            b.Line(-0.85F, y, 0.3F, y, 0.09F, {70, 70, 72});
        b.Line(0, 0, 0.12F, -0.3F, 0.07F, handle);
        b.Line(0, 0, -0.25F, -0.2F, 0.07F, handle);
        b.Weather(103, 0.3F);
    }

    /// A lined plate with a text in the middle.
    Patch plate(int wide, int high, const Window &w, const std::string &text, float height,
                float foot)
    {
        return paint(wide, high, w, [&](Brush &b) {
            const float right = w.x + w.width;
            b.Fill(m_plan.base);
            b.Frame({w.x + 0.12F, w.y + 0.12F, right - 0.12F, w.y + w.height - 0.12F}, 0.035F,
                    lining());
            b.Text(w.x + w.width / 2, foot, height, text, lining(), 0.16F);
            b.Fade({w.x, w.y, right, w.y + 0.6F}, kDirt, 0.5F, 0);
            b.Weather(static_cast<std::uint32_t>(wide), 0.25F);
        });
    }

    void smokebox(float y, float radius, float from, float to)
    {
        const int sides = facets(24, 12);
        Lathe({0, y, 0}, Axis::Z,
              {{from, radius}, {to - 0.04F, radius}, {to, radius - 0.05F}, {to, radius - 0.06F}},
              sides, m_black);
        Disc({0, y, to}, Axis::Z, false, radius - 0.055F, sides, m_door);
        if (!nearest())
            return;
        const float top = y + radius;
        Bar({0, top + 0.02F, to - 0.1F}, {0, top + 0.2F, to - 0.1F}, 0.03F, 5, m_gear.black);
        Disc({0, top + 0.22F, to + 0.02F}, Axis::Z, false, 0.13F, 12, m_gear.lamp);
        Bar({0, top + 0.22F, to - 0.16F}, {0, top + 0.22F, to + 0.02F}, 0.13F, 12, m_gear.black);
    }

    void chimney(float y, float z, float height)
    {
        Lathe({0, y, z}, Axis::Y,
              {{-0.2F, 0.36F},
               {0.02F, 0.34F},
               {0.15F, 0.21F},
               {height - 0.14F, 0.23F},
               {height - 0.1F, 0.3F},
               {height, 0.3F},
               {height, 0.16F}},
              facets(16, 8), m_black);
    }

    void dome(float y, float z, float radius, float height, const Patch &patch)
    {
        Lathe({0, y, z}, Axis::Y,
              {{-0.3F, radius * 1.15F},
               {0, radius},
               {height * 0.5F, radius * 0.97F},
               {height * 0.8F, radius * 0.75F},
               {height * 0.95F, radius * 0.4F},
               {height, 0.01F}},
              facets(16, 8), patch);
    }

    /// The cab with its rear at `rear`, open at the back.
    void cab(float rear)
    {
        const float middle = rear + m_cabLength / 2;
        const float front = rear + m_cabLength;
        const float half = m_cabLength / 2;
        sides({{-half, half, m_cabSide}}, m_cab, farthest() ? WindowRow{} : m_cabWindows, middle);
        linings(m_cabLength, m_cab, m_cabWindows, m_black, middle);
        const Outline arc = RoofArc(kWide + 0.06F, m_cab.y1, m_cab.y1 + 0.4F, facets(8, 4));
        const Outline wall = Gable(arc, kWide, m_cab.y0);
        Extrude(arc, rear - 0.2F, front + 0.1F, m_black);
        endWall(wall, front, 1, m_cabFront);
        endWall(wall, front - 0.06F, -1, m_black);
        endWall(arc, rear - 0.2F, -1, m_black);
        soffit(kWide + 0.06F, m_cab.y1, rear - 0.2F, front + 0.1F, m_black);
        Box({-kWide, m_cab.y0 - 0.08F, rear}, {kWide, m_cab.y0 + 0.02F, front}, m_black);
        if (!nearest())
            return;
        Lathe({0, m_cab.y0 + 1.05F, front - 0.5F}, Axis::Z,
              {{-0.05F, 0.01F}, {0, 0.72F}, {0.5F, 0.75F}}, 14, m_black);
        for (const float x : {-0.3F, 0.1F, 0.4F})
            Bar({x, m_cab.y0 + 1.5F, front - 0.55F}, {x + 0.1F, m_cab.y0 + 1.7F, front - 0.5F},
                0.03F, 5, m_brass);
    }

    void cylinders(float y, float from, float to)
    {
        for (const float x : {1.08F, -1.08F}) {
            Lathe({x, y, 0}, Axis::Z, {{from, 0.01F}, {from, 0.36F}, {to, 0.36F}, {to, 0.01F}},
                  facets(16, 8), m_plain);
            Box({x - 0.3F, y + 0.2F, from}, {x + 0.3F, y + 0.75F, to}, m_plain);
        }
    }

    /// Coupling rods along these wheels, with main rods to the cylinders.
    void rods(const Outline &wheels, float y, float rear)
    {
        const Patch &steel = m_gear.steel;
        const float pin = wheels.front().y - 0.3F;
        const float drive = wheels[wheels.size() / 2].x;
        for (const float side : kSides) {
            const float x = side * 1.06F;
            Box({side * 0.86F, pin - 0.07F, wheels.back().x - 0.12F},
                {side * 0.92F, pin + 0.07F, wheels.front().x + 0.12F}, steel);
            for (const Vec2 wheel : wheels)
                Bar({side * 0.8F, pin, wheel.x}, {side * 0.98F, pin, wheel.x}, 0.1F, 10, steel);
            Bar({side * 1.02F, pin, drive}, {x, y, rear - 0.9F}, 0.06F, 6, steel);
            Bar({x, y, rear - 1}, {x, y, rear}, 0.045F, 6, steel);
            Box({x - 0.07F, y - 0.12F, rear - 1.05F}, {x + 0.07F, y + 0.12F, rear - 0.75F}, steel);
            for (const float bar : {y - 0.14F, y + 0.14F})
                Box({x - 0.06F, bar - 0.03F, rear - 1.5F}, {x + 0.06F, bar + 0.03F, rear}, steel);
            Disc({side * 0.985F, pin, drive}, Axis::X, side < 0, 0.12F, 10, steel);
        }
    }

    void beam(float z, float facing)
    {
        Box({-1.3F, 0.82F, z}, {1.3F, 1.32F, z - facing * 0.12F},
            {m_black, m_beam, m_black, m_black});
    }

    float m_cabLength;
    SideShape m_cab;
    WindowRow m_cabWindows;
    Patch m_barrel, m_door, m_cabSide, m_cabFront, m_plain, m_black, m_brass, m_beam;
};

/// An express engine: bogie in front, three driving axles, one axle behind.
class ExpressEngine : public SteamEngine
{
public:
    explicit ExpressEngine(const Plan &plan)
        : SteamEngine(plan, 0.6F, 1.9F, 1.5F, 3.5F)
        , m_rear(-plan.length / 2 + 0.25F)
    {
        addBogies({{m_half - 1.65F, 1.9F, 2, 0.46F}});
        addAxles(kDrivers, true);
        m_trailing = AddMatrix("WHEELS4", {0, 0.52F, -4.75F}, 0, true);
    }

protected:
    void draw() override
    {
        const float box = m_half - 1.75F;
        Lathe({0, kAxis, 0}, Axis::Z,
              {{m_rear + 1.9F, 0.98F}, {-2.0F, 0.98F}, {-1.2F, 0.86F}, {box, 0.84F}},
              facets(24, 12), m_barrel);
        smokebox(kAxis, 0.88F, box, m_half - 0.15F);
        chimney(kAxis + 0.86F, m_half - 0.95F, 0.42F);
        dome(kAxis + 0.84F, 0.8F, 0.34F, 0.42F, m_barrel);
        dome(kAxis + 0.96F, -2.9F, 0.16F, 0.25F, m_brass);
        cab(m_rear);
        drawFrames();
        if (!farthest()) {
            cylinders(0.85F, m_half - 2.3F, m_half - 1);
            rods(kDrivers, 0.85F, m_half - 2.3F);
            Box({1.26F, kPlate + 0.05F, m_half - 1.9F}, {1.3F, kAxis + 0.6F, m_half - 0.3F},
                m_plain, Copies::Sides);
        }
        if (nearest())
            Bar({0.94F, kAxis + 0.35F, m_rear + 2}, {0.94F, kAxis + 0.35F, m_half - 0.4F}, 0.022F,
                5, m_gear.steel, Copies::Sides);
        drawRunningGear();
        drawTrailingAxle();
        drawBuffers(m_half, false);
        if (!farthest())
            panes(m_cab, m_cabWindows, m_rear + 0.95F);
    }

private:
    static constexpr float kAxis = 2.75F;  ///< height of the boiler
    static constexpr float kPlate = 1.62F; ///< height of the running plate
    inline static const Outline kDrivers = {{1.35F, 0.94F}, {-0.65F, 0.94F}, {-2.65F, 0.94F}};

    void drawFrames()
    {
        Box({-0.6F, 0.75F, m_rear}, {0.6F, 1.85F, m_half}, m_black);
        Box({0.64F, kPlate, m_rear + 1.9F}, {1.36F, kPlate + 0.07F, m_half - 0.3F}, m_plain,
            Copies::Sides);
        Box({-1.3F, 1.3F, m_half - 0.5F}, {1.3F, 1.38F, m_half}, m_black);
        beam(m_half, 1);
        if (!farthest())
            for (const Vec2 wheel : kDrivers)
                splasher(wheel.x, wheel.y);
        Box({-0.55F, 1.6F, m_half - 1.75F}, {0.55F, kAxis - 0.5F, m_half - 0.4F}, m_black);
        Box({-0.98F, 1.55F, m_rear + 1.9F}, {0.98F, kAxis, -2}, m_plain);
    }

    void splasher(float z, float radius)
    {
        Outline outline;
        for (int i = 0; i <= 8; ++i) {
            const float angle = 3.14159F * static_cast<float>(i) / 8;
            const float reach = radius + 0.1F;
            const float y = radius + std::sin(angle) * reach;
            outline.push_back({z - std::cos(angle) * reach, std::max(y, kPlate)});
        }
        Slab(outline, 0.66F, 1.0F, m_plain, m_plain, Copies::Sides);
    }

    void drawTrailingAxle()
    {
        On(m_trailing);
        Bar({-0.8F, 0, 0}, {0.8F, 0, 0}, 0.52F, facets(20, 8), m_gear.steel);
        for (const float side : kSides)
            Disc({side * 0.81F, 0, 0}, Axis::X, side < 0, 0.52F, facets(20, 8), m_gear.wheel);
        On(0);
    }

    float m_rear;
    std::uint32_t m_trailing;
};

/// A small tank engine on three axles.
class TankEngine : public SteamEngine
{
public:
    explicit TankEngine(const Plan &plan)
        : SteamEngine(plan, 0.6F, 1.8F, 1.3F, 3.35F)
        , m_cabRear(-m_half + 1.3F)
        , m_boilerRear(m_cabRear + 1.8F)
        , m_tanks(m_half - 1.5F)
    {
        addAxles(kDrivers, true);
        const float tank = m_tanks - m_boilerRear;
        m_tank = plate(240, 96, {-tank / 2, 1.3F, tank, 1.3F}, plan.initials, 0.5F, 1.7F);
        m_bunker = plate(90, 80, {-kWide, 1.3F, 2 * kWide, 1.3F}, plan.number, 0.4F, 1.7F);
    }

protected:
    void draw() override
    {
        Lathe({0, kAxis, 0}, Axis::Z, {{m_boilerRear, 0.7F}, {m_half - 1.3F, 0.7F}}, facets(24, 12),
              m_barrel);
        smokebox(kAxis, 0.73F, m_half - 1.3F, m_half - 0.25F);
        chimney(kAxis + 0.7F, m_half - 0.8F, 0.6F);
        dome(kAxis + 0.68F, 1, 0.3F, 0.45F, m_brass);
        cab(m_cabRear);
        drawTanks();
        Box({-0.6F, 0.7F, -m_half}, {0.6F, 1.25F, m_half}, m_black);
        Box({-kWide, 1.2F, -m_half}, {kWide, 1.3F, m_half}, m_black);
        Box({-0.5F, 1.2F, m_half - 1.4F}, {0.5F, kAxis - 0.4F, m_half - 0.3F}, m_black);
        beam(m_half, 1);
        beam(-m_half, -1);
        if (!farthest()) {
            cylinders(0.72F, m_half - 1.6F, m_half - 0.5F);
            rods(kDrivers, 0.72F, m_half - 1.6F);
        }
        if (nearest())
            for (const float x : {1.25F, -1.25F})
                for (const float y : {0.45F, 0.8F})
                    Box({x - 0.13F, y, m_cabRear + 0.1F}, {x + 0.13F, y + 0.03F, m_cabRear + 0.6F},
                        m_black);
        drawRunningGear();
        drawBuffers(m_half);
        if (!farthest())
            panes(m_cab, m_cabWindows, m_cabRear + 0.9F);
    }

private:
    static constexpr float kAxis = 2.2F; ///< height of the boiler
    inline static const Outline kDrivers = {{1.9F, 0.64F}, {0.1F, 0.64F}, {-1.9F, 0.64F}};

    void drawTanks()
    {
        Box({0.72F, 1.3F, m_boilerRear}, {kWide, 2.6F, m_tanks},
            {m_tank, m_plain, m_plain, m_plain}, Copies::Sides);
        Box({-kWide, 1.3F, -m_half + 0.1F}, {kWide, 2.6F, m_cabRear},
            {m_plain, m_bunker, m_black, m_plain});
        Lathe({0, 2.58F, (-m_half + m_cabRear) / 2}, Axis::Y,
              {{0, 0.55F}, {0.18F, 0.4F}, {0.3F, 0.05F}}, 9, m_black);
        Quad({-kWide, m_cab.y1, m_cabRear}, {kWide, m_cab.y1, m_cabRear}, {kWide, 2.6F, m_cabRear},
             {-kWide, 2.6F, m_cabRear}, m_cabFront.Part(0, 0.6F, 1, 1));
    }

    float m_cabRear;
    float m_boilerRear;
    float m_tanks; ///< front of the tanks
    Patch m_tank, m_bunker;
};

} // namespace

PaintedModel BuildExpress(const Plan &plan, Design)
{
    return ExpressEngine(plan).Build();
}

PaintedModel BuildTankEngine(const Plan &plan, Design)
{
    return TankEngine(plan).Build();
}

} // namespace samples
