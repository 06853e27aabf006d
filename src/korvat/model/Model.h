// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/formats/Texture.h"
#include "korvat/model/Geometry.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/// What is drawn: geometry as plain data, ready for a graphics device.
namespace korvat {

struct Tint
{
    float r = 1, g = 1, b = 1, a = 1;

    friend bool operator==(const Tint &, const Tint &) = default;
};

/// Triangles, three indices each; seen from in front they run clockwise.
struct Mesh
{
    std::vector<DrawVertex> vertices;
    std::vector<std::uint32_t> indices;
};

/// How a shader treats alpha, before the picture is known.
enum class Blending : std::uint8_t
{
    None,
    Alpha,
    Add
};

/// How a surface answers light.
enum class Finish : std::uint8_t
{
    Normal,
    Shiny,      ///< highlight with exponent 25
    VeryShiny,  ///< highlight with exponent 750
    FullBright, ///< its own colour, whatever the light
    HalfBright,
    DarkShade
};

/// What the surface of a part looks like.
struct Surface
{
    Finish finish = Finish::Normal;
    Blending blending = Blending::None;
    bool alphaTest = false;
    AddressMode addressing = AddressMode::Wrap;
    bool mipmaps = true;
    float sharpness = 0; ///< below 0 larger copies of the picture are taken than its size asks for
    Tint colour;         ///< multiplied with the picture; the whole colour where there is none

    friend bool operator==(const Surface &, const Surface &) = default;
};

/// A run of triangles with one surface.
struct Part
{
    std::uint32_t firstIndex = 0, indexCount = 0;
    int slot = -1; ///< which of the model's textures, -1 for none
    Surface surface;
    Sphere bounds;
};

/// A whole shape in its rest pose; parts stand in file order.
struct Model
{
    Mesh mesh;
    std::vector<Part> parts;
    std::vector<std::string> textures; ///< file names of the texture slots
    std::vector<std::string> notes;    ///< what is not drawn as the file says, a sentence each
    Bounds box;
    Sphere bounds;
};

/// The box and the spheres of the model and its parts, from its vertices.
void MeasureBounds(Model &model);

} // namespace korvat
