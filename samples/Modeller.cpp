// SPDX-License-Identifier: MIT
// The verbs of scripts. docs/model-scripts.md lists them.
#include "samples/Modeller.h"

#include <algorithm>
#include <map>
#include <numbers>
#include <optional>
#include <stdexcept>
#include <tuple>
#include <type_traits>
#include <utility>

namespace samples {
namespace {

const std::map<std::string, Axis> kAxes = {{"x", Axis::X}, {"y", Axis::Y}, {"z", Axis::Z}};
/// The factors for x and z of each copy of a solid. With four copies, the factor for x
/// changes first.
const std::map<std::string, Outline> kCopies = {
    {"once", {{1, 1}}},
    {"sides", {{1, 1}, {-1, 1}}},
    {"ends", {{1, 1}, {1, -1}}},
    {"turned", {{1, 1}, {-1, -1}}},
    {"endssides", {{1, 1}, {-1, 1}, {1, -1}, {-1, -1}}}};

/// Mirrors a point as a copy needs it; returns other values unchanged.
template <typename T> T copied(const T &value, Vec2 factors)
{
    if constexpr (std::is_same_v<T, Vec3>)
        return {value.x * factors.x, value.y, value.z * factors.y};
    else
        return value;
}

std::vector<Vec3> pointsOf(const Value &value)
{
    const List all = value.Flat();
    std::vector<Vec3> points;
    for (std::size_t i = 0; i + 2 < all.size(); i += 3)
        points.push_back({all[i].Number(), all[i + 1].Number(), all[i + 2].Number()});
    return points;
}

/// Reads the next argument as a C++ type. `missing` is the default for a number that is not there.
template <typename T> T take(Arguments &a, std::optional<float> missing = {})
{
    if constexpr (std::is_arithmetic_v<T>)
        return static_cast<T>(a.More() ? a.Number() : missing.value());
    else if constexpr (std::is_same_v<T, Vec3>)
        return {a.Number(), a.Number(), a.Number()};
    else if constexpr (std::is_same_v<T, Box2>)
        return {a.Number(), a.Number(), a.Number(), a.Number()};
    else if constexpr (std::is_same_v<T, Outline>)
        return a.Next().Points();
    else if constexpr (std::is_same_v<T, std::vector<Vec3>>)
        return pointsOf(a.Next());
    else if constexpr (std::is_same_v<T, Axis>)
        return kAxes.at(a.Word());
    else if constexpr (std::is_same_v<T, Value>)
        return a.Next();
    else
        return std::get<T>(a.Next());
}

template <> BoxSkin take(Arguments &a, std::optional<float>)
{
    BoxSkin skin = {take<Patch>(a)};
    while (a.Inside())
        skin.push_back(take<Patch>(a));
    return skin;
}

template <typename T>
using Held = std::conditional_t<std::is_same_v<T, std::string_view>, std::string, T>;

/// Returns a verb that calls a member function of the object that `target` returns, once for each
/// copy that the last word asks for.
template <typename Target, typename Object, typename... Parameters>
Script::Verb bound(const Target &target, void (Object::*function)(Parameters...),
                   std::optional<float> missing = {})
{
    return [target, function, missing](Arguments &a) {
        Object &object = target();
        const std::tuple<Held<std::decay_t<Parameters>>...> values{
            take<Held<std::decay_t<Parameters>>>(a, missing)...};
        for (const Vec2 factors : kCopies.at(a.More() ? a.Word() : "once"))
            std::apply([&](const auto &...value) { (object.*function)(copied(value, factors)...); },
                       values);
    };
}

} // namespace

Modeller::Modeller(int side, Colour ground, std::vector<std::string> images,
                   std::vector<Surface> looks)
    : MeshBuilder(std::move(images), std::move(looks))
    , sheet(side, ground)
{
    script.Set("pi", std::numbers::pi_v<float>);
    script.Set("whole", Patch{});
    addPaint();
    addSolids();
}

void Modeller::Scale(float share, int least)
{
    m_scale = share;
    m_least = least;
}

void Modeller::addPaint()
{
    const auto brush = [this]() -> Brush & {
        if (!m_brush)
            throw std::logic_error("outside of a picture");
        return *m_brush;
    };
    const auto self = [this]() -> Modeller & { return *this; };
    script.Add("fill", bound(brush, &Brush::Fill));
    script.Add("rect", bound(brush, &Brush::Rect, 1));
    script.Add("round", bound(brush, &Brush::RoundRect, 1));
    script.Add("dot", bound(brush, &Brush::Disc, 1));
    script.Add("line", bound(brush, &Brush::Line, 1));
    script.Add("frame", bound(brush, &Brush::Frame, 1));
    script.Add("fade", bound(brush, &Brush::Fade));
    script.Add("joint", bound(brush, &Brush::Joint, 0.02F));
    script.Add("rivets", bound(brush, &Brush::Rivets));
    script.Add("louvres", bound(brush, &Brush::Louvres));
    script.Add("text", bound(brush, &Brush::Text, 0.15F));
    script.Add("weather", bound(brush, &Brush::Weather));
    script.Add("clear", bound(brush, &Brush::Clear, 0));
    script.Add("paint", [this](Arguments &a) {
        const std::string name = a.Word();
        const int wide = take<int>(a);
        const int high = take<int>(a);
        const auto [x, y, width, height] = take<Box2>(a);
        Patch patch = paint(wide, high, {x, y, width, height}, a);
        patch.look = take<std::size_t>(a, 0);
        script.Set(name, patch);
    });
    script.Add("paintside", [this](Arguments &a) { paintSide(a); });
    script.Add("wall", bound(self, &Modeller::wall));
}

void Modeller::addSolids()
{
    const auto mesh = [this]() -> MeshBuilder & { return *this; };
    script.Add("quad", bound(mesh, &MeshBuilder::Quad));
    script.Add("polygon", bound(mesh, &MeshBuilder::Polygon));
    script.Add("box", bound(mesh, &MeshBuilder::Box));
    script.Add("extrude", bound(mesh, &MeshBuilder::Extrude));
    script.Add("slab", bound(mesh, &MeshBuilder::Slab));
    script.Add("lathe", bound(mesh, &MeshBuilder::Lathe));
    script.Add("disc", bound(mesh, &MeshBuilder::Disc));
    script.Add("bar", bound(mesh, &MeshBuilder::Bar));
    script.Add("pierced", bound(mesh, &MeshBuilder::Wall));
    script.Add("on", bound(mesh, &MeshBuilder::On));
    script.Add("node", [this](Arguments &a) {
        const std::string name = a.Word();
        auto label = std::get<std::string>(a.Next());
        const auto at = take<Vec3>(a);
        const int parent = take<int>(a);
        const auto node = AddMatrix(std::move(label), at, parent, take<bool>(a));
        script.Set(name, static_cast<float>(node));
    });
}

Patch Modeller::paint(int wide, int high, const Window &window, const Arguments &how)
{
    const auto scaled = [&](int pixels) {
        return std::max(m_least, static_cast<int>(static_cast<float>(pixels) * m_scale));
    };
    return sheet.Paint(scaled(wide), scaled(high), window, [&](Brush &b) {
        m_brush = &b;
        how.RunBody();
        m_brush = nullptr;
    });
}

/// Paints a side, cut into rows, one below the other in the texture. A side is a list of stretches:
/// the start and end along the side, seen from outside, and the patch.
void Modeller::paintSide(Arguments &a)
{
    const std::string name = a.Word();
    const float length = a.Number();
    const float y0 = a.Number();
    const float y1 = a.Number();
    const int rows = take<int>(a);
    const int high = take<int>(a);
    List stretches;
    const float step = length / static_cast<float>(rows);
    for (int i = 0; i < rows; ++i) {
        const float from = -length / 2 + step * static_cast<float>(i);
        const Patch patch = paint(500, high, {from, y0, step, y1 - y0}, a);
        stretches.push_back(List{from, from + step, patch});
    }
    script.Set(name, stretches);
}

/// Adds a stretch of the right (1) or left (-1) side wall, or its inner face. `shape` holds the
/// distances from the middle at the bottom and at the top, then the two heights. `windows` holds
/// the heights of sill and lintel, then the start and end of each window along the side.
void Modeller::wall(float side, const Value &stretch, const Value &shape, const Value &windows,
                    float middle, bool inside)
{
    const float left = middle + side * stretch[0];
    const float right = middle + side * stretch[1];
    Outline openings;
    for (const Vec2 window : windows.Items().at(2).Points()) {
        const float a = (middle + side * window.x - left) / (right - left);
        const float b = (middle + side * window.y - left) / (right - left);
        const Vec2 opening{std::min(a, b), std::max(a, b)};
        if (opening.x > -1e-3F && opening.y < 1.001F)
            openings.push_back(inside ? Vec2{1 - opening.y, 1 - opening.x} : opening);
    }
    std::sort(openings.begin(), openings.end(), [](Vec2 a, Vec2 b) { return a.x < b.x; });
    const float low = side * shape[0];
    const float high = side * shape[1];
    const float y0 = shape[2];
    const float y1 = shape[3];
    const float first = inside ? right : left;
    const float last = inside ? left : right;
    const bool blind = windows.Items()[2].Items().empty();
    Wall({{high, y1, first}, {high, y1, last}, {low, y0, last}, {low, y0, first}},
         std::get<Patch>(stretch.Items().at(2)), blind ? 1 : (windows[0] - y0) / (y1 - y0),
         blind ? 1 : (windows[1] - y0) / (y1 - y0), openings);
}

} // namespace samples
