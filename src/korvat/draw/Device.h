// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/Model.h"
#include "korvat/model/Transform.h"

#include <array>
#include <cstddef>
#include <span>

namespace korvat {

/// A shadow map: the distance from the sun of the nearest surface, for what the camera sees between
/// the end of the previous map and its own end.
struct ShadowMap
{
    Transform toMap; ///< from the world to the map; X, Y and Z run from -1 to 1 inside it
    float end = 0;   ///< metres in front of the camera
    float texel = 0; ///< metres that a pixel covers
};

constexpr std::size_t kShadowMaps = 3;
constexpr int kShadowSide = 2048; ///< pixels, of each map

/// A lamp that lights what is in front of it.
struct LightCone
{
    Vec3 at;
    Vec3 along;       ///< of length 1
    Tint colour;      ///< with its strength
    float reach = 1;  ///< metres
    float cosine = 1; ///< of the angle between the axis and the edge

    friend bool operator==(const LightCone &, const LightCone &) = default;
};

constexpr std::size_t kLightCones = 4; ///< in a frame

/// The settings of a whole frame.
struct FrameSetup
{
    int width = 0, height = 0; ///< of the frame, in pixels
    Transform view, projection;
    Vec3 eye;
    Vec3 toSun{0, 1, 0};             ///< of length 1
    Tint sun, ambient, ambientBelow; ///< light from the sun, the sky, and the ground
    bool hasSky = true;              ///< if false, the background is plain, in the horizon's colour
    Tint zenith, horizon, nadir;     ///< colours of the sky; the haze has the horizon's
    float hazeNear = 0, hazeFar = 0; ///< metres at which the haze begins and becomes opaque
    unsigned clouds = 0;             ///< texture of the clouds, 0 for none
    bool hasShadows = false;         ///< whether there are shadow maps
    std::array<ShadowMap, kShadowMaps> shadows; ///< from near to far
    std::size_t coneCount = 0;
    std::array<LightCone, kLightCones> cones;
};

/// How pixels are combined with the frame.
enum class Mixing : std::uint8_t
{
    Replace,
    Alpha, ///< weighted by the new colour's alpha
    Add
};

/// One run of triangles and the state that it is drawn with.
struct DrawCall
{
    unsigned mesh = 0;
    unsigned texture = 0; ///< 0 for none
    std::uint32_t firstIndex = 0, indexCount = 0;
    Finish finish = Finish::Normal;
    AddressMode addressing = AddressMode::Wrap;
    bool mipmaps = true;
    float sharpness = 0;
    Tint colour;
    float alphaLimit = 0;  ///< pixels with a lower alpha are discarded
    bool softEdge = false; ///< pixels at the alpha limit are covered in part
    Mixing mixing = Mixing::Replace;
    bool writesDepth = true;
    bool opaque = false; ///< ignore the texture's alpha and use 1
    /// Give way to surfaces at the same depth, and fade towards the horizon. A lit texture is
    /// repeated without a visible pattern, wherever the mesh places it.
    bool isGround = false;
    bool isLines = false; ///< lines of two indices each instead of triangles

    friend bool operator==(const DrawCall &, const DrawCall &) = default;
};

/// One run of triangles in a shadow map. Both of their sides cast shadows.
struct ShadowCall
{
    unsigned mesh = 0;
    unsigned texture = 0; ///< 0 for a solid surface
    std::uint32_t firstIndex = 0, indexCount = 0;
    AddressMode addressing = AddressMode::Wrap;
    float alphaLimit = 0; ///< pixels with a lower alpha cast no shadow

    friend bool operator==(const ShadowCall &, const ShadowCall &) = default;
};

/// A graphics device, or its substitute in tests. It keeps copies of meshes and textures, which it
/// identifies by numbers other than 0, and draws them without back faces and with a depth test.
///
/// A frame consists of its shadow maps, if it has any, then BeginFrame, the calls of Draw, and
/// EndFrame. Meshes and textures can be uploaded and released at any time in between.
///
/// A call draws its triangles once for each of `places`, which are their places in the world, in
/// this order. There is at least one.
class Device
{
public:
    virtual ~Device() = default;

    /// The indices are those of the calls: three for each triangle.
    virtual unsigned UploadMesh(std::span<const DrawVertex> vertices,
                                std::span<const std::uint32_t> indices) = 0;
    virtual unsigned UploadTexture(const Texture &picture) = 0;
    virtual void ReleaseMesh(unsigned mesh) = 0;
    virtual void ReleaseTexture(unsigned texture) = 0;

    /// Begins a shadow map of the coming frame; DrawShadow draws into it.
    virtual void BeginShadow(const ShadowMap &map, std::size_t number) = 0;
    virtual void DrawShadow(const ShadowCall &call, std::span<const Transform> places) = 0;
    /// Ends the shadow maps, clears the frame and paints the sky.
    virtual void BeginFrame(const FrameSetup &setup) = 0;
    virtual void Draw(const DrawCall &call, std::span<const Transform> places) = 0;
    virtual void EndFrame() = 0;
};

} // namespace korvat
