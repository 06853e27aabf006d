// SPDX-License-Identifier: MIT
#include "samples/ShapeWriter.h"

#include "samples/Bytes.h"
#include "samples/ShapeSink.h"
#include "samples/TextWriter.h"

#include <algorithm>
#include <utility>

namespace samples {
namespace {

/// The matrix and the material of a part.
using VertexState = std::pair<std::uint32_t, int>;

/// The distinct values in a list, in order of first use.
template <typename T> class Pool
{
public:
    std::size_t PlaceOf(const T &value)
    {
        const auto at = std::find(m_all.begin(), m_all.end(), value);
        const std::size_t place = static_cast<std::size_t>(at - m_all.begin());
        if (at == m_all.end())
            m_all.push_back(value);
        return place;
    }
    const std::vector<T> &All() const { return m_all; }

private:
    std::vector<T> m_all;
};

std::size_t indicesOf(const std::vector<ShapePart> &parts)
{
    std::size_t indices = 0;
    for (const ShapePart &part : parts)
        indices += part.indices.size();
    return indices;
}

/// Writes a shape to a sink, block by block.
class Description
{
public:
    Description(ShapeSink &sink, const ShapeModel &model)
        : m_sink(sink)
        , m_model(model)
    {
        for (const ShapeLevel &level : model.levels)
            for (const ShapePart &part : level.parts) {
                m_shaders.PlaceOf(part.shader);
                m_states.PlaceOf({part.matrix, part.material});
                m_parts.push_back(&part);
            }
    }

    void Write()
    {
        m_sink.Open("shape");
        head();
        geometry();
        textures();
        lighting();
        states();
        levels();
        if (m_model.frames != 0)
            animations();
        m_sink.End();
    }

private:
    void end(int blocks)
    {
        for (; blocks > 0; --blocks)
            m_sink.End();
    }

    /// Returns a function that writes an item as a block with a text or a point.
    auto named(const char *block)
    {
        return [this, block](const std::string &value) { m_sink.Block(block, value); };
    }
    auto vector(const char *block)
    {
        return [this, block](const Vec3 &v) { m_sink.Block(block, v.x, v.y, v.z); };
    }

    void head()
    {
        const Vec3 &centre = m_model.centre;
        m_sink.Block("shape_header", Hex{}, Hex{});
        m_sink.Open("volumes", 1);
        m_sink.Open("vol_sphere");
        m_sink.Block("vector", centre.x, centre.y, centre.z);
        m_sink.Put(m_model.radius);
        end(2);
        m_sink.List("shader_names", m_shaders.All(), named("named_shader"));
        m_sink.Open("texture_filter_names", 1);
        m_sink.Block("named_filter_mode", "MipLinear");
        end(1);
    }

    void geometry()
    {
        m_sink.List("points", m_model.points, vector("point"));
        m_sink.List("uv_points", m_model.uvs,
                    [&](const Uv &uv) { m_sink.Block("uv_point", uv.u, uv.v); });
        m_sink.List("normals", m_model.normals, vector("vector"));
        m_sink.Block("sort_vectors", 0);
        m_sink.Block("colours", 0);
        m_sink.List("matrices", m_model.matrices, [&](const ShapeMatrix &matrix) {
            m_sink.Begin("matrix", matrix.label);
            for (const float number : matrix.rows)
                m_sink.Put(number);
            end(1);
        });
    }

    void textures()
    {
        const std::size_t images = m_model.images.size();
        m_sink.Open("images", m_model.imagesDeclared.value_or(images));
        for (const std::string &image : m_model.images)
            m_sink.Block("image", image);
        end(1);
        m_sink.Open("textures", images);
        for (std::size_t i = 0; i < images; ++i)
            m_sink.Block("texture", i, 0, -3.0F, Hex{0xFF000000});
        end(1);
    }

    void lighting()
    {
        m_sink.Block("light_materials", 0);
        m_sink.Open("light_model_cfgs", 1);
        m_sink.Open("light_model_cfg", Hex{});
        m_sink.Open("uv_ops", 1);
        m_sink.Block("uv_op_copy", 1, 0);
        end(3);
    }

