// SPDX-License-Identifier: MIT
#pragma once

#include "samples/Buildings.h"
#include "samples/MeshBuilder.h"
#include "samples/Painter.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

/// The parts of buildings. Lengths are in metres, z along the track.
namespace samples {

inline constexpr Colour kBrick{142, 78, 58};
inline constexpr Colour kPlaster{206, 194, 168};
inline constexpr Colour kStone{150, 146, 138};
inline constexpr Colour kTimber{112, 84, 58};
inline constexpr Colour kTiles{132, 66, 50};
inline constexpr Colour kSlate{78, 82, 90};
inline constexpr Colour kIron{58, 60, 64};
inline constexpr Colour kFrames{232, 228, 216};

/// The part that a patch covers, which decides how the seasons change it.
enum class Cover
{
    Wall,
    Roof,
    Metal
};

/// A shape with its sheet, painted for one season.
class Site : public MeshBuilder
{
public:
    Site(Season season, const std::string &image);

    /// A new patch of this size in pixels. `lit` paints the lights of the night over the rest.
    Patch Paint(int wide, int high, const Window &window, Cover cover,
                const std::function<void(Brush &)> &paint,
                const std::function<void(Brush &)> &lit = {});
    /// A small patch of one colour, slightly weathered.
    Patch Plain(Colour colour, Cover cover = Cover::Wall);

    const Picture &Pixels() const { return m_sheet.Pixels(); }

private:
    void dress(Brush &b, const Window &w, Cover cover) const;

    Season m_season;
    Sheet m_sheet;
};

/// A window or a door in a wall: place of the middle of its foot, and size.
struct Hole
{
    float x;
    float y;
    float width;
    float height;
    bool door = false;

    Box2 Bounds() const { return {x - width / 2, y, x + width / 2, y + height}; }
};

enum class Walls
{
    Brick,
    Plaster,
    Stone,
    Boards
};

/// A house with a gable roof; its ridge runs along z.
struct House
{
    float width;
    float length;
    float eaves;
    float ridge;
    Walls walls = Walls::Brick;
    Colour roof = kTiles;
    std::vector<Hole> side = {}; ///< seen from the right, places from the middle
    std::vector<Hole> gable = {};
    std::string sign = {};
    float over = 0.45F; ///< overhang of the roof
};

void PaintBoards(Brush &b, const Window &w, Colour colour);
/// A patch with a wall of the house, which covers the window.
Patch PaintedWall(Site &site, int wide, int high, const Window &w, const House &house,
                  const std::vector<Hole> &holes);
/// Walls with their holes and the sign, and the roof.
void AddHouse(Site &site, const House &house);
void AddChimney(Site &site, const Vec3 &foot, float height);

} // namespace samples
