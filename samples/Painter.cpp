// SPDX-License-Identifier: MIT
#include "samples/Painter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

namespace samples {
namespace {

constexpr int kMargin = 3; ///< pixels painted around an area, so that mipmaps do not blend areas
constexpr int kNoiseSide = 128;

std::uint8_t toByte(float value)
{
    return static_cast<std::uint8_t>(std::clamp(value + 0.5F, 0.0F, 255.0F));
}

float hashed(std::uint32_t x, std::uint32_t y)
{
    std::uint32_t h = x * 374761393U + y * 668265263U + 2246822519U;
    h = (h ^ h >> 13U) * 1274126177U;
    return static_cast<float>((h ^ h >> 16U) & 0xFFFFU) / 65535.0F;
}

float octave(int x, int y, int cell)
{
    const auto corner = [&](int i, int k) {
        const int cells = kNoiseSide / cell;
        return hashed(static_cast<std::uint32_t>((x / cell + i) % cells + cell * 131),
                      static_cast<std::uint32_t>((y / cell + k) % cells));
    };
    const float fx = static_cast<float>(x % cell) / static_cast<float>(cell);
    const float fy = static_cast<float>(y % cell) / static_cast<float>(cell);
    const float sx = fx * fx * (3 - 2 * fx);
    const float sy = fy * fy * (3 - 2 * fy);
    const float upper = std::lerp(corner(0, 0), corner(1, 0), sx);
    return std::lerp(upper, std::lerp(corner(0, 1), corner(1, 1), sx), sy);
}

/// Returns deterministic cloud noise that repeats, 0 to 1.
float cloud(std::uint32_t x, std::uint32_t y)
{
    static const std::vector<float> field = [] {
        std::vector<float> values;
        for (int i = 0; i < kNoiseSide * kNoiseSide; ++i) {
            const int at = i % kNoiseSide;
            const int row = i / kNoiseSide;
            values.push_back(octave(at, row, 32) * 0.5F + octave(at, row, 8) * 0.3F +
                             octave(at, row, 2) * 0.2F);
        }
        return values;
    }();
    return field[static_cast<std::size_t>(y % kNoiseSide) * kNoiseSide + x % kNoiseSide];
}

float coverage(float inside)
{
    return std::clamp(inside + 0.5F, 0.0F, 1.0F);
}

/// Returns the distance from a point to the centre of a stroke.
float distanceTo(const Stroke &line, float x, float y)
{
    const float dx = line.x1 - line.x0;
    const float dy = line.y1 - line.y0;
    const float length = dx * dx + dy * dy;
    const float at =
        length > 0 ? std::clamp(((x - line.x0) * dx + (y - line.y0) * dy) / length, 0.0F, 1.0F) : 0;
    return std::hypot(x - line.x0 - dx * at, y - line.y0 - dy * at);
}

} // namespace

Colour Mix(Colour a, Colour b, float share)
{
    const auto one = [&](std::uint8_t x, std::uint8_t y) {
        return toByte(std::lerp(static_cast<float>(x), static_cast<float>(y), share));
    };
    return {one(a.red, b.red), one(a.green, b.green), one(a.blue, b.blue), a.alpha};
}

Colour Shade(Colour colour, float factor)
{
    const auto one = [&](std::uint8_t x) { return toByte(static_cast<float>(x) * factor); };
    return {one(colour.red), one(colour.green), one(colour.blue), colour.alpha};
}

float TextWidth(std::string_view text, float height)
{
    const float units = static_cast<float>(text.size()) * kLetterPitch - (kLetterPitch - 4);
    return units * height / kLetterHeight;
}

Patch Patch::Part(float x0, float y0, float x1, float y1) const
{
    return {std::lerp(u0, u1, x0), std::lerp(v1, v0, y1), std::lerp(u0, u1, x1),
            std::lerp(v1, v0, y0), look};
}

Sheet::Sheet(int side, Colour ground)
    : m_picture{side, side,
                std::vector<Colour>(static_cast<std::size_t>(side) * static_cast<unsigned>(side),
                                    ground)}
    , m_x(kMargin)
    , m_y(kMargin)
{
}

Area Sheet::Take(int width, int height)
{
    if (m_x + width + kMargin > Side()) {
        m_x = kMargin;
        m_y += m_rowHeight + 2 * kMargin;
        m_rowHeight = 0;
    }
    if (m_x + width + kMargin > Side() || m_y + height + kMargin > Side())
        throw std::length_error("sheet: no room for another area");
    const Area area{m_x, m_y, width, height};
    m_x += width + 2 * kMargin;
    m_rowHeight = std::max(m_rowHeight, height);
    return area;
}

Patch Sheet::PatchOf(const Area &area) const
{
    const auto share = [&](int pixel) {
        return static_cast<float>(pixel) / static_cast<float>(Side());
    };
    return {share(area.left), share(area.top), share(area.left + area.width),
            share(area.top + area.height)};
}

Patch Sheet::Paint(int width, int height, const Window &window,
                   const std::function<void(Brush &)> &paint)
{
    const Area area = Take(width, height);
    Brush brush(*this, area, window);
    paint(brush);
    return PatchOf(area);
}

Brush::Brush(Sheet &sheet, const Area &area, const Window &window)
    : m_picture(sheet.Pixels())
    , m_clip{std::max(0, area.left - kMargin), std::max(0, area.top - kMargin),
             std::min(sheet.Side(), area.left + area.width + kMargin),
             std::min(sheet.Side(), area.top + area.height + kMargin)}
    , m_area(area)
    , m_window(window)
    , m_perMetre(std::sqrt(static_cast<float>(area.width) / window.width *
                           static_cast<float>(area.height) / window.height))
{
}

float Brush::xAt(int pixel) const
{
    return m_window.x + (static_cast<float>(pixel - m_area.left) + 0.5F) * m_window.width /
                            static_cast<float>(m_area.width);
}

float Brush::yAt(int pixel) const
{
    return m_window.y + (static_cast<float>(m_area.top + m_area.height - pixel) - 0.5F) *
                            m_window.height / static_cast<float>(m_area.height);
}

Brush::Pixels Brush::pixelsOf(const Box2 &box) const
{
    const auto across = [&](float x) {
        return static_cast<float>(m_area.left) +
               (x - m_window.x) / m_window.width * static_cast<float>(m_area.width);
    };
    const auto down = [&](float y) {
        return static_cast<float>(m_area.top + m_area.height) -
               (y - m_window.y) / m_window.height * static_cast<float>(m_area.height);
    };
    const auto limit = [](float value, int low, int high) {
        return static_cast<int>(
            std::clamp(value, static_cast<float>(low), static_cast<float>(high)));
    };
    return {limit(std::floor(across(box.x0)) - 1, m_clip.left, m_clip.right),
            limit(std::floor(down(box.y1)) - 1, m_clip.top, m_clip.bottom),
            limit(std::ceil(across(box.x1)) + 1, m_clip.left, m_clip.right),
            limit(std::ceil(down(box.y0)) + 1, m_clip.top, m_clip.bottom)};
}

Colour &Brush::pixel(int x, int y)
{
    return m_picture.pixels[static_cast<std::size_t>(y) * m_picture.width + x];
}

void Brush::blend(int x, int y, Colour colour, float opacity)
{
    if (opacity <= 0)
        return;
    Colour &target = pixel(x, y);
    const float alpha =
        std::lerp(static_cast<float>(target.alpha), static_cast<float>(colour.alpha), opacity);
    target = Mix(target, colour, opacity);
    target.alpha = toByte(alpha);
}

void Brush::Fill(Colour colour)
{
    for (int y = m_clip.top; y < m_clip.bottom; ++y)
        for (int x = m_clip.left; x < m_clip.right; ++x)
            pixel(x, y) = colour;
}

void Brush::Rect(const Box2 &box, Colour colour, float opacity)
{
    RoundRect(box, 0, colour, opacity);
}

template <typename PaintPixel> void Brush::eachPixel(const Box2 &box, const PaintPixel &paint)
{
    const Pixels area = pixelsOf(box);
    for (int y = area.top; y < area.bottom; ++y)
        for (int x = area.left; x < area.right; ++x)
            paint(x, y, Vec2{xAt(x), yAt(y)});
}

void Brush::RoundRect(const Box2 &box, float radius, Colour colour, float opacity)
{
    const float middleX = (box.x0 + box.x1) / 2;
    const float middleY = (box.y0 + box.y1) / 2;
    eachPixel(box, [&](int x, int y, Vec2 at) {
        const float dx = std::abs(at.x - middleX) - (box.x1 - box.x0) / 2 + radius;
        const float dy = std::abs(at.y - middleY) - (box.y1 - box.y0) / 2 + radius;
        const float outside = dx > 0 && dy > 0 ? std::hypot(dx, dy) : std::max(dx, dy);
        blend(x, y, colour, opacity * coverage((radius - outside) * m_perMetre));
    });
}

void Brush::Disc(float x, float y, float radius, Colour colour, float opacity)
{
    RoundRect({x - radius, y - radius, x + radius, y + radius}, radius, colour, opacity);
}

void Brush::Line(float x0, float y0, float x1, float y1, float width, Colour colour, float opacity)
{
    const Stroke line{x0, y0, x1, y1};
    const Box2 box{std::min(x0, x1) - width, std::min(y0, y1) - width, std::max(x0, x1) + width,
                   std::max(y0, y1) + width};
    eachPixel(box, [&](int x, int y, Vec2 at) {
        const float inside = width / 2 - distanceTo(line, at.x, at.y);
        blend(x, y, colour, opacity * coverage(inside * m_perMetre));
    });
}

void Brush::Frame(const Box2 &box, float width, Colour colour, float opacity)
{
    Rect({box.x0, box.y0, box.x1, box.y0 + width}, colour, opacity);
    Rect({box.x0, box.y1 - width, box.x1, box.y1}, colour, opacity);
    Rect({box.x0, box.y0 + width, box.x0 + width, box.y1 - width}, colour, opacity);
    Rect({box.x1 - width, box.y0 + width, box.x1, box.y1 - width}, colour, opacity);
}

void Brush::Fade(const Box2 &box, Colour colour, float low, float high)
{
    eachPixel(box, [&](int x, int y, Vec2 at) {
        const float height = (at.y - box.y0) / (box.y1 - box.y0);
        if (height >= 0 && height <= 1 && at.x >= box.x0 && at.x <= box.x1)
            blend(x, y, colour, std::lerp(low, high, height));
    });
}

void Brush::Joint(const Box2 &box, float width)
{
    Frame({box.x0 - width / 2, box.y0 - width * 1.5F, box.x1 + width / 2, box.y1 - width / 2},
          width, {255, 255, 255}, 0.2F);
    Frame(box, width, {12, 12, 14}, 0.65F);
}

void Brush::Rivets(float x0, float y0, float x1, float y1, float step)
{
    const int number = static_cast<int>(std::hypot(x1 - x0, y1 - y0) / step);
    for (int i = 0; i <= number; ++i) {
        const float at = number == 0 ? 0 : static_cast<float>(i) / static_cast<float>(number);
        const float x = std::lerp(x0, x1, at);
        const float y = std::lerp(y0, y1, at);
        Disc(x, y - 0.01F, 0.025F, {0, 0, 0}, 0.35F);
        Disc(x, y + 0.005F, 0.02F, {255, 255, 255}, 0.22F);
    }
}

void Brush::Louvres(const Box2 &box, float step, Colour colour)
{
    Rect(box, Shade(colour, 0.35F));
    for (float y = box.y0; y + step * 0.6F <= box.y1; y += step) {
        Rect({box.x0, y, box.x1, y + step * 0.55F}, Shade(colour, 0.85F));
        Rect({box.x0, y + step * 0.4F, box.x1, y + step * 0.55F}, Shade(colour, 1.15F));
    }
    Frame({box.x0 - 0.03F, box.y0 - 0.03F, box.x1 + 0.03F, box.y1 + 0.03F}, 0.03F,
          Shade(colour, 0.8F));
}

void Brush::Text(float x, float y, float height, std::string_view text, Colour colour, float weight)
{
    const float unit = height / kLetterHeight;
    const float left = x - TextWidth(text, height) / 2;
    for (const Stroke &stroke : StrokesOf(text))
        Line(left + stroke.x0 * unit, y + stroke.y0 * unit, left + stroke.x1 * unit,
             y + stroke.y1 * unit, height * weight, colour);
}

void Brush::Weather(std::uint32_t seed, float strength)
{
    const std::uint32_t jump = seed * 37;
    for (int y = m_clip.top; y < m_clip.bottom; ++y) {
        for (int x = m_clip.left; x < m_clip.right; ++x) {
            const auto ux = static_cast<std::uint32_t>(x);
            const auto uy = static_cast<std::uint32_t>(y);
            const float patches = cloud(ux + jump, uy + jump) - 0.5F;
            const float streaks = cloud(ux * 2 + jump, uy / 12 + jump) - 0.5F;
            const float grain = hashed(ux + jump, uy) - 0.5F;
            const float factor = 1 + strength * (patches * 0.7F + streaks * 0.5F + grain * 0.25F);
            pixel(x, y) = Shade(pixel(x, y), factor);
        }
    }
}

void Brush::Clear(const Box2 &box, std::uint8_t alpha)
{
    eachPixel(box, [&](int x, int y, Vec2 at) {
        if (at.x >= box.x0 && at.x <= box.x1 && at.y >= box.y0 && at.y <= box.y1)
            pixel(x, y).alpha = alpha;
    });
}

} // namespace samples