    /// Writes the vertex states, and one primitive state for each part, in the order of the levels.
    void states()
    {
        m_sink.List("vtx_states", m_states.All(), [&](const VertexState &state) {
            m_sink.Block("vtx_state", Hex{}, state.first, state.second, 0, Hex{2});
        });
        m_sink.List("prim_states", m_parts, [&](const ShapePart *part) {
            m_sink.Begin("prim_state", part->name);
            m_sink.Put(Hex{});
            m_sink.Put(m_shaders.PlaceOf(part->shader));
            m_sink.Block("tex_idxs", 1, part->image);
            m_sink.Put(0.0F);
            m_sink.Put(stateOf(*part));
            for (const int value : {part->alphaTest ? 1 : 0, 0, 1})
                m_sink.Put(value);
            end(1);
        });
    }

    std::size_t stateOf(const ShapePart &part)
    {
        return m_states.PlaceOf({part.matrix, part.material});
    }

    void levels()
    {
        m_sink.Open("lod_controls", 1);
        m_sink.Open("lod_control");
        m_sink.Block("distance_levels_header", 0);
        std::size_t firstState = 0;
        m_sink.List("distance_levels", m_model.levels, [&](const ShapeLevel &level) {
            m_sink.Open("distance_level");
            levelHeader(level);
            m_sink.Open("sub_objects", 1);
            m_sink.Open("sub_object");
            subObjectHeader(level);
            vertices(level);
            primitives(level, firstState);
            end(3);
            firstState += level.parts.size();
        });
        end(2);
    }

    void levelHeader(const ShapeLevel &level)
    {
        m_sink.Open("distance_level_header");
        m_sink.Block("dlevel_selection", level.distance);
        m_sink.List("hierarchy", m_model.matrices,
                    [&](const ShapeMatrix &matrix) { m_sink.Put(matrix.parent); });
        end(1);
    }

    void subObjectHeader(const ShapeLevel &level)
    {
        m_sink.Open("sub_object_header", Hex{0x400}, -1, -1, Hex{0x1D2}, Hex{0x1C4});
        geometryInfo(level.parts);
        m_sink.Block("subobject_shaders", 1, 0);
        m_sink.Block("subobject_light_cfgs", 1, 0);
        m_sink.Put(0);
        end(1);
    }

    /// Each matrix with parts has a geometry node. In the map, all other matrices are -1.
    void geometryInfo(const std::vector<ShapePart> &parts)
    {
        std::vector<std::vector<ShapePart>> nodes;
        std::vector<int> map;
        for (std::size_t i = 0; i < m_model.matrices.size(); ++i) {
            std::vector<ShapePart> own;
            std::copy_if(parts.begin(), parts.end(), std::back_inserter(own),
                         [&](const ShapePart &part) { return part.matrix == i; });
            map.push_back(own.empty() ? -1 : static_cast<int>(nodes.size()));
            if (!own.empty())
                nodes.push_back(std::move(own));
        }
        const std::size_t indices = indicesOf(parts);
        const std::size_t count = parts.size();
        m_sink.Open("geometry_info", indices / 3, count, 0, indices, 0, 0, count, 0, 0, 0);
        m_sink.List("geometry_nodes", nodes, [&](const std::vector<ShapePart> &node) {
            m_sink.Open("geometry_node", node.size(), 0, 0, 0, 0);
            m_sink.Block("cullable_prims", node.size(), node.size(), indicesOf(node));
            end(1);
        });
        m_sink.List("geometry_node_map", map, [&](int node) { m_sink.Put(node); });
        end(1);
    }

    void vertices(const ShapeLevel &level)
    {
        std::vector<Corner> corners;
        for (const ShapePart &part : level.parts)
            corners.insert(corners.end(), part.corners.begin(), part.corners.end());
        m_sink.List("vertices", corners, [&](const Corner &corner) {
            m_sink.Open("vertex", Hex{}, corner.point, corner.normal, Hex{0xFFFFFFFF},
                        Hex{0xFF000000});
            m_sink.Block("vertex_uvs", 1, corner.uv);
            end(1);
        });
        std::size_t first = 0;
        m_sink.List("vertex_sets", level.parts, [&](const ShapePart &part) {
            m_sink.Block("vertex_set", stateOf(part), first, part.corners.size());
            first += part.corners.size();
        });
    }

