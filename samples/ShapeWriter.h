// SPDX-License-Identifier: MIT
#pragma once

#include "samples/Vec.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace samples {

/// Texture coordinates; v = 0 is the top row of the texture.
struct Uv
{
    float u = 0;
    float v = 0;
};

/// A quaternion x, y, z, w, conjugated as in shape files.
struct RotationKey
{
    std::uint32_t frame = 0;
    std::array<float, 4> rotation = {0, 0, 0, 1};
};

/// Rows A, B, C and the translation D of a row-vector matrix; `parent` is -1 for a root.
struct ShapeMatrix
{
    std::string label;
    std::array<float, 12> rows = {1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0};
    int parent = -1;
    std::vector<RotationKey> turn = {}; ///< the animation; empty for a matrix without one
};

inline constexpr int kNormalMaterial = -5;
inline constexpr int kShinyMaterial = -6;

/// Indices into the points, normals and texture points of the shape.
struct Corner
{
    std::uint32_t point = 0;
    std::uint32_t normal = 0;
    std::uint32_t uv = 0;
};

/// The appearance of triangles.
struct Surface
{
    std::string shader = "TexDiff";
    std::uint32_t image = 0; ///< index into the images of the shape
    bool alphaTest = false;
    int material = kNormalMaterial;

    bool operator==(const Surface &) const = default;
};

/// Triangles that share a surface and a matrix. Each faces along (b-a) x (c-a).
struct ShapePart : Surface
{
    std::string name;
    std::uint32_t matrix = 0;
    std::vector<Corner> corners;
    std::vector<std::uint32_t> indices; ///< into `corners`, three per triangle
};

/// The parts that are drawn up to this distance in metres.
struct ShapeLevel
{
    float distance = 2000;
    std::vector<ShapePart> parts;
};

/// A shape; its levels of detail go from near to far and share points, matrices and images.
struct ShapeModel
{
    Vec3 centre; ///< of the bounding sphere
    float radius = 1;
    std::vector<Vec3> points;
    std::vector<Uv> uvs;
    std::vector<Vec3> normals;
    std::vector<ShapeMatrix> matrices;
    std::vector<std::string> images;
    std::vector<ShapeLevel> levels;
    std::uint32_t frames = 0; ///< of the animation, 30 per second; 0 for no animation
    /// The number of images to declare, if not the true one.
    std::optional<std::uint32_t> imagesDeclared;
};

/// The file forms of a shape.
enum class ShapeForm
{
    TextUtf16,
    Text8Bit,
    TextLateMark, ///< 8-bit, with a line end before the header line
    Binary,
    Compressed,
    CompressedOddHeader,    ///< the inner header is one character short and ends in an odd byte
    CompressedTrailingBytes ///< more bytes follow the compressed part
};

bool IsTextForm(ShapeForm form);

/// Returns the bytes of a shape file.
std::string ShapeBytes(const ShapeModel &model, ShapeForm form);

/// Returns a shape with one triangle, which faces -Z and uses the first image. The shape names all
/// images.
ShapeModel SmallestShape(std::vector<std::string> images);

} // namespace samples
