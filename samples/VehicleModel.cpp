// SPDX-License-Identifier: MIT
#include "samples/VehicleModel.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace samples {
namespace {

constexpr int kSheetSide = 512;
constexpr int kLoneSheetSide = 256;
constexpr std::array kLevelDistances = {90.0F, 350.0F, 2000.0F};

/// The patches of the shared picture, whose places are the same for all.
const GearPatches &sharedGear()
{
    static const GearPatches gear = [] {
        Sheet sheet(256, {});
        return PaintGear(sheet);
    }();
    return gear;
}

/// In the order of Look. Image 0 is the vehicle's own, 1 the gear, 2 the glass.
std::vector<Surface> looksOf(const Plan &plan)
{
    if (plan.alone)
        return {{}, {}};
    return {
        {},
        {.image = 1},
        {.image = 1, .alphaTest = true},
        {.shader = "BlendATexDiff", .alphaTest = true},
        {.shader = "BlendATexDiff",
         .image = plan.alpha == AceAlpha::Full ? 0U : 2U,
         .material = kShinyMaterial},
    };
}

} // namespace

VehicleModel::VehicleModel(const Plan &plan, float gap)
    : MeshBuilder(plan.images, looksOf(plan))
    , m_plan(plan)
    , m_half(plan.length / 2 - gap)
    , m_sheet(plan.alone ? kLoneSheetSide : kSheetSide, Shade(plan.base, 0.6F))
    , m_gear(plan.alone ? PaintGear(m_sheet, 0.3F) : sharedGear())
    , m_railing(m_gear.railing)
{
    if (plan.alpha == AceAlpha::Full)
        m_pane = paint(16, 16, {}, [](Brush &b) {
            b.Fill({80, 104, 116});
            b.Fade({0, 0, 1, 1}, {170, 196, 210}, 0, 0.8F);
            b.Clear({-1, -1, 2, 2}, 100);
        });
    m_pane.look = OnGlass;
    if (plan.alpha == AceAlpha::Mask) {
        m_railing = paint(88, 48, {}, [&](Brush &b) { PaintRailing(b, plan.trim); });
        m_railing.look = OnRailing;
    }
}

PaintedModel VehicleModel::Build()
{
    const int levels = static_cast<int>(kLevelDistances.size());
    for (m_detail = m_plan.alone ? 1 : 0; m_detail < levels; ++m_detail) {
        BeginLevel(kLevelDistances[static_cast<std::size_t>(m_detail)]);
        On(0);
        draw();
    }
    return Finish(m_sheet.Pixels());
}

int VehicleModel::facets(int best, int middle, int least) const
{
    return nearest() ? best : farthest() ? least : middle;
}

Patch VehicleModel::paint(int wide, int high, const Window &window,
                          const std::function<void(Brush &)> &how)
{
    const float scale = m_plan.alone ? 0.4F : 1;
    const auto scaled = [&](int pixels) {
        return std::max(4, static_cast<int>(static_cast<float>(pixels) * scale));
    };
    return m_sheet.Paint(scaled(wide), scaled(high), window, how);
}

Patch VehicleModel::plain(Colour colour, int side)
{
    return paint(side, side, {}, [&](Brush &b) {
        b.Fill(colour);
        b.Weather(static_cast<std::uint32_t>(colour.red + colour.blue), 0.25F);
    });
}

std::vector<Stretch> VehicleModel::paintSide(float length, float y0, float y1, int rows,
                                             int pixelsHigh,
                                             const std::function<void(Brush &)> &how)
{
    std::vector<Stretch> all;
    const float step = length / static_cast<float>(rows);
    for (int i = 0; i < rows; ++i) {
        const float from = -length / 2 + step * static_cast<float>(i);
        const Window window{from, y0, step, y1 - y0};
        all.push_back({from, from + step, paint(kSheetSide - 12, pixelsHigh, window, how)});
    }
    return all;
}

