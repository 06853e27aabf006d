// SPDX-License-Identifier: MIT
#pragma once

#include "samples/AceWriter.h"

#include <cstdint>
#include <string_view>

/// Pictures painted by rule: areas of a sheet, drawn in metres with soft edges.
namespace samples {

/// Part of a sheet in texture coordinates; v grows downwards.
struct Patch
{
    float u0 = 0;
    float v0 = 0;
    float u1 = 1;
    float v1 = 1;

    /// The part from (x0, y0) to (x1, y1), each 0 to 1, y from the bottom.
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

/// A square picture that is handed out piece by piece, with a margin around each.
class Sheet
{
public:
    Sheet(int side, Colour ground);

    /// An area not handed out yet. Rows are filled from the left, so ask for tall ones first.
    /// Throws std::length_error when the sheet is full.
    Area Take(int width, int height);
    Patch PatchOf(const Area &area) const;
    int Side() const { return m_picture.width; }
    Picture &Pixels() { return m_picture; }
    const Picture &Pixels() const { return m_picture; }

private:
    Picture m_picture;
    int m_x;
    int m_y;
    int m_rowHeight = 0;
};

/// What an area shows: from (x, y) at its bottom left, in metres, y upwards.
struct Window
{
    float x = 0;
    float y = 0;
    float width = 1;
    float height = 1;
};

struct Box2
{
    float x0 = 0;
    float y0 = 0;
    float x1 = 0;
    float y1 = 0;
};

/// Paints into one area; what lies outside it is cut off. Opacities are 0 to 1, sizes metres. A
/// colour brings its alpha with it, so a see-through one makes a hole.
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
    /// A frame along the inside of the box.
    void Frame(const Box2 &box, float width, Colour colour, float opacity = 1);
    /// From `low` opacity at the bottom of the box to `high` at its top.
    void Fade(const Box2 &box, Colour colour, float low, float high);
    /// The gap around a door or a plate: a dark line with light on its lower edge.
    void Joint(const Box2 &box, float width = 0.02F);
    /// A row of small bolts.
    void Rivets(float x0, float y0, float x1, float y1, float step);
    /// Slats of a ventilation grille.
    void Louvres(const Box2 &box, float step, Colour colour);
    /// Lettering with its middle at x and its foot at y.
    void Text(float x, float y, float height, std::string_view text, Colour colour,
              float weight = 0.15F);
    /// Patches, streaks from above and grain; `strength` about 0.1 to 0.5.
    void Weather(std::uint32_t seed, float strength);
    /// Makes the box see-through to this alpha.
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
    void shade(int x, int y, float factor);

    Picture &m_picture;
    Pixels m_clip;
    Area m_area;
    Window m_window;
    float m_perMetre;
};

/// Between two colours; 0 gives the first.
Colour Mix(Colour a, Colour b, float share);
/// Darker below 1, lighter above.
Colour Shade(Colour colour, float factor);

/// How wide a text of this height comes out.
float TextWidth(std::string_view text, float height);

} // namespace samples
