// SPDX-License-Identifier: MIT
#include "samples/VehicleKit.h"

#include <array>
#include <utility>

namespace samples {
namespace {

constexpr float kBackToBack = 0.68F; ///< from the middle of the track to the inside of a wheel
constexpr float kWheelOutside = 0.82F;
constexpr float kFrameInside = 0.94F;
constexpr float kFrameOutside = 1.05F;

std::string numbered(const char *name, std::size_t number)
{
    return name + std::to_string(number);
}

/// The tread with its flange, in growing order along x.
std::vector<Vec2> tread(float side, float radius, bool flange)
{
    std::vector<Vec2> profile = {{kBackToBack, radius * 0.6F},
                                 {kBackToBack, radius + 0.03F},
                                 {0.71F, radius + 0.03F},
                                 {0.72F, radius},
                                 {kWheelOutside, radius}};
    if (!flange)
        profile = {{kBackToBack, radius}, {kWheelOutside, radius}};
    if (side > 0)
        return profile;
    std::vector<Vec2> mirrored;
    for (auto at = profile.rbegin(); at != profile.rend(); ++at)
        mirrored.push_back({-at->x, at->y});
    return mirrored;
}

} // namespace

RunningGear::RunningGear(Kit &kit, std::vector<Bogie> bogies)
    : m_kit(kit)
    , m_bogies(std::move(bogies))
{
    MeshBuilder &mesh = kit.Mesh();
    for (std::size_t i = 0; i < m_bogies.size(); ++i) {
        const Bogie &bogie = m_bogies[i];
        const std::uint32_t frame =
            mesh.AddMatrix(numbered("BOGIE", i + 1), {0, bogie.radius, bogie.z});
        m_frames.push_back(frame);
        for (int k = 0; k < bogie.axles; ++k) {
            const float z = bogie.wheelbase *
                            (0.5F - static_cast<float>(k) / static_cast<float>(bogie.axles - 1));
            const std::string label =
                numbered("WHEELS", (i + 1) * 10 + static_cast<std::size_t>(k) + 1);
            m_axles.push_back({mesh.AddMatrix(label, {0, 0, z}, static_cast<int>(frame), true),
                               bogie.radius, false});
        }
    }
}

RunningGear::RunningGear(Kit &kit, const std::vector<Vec2> &axles, bool spoked)
    : m_kit(kit)
{
    for (std::size_t i = 0; i < axles.size(); ++i)
        m_axles.push_back(
            {kit.Mesh().AddMatrix(numbered("WHEELS", i + 1), {0, axles[i].y, axles[i].x}, 0, true),
             axles[i].y, spoked});
    if (!spoked)
        m_fixed = axles;
}

void RunningGear::drawAxle(const Axle &axle, int detail)
{
    MeshBuilder &mesh = m_kit.Mesh();
    const GearPatches &gear = m_kit.Gear();
    const int sides = detail == 0 ? 20 : detail == 1 ? 12 : 8;
    mesh.On(axle.matrix);
    m_kit.UseGear();
    for (const float side : kSides)
        mesh.Lathe({}, Axis::X, tread(side, axle.radius, detail == 0), sides, gear.steel);
    if (detail == 0)
        mesh.Bar({-kBackToBack, 0, 0}, {kBackToBack, 0, 0}, 0.08F, 6, gear.dark);
    const bool spoked = axle.spoked && m_kit.UseCutout();
    const Patch &face = spoked ? gear.spokes : gear.wheel;
    for (const float side : kSides) {
        mesh.Disc({side * kWheelOutside, 0, 0}, Axis::X, side < 0, axle.radius, sides, face);
        if (detail == 0)
            mesh.Disc({side * kBackToBack, 0, 0}, Axis::X, side > 0, axle.radius + 0.03F, sides,
                      face);
    }
}

void RunningGear::drawFrame(const Bogie &bogie, int detail)
{
    MeshBuilder &mesh = m_kit.Mesh();
    const GearPatches &gear = m_kit.Gear();
    m_kit.UseGear();
    const float end = bogie.wheelbase / 2 + (bogie.passenger ? 0.5F : 0.3F);
    const float top = bogie.passenger ? 0.26F : 0.3F;
    const std::array<Vec2, 8> outline = {{{-end, -0.08F},
                                          {-end, 0.16F},
                                          {-0.45F, top},
                                          {0.45F, top},
                                          {end, 0.16F},
                                          {end, -0.08F},
                                          {0.45F, -0.24F},
                                          {-0.45F, -0.24F}}};
    for (const float side : kSides)
        mesh.Slab(outline, side * kFrameInside, side * kFrameOutside, gear.frame, gear.dark);
    mesh.Box({-kFrameInside, -0.05F, -0.25F}, {kFrameInside, 0.3F, 0.25F}, BoxSkin::All(gear.dark));
    if (detail > 0)
        return;
    for (const float side : kSides) {
        for (int k = 0; k < bogie.axles; ++k) {
            const float z = bogie.wheelbase *
                            (0.5F - static_cast<float>(k) / static_cast<float>(bogie.axles - 1));
            const float a = side * (kFrameOutside - 0.01F);
            const float b = side * (kFrameOutside + 0.08F);
            mesh.Box({std::min(a, b), -0.16F, z - 0.16F}, {std::max(a, b), 0.16F, z + 0.16F},
                     BoxSkin::All(gear.dark));
            mesh.Disc({side * (kFrameOutside + 0.085F), 0, z}, Axis::X, side < 0, 0.11F, 10,
                      gear.wheel);
        }
        if (bogie.passenger)
            for (const float z : {-0.3F, 0.3F})
                mesh.Bar({side * 1.12F, -0.2F, z}, {side * 1.12F, 0.42F, z}, 0.1F, 8, gear.frame);
    }
}

/// Springs and axle guards of axles in the main frame.
void RunningGear::drawGuides(float z, float radius)
{
    MeshBuilder &mesh = m_kit.Mesh();
    const GearPatches &gear = m_kit.Gear();
    const std::array<Vec2, 6> spring = {{{z - 0.55F, radius + 0.3F},
                                         {z - 0.5F, radius + 0.36F},
                                         {z, radius + 0.26F},
                                         {z + 0.5F, radius + 0.36F},
                                         {z + 0.55F, radius + 0.3F},
                                         {z, radius + 0.12F}}};
    for (const float side : kSides) {
        const auto box = [&](float x0, float x1, Vec2 low, Vec2 high, const Patch &patch) {
            mesh.Box({std::min(side * x0, side * x1), low.y, low.x},
                     {std::max(side * x0, side * x1), high.y, high.x}, BoxSkin::All(patch));
        };
        box(0.94F, 0.97F, {z - 0.3F, radius - 0.2F}, {z - 0.12F, 1.05F}, gear.dark);
        box(0.94F, 0.97F, {z + 0.12F, radius - 0.2F}, {z + 0.3F, 1.05F}, gear.dark);
        box(0.93F, 1.1F, {z - 0.14F, radius - 0.14F}, {z + 0.14F, radius + 0.14F}, gear.rust);
        const std::array<Vec2, 4> leaf = {{spring[1], spring[2], spring[5], spring[0]}};
        const std::array<Vec2, 4> other = {{spring[2], spring[3], spring[4], spring[5]}};
        for (const auto &half : {leaf, other})
            mesh.Slab(half, side * 0.97F, side * 1.06F, gear.frame, gear.dark);
    }
}

void RunningGear::Draw(int detail)
{
    MeshBuilder &mesh = m_kit.Mesh();
    for (std::size_t i = 0; i < m_bogies.size(); ++i) {
        mesh.On(m_frames[i]);
        drawFrame(m_bogies[i], detail);
    }
    for (const Axle &axle : m_axles)
        drawAxle(axle, detail);
    mesh.On(0);
    m_kit.UseGear();
    if (detail == 0)
        for (const Vec2 &axle : m_fixed)
            drawGuides(axle.x, axle.y);
}

void DrawCouplers(Kit &kit, int detail, float bodyEnd)
{
    if (detail > 1)
        return;
    kit.UseGear();
    MeshBuilder &mesh = kit.Mesh();
    const GearPatches &gear = kit.Gear();
    const float tip = kit.Wanted().length / 2;
    for (const float end : kSides) {
        const auto box = [&](float x0, float x1, float y0, float y1, float z0, float z1) {
            mesh.Box({x0, y0, std::min(end * z0, end * z1)}, {x1, y1, std::max(end * z0, end * z1)},
                     BoxSkin::All(gear.rust));
        };
        box(-0.08F, 0.08F, 0.84F, 0.98F, bodyEnd - 0.3F, tip - 0.18F);
        box(-0.13F, 0.15F, 0.76F, 1.06F, tip - 0.22F, tip - 0.1F);
        box(0.06F, 0.15F, 0.78F, 1.04F, tip - 0.1F, tip);
        box(-0.13F, -0.06F, 0.8F, 1.02F, tip - 0.1F, tip - 0.03F);
        if (detail == 0)
            for (const float x : {-0.4F, 0.4F})
                mesh.Bar({x, 0.95F, end * (bodyEnd + 0.02F)},
                         {x * 0.8F, 0.45F, end * (bodyEnd + 0.2F)}, 0.03F, 5, gear.black);
    }
}

void DrawBuffers(Kit &kit, int detail, float bodyEnd, bool rear)
{
    if (detail > 1)
        return;
    kit.UseGear();
    MeshBuilder &mesh = kit.Mesh();
    const GearPatches &gear = kit.Gear();
    const float tip = kit.Wanted().length / 2;
    const int sides = detail == 0 ? 14 : 8;
    for (const float end : kSides) {
        if (end < 0 && !rear)
            break;
        for (const float x : {-0.875F, 0.875F}) {
            mesh.Bar({x, 1.05F, end * (bodyEnd - 0.05F)}, {x, 1.05F, end * (bodyEnd + 0.3F)}, 0.11F,
                     sides, gear.dark);
            mesh.Bar({x, 1.05F, end * (bodyEnd + 0.3F)}, {x, 1.05F, end * (tip - 0.06F)}, 0.07F,
                     sides, gear.steel);
            mesh.Bar({x, 1.05F, end * (tip - 0.06F)}, {x, 1.05F, end * tip}, 0.22F, sides,
                     gear.dark);
            for (const bool back : {false, true})
                mesh.Disc({x, 1.05F, end * (back ? tip - 0.06F : tip)}, Axis::Z, (end < 0) != back,
                          0.22F, sides, back ? gear.dark : gear.wheel);
        }
        const float near = end * bodyEnd;
        mesh.Box({-0.05F, 0.98F, std::min(near, near + end * 0.3F)},
                 {0.05F, 1.1F, std::max(near, near + end * 0.3F)}, BoxSkin::All(gear.rust));
        mesh.Bar({0, 1, near + end * 0.25F}, {0, 0.55F, near + end * 0.2F}, 0.035F, 6, gear.rust);
    }
}

} // namespace samples
