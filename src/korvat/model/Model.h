// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/formats/Texture.h"
#include "korvat/model/Geometry.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/// The drawable content of a shape: geometry as plain data, ready for a graphics device.
namespace korvat {

struct Tint
{
    float r = 1, g = 1, b = 1, a = 1;

    friend bool operator==(const Tint &, const Tint &) = default;
};

/// Triangles of three indices each, clockwise when seen from the front.
struct Mesh
{
    std::vector<DrawVertex> vertices;
    std::vector<std::uint32_t> indices;
};

/// How a shader treats alpha, regardless of the texture.
enum class Blending : std::uint8_t
{
    None,
    Alpha,
    Add
};

/// How a surface reflects light.
enum class Finish : std::uint8_t
{
    Normal,
    Shiny,      ///< soft highlight
    VeryShiny,  ///< smaller, brighter highlight; reflects the sky
    FullBright, ///< its own colour, regardless of light
    HalfBright,
    DarkShade,
    Plant ///< lit from above, whichever way it faces
};

/// The look of a part's surface.
struct Surface
{
    Finish finish = Finish::Normal;
    Blending blending = Blending::None;
    bool alphaTest = false;
    AddressMode addressing = AddressMode::Wrap;
    bool mipmaps = true;
    float sharpness = 0; ///< below 0, larger levels of the texture are used than its size needs
    Tint colour;         ///< multiplied with the texture; the only colour if there is none

    friend bool operator==(const Surface &, const Surface &) = default;
};

/// A run of triangles that share a surface.
struct Part
{
    std::uint32_t firstIndex = 0, indexCount = 0;
    int slot = -1; ///< index of the model's texture, -1 for none
    Surface surface;
    Sphere bounds;
    std::uint32_t joint = 0; ///< index of the joint that moves it
};

/// A matrix of the shape, with its animation.
struct Joint
{
    std::string name;                   ///< may be empty or repeated
    int parent = -1;                    ///< index of a joint, -1 for none; there are no loops
    bool drawn = false;                 ///< parts belong to it
    Matrix rest;                        ///< relative to the parent
    std::vector<RotationKey> rotations; ///< sorted by frame; all of them can be used
    std::vector<PositionKey> positions;
    std::uint32_t frames = 0; ///< the animation begins again after these
};

/// A whole shape in its rest pose, with parts in file order.
struct Model
{
    Mesh mesh;
    bool isLines = false; ///< the mesh holds lines of two indices each instead of triangles
    std::vector<Part> parts;
    std::vector<std::string> textures; ///< file names of the texture slots
    std::vector<std::string> notes;    ///< what is not drawn as the file asks, one sentence each
    std::vector<Joint> joints;         ///< by matrix; empty for a shape without matrices
    std::vector<float> levels;         ///< distances of all levels of detail, from near to far
    std::vector<std::string> faults;   ///< what levels and animations lack, one sentence each
    Bounds box;
    Sphere bounds;
};

/// Computes the box and the spheres of the model and its parts from its vertices.
void MeasureBounds(Model &model);

} // namespace korvat
