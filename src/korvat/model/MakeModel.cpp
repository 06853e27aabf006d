// SPDX-License-Identifier: MIT
#include "korvat/model/MakeModel.h"

#include "host/Text.h"
#include "korvat/model/Joints.h"
#include "korvat/model/Transform.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <span>
#include <string_view>

namespace korvat {
namespace {

constexpr float kPlainGrey = 0.62f;
constexpr float kSharpest = -1; ///< many files ask for -3, which only makes textures flicker

template <typename Item, typename Index>
const Item *itemAt(const std::vector<Item> &items, Index index)
{
    if (index < 0 || static_cast<std::uint64_t>(index) >= items.size())
        return nullptr;
    return &items[static_cast<std::size_t>(index)];
}

struct Shader
{
    std::string_view name;
    bool lit;
    Blending blending;
    bool textured = true;
};

constexpr std::array<Shader, 7> kShaders = {{{"Tex", false, Blending::None},
                                             {"TexDiff", true, Blending::None},
                                             {"BlendATex", false, Blending::Alpha},
                                             {"BlendATexDiff", true, Blending::Alpha},
                                             {"AddATex", false, Blending::Add},
                                             {"AddATexDiff", true, Blending::Add},
                                             {"Diffuse", true, Blending::None, false}}};

const Shader *shaderNamed(std::string_view name)
{
    for (const Shader &shader : kShaders)
        if (host::EqualsNoCase(name, shader.name))
            return &shader;
    return nullptr;
}

Shader shaderOf(const Shape &shape, const PrimState &state)
{
    const std::string *name = itemAt(shape.shaders, std::int64_t{state.shader});
    const Shader *shader = name ? shaderNamed(*name) : nullptr;
    return shader ? *shader : kShaders[1];
}

void noteShader(const Shape &shape, const PrimState &state, std::vector<std::string> &notes)
{
    const std::string *name = itemAt(shape.shaders, std::int64_t{state.shader});
    if (!name || shaderNamed(*name))
        return;
    std::string note = "unknown shader " + *name + ", drawn lit and solid";
    if (std::find(notes.begin(), notes.end(), note) == notes.end())
        notes.push_back(std::move(note));
}

Finish finishOf(const Shader &shader, std::int32_t lightMaterial)
{
    if (!shader.lit || lightMaterial == -8)
        return Finish::FullBright;
    switch (lightMaterial) {
    case -6:
        return Finish::Shiny;
    case -7:
        return Finish::VeryShiny;
    case -9:
    case -10:
        return Finish::Plant;
    case -11:
        return Finish::HalfBright;
    case -12:
        return Finish::DarkShade;
    default:
        return Finish::Normal;
    }
}

/// Returns the colour of a part without a texture: its material's diffuse colour, else grey.
Tint plainColour(const Shape &shape, const VertexState &state)
{
    const LightMaterial *material = itemAt(shape.lightMaterials, state.lightMaterial);
    const Colour *colour =
        material ? itemAt(shape.colours, std::int64_t{material->diffuse}) : nullptr;
    if (!colour)
        return {kPlainGrey, kPlainGrey, kPlainGrey, 1};
    const auto sound = [](float value) {
        return std::isfinite(value) ? std::clamp(value, 0.0f, 1.0f) : 1.0f;
    };
    return {sound(colour->red), sound(colour->green), sound(colour->blue), 1};
}

void dress(const Shape &shape, const PrimState &state, Part &part)
{
    const VertexState *found = itemAt(shape.vertexStates, state.vertexState);
    const VertexState vertexState = found ? *found : VertexState{};
    const Shader shader = shaderOf(shape, state);
    part.surface.finish = finishOf(shader, vertexState.lightMaterial);
    part.surface.blending = shader.blending;
    part.surface.alphaTest = state.alphaTestMode == 1;
    if (const LightModel *light = itemAt(shape.lightModels, vertexState.lightModel))
        part.surface.addressing = light->address;
    const TextureSlot *slot = state.textures.empty()
                                  ? nullptr
                                  : itemAt(shape.textures, std::int64_t{state.textures.front()});
    if (!shader.textured || !slot || !itemAt(shape.images, std::int64_t{slot->image})) {
        part.surface.colour = plainColour(shape, vertexState);
        return;
    }
    part.slot = static_cast<int>(slot->image);
    const std::string *filter = itemAt(shape.filters, std::int64_t{slot->filter});
    part.surface.mipmaps = !filter || !host::EqualsNoCase(*filter, "Point");
    part.surface.sharpness =
        std::isfinite(slot->mipLodBias) ? std::max(slot->mipLodBias, kSharpest) : 0;
}

bool isFinite(const Vec3 &v)
{
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

/// Adds the parts of a level to a model, with each vertex transformed by its matrix.
class LevelBaker
{
public:
    LevelBaker(const Geometry &geometry, Model &model)
        : m_geometry(geometry)
        , m_model(model)
        , m_places(geometry.vertices.size(), kNone)
    {
    }

    /// Adds the triangles; the returned part holds their range of indices in the model.
    Part Add(const DrawPart &from, const Matrix &pose)
    {
        Part part;
        part.firstIndex = static_cast<std::uint32_t>(m_model.mesh.indices.size());
        for (std::size_t i = 0; i + 2 < from.indices.size(); i += 3)
            addTriangle(std::span(from.indices).subspan(i, 3), pose);
        part.indexCount = static_cast<std::uint32_t>(m_model.mesh.indices.size()) - part.firstIndex;
        // Another part may use the same vertices with another matrix.
        for (const std::uint32_t index : from.indices)
            m_places[index] = kNone;
        return part;
    }

private:
    void addTriangle(std::span<const std::uint32_t> corners, const Matrix &pose)
    {
        for (const std::uint32_t corner : corners)
            if (!isFinite(Transformed(m_geometry.vertices[corner].position, pose)))
                return;
        for (const std::uint32_t corner : corners)
            m_model.mesh.indices.push_back(placeOf(corner, pose));
    }

    std::uint32_t placeOf(std::uint32_t corner, const Matrix &pose)
    {
        if (m_places[corner] == kNone) {
            const DrawVertex &vertex = m_geometry.vertices[corner];
            m_places[corner] = static_cast<std::uint32_t>(m_model.mesh.vertices.size());
            m_model.mesh.vertices.push_back({Transformed(vertex.position, pose),
                                             Normalised(Turned(vertex.normal, pose)), vertex.uv});
        }
        return m_places[corner];
    }

    static constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();

    const Geometry &m_geometry;
    Model &m_model;
    std::vector<std::uint32_t> m_places; ///< positions in the model of the geometry's vertices
};

void addLevel(const Shape &shape, const Level &level, Model &model)
{
    const Geometry geometry = MakeGeometry(shape, level);
    const std::vector<Matrix> pose = RestPose(shape, level);
    LevelBaker baker(geometry, model);
    for (const DrawPart &from : geometry.parts) {
        Part part = baker.Add(from, pose[from.matrix]);
        const PrimState &state = shape.primStates[from.primState];
        dress(shape, state, part);
        if (part.indexCount == 0)
            continue;
        part.joint = from.matrix;
        model.parts.push_back(part);
        noteShader(shape, state, model.notes);
    }
}

} // namespace

Model MakeModel(const Shape &shape, int level)
{
    Model model;
    model.textures = shape.images;
    const std::vector<const Level *> levels = LevelsAt(shape, level);
    for (const Level *shown : levels)
        addLevel(shape, *shown, model);
    if (!levels.empty())
        AddJoints(shape, *levels.front(), model);
    AddLevels(shape, model);
    MeasureBounds(model);
    return model;
}

} // namespace korvat
