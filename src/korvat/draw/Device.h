// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/Model.h"
#include "korvat/model/Transform.h"

namespace korvat {

/// What holds for a whole frame.
struct FrameSetup
{
    int width = 0, height = 0; ///< of the picture, in pixels
    Transform view, projection;
    Vec3 eye;
    Vec3 toSun{0.5f, 0.75f, -0.43f}; ///< of length 1
    Tint sun, ambient, ambientBelow; ///< light of the sun, and of the sky from above and below
    Tint zenith, horizon;            ///< of the sky; the haze has the horizon's colour
    float hazeNear = 0, hazeFar = 0; ///< metres from the camera: no haze, and nothing but haze
};

/// What happens to pixels by their alpha.
enum class Mixing : std::uint8_t
{
    Replace,
    Alpha, ///< alpha of the new colour, the rest of the old one
    Add
};

/// One run of triangles, and everything that decides how it is drawn.
struct DrawCall
{
    unsigned mesh = 0;
    unsigned texture = 0; ///< 0 for none
    std::uint32_t firstIndex = 0, indexCount = 0;
    Transform world;
    Finish finish = Finish::Normal;
    AddressMode addressing = AddressMode::Wrap;
    bool mipmaps = true;
    float sharpness = 0;
    Tint colour;
    float alphaLimit = 0;  ///< pixels whose alpha is below are left out
    bool softEdge = false; ///< where alpha crosses the limit, a pixel is covered in part
    Mixing mixing = Mixing::Replace;
    bool writesDepth = true;
    bool opaque = false; ///< the picture's alpha says nothing: it counts as 1

    friend bool operator==(const DrawCall &, const DrawCall &) = default;
};

/// A graphics device, or what stands for it in tests. It holds copies of meshes and pictures under
/// numbers that it gives (never 0) and draws them; back faces and what the depth test hides are
/// left out. Everything is called between the beginning and the end of a frame.
class Device
{
public:
    virtual ~Device() = default;

    virtual unsigned UploadMesh(const Mesh &mesh) = 0;
    virtual unsigned UploadTexture(const Texture &picture) = 0;
    virtual void ReleaseMesh(unsigned mesh) = 0;
    virtual void ReleaseTexture(unsigned texture) = 0;

    /// Clears the picture and paints the sky.
    virtual void BeginFrame(const FrameSetup &setup) = 0;
    virtual void Draw(const DrawCall &call) = 0;
    virtual void EndFrame() = 0;
};

} // namespace korvat
