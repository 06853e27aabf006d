// SPDX-License-Identifier: MIT
#pragma once

#include "samples/MeshBuilder.h"
#include "samples/Painter.h"
#include "samples/Vehicles.h"

#include <functional>
#include <vector>

/// The common parts of all vehicle models: pictures, levels of detail, wheels, couplings. Lengths
/// are in metres.
namespace samples {

inline constexpr Colour kBrass{196, 158, 70};
inline constexpr Colour kDirt{60, 48, 36};
inline constexpr Colour kSoot{34, 34, 36};

/// The surfaces that patches select with Patch::look. A lone vehicle has only the first two, so
/// that pieces with the others are left out.
enum Look : std::size_t
{
    OnBody,    ///< the vehicle's own picture
    OnGear,    ///< the shared picture of running gear
    OnCutout,  ///< the same, with its mask
    OnRailing, ///< the vehicle's own picture, with its mask
    OnGlass
};

/// The pieces of the shared picture of running gear and small parts.
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
    Patch spokes; ///< transparent between the spokes
    Patch frame;  ///< side frame of a bogie
    Patch grating;
    Patch railing; ///< one bay: a post at each end, two rails
    Patch ladder;
};

/// Paints a bay of a hand rail, transparent between posts and rails.
void PaintRailing(Brush &brush, Colour colour);
/// Paints the pieces into an empty sheet; `scale` 1 takes 256 by 256 pixels.
GearPatches PaintGear(Sheet &sheet, float scale = 1);

/// A stretch of a painted side: from and to along the side, seen from outside, and its patch.
struct Stretch
{
    float from = 0;
    float to = 0;
    Patch patch;
};

/// A side wall: its distance from the middle below and above, and its heights.
struct SideShape
{
    float out0 = 1.45F;
    float out1 = 1.45F;
    float y0 = 1;
    float y1 = 3.5F;
};

/// Windows of a side, along the side from its middle, in ascending order.
struct WindowRow
{
    float sill = 0;
    float lintel = 0;
    std::vector<Span> spans = {};
};

/// A group of axles in a separate frame.
struct Bogie
{
    float z = 0;
    float wheelbase = 1.8F;
    int axles = 2;
    float radius = 0.46F;
    bool passenger = false;

    float AxleAt(int number) const;
};

/// Base of all vehicle models. A derived constructor paints the pictures, draw() adds the pieces
/// for one level of detail.
class VehicleModel : protected MeshBuilder
{
public:
    /// `gap`: from the end of the body to the tip of the coupling.
    VehicleModel(const Plan &plan, float gap);
    virtual ~VehicleModel() = default;

    /// Draws all levels of detail.
    PaintedModel Build();

protected:
    virtual void draw() = 0;

    bool nearest() const { return m_detail == 0; }
    bool farthest() const { return m_detail == 2; }
    /// The number for the nearest level, the middle one and the farthest.
    int facets(int best, int middle, int least) const;
    int facets(int best, int others) const { return facets(best, others, others); }

    /// The colour of lines and lettering on steam engines.
    Colour lining() const { return Mix(m_plan.trim, kBrass, 0.5F); }
    /// Paints an area of this size in pixels, which shows the window.
    Patch paint(int wide, int high, const Window &window, const std::function<void(Brush &)> &how);
    /// A patch in this colour with some dirt.
    Patch plain(Colour colour, int side = 24);
    /// Paints a side of this length as `rows` stretches below each other in the picture.
    std::vector<Stretch> paintSide(float length, float y0, float y1, int rows, int pixelsHigh,
                                   const std::function<void(Brush &)> &how);

    /// One side wall, right (1) or left (-1), centred along z about `middle`.
    void sideOf(float side, const std::vector<Stretch> &stretches, const SideShape &shape,
                const WindowRow &windows = {}, float middle = 0);
    /// Both side walls with the same picture, which reads from left to right on either: front and
    /// rear change places.
    void sides(const std::vector<Stretch> &stretches, const SideShape &shape,
               const WindowRow &windows = {}, float middle = 0);
    /// The inner faces of such walls.
    void linings(float length, const SideShape &shape, const WindowRow &windows, const Patch &patch,
                 float middle = 0);
    /// Panes in the windows of both sides.
    void panes(const SideShape &shape, const WindowRow &windows, float middle = 0);
    /// An upright end with this outline (x, y) at z; `facing` 1 looks forwards, -1 backwards.
    void endWall(const Outline &outline, float z, float facing, const Patch &patch);
    /// Such ends at z and -z, looking outwards.
    void endWalls(const Outline &outline, float z, const Patch &front, const Patch &rear);
    /// The underside of a roof at this height between z0 and z1.
    void soffit(float halfWidth, float y, float z0, float z1, const Patch &patch);

    // Wheels and frames. Adding creates the nodes, drawing adds the pieces.
    void addBogies(const std::vector<Bogie> &bogies);
    /// Axles in the main frame: positions along z and their radii. Those with spokes have no
    /// springs outside.
    void addAxles(const Outline &axles, bool spoked);
    void drawRunningGear();

    /// Automatic couplers at both ends of the vehicle, with hoses beside them.
    void drawCouplers(float bodyEnd);
    /// Side buffers, hook and chain at both ends, or at the front only.
    void drawBuffers(float bodyEnd, bool rear = true);
    /// A closed cylinder below the floor, from the first point forwards to the second.
    void drawReservoir(const Vec3 &from, const Vec3 &to);
    /// A raised pantograph at z, on a roof of this height.
    void drawPantograph(float z, float roof);

    Plan m_plan;
    float m_half; ///< half the length of the body
    Sheet m_sheet;
    GearPatches m_gear;
    Patch m_railing; ///< a bay of a hand rail, from the own picture if that has a mask
    Patch m_pane;

private:
    struct Axle
    {
        std::uint32_t matrix;
        float radius;
        bool spoked;
    };
    void wall(float side, const Stretch &stretch, const SideShape &shape, const WindowRow &windows,
              float middle, bool inside);
    void drawAxle(const Axle &axle);
    void drawFrame(const Bogie &bogie);
    void drawGuides(float z, float radius);

    int m_detail = 0;
    std::vector<Bogie> m_bogies;
    std::vector<std::uint32_t> m_frames;
    std::vector<Axle> m_axles;
    Outline m_fixed; ///< z and radius of the axles with springs outside
};

/// Points of a roof from the left eaves over the top to the right ones.
Outline RoofArc(float halfWidth, float eaves, float top, int pieces);
/// The end of a body under such a roof: the arc, down to the floor at both sides.
Outline Gable(const Outline &arc, float halfWidth, float floor);

// The families of vehicles.
PaintedModel BuildVan(const Plan &plan, Design design);
PaintedModel BuildTankCar(const Plan &plan, Design design);
PaintedModel BuildFlatCar(const Plan &plan, Design design);
PaintedModel BuildHopper(const Plan &plan, Design design);
PaintedModel BuildCoach(const Plan &plan, Design design);
PaintedModel BuildDiesel(const Plan &plan, Design design);
PaintedModel BuildElectric(const Plan &plan, Design design);
PaintedModel BuildExpress(const Plan &plan, Design design);
PaintedModel BuildTankEngine(const Plan &plan, Design design);
PaintedModel BuildTender(const Plan &plan, Design design);

} // namespace samples