    void primitives(const ShapeLevel &level, std::size_t firstState)
    {
        m_sink.Open("primitives", 2 * level.parts.size());
        std::size_t firstCorner = 0;
        for (const ShapePart &part : level.parts) {
            m_sink.Block("prim_state_idx", firstState++);
            triangles(part, firstCorner);
            firstCorner += part.corners.size();
        }
        end(1);
    }

    void triangles(const ShapePart &part, std::size_t firstCorner)
    {
        const std::size_t number = part.indices.size() / 3;
        m_sink.Open("indexed_trilist");
        m_sink.List("vertex_idxs", part.indices,
                    [&](std::uint32_t index) { m_sink.Put(firstCorner + index); });
        m_sink.Open("normal_idxs", number);
        for (std::size_t i = 0; i < number; ++i) {
            m_sink.Put(part.corners[part.indices[i * 3]].normal);
            m_sink.Put(3);
        }
        end(1);
        m_sink.List("flags", std::vector<Hex>(number), [&](Hex flags) { m_sink.Put(flags); });
        end(1);
    }

    void animations()
    {
        m_sink.Open("animations", 1);
        m_sink.Open("animation", m_model.frames, 30);
        m_sink.List("anim_nodes", m_model.matrices, [&](const ShapeMatrix &matrix) {
            m_sink.Begin("anim_node", matrix.label);
            m_sink.Open("controllers", matrix.turn.empty() ? 0 : 1);
            if (!matrix.turn.empty())
                m_sink.List("tcb_rot", matrix.turn, [&](const RotationKey &key) {
                    const auto [x, y, z, w] = key.rotation;
                    m_sink.Block("slerp_rot", key.frame, x, y, z, w);
                });
            end(2);
        });
        end(2);
    }

    ShapeSink &m_sink;
    const ShapeModel &m_model;
    Pool<std::string> m_shaders;
    Pool<VertexState> m_states;
    std::vector<const ShapePart *> m_parts; ///< of all levels
};

std::string textOf(const ShapeModel &model)
{
    TextShapeSink sink;
    Description(sink, model).Write();
    return sink.Result().substr(1) + '\n';
}

std::string payloadOf(const ShapeModel &model, bool oddHeader)
{
    BinaryShapeSink sink;
    Description(sink, model).Write();
    return (oddHeader ? "JINX0s1b_____\r\n\x20" : "JINX0s1b______\r\n") + sink.Result();
}

} // namespace

bool IsTextForm(ShapeForm form)
{
    return form == ShapeForm::TextUtf16 || form == ShapeForm::Text8Bit ||
           form == ShapeForm::TextLateMark;
}

std::string ShapeBytes(const ShapeModel &model, ShapeForm form)
{
    switch (form) {
    case ShapeForm::TextUtf16:
        return EncodeText("s1", textOf(model));
    case ShapeForm::Text8Bit:
        return EncodeText("s1", textOf(model), {.encoding = Encoding::Windows1252});
    case ShapeForm::TextLateMark:
        return "\r\n" + ShapeBytes(model, ShapeForm::Text8Bit);
    case ShapeForm::Binary:
        return StorePayload(payloadOf(model, false));
    case ShapeForm::Compressed:
        return CompressPayload(payloadOf(model, false));
    case ShapeForm::CompressedOddHeader:
        return CompressPayload(payloadOf(model, true));
    case ShapeForm::CompressedTrailingBytes:
        return CompressPayload(payloadOf(model, false)) + "left over";
    }
    return {};
}

ShapeModel SmallestShape(std::vector<std::string> images)
{
    ShapeModel model;
    model.radius = 1.5F;
    model.points = {{0, 0, 0}, {0, 1, 0}, {1, 0, 0}};
    model.uvs = {{0, 1}, {0, 0}, {1, 1}};
    model.normals = {{0, 0, -1}};
    model.matrices.push_back({.label = "MAIN"});
    model.images = std::move(images);
    const std::vector<Corner> corners = {{0, 0, 0}, {1, 0, 1}, {2, 0, 2}};
    model.levels.push_back({.parts = {{{}, "MAIN_a", 0, corners, {0, 1, 2}}}});
    return model;
}

} // namespace samples
