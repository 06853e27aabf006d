// SPDX-License-Identifier: MIT
// Wheels, bogies, couplers, buffers and pantographs of vehicles.
#include "samples/VehicleModel.h"

#include <array>
#include <string>
#include <utility>

namespace samples {
namespace {

constexpr float kBackToBack = 0.68F; ///< from the middle of the track to the inside of a wheel
constexpr float kWheelOutside = 0.82F;
constexpr float kFrameInside = 0.94F;
constexpr float kFrameOutside = 1.05F;

/// The tread with its flange, in ascending order along x.
Outline tread(float side, float radius, bool flange)
{
    Outline profile = {{kBackToBack, radius}, {kWheelOutside, radius}};
    if (flange)
        profile = {{kBackToBack, radius * 0.6F},
                   {kBackToBack, radius + 0.03F},
                   {0.71F, radius + 0.03F},
                   {0.72F, radius},
                   {kWheelOutside, radius}};
    if (side > 0)
        return profile;
    Outline mirrored;
    for (auto at = profile.rbegin(); at != profile.rend(); ++at)
        mirrored.push_back({-at->x, at->y});
    return mirrored;
}

} // namespace

float Bogie::AxleAt(int number) const
{
    return wheelbase * (0.5F - static_cast<float>(number) / static_cast<float>(axles - 1));
}

void VehicleModel::addBogies(const std::vector<Bogie> &bogies)
{
    for (const Bogie &bogie : bogies) {
        m_bogies.push_back(bogie);
        const std::string number = std::to_string(m_bogies.size());
        const std::uint32_t frame = AddMatrix("BOGIE" + number, {0, bogie.radius, bogie.z});
        m_frames.push_back(frame);
        for (int i = 0; i < bogie.axles; ++i) {
            const std::string label = "WHEELS" + number + std::to_string(i + 1);
            const Vec3 at{0, 0, bogie.AxleAt(i)};
            m_axles.push_back(
                {AddMatrix(label, at, static_cast<int>(frame), true), bogie.radius, false});
        }
    }
}

void VehicleModel::addAxles(const Outline &axles, bool spoked)
{
    for (std::size_t i = 0; i < axles.size(); ++i) {
        const Vec3 at{0, axles[i].y, axles[i].x};
        const std::string label = "WHEELS" + std::to_string(i + 1);
        m_axles.push_back({AddMatrix(label, at, 0, true), axles[i].y, spoked});
    }
    if (!spoked)
        m_fixed = axles;
}

void VehicleModel::drawAxle(const Axle &axle)
{
    const int sides = facets(20, 12, 8);
    On(axle.matrix);
    for (const float side : kSides)
        Lathe({}, Axis::X, tread(side, axle.radius, nearest()), sides, m_gear.steel);
    if (nearest())
        Bar({-kBackToBack, 0, 0}, {kBackToBack, 0, 0}, 0.08F, 6, m_gear.dark);
    const Patch &face = axle.spoked && !m_plan.alone ? m_gear.spokes : m_gear.wheel;
    for (const float side : kSides) {
        Disc({side * kWheelOutside, 0, 0}, Axis::X, side < 0, axle.radius, sides, face);
        if (nearest())
            Disc({side * kBackToBack, 0, 0}, Axis::X, side > 0, axle.radius + 0.03F, sides, face);
    }
}

void VehicleModel::drawFrame(const Bogie &bogie)
{
    const float end = bogie.wheelbase / 2 + (bogie.passenger ? 0.5F : 0.3F);
    const float top = bogie.passenger ? 0.26F : 0.3F;
    const Outline outline = {{-end, -0.08F}, {-end, 0.16F}, {-0.45F, top},   {0.45F, top},
                             {end, 0.16F},   {end, -0.08F}, {0.45F, -0.24F}, {-0.45F, -0.24F}};
    Slab(outline, kFrameInside, kFrameOutside, m_gear.frame, m_gear.dark, Copies::Sides);
    Box({-kFrameInside, -0.05F, -0.25F}, {kFrameInside, 0.3F, 0.25F}, m_gear.dark);
    if (!nearest())
        return;
    for (const float side : kSides) {
        for (int i = 0; i < bogie.axles; ++i) {
            const float z = bogie.AxleAt(i);
            Box({side * (kFrameOutside - 0.01F), -0.16F, z - 0.16F},
                {side * (kFrameOutside + 0.08F), 0.16F, z + 0.16F}, m_gear.dark);
            Disc({side * (kFrameOutside + 0.085F), 0, z}, Axis::X, side < 0, 0.11F, 10,
                 m_gear.wheel);
        }
        if (bogie.passenger)
            Bar({side * 1.12F, -0.2F, -0.3F}, {side * 1.12F, 0.42F, -0.3F}, 0.1F, 8, m_gear.frame,
                Copies::Ends);
    }
}

/// Springs and axle guards of axles in the main frame.
void VehicleModel::drawGuides(float z, float radius)
{
    const Vec2 middleAbove{z, radius + 0.26F};
    const Vec2 middleBelow{z, radius + 0.12F};
    for (const float side : kSides) {
        const float in = side * 0.94F;
        const float out = side * 0.97F;
        Box({in, radius - 0.2F, z - 0.3F}, {out, 1.05F, z - 0.12F}, m_gear.dark);
        Box({in, radius - 0.2F, z + 0.12F}, {out, 1.05F, z + 0.3F}, m_gear.dark);
        Box({side * 0.93F, radius - 0.14F, z - 0.14F}, {side * 1.1F, radius + 0.14F, z + 0.14F},
            m_gear.rust);
        const Outline leaf = {
            {z - 0.5F, radius + 0.36F}, middleAbove, middleBelow, {z - 0.55F, radius + 0.3F}};
        const Outline other = {
            middleAbove, {z + 0.5F, radius + 0.36F}, {z + 0.55F, radius + 0.3F}, middleBelow};
        for (const Outline &half : {leaf, other})
            Slab(half, out, side * 1.06F, m_gear.frame, m_gear.dark);
    }
}

void VehicleModel::drawRunningGear()
{
    for (std::size_t i = 0; i < m_bogies.size(); ++i) {
        On(m_frames[i]);
        drawFrame(m_bogies[i]);
    }
    for (const Axle &axle : m_axles)
        drawAxle(axle);
    On(0);
    if (nearest())
        for (const Vec2 axle : m_fixed)
            drawGuides(axle.x, axle.y);
}

void VehicleModel::drawCouplers(float bodyEnd)
{
    if (farthest())
        return;
    const float tip = m_plan.length / 2;
    for (const float end : kSides) {
        const auto box = [&](Span x, Span y, Span z) {
            Box({x.from, y.from, end * z.from}, {x.to, y.to, end * z.to}, m_gear.rust);
        };
        box({-0.08F, 0.08F}, {0.84F, 0.98F}, {bodyEnd - 0.3F, tip - 0.18F});
        box({-0.13F, 0.15F}, {0.76F, 1.06F}, {tip - 0.22F, tip - 0.1F});
        box({0.06F, 0.15F}, {0.78F, 1.04F}, {tip - 0.1F, tip});
        box({-0.13F, -0.06F}, {0.8F, 1.02F}, {tip - 0.1F, tip - 0.03F});
        if (nearest())
            Bar({-0.4F, 0.95F, end * (bodyEnd + 0.02F)}, {-0.32F, 0.45F, end * (bodyEnd + 0.2F)},
                0.03F, 5, m_gear.black, Copies::Sides);
    }
}

void VehicleModel::drawBuffers(float bodyEnd, bool rear)
{
    if (farthest())
        return;
    const float tip = m_plan.length / 2;
    const int sides = facets(14, 8);
    for (const float end : kSides) {
        if (end < 0 && !rear)
            break;
        const auto z = [&](float fromBody) { return end * (bodyEnd + fromBody); };
        const float plate = end * (tip - 0.06F);
        for (const float x : {-0.875F, 0.875F}) {
            Bar({x, 1.05F, z(-0.05F)}, {x, 1.05F, z(0.3F)}, 0.11F, sides, m_gear.dark);
            Bar({x, 1.05F, z(0.3F)}, {x, 1.05F, plate}, 0.07F, sides, m_gear.steel);
            Bar({x, 1.05F, plate}, {x, 1.05F, end * tip}, 0.22F, sides, m_gear.dark);
            Disc({x, 1.05F, end * tip}, Axis::Z, end < 0, 0.22F, sides, m_gear.wheel);
            Disc({x, 1.05F, plate}, Axis::Z, end > 0, 0.22F, sides, m_gear.dark);
        }
        Box({-0.05F, 0.98F, z(0)}, {0.05F, 1.1F, z(0.3F)}, m_gear.rust);
        Bar({0, 1, z(0.25F)}, {0, 0.55F, z(0.2F)}, 0.035F, 6, m_gear.rust);
    }
}

void VehicleModel::drawReservoir(const Vec3 &from, const Vec3 &to)
{
    Bar(from, to, 0.18F, 12, m_gear.dark);
    Disc(from, Axis::Z, true, 0.18F, 12, m_gear.dark);
    Disc(to, Axis::Z, false, 0.18F, 12, m_gear.dark);
}

void VehicleModel::drawPantograph(float z, float roof)
{
    const auto bar = [&](const Vec3 &a, const Vec3 &b, float radius) {
        Bar(a, b, radius, facets(6, 3), m_gear.rust);
    };
    for (const float x : {-0.55F, 0.55F}) {
        bar({x, roof + 0.15F, z - 0.9F}, {x, roof + 0.15F, z + 0.9F}, 0.04F);
        for (const float end : {-1.0F, 1.0F}) {
            const float foot = z + end * 0.85F;
            const Vec3 knee{x * 0.9F, roof + 0.75F, z + end * 1.15F};
            bar({x, roof - 0.25F, foot}, {x, roof + 0.15F, foot}, 0.06F);
            bar({x, roof + 0.2F, z + end * 0.3F}, knee, 0.035F);
            bar(knee, {x * 0.7F, roof + 1.35F, z}, 0.025F);
        }
    }
    for (const float knee : {z - 1.15F, z + 1.15F})
        bar({-0.5F, roof + 0.75F, knee}, {0.5F, roof + 0.75F, knee}, 0.025F);
    for (const float side : kSides) {
        const float at = z + side * 0.16F;
        Box({-0.6F, roof + 1.35F, at - 0.05F}, {0.6F, roof + 1.4F, at + 0.05F}, m_gear.steel);
        for (const float x : {-1.0F, 1.0F})
            bar({x * 0.6F, roof + 1.38F, at}, {x * 0.85F, roof + 1.22F, at}, 0.03F);
    }
}

} // namespace samples
