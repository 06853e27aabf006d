// SPDX-License-Identifier: MIT
#include "samples/VehicleKit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

namespace samples {
namespace {

constexpr int kSheetSide = 512;
constexpr int kLoneSheetSide = 256;
constexpr std::array kLevelDistances = {90.0F, 350.0F, 2000.0F};

enum Image : std::uint32_t
{
    Own,
    SharedGear,
    SharedGlass
};

/// The patches of the shared picture, whose places are the same for all.
const GearPatches &sharedGear()
{
    static const GearPatches gear = [] {
        Sheet sheet(256, {});
        return PaintGear(sheet);
    }();
    return gear;
}

} // namespace

Kit::Kit(const Plan &plan)
    : m_plan(plan)
    , m_body(plan.alone ? kLoneSheetSide : kSheetSide, Shade(plan.base, 0.6F))
    , m_mesh(plan.images)
    , m_gear(plan.alone ? PaintGear(m_body, 0.3F) : sharedGear())
{
    if (plan.alpha == AceAlpha::Full)
        m_pane = Paint(16, 16, {}, [](Brush &b) {
            b.Fill({80, 104, 116});
            b.Fade({0, 0, 1, 1}, {170, 196, 210}, 0, 0.8F);
            b.Clear({-1, -1, 2, 2}, 100);
        });
    m_railing = m_gear.railing;
    if (plan.alpha == AceAlpha::Mask)
        m_railing = Paint(88, 48, {}, [&](Brush &b) { PaintRailing(b, plan.trim); });
}

void Kit::UseBody()
{
    m_mesh.With({});
}

void Kit::UseGear()
{
    m_mesh.With({.image = m_plan.alone ? Own : SharedGear});
}

bool Kit::UseCutout()
{
    m_mesh.With({.image = SharedGear, .alphaTest = true});
    return !m_plan.alone;
}

bool Kit::UseGlass()
{
    const bool own = m_plan.alpha == AceAlpha::Full;
    m_mesh.With(
        {.shader = "BlendATexDiff", .image = own ? Own : SharedGlass, .material = kShinyMaterial});
    return !m_plan.alone;
}

bool Kit::UseRailing()
{
    if (m_plan.alpha != AceAlpha::Mask)
        return UseCutout();
    m_mesh.With({.shader = "BlendATexDiff", .image = Own, .alphaTest = true});
    return true;
}

Patch Kit::Paint(int pixelsWide, int pixelsHigh, const Window &window,
                 const std::function<void(Brush &)> &paint)
{
    const float scale = m_plan.alone ? 0.4F : 1;
    const auto scaled = [&](int pixels) {
        return std::max(4, static_cast<int>(static_cast<float>(pixels) * scale));
    };
    const Area area = m_body.Take(scaled(pixelsWide), scaled(pixelsHigh));
    Brush brush(m_body, area, window);
    paint(brush);
    return m_body.PatchOf(area);
}

Patch Kit::Plain(Colour colour, int side)
{
    return Paint(side, side, {}, [&](Brush &b) {
        b.Fill(colour);
        b.Weather(static_cast<std::uint32_t>(colour.red + colour.blue), 0.25F);
    });
}

std::vector<Stretch> Kit::PaintSide(float length, float y0, float y1, int rows, int pixelsHigh,
                                    const std::function<void(Brush &)> &paint)
{
    std::vector<Stretch> all;
    const float step = length / static_cast<float>(rows);
    for (int i = 0; i < rows; ++i) {
        const float from = -length / 2 + step * static_cast<float>(i);
        const Patch patch = Paint(kSheetSide - 12, pixelsHigh, {from, y0, step, y1 - y0}, paint);
        all.push_back({from, from + step, patch});
    }
    return all;
}

/// From the seen left at zLeft to the seen right at zRight; seen from within when `inside`.
void Kit::wall(float x, const SideShape &shape, float zLeft, float zRight, const Patch &patch,
               const WindowRow &windows, bool inside)
{
    const float low = x * shape.out0;
    const float high = x * shape.out1;
    const float height = shape.y1 - shape.y0;
    std::vector<Opening> openings;
    for (const Vec2 &span : windows.spans) {
        float from = (span.x - zLeft) / (zRight - zLeft);
        float to = (span.y - zLeft) / (zRight - zLeft);
        if (from > to)
            std::swap(from, to);
        if (from > -1e-3F && to < 1.001F)
            openings.push_back({from, to});
    }
    const bool reversed = openings.size() > 1 && openings[0].from > openings[1].from;
    if (reversed)
        std::reverse(openings.begin(), openings.end());
    std::array<Vec3, 4> corners = {{{high, shape.y1, zLeft},
                                    {high, shape.y1, zRight},
                                    {low, shape.y0, zRight},
                                    {low, shape.y0, zLeft}}};
    if (inside) {
        corners = {corners[1], corners[0], corners[3], corners[2]};
        std::reverse(openings.begin(), openings.end());
        for (Opening &opening : openings)
            opening = {1 - opening.to, 1 - opening.from};
    }
    m_mesh.Wall(corners, patch, (windows.sill - shape.y0) / height,
                (windows.lintel - shape.y0) / height, openings);
}

void Kit::SideOf(float side, std::span<const Stretch> stretches, const SideShape &shape,
                 const WindowRow &windows, float middle)
{
    WindowRow row = windows;
    if (row.spans.empty())
        row.sill = row.lintel = shape.y1;
    for (Vec2 &span : row.spans)
        span = {middle + side * span.x, middle + side * span.y};
    for (const Stretch &s : stretches)
        wall(side, shape, middle + side * s.from, middle + side * s.to, s.patch, row, false);
}

void Kit::Sides(std::span<const Stretch> stretches, const SideShape &shape,
                const WindowRow &windows, float middle)
{
    SideOf(1, stretches, shape, windows, middle);
    SideOf(-1, stretches, shape, windows, middle);
}

void Kit::Linings(float length, const SideShape &shape, const WindowRow &windows,
                  const Patch &patch, float middle)
{
    const SideShape inner{shape.out0 - 0.07F, shape.out1 - 0.07F, shape.y0, shape.y1};
    const float half = length / 2;
    WindowRow row = windows;
    WindowRow other = windows;
    for (std::size_t i = 0; i < row.spans.size(); ++i) {
        row.spans[i] = {windows.spans[i].x + middle, windows.spans[i].y + middle};
        other.spans[i] = {middle - windows.spans[i].x, middle - windows.spans[i].y};
    }
    wall(1, inner, middle - half, middle + half, patch, row, true);
    wall(-1, inner, middle + half, middle - half, patch, other, true);
}

void Kit::Panes(const SideShape &shape, const WindowRow &windows, float middle)
{
    const auto outAt = [&](float y) {
        return std::lerp(shape.out0, shape.out1, (y - shape.y0) / (shape.y1 - shape.y0)) - 0.035F;
    };
    const float low = outAt(windows.sill);
    const float high = outAt(windows.lintel);
    for (const Vec2 &span : windows.spans) {
        for (const float side : {1.0F, -1.0F}) {
            const float a = middle + span.x * side;
            const float b = middle + span.y * side;
            m_mesh.Quad({side * high, windows.lintel, a}, {side * high, windows.lintel, b},
                        {side * low, windows.sill, b}, {side * low, windows.sill, a}, m_pane);
        }
    }
}

void Kit::EndWall(std::span<const Vec2> outline, float z, bool forwards, const Patch &patch)
{
    std::vector<Vec3> points;
    for (const Vec2 &at : outline)
        points.push_back({at.x, at.y, z});
    m_mesh.Polygon(points, {0, 0, forwards ? 1.0F : -1.0F}, patch);
}

void Kit::Soffit(float halfWidth, float y, float z0, float z1, const Patch &patch)
{
    m_mesh.Quad({-halfWidth, y, z1}, {-halfWidth, y, z0}, {halfWidth, y, z0}, {halfWidth, y, z1},
                patch);
}

void Kit::Levels(const std::function<void(int)> &draw)
{
    for (std::size_t i = m_plan.alone ? 1 : 0; i < kLevelDistances.size(); ++i) {
        m_mesh.BeginLevel(kLevelDistances[i]);
        m_mesh.On(0);
        draw(static_cast<int>(i));
    }
}

std::vector<Vec2> RoofArc(float halfWidth, float eaves, float top, int pieces)
{
    const float rise = top - eaves;
    const float radius = (halfWidth * halfWidth + rise * rise) / (2 * rise);
    const float reach = std::asin(halfWidth / radius);
    std::vector<Vec2> points;
    for (int i = 0; i <= pieces; ++i) {
        const float angle = reach * (2 * static_cast<float>(i) / static_cast<float>(pieces) - 1);
        points.push_back({std::sin(angle) * radius, top - radius + std::cos(angle) * radius});
    }
    points.front() = {-halfWidth, eaves};
    points.back() = {halfWidth, eaves};
    return points;
}

} // namespace samples
