// SPDX-License-Identifier: MIT
#include "samples/ShapeWriter.h"

#include "samples/Container.h"
#include "samples/ShapeSink.h"
#include "samples/TextWriter.h"

#include <algorithm>
#include <utility>

namespace samples {
namespace {

std::uint32_t count(std::size_t size)
{
    return static_cast<std::uint32_t>(size);
}

template <typename T> void addOnce(std::vector<T> &all, const T &one)
{
    if (std::find(all.begin(), all.end(), one) == all.end())
        all.push_back(one);
}

template <typename T> std::uint32_t placeOf(const std::vector<T> &all, const T &one)
{
    return static_cast<std::uint32_t>(std::find(all.begin(), all.end(), one) - all.begin());
}

std::vector<std::string> shadersOf(const ShapeModel &model)
{
    std::vector<std::string> shaders;
    for (const ShapeLevel &level : model.levels)
        for (const ShapePart &part : level.parts)
            addOnce(shaders, part.shader);
    return shaders;
}

/// A matrix and a material that parts are drawn with.
using VertexState = std::pair<std::uint32_t, int>;

VertexState stateOf(const ShapePart &part)
{
    return {part.matrix, part.material};
}

std::vector<VertexState> vertexStatesOf(const ShapeModel &model)
{
    std::vector<VertexState> all;
    for (const ShapeLevel &level : model.levels)
        for (const ShapePart &part : level.parts)
            addOnce(all, stateOf(part));
    return all;
}

/// Which geometry node a matrix has: those that parts use, in order; -1 for the others.
std::vector<int> nodeOfMatrix(const ShapeModel &model, const ShapeLevel &level)
{
    std::vector<int> nodes(model.matrices.size(), -1);
    int next = 0;
    for (std::size_t i = 0; i < nodes.size(); ++i)
        if (std::any_of(level.parts.begin(), level.parts.end(),
                        [&](const ShapePart &part) { return part.matrix == i; }))
            nodes[i] = next++;
    return nodes;
}

void vectors(ShapeSink &sink, const char *list, const char *item, const std::vector<Vec3> &values)
{
    sink.Begin(list);
    sink.Count(count(values.size()));
    for (const Vec3 &value : values) {
        sink.Begin(item);
        for (const float number : {value.x, value.y, value.z})
            sink.Real(number);
        sink.End();
    }
    sink.End();
}

/// A list of blocks that hold one text each.
void names(ShapeSink &sink, const char *list, const char *item,
           const std::vector<std::string> &values, std::uint32_t declared)
{
    sink.Begin(list);
    sink.Count(declared);
    for (const std::string &value : values) {
        sink.Begin(item);
        sink.Text(value);
        sink.End();
    }
    sink.End();
}

void numbers(ShapeSink &sink, const char *list, std::initializer_list<std::uint32_t> values)
{
    sink.Begin(list);
    for (const std::uint32_t value : values)
        sink.Count(value);
    sink.End();
}

void head(ShapeSink &sink, const ShapeModel &model)
{
    sink.Begin("shape_header");
    sink.Hex(0);
    sink.Hex(0);
    sink.End();
    sink.Begin("volumes");
    sink.Count(1);
    sink.Begin("vol_sphere");
    sink.Begin("vector");
    for (const float number : {model.centre.x, model.centre.y, model.centre.z})
        sink.Real(number);
    sink.End();
    sink.Real(model.radius);
    sink.End();
    sink.End();
    const std::vector<std::string> shaders = shadersOf(model);
    names(sink, "shader_names", "named_shader", shaders, count(shaders.size()));
    names(sink, "texture_filter_names", "named_filter_mode", {"MipLinear"}, 1);
}

void geometry(ShapeSink &sink, const ShapeModel &model)
{
    vectors(sink, "points", "point", model.points);
    sink.Begin("uv_points");
    sink.Count(count(model.uvs.size()));
    for (const Uv &uv : model.uvs) {
        sink.Begin("uv_point");
        sink.Real(uv.u);
        sink.Real(uv.v);
        sink.End();
    }
    sink.End();
    vectors(sink, "normals", "vector", model.normals);
    numbers(sink, "sort_vectors", {0});
    numbers(sink, "colours", {0});
    sink.Begin("matrices");
    sink.Count(count(model.matrices.size()));
    for (const ShapeMatrix &matrix : model.matrices) {
        sink.Begin("matrix", matrix.label);
        for (const float number : matrix.rows)
            sink.Real(number);
        sink.End();
    }
    sink.End();
}

void textures(ShapeSink &sink, const ShapeModel &model)
{
    names(sink, "images", "image", model.images,
          model.imagesDeclared.value_or(count(model.images.size())));
    sink.Begin("textures");
    sink.Count(count(model.images.size()));
    for (std::uint32_t i = 0; i < model.images.size(); ++i) {
        sink.Begin("texture");
        sink.Count(i);
        sink.Count(0);
        sink.Real(-3);
        sink.Hex(0xFF000000);
        sink.End();
    }
    sink.End();
}

void lighting(ShapeSink &sink)
{
    numbers(sink, "light_materials", {0});
    sink.Begin("light_model_cfgs");
    sink.Count(1);
    sink.Begin("light_model_cfg");
    sink.Hex(0);
    sink.Begin("uv_ops");
    sink.Count(1);
    numbers(sink, "uv_op_copy", {1, 0});
    sink.End();
    sink.End();
    sink.End();
}

void vertexStates(ShapeSink &sink, const ShapeModel &model)
{
    const std::vector<VertexState> all = vertexStatesOf(model);
    sink.Begin("vtx_states");
    sink.Count(count(all.size()));
    for (const auto &[matrix, material] : all) {
        sink.Begin("vtx_state");
        sink.Hex(0);
        sink.Integer(static_cast<std::int32_t>(matrix));
        sink.Integer(material);
        sink.Integer(0);
        sink.Hex(2);
        sink.End();
    }
    sink.End();
}

/// One per part, in the order of the levels.
void primitiveStates(ShapeSink &sink, const ShapeModel &model)
{
    const std::vector<std::string> shaders = shadersOf(model);
    const std::vector<VertexState> states = vertexStatesOf(model);
    std::size_t parts = 0;
    for (const ShapeLevel &level : model.levels)
        parts += level.parts.size();
    sink.Begin("prim_states");
    sink.Count(count(parts));
    for (const ShapeLevel &level : model.levels) {
        for (const ShapePart &part : level.parts) {
            sink.Begin("prim_state", part.name);
            sink.Hex(0);
            sink.Count(placeOf(shaders, part.shader));
            numbers(sink, "tex_idxs", {1, part.image});
            sink.Real(0);
            sink.Count(placeOf(states, stateOf(part)));
            sink.Count(part.alphaTest ? 1 : 0);
            sink.Count(0);
            sink.Count(1);
            sink.End();
        }
    }
    sink.End();
}

void geometryNode(ShapeSink &sink, const ShapeLevel &level, std::size_t matrix)
{
    std::uint32_t parts = 0;
    std::uint32_t indices = 0;
    for (const ShapePart &part : level.parts) {
        if (part.matrix == matrix) {
            ++parts;
            indices += count(part.indices.size());
        }
    }
    sink.Begin("geometry_node");
    for (const std::uint32_t value : {parts, 0U, 0U, 0U, 0U})
        sink.Count(value);
    numbers(sink, "cullable_prims", {parts, parts, indices});
    sink.End();
}

void geometryInfo(ShapeSink &sink, const ShapeModel &model, const ShapeLevel &level)
{
    std::uint32_t indices = 0;
    for (const ShapePart &part : level.parts)
        indices += count(part.indices.size());
    const std::uint32_t parts = count(level.parts.size());
    const std::vector<int> nodes = nodeOfMatrix(model, level);
    sink.Begin("geometry_info");
    for (const std::uint32_t value : {indices / 3, parts, 0U, indices, 0U, 0U, parts, 0U, 0U, 0U})
        sink.Count(value);
    sink.Begin("geometry_nodes");
    sink.Count(count(nodes.size()) -
               count(static_cast<std::size_t>(std::count(nodes.begin(), nodes.end(), -1))));
    for (std::size_t i = 0; i < nodes.size(); ++i)
        if (nodes[i] >= 0)
            geometryNode(sink, level, i);
    sink.End();
    sink.Begin("geometry_node_map");
    sink.Count(count(nodes.size()));
    for (const int node : nodes)
        sink.Integer(node);
    sink.End();
    sink.End();
}

void subObjectHeader(ShapeSink &sink, const ShapeModel &model, const ShapeLevel &level)
{
    sink.Begin("sub_object_header");
    sink.Hex(0x400);
    sink.Integer(-1);
    sink.Integer(-1);
    sink.Hex(0x1D2);
    sink.Hex(0x1C4);
    geometryInfo(sink, model, level);
    numbers(sink, "subobject_shaders", {1, 0});
    numbers(sink, "subobject_light_cfgs", {1, 0});
    sink.Count(0);
    sink.End();
}

void vertices(ShapeSink &sink, const ShapeModel &model, const ShapeLevel &level)
{
    std::uint32_t total = 0;
    for (const ShapePart &part : level.parts)
        total += count(part.corners.size());
    sink.Begin("vertices");
    sink.Count(total);
    for (const ShapePart &part : level.parts) {
        for (const Corner &corner : part.corners) {
            sink.Begin("vertex");
            sink.Hex(0);
            sink.Count(corner.point);
            sink.Count(corner.normal);
            sink.Hex(0xFFFFFFFF);
            sink.Hex(0xFF000000);
            numbers(sink, "vertex_uvs", {1, corner.uv});
            sink.End();
        }
    }
    sink.End();
    sink.Begin("vertex_sets");
    sink.Count(count(level.parts.size()));
    const std::vector<VertexState> states = vertexStatesOf(model);
    std::uint32_t first = 0;
    for (const ShapePart &part : level.parts) {
        numbers(sink, "vertex_set",
                {placeOf(states, stateOf(part)), first, count(part.corners.size())});
        first += count(part.corners.size());
    }
    sink.End();
}

void triangles(ShapeSink &sink, const ShapePart &part, std::uint32_t firstCorner)
{
    const std::uint32_t number = count(part.indices.size() / 3);
    sink.Begin("indexed_trilist");
    sink.Begin("vertex_idxs");
    sink.Count(number * 3);
    for (const std::uint32_t index : part.indices)
        sink.Count(firstCorner + index);
    sink.End();
    sink.Begin("normal_idxs");
    sink.Count(number);
    for (std::size_t i = 0; i < number; ++i) {
        sink.Count(part.corners[part.indices[i * 3]].normal);
        sink.Count(3);
    }
    sink.End();
    sink.Begin("flags");
    sink.Count(number);
    for (std::uint32_t i = 0; i < number; ++i)
        sink.Hex(0);
    sink.End();
    sink.End();
}

void primitives(ShapeSink &sink, const ShapeLevel &level, std::uint32_t firstState)
{
    sink.Begin("primitives");
    sink.Count(2 * count(level.parts.size()));
    std::uint32_t firstCorner = 0;
    for (std::uint32_t i = 0; i < level.parts.size(); ++i) {
        numbers(sink, "prim_state_idx", {firstState + i});
        triangles(sink, level.parts[i], firstCorner);
        firstCorner += count(level.parts[i].corners.size());
    }
    sink.End();
}

void levelHeader(ShapeSink &sink, const ShapeModel &model, const ShapeLevel &level)
{
    sink.Begin("distance_level_header");
    sink.Begin("dlevel_selection");
    sink.Real(level.distance);
    sink.End();
    sink.Begin("hierarchy");
    sink.Count(count(model.matrices.size()));
    for (const ShapeMatrix &matrix : model.matrices)
        sink.Integer(matrix.parent);
    sink.End();
    sink.End();
}

void levels(ShapeSink &sink, const ShapeModel &model)
{
    sink.Begin("lod_controls");
    sink.Count(1);
    sink.Begin("lod_control");
    numbers(sink, "distance_levels_header", {0});
    sink.Begin("distance_levels");
    sink.Count(count(model.levels.size()));
    std::uint32_t firstState = 0;
    for (const ShapeLevel &level : model.levels) {
        sink.Begin("distance_level");
        levelHeader(sink, model, level);
        sink.Begin("sub_objects");
        sink.Count(1);
        sink.Begin("sub_object");
        subObjectHeader(sink, model, level);
        vertices(sink, model, level);
        primitives(sink, level, firstState);
        for (int open = 3; open > 0; --open)
            sink.End();
        firstState += count(level.parts.size());
    }
    for (int open = 3; open > 0; --open)
        sink.End();
}

void turn(ShapeSink &sink, const ShapeMatrix &matrix)
{
    sink.Begin("anim_node", matrix.label);
    sink.Begin("controllers");
    sink.Count(matrix.turn.empty() ? 0 : 1);
    if (!matrix.turn.empty()) {
        sink.Begin("tcb_rot");
        sink.Count(count(matrix.turn.size()));
        for (const RotationKey &key : matrix.turn) {
            sink.Begin("slerp_rot");
            sink.Count(key.frame);
            for (const float number : key.rotation)
                sink.Real(number);
            sink.End();
        }
        sink.End();
    }
    sink.End();
    sink.End();
}

void animations(ShapeSink &sink, const ShapeModel &model)
{
    sink.Begin("animations");
    sink.Count(1);
    sink.Begin("animation");
    sink.Count(model.frames);
    sink.Count(30);
    sink.Begin("anim_nodes");
    sink.Count(count(model.matrices.size()));
    for (const ShapeMatrix &matrix : model.matrices)
        turn(sink, matrix);
    for (int open = 3; open > 0; --open)
        sink.End();
}

void describe(ShapeSink &sink, const ShapeModel &model)
{
    sink.Begin("shape");
    head(sink, model);
    geometry(sink, model);
    textures(sink, model);
    lighting(sink);
    vertexStates(sink, model);
    primitiveStates(sink, model);
    levels(sink, model);
    if (model.frames != 0)
        animations(sink, model);
    sink.End();
}

std::string textOf(const ShapeModel &model)
{
    TextShapeSink sink;
    describe(sink, model);
    return sink.Result().substr(1) + '\n';
}

std::string payloadOf(const ShapeModel &model, bool oddHeader)
{
    BinaryShapeSink sink;
    describe(sink, model);
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
        return "\r\n" + EncodeText("s1", textOf(model), {.encoding = Encoding::Windows1252});
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
    ShapePart part;
    part.name = "MAIN_a";
    part.corners = {{0, 0, 0}, {1, 0, 1}, {2, 0, 2}};
    part.indices = {0, 1, 2};
    model.levels.push_back({.parts = {std::move(part)}});
    return model;
}

} // namespace samples
