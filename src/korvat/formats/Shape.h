// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/formats/ReadError.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The content of a shape file, unchanged: docs/formats.md, "Shapes". Indexes are not validated
/// here; korvat/model/Geometry.h leaves out anything that refers to a missing item.
namespace korvat {

/// Metres; left-handed: X right, Y up, Z forward.
struct Vec3
{
    float x = 0, y = 0, z = 0;
    friend bool operator==(const Vec3 &, const Vec3 &) = default;
};

/// v = 0 is the top row of the image; outside 0 to 1 the image repeats.
struct Uv
{
    float u = 0, v = 0;
    friend bool operator==(const Uv &, const Uv &) = default;
};

struct Sphere
{
    Vec3 centre;
    float radius = 0;
    friend bool operator==(const Sphere &, const Sphere &) = default;
};

struct Colour
{
    float alpha = 1, red = 0, green = 0, blue = 0;
    friend bool operator==(const Colour &, const Colour &) = default;
};

/// Rows A, B, C and the translation D for row vectors: x' = x * AX + y * BX + z * CX + DX.
struct Matrix
{
    std::array<float, 12> rows = {1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0};
    friend bool operator==(const Matrix &, const Matrix &) = default;
};

struct NamedMatrix
{
    std::string name; ///< may be empty or repeated
    Matrix matrix;
    friend bool operator==(const NamedMatrix &, const NamedMatrix &) = default;
};

/// An image and how it is sampled.
struct TextureSlot
{
    std::uint32_t image = 0, filter = 0;
    float mipLodBias = 0;
    std::uint32_t borderColour = 0xFF000000; ///< ARGB
    friend bool operator==(const TextureSlot &, const TextureSlot &) = default;
};

struct LightMaterial
{
    std::uint32_t flags = 0;
    std::uint32_t diffuse = 0, ambient = 0, specular = 0, emissive = 0; ///< indexes of colours
    float power = 0;
    friend bool operator==(const LightMaterial &, const LightMaterial &) = default;
};

enum class AddressMode : std::uint32_t
{
    Wrap = 1,
    Mirror,
    Clamp,
    Border
};

struct LightModel
{
    std::uint32_t flags = 0;
    AddressMode address = AddressMode::Wrap; ///< of the first operation; Wrap for unknown ones
    friend bool operator==(const LightModel &, const LightModel &) = default;
};

struct VertexState
{
    std::uint32_t flags = 0;
    std::int32_t matrix = 0;
    std::int32_t lightMaterial = 0; ///< index if not negative, else one of the fixed codes
    std::int32_t lightModel = 0;
    std::uint32_t lightFlags = 0;
    std::int32_t matrix2 = -1; ///< -1 for none
    friend bool operator==(const VertexState &, const VertexState &) = default;
};

struct PrimState
{
    std::string name;
    std::uint32_t flags = 0, shader = 0;
    std::vector<std::uint32_t> textures; ///< indexes of texture slots; only the first one is shown
    float zBias = 0;
    std::int32_t vertexState = 0;
    std::uint32_t alphaTestMode = 0, lightConfig = 0, zBufferMode = 1;
    friend bool operator==(const PrimState &, const PrimState &) = default;
};

/// Indexes into the shape's lists.
struct Vertex
{
    static constexpr std::uint32_t kNoUv = UINT32_MAX;

    std::uint32_t point = 0, normal = 0;
    std::uint32_t uv = kNoUv; ///< the first pair of texture coordinates
    friend bool operator==(const Vertex &, const Vertex &) = default;
};

/// A range of the sub-object's vertices that share a vertex state.
struct VertexSet
{
    std::uint32_t vertexState = 0, first = 0, count = 0;
    friend bool operator==(const VertexSet &, const VertexSet &) = default;
};

/// Triangles that share a primitive state: a range of the sub-object's `indices`.
struct Triangles
{
    std::uint32_t primState = 0;
    std::size_t first = 0, count = 0; ///< in `indices`, as in the file; three make a triangle
    friend bool operator==(const Triangles &, const Triangles &) = default;
};

struct SubObject
{
    std::uint32_t flags = 0;
    std::int32_t sortVector = -1;
    std::vector<Vertex> vertices;
    std::vector<VertexSet> vertexSets;
    std::vector<std::uint32_t> indices; ///< into `vertices`
    std::vector<Triangles> triangles;   ///< in file order
    friend bool operator==(const SubObject &, const SubObject &) = default;
};

struct Level
{
    float distance = 0; ///< the largest distance in metres at which the level is used
    std::vector<std::int32_t> parents; ///< by matrix; negative for a root. May be too short
    std::vector<SubObject> subObjects;
    friend bool operator==(const Level &, const Level &) = default;
};

/// The levels of detail of one part of the shape, in file order. All parts are shown together.
struct LodControl
{
    std::vector<Level> levels;
    friend bool operator==(const LodControl &, const LodControl &) = default;
};

/// A rotation at a frame, as stored: use (x, y, z, -w) for row vectors.
struct RotationKey
{
    std::uint32_t frame = 0;
    float x = 0, y = 0, z = 0, w = 1;
    friend bool operator==(const RotationKey &, const RotationKey &) = default;
};

struct PositionKey
{
    std::uint32_t frame = 0;
    Vec3 position;
    friend bool operator==(const PositionKey &, const PositionKey &) = default;
};

/// The movement of the matrix of the same name or, if none has that name, of the same index.
struct AnimNode
{
    std::string name;
    std::vector<RotationKey> rotations;
    std::vector<PositionKey> positions;
    friend bool operator==(const AnimNode &, const AnimNode &) = default;
};

struct Animation
{
    std::uint32_t frames = 0, frameRate = 0;
    std::vector<AnimNode> nodes;
    friend bool operator==(const Animation &, const Animation &) = default;
};

struct Shape
{
    std::vector<Sphere> volumes;
    std::vector<std::string> shaders, filters;
    std::vector<Vec3> points, normals;
    std::vector<Uv> uvs;
    std::vector<Colour> colours;
    std::vector<NamedMatrix> matrices;
    std::vector<std::string> images; ///< file names, UTF-8
    std::vector<TextureSlot> textures;
    std::vector<LightMaterial> lightMaterials;
    std::vector<LightModel> lightModels;
    std::vector<VertexState> vertexStates;
    std::vector<PrimState> primStates;
    std::vector<LodControl> lodControls;
    std::vector<Animation> animations;
    friend bool operator==(const Shape &, const Shape &) = default;
};

enum class ShapeForm
{
    Text,
    Binary,
    Compressed ///< either form inside
};
/// Returns "text", "binary" or "compressed".
const char *ShapeFormName(ShapeForm form);

struct ShapeFile
{
    Shape shape; ///< everything that was read before an error; complete without one
    ShapeForm form = ShapeForm::Text;
    std::vector<std::string> notes; ///< what was repaired, one sentence each
    ReadError error;
};

} // namespace korvat
