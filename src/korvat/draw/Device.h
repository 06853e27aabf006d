// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/Model.h"
#include "korvat/model/Transform.h"

namespace korvat {

/// The settings of a whole frame.
struct FrameSetup
{
    int width = 0, height = 0; ///< of the frame, in pixels
    Transform view, projection;
    Vec3 eye;
    Vec3 toSun{0.5f, 0.75f, -0.43f}; ///< of length 1
    Tint sun, ambient, ambientBelow; ///< light from the sun, and from the sky above and below
    bool hasSky = true;              ///< if false, the background is plain, in the horizon's colour
    Tint zenith, horizon;            ///< colours of the sky; the haze has the horizon's
    float hazeNear = 0, hazeFar = 0; ///< metres at which the haze begins and becomes opaque
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
    Transform world;
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

    friend bool operator==(const DrawCall &, const DrawCall &) = default;
};

/// A graphics device, or its substitute in tests. It keeps copies of meshes and textures, which it
/// identifies by numbers other than 0, and draws them without back faces and with a depth test.
/// Call all functions between BeginFrame and EndFrame.
class Device
{
public:
    virtual ~Device() = default;

    virtual unsigned UploadMesh(const Mesh &mesh) = 0;
    virtual unsigned UploadTexture(const Texture &picture) = 0;
    virtual void ReleaseMesh(unsigned mesh) = 0;
    virtual void ReleaseTexture(unsigned texture) = 0;

    /// Clears the frame and paints the sky.
    virtual void BeginFrame(const FrameSetup &setup) = 0;
    virtual void Draw(const DrawCall &call) = 0;
    virtual void EndFrame() = 0;
};

} // namespace korvat