void VehicleModel::wall(float side, const Stretch &stretch, const SideShape &shape,
                        const WindowRow &windows, float middle, bool inside)
{
    const float left = middle + side * stretch.from;
    const float right = middle + side * stretch.to;
    std::vector<Span> openings;
    for (const Span &window : windows.spans) {
        const float a = (middle + side * window.from - left) / (right - left);
        const float b = (middle + side * window.to - left) / (right - left);
        const Span opening{std::min(a, b), std::max(a, b)};
        if (opening.from > -1e-3F && opening.to < 1.001F)
            openings.push_back(inside ? Span{1 - opening.to, 1 - opening.from} : opening);
    }
    std::sort(openings.begin(), openings.end(),
              [](const Span &a, const Span &b) { return a.from < b.from; });
    const float low = side * shape.out0;
    const float high = side * shape.out1;
    const float first = inside ? right : left;
    const float last = inside ? left : right;
    const float height = shape.y1 - shape.y0;
    const bool blind = windows.spans.empty();
    Wall({{{high, shape.y1, first},
           {high, shape.y1, last},
           {low, shape.y0, last},
           {low, shape.y0, first}}},
         stretch.patch, blind ? 1 : (windows.sill - shape.y0) / height,
         blind ? 1 : (windows.lintel - shape.y0) / height, openings);
}

void VehicleModel::sideOf(float side, const std::vector<Stretch> &stretches, const SideShape &shape,
                          const WindowRow &windows, float middle)
{
    for (const Stretch &stretch : stretches)
        wall(side, stretch, shape, windows, middle, false);
}

void VehicleModel::sides(const std::vector<Stretch> &stretches, const SideShape &shape,
                         const WindowRow &windows, float middle)
{
    for (const float side : kSides)
        sideOf(side, stretches, shape, windows, middle);
}

void VehicleModel::linings(float length, const SideShape &shape, const WindowRow &windows,
                           const Patch &patch, float middle)
{
    const SideShape inner{shape.out0 - 0.07F, shape.out1 - 0.07F, shape.y0, shape.y1};
    for (const float side : kSides)
        wall(side, {-length / 2, length / 2, patch}, inner, windows, middle, true);
}

void VehicleModel::panes(const SideShape &shape, const WindowRow &windows, float middle)
{
    const auto outAt = [&](float y) {
        return std::lerp(shape.out0, shape.out1, (y - shape.y0) / (shape.y1 - shape.y0)) - 0.035F;
    };
    const float low = outAt(windows.sill);
    const float high = outAt(windows.lintel);
    for (const Span &span : windows.spans) {
        for (const float side : kSides) {
            const float a = middle + span.from * side;
            const float b = middle + span.to * side;
            Quad({side * high, windows.lintel, a}, {side * high, windows.lintel, b},
                 {side * low, windows.sill, b}, {side * low, windows.sill, a}, m_pane);
        }
    }
}

void VehicleModel::endWall(const Outline &outline, float z, float facing, const Patch &patch)
{
    std::vector<Vec3> points;
    for (const Vec2 at : outline)
        points.push_back({at.x, at.y, z});
    Polygon(points, {0, 0, facing}, patch);
}

void VehicleModel::endWalls(const Outline &outline, float z, const Patch &front, const Patch &rear)
{
    endWall(outline, z, 1, front);
    endWall(outline, -z, -1, rear);
}

void VehicleModel::soffit(float halfWidth, float y, float z0, float z1, const Patch &patch)
{
    Quad({-halfWidth, y, z1}, {-halfWidth, y, z0}, {halfWidth, y, z0}, {halfWidth, y, z1}, patch);
}

Outline RoofArc(float halfWidth, float eaves, float top, int pieces)
{
    const float rise = top - eaves;
    const float radius = (halfWidth * halfWidth + rise * rise) / (2 * rise);
    const float reach = std::asin(halfWidth / radius);
    Outline points;
    for (int i = 0; i <= pieces; ++i) {
        const float angle = reach * (2 * static_cast<float>(i) / static_cast<float>(pieces) - 1);
        points.push_back({std::sin(angle) * radius, top - radius + std::cos(angle) * radius});
    }
    points.front() = {-halfWidth, eaves};
    points.back() = {halfWidth, eaves};
    return points;
}

Outline Gable(const Outline &arc, float halfWidth, float floor)
{
    Outline all = {{-halfWidth, floor}};
    all.insert(all.end(), arc.begin(), arc.end());
    all.push_back({halfWidth, floor});
    return all;
}

} // namespace samples
