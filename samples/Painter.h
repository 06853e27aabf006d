// SPDX-License-Identifier: MIT
#pragma once

#include "samples/AceWriter.h"
#include "samples/Vec.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

/// Procedural textures: areas of a sheet, painted in metres with soft edges.
namespace samples {

/// Part of a sheet in texture coordinates; v grows downwards.
struct Patch
{
    float u0 = 0;
    float v0 = 0;
    float u1 = 1;
    float v1 = 1;
    std::size_t look = 0; ///< index of the patch's surface in the mesh

    /// Returns the part from (x0, y0) to (x1, y1), each 0 to 1, y from the bottom.
    Patch Part(float x0, float y0, float x1, float y1) const;
};

/// An area of a sheet in pixels.
struct Area
{
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// The part of a plane that an area shows, in metres; (x, y) is its bottom left corner.
struct Window
{
    float x = 0;
    float y = 0;
    float width = 1;
    float height = 1;
};

using Outline = std::vector<Vec2>;

class Brush;

/// A square image that is allocated area by area, with a margin around each area.
class Sheet
{
public:
    Sheet(int side, Colour ground);

    /// Allocates an area. Areas fill rows from the left, so allocate the tall ones first. Throws
    /// std::length_error if the sheet is full.
    Area Take(int width, int height);
    Patch PatchOf(const Area &area) const;
    /// Allocates an area that shows the window, paints it and returns its patch.
    Patch Paint(int width, int height, const Window &window,
                const std::function<void(Brush &)> &paint);
    int Side() const { return m_picture.width; }
    Picture &Pixels() { return m_picture; }
    const Picture &Pixels() const { return m_picture; }

private:
    Picture m_picture;
    int m_x;
    int m_y;
    int m_rowHeight = 0;
};

struct Box2
{
    float x0 = 0;
    float y0 = 0;
    float x1 = 0;
    float y1 = 0;
};

/// Paints into one area and its margin. Opacities are 0 to 1, sizes are in metres. Painting also
/// sets alpha, so that a transparent colour makes a hole.
class Brush
{
public:
    Brush(Sheet &sheet, const Area &area, const Window &window);

    void Fill(Colour colour);
    void Rect(const Box2 &box, Colour colour, float opacity = 1);
    void RoundRect(const Box2 &box, float radius, Colour colour, float opacity = 1);
    void Disc(float x, float y, float radius, Colour colour, float opacity = 1);
    void Line(float x0, float y0, float x1, float y1, float width, Colour colour,
              float opacity = 1);
    /// Draws a frame along the inside of the box.
    void Frame(const Box2 &box, float width, Colour colour, float opacity = 1);
    /// Draws a gradient from `low` opacity at the bottom of the box to `high` at its top.
    void Fade(const Box2 &box, Colour colour, float low, float high);
    /// Draws the gap around a door or a plate: a dark line with light on its lower edge.
    void Joint(const Box2 &box, float width = 0.02F);
    /// Draws a row of rivets.
    void Rivets(float x0, float y0, float x1, float y1, float step);
    /// Draws the slats of a ventilation grille.
    void Louvres(const Box2 &box, float step, Colour colour);
    /// Draws a text, centred at x, with its baseline at y.
    void Text(float x, float y, float height, std::string_view text, Colour colour,
              float weight = 0.15F);
    /// Adds stains, vertical streaks and grain; `strength` is about 0.1 to 0.5.
    void Weather(std::uint32_t seed, float strength);
    /// Sets the alpha of the box.
    void Clear(const Box2 &box, std::uint8_t alpha = 0);

private:
    struct Pixels
    {
        int left, top, right, bottom;
    };
    Pixels pixelsOf(const Box2 &box) const;
    float xAt(int pixel) const;
    float yAt(int pixel) const;
    void blend(int x, int y, Colour colour, float opacity);
    Colour &pixel(int x, int y);
    /// Calls `paint` with each pixel near the box and its position on the plane.
    template <typename PaintPixel> void eachPixel(const Box2 &box, const PaintPixel &paint);

    Picture &m_picture;
    Pixels m_clip;
    Area m_area;
    Window m_window;
    float m_perMetre;
};

/// Returns a mix of two colours; share 0 gives the first.
Colour Mix(Colour a, Colour b, float share);
/// Returns a darker colour for a factor below 1, a lighter one for a factor above 1.
Colour Shade(Colour colour, float factor);

/// A straight stroke of a letter: x from 0 to 4, y from 0 at the foot to 6.
struct Stroke
{
    float x0 = 0;
    float y0 = 0;
    float x1 = 0;
    float y1 = 0;
};

inline constexpr float kLetterHeight = 6;
inline constexpr float kLetterPitch = 5.4F;

/// Returns the strokes of a text, with the letters side by side. Supports capitals, digits
/// and "&.-#/". Draws small letters as capitals and leaves a gap for other characters.
std::vector<Stroke> StrokesOf(std::string_view text);

/// Returns the width of a text of this height.
float TextWidth(std::string_view text, float height);

} // namespace samples
