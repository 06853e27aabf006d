// SPDX-License-Identifier: MIT
#pragma once

#include "samples/MeshBuilder.h"
#include "samples/Painter.h"

#include <functional>
#include <span>
#include <string>
#include <vector>

/// What all models of vehicles are made with: pictures, levels of detail, wheels, couplings.
namespace samples {

inline constexpr Colour kBrass{196, 158, 70};

/// The common picture of running gear and small things; the places of its pieces.
struct GearPatches
{
    Patch dark;  ///< underframe
    Patch black; ///< chimneys, hoses
    Patch rust;  ///< brakes, hooks
    Patch steel; ///< treads, rods
    Patch wood;  ///< planks, along u
    Patch light; ///< inside walls
    Patch seat;
    Patch lamp;
    Patch tail;   ///< red lamp
    Patch wheel;  ///< a disc wheel from outside
    Patch spokes; ///< see-through between the spokes
    Patch frame;  ///< side frame of a bogie
    Patch grating;
    Patch railing; ///< one bay: a post at each end, two rails
    Patch ladder;
};

/// A bay of a hand rail: what is between posts and rails is see-through.
void PaintRailing(Brush &brush, Colour colour);

/// Paints the pieces into a sheet that is otherwise free; `scale` 1 takes 256 by 256 pixels.
GearPatches PaintGear(Sheet &sheet, float scale = 1);
/// The files that vehicles of a folder share: gear (with a mask) and window glass (8-bit alpha).
const Picture &GearPicture();
const Picture &GlassPicture();

inline constexpr const char *kGearFile = "gear.ace";
inline constexpr const char *kGlassFile = "glass.ace";

/// What a model is to look like.
struct Plan
{
    float length = 12; ///< over couplings
    Colour base;
    Colour trim;
    std::string initials;
    std::string number;
    AceAlpha alpha = AceAlpha::None; ///< what the vehicle's own picture can do
    bool alone = false;              ///< all on its own small picture; no gratings, no glass
    std::vector<std::string> images; ///< file names; the first is the vehicle's own
};

/// A stretch of a painted side and where it is in the sheet; metres from the middle, as seen.
struct Stretch
{
    float from = 0;
    float to = 0;
    Patch patch;
};

/// A side wall: how far out it is below and above, and its heights.
struct SideShape
{
    float out0 = 1.45F;
    float out1 = 1.45F;
    float y0 = 1;
    float y1 = 3.5F;
};

/// Windows of a side, in metres from the middle.
struct WindowRow
{
    float sill = 0;
    float lintel = 0;
    std::vector<Vec2> spans = {}; ///< from x to y, in growing order
};

class Kit
{
public:
    explicit Kit(const Plan &plan);

    const Plan &Wanted() const { return m_plan; }
    Sheet &Body() { return m_body; }
    MeshBuilder &Mesh() { return m_mesh; }
    const GearPatches &Gear() const { return m_gear; }

    void UseBody();
    void UseGear();
    /// See-through where the picture is; nothing is to be drawn when it cannot be had.
    bool UseCutout();
    bool UseGlass();
    /// A bay of a hand rail, out of the vehicle's own picture when that has a mask; call the one,
    /// then draw with the other.
    bool UseRailing();
    const Patch &Railing() const { return m_railing; }
    const Patch &Pane() const { return m_pane; }

    /// Paints something `width` x `height` metres into an area of this size in pixels.
    Patch Paint(int pixelsWide, int pixelsHigh, const Window &window,
                const std::function<void(Brush &)> &paint);
    /// A plain piece in this colour with some dirt.
    Patch Plain(Colour colour, int side = 24);
    /// Paints a side of this length as `rows` stretches below each other.
    std::vector<Stretch> PaintSide(float length, float y0, float y1, int rows, int pixelsHigh,
                                   const std::function<void(Brush &)> &paint);

    /// One side wall, right (1) or left (-1), centred along z about `middle`.
    void SideOf(float side, std::span<const Stretch> stretches, const SideShape &shape,
                const WindowRow &windows = {}, float middle = 0);
    /// Both side walls with the same picture, which reads from left to right on either: front and
    /// back change places.
    void Sides(std::span<const Stretch> stretches, const SideShape &shape,
               const WindowRow &windows = {}, float middle = 0);
    /// The inner faces of such walls.
    void Linings(float length, const SideShape &shape, const WindowRow &windows, const Patch &patch,
                 float middle = 0);
    /// Panes in the windows of both sides.
    void Panes(const SideShape &shape, const WindowRow &windows, float middle = 0);
    /// An upright end with this outline (x, y) at z, looking forwards or backwards.
    void EndWall(std::span<const Vec2> outline, float z, bool forwards, const Patch &patch);

    /// What one sees of a roof from below: closes it at this height between z0 and z1.
    void Soffit(float halfWidth, float y, float z0, float z1, const Patch &patch);

    /// Calls `draw` for each level of detail, 0 the nearest, which lone vehicles do without.
    void Levels(const std::function<void(int)> &draw);

private:
    void wall(float x, const SideShape &shape, float zLeft, float zRight, const Patch &patch,
              const WindowRow &windows, bool inside);

    Plan m_plan;
    Sheet m_body;
    MeshBuilder m_mesh;
    GearPatches m_gear;
    Patch m_pane;
    Patch m_railing;
};

/// Points of a roof from the left eaves over the top to the right ones.
std::vector<Vec2> RoofArc(float halfWidth, float eaves, float top, int pieces);

/// A group of axles on a frame of its own.
struct Bogie
{
    float z = 0;
    float wheelbase = 1.8F;
    int axles = 2;
    float radius = 0.46F;
    bool passenger = false;
};

/// Wheels and frames: makes the matrices at once, the triangles level by level.
class RunningGear
{
public:
    RunningGear(Kit &kit, std::vector<Bogie> bogies);
    /// Axles in the main frame, WHEELS1, WHEELS2 ...: where along z and their radius. Spoked ones
    /// have no springs outside.
    RunningGear(Kit &kit, const std::vector<Vec2> &axles, bool spoked);
    void Draw(int detail);

private:
    struct Axle
    {
        std::uint32_t matrix;
        float radius;
        bool spoked;
    };
    void drawAxle(const Axle &axle, int detail);
    void drawFrame(const Bogie &bogie, int detail);
    void drawGuides(float z, float radius);

    Kit &m_kit;
    std::vector<Bogie> m_bogies;
    std::vector<std::uint32_t> m_frames;
    std::vector<Axle> m_axles;
    std::vector<Vec2> m_fixed; ///< z and radius of the axles with springs outside
};

/// Automatic couplers at both ends of the vehicle, hoses beside them.
void DrawCouplers(Kit &kit, int detail, float bodyEnd);
/// A raised pantograph over z, on a roof of this height.
void DrawPantograph(Kit &kit, float z, float roof, int detail);
/// Side buffers, hook and chain at both ends, or at the front only.
void DrawBuffers(Kit &kit, int detail, float bodyEnd, bool rear = true);

} // namespace samples
