// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace korvat {

/// The blocks of a shape that ZELK reads: docs/formats.md, "Blocks of a shape". The values are the
/// ids of the binary form.
enum class Token : std::uint16_t
{
    Point = 0x02,
    Vector = 0x03,
    Normals = 0x05,
    Points = 0x07,
    UvPoint = 0x08,
    UvPoints = 0x09,
    Colour = 0x0A,
    Colours = 0x0B,
    Image = 0x0D,
    Images = 0x0E,
    Texture = 0x0F,
    Textures = 0x10,
    LightMaterial = 0x11,
    LightMaterials = 0x12,
    LinearKey = 0x13,
    TcbKey = 0x14,
    LinearPos = 0x15,
    TcbPos = 0x16,
    SlerpRot = 0x17,
    TcbRot = 0x18,
    Controllers = 0x19,
    AnimNode = 0x1A,
    AnimNodes = 0x1B,
    Animation = 0x1C,
    Animations = 0x1D,
    LodControls = 0x1F,
    LodControl = 0x20,
    DistanceLevelHeader = 0x22,
    DlevelSelection = 0x23,
    DistanceLevels = 0x24,
    DistanceLevel = 0x25,
    SubObjects = 0x26,
    SubObject = 0x27,
    SubObjectHeader = 0x28,
    VtxState = 0x2E,
    VtxStates = 0x2F,
    Vertex = 0x30,
    VertexUvs = 0x31,
    Vertices = 0x32,
    VertexSet = 0x33,
    VertexSets = 0x34,
    Primitives = 0x35,
    PrimState = 0x36,
    PrimStates = 0x37,
    PrimStateIdx = 0x38,
    IndexedTrilist = 0x3C,
    TexIdxs = 0x3D,
    VertexIdxs = 0x3F,
    Matrix = 0x41,
    Matrices = 0x42,
    Hierarchy = 0x43,
    Volumes = 0x44,
    VolSphere = 0x45,
    Shape = 0x47,
    ShaderNames = 0x48,
    TextureFilterNames = 0x4A,
    LightModelCfgs = 0x4F,
    LightModelCfg = 0x50,
    UvOps = 0x51,
    UvOpCopy = 0x54,
    NamedFilterMode = 0x7D,
    NamedShader = 0x81
};

/// Returns the name of a block in the text form.
std::string_view TokenName(Token token);

} // namespace korvat
