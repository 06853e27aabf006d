// SPDX-License-Identifier: MIT
#include "samples/ShapeSink.h"

#include "samples/Bytes.h"
#include "samples/TextWriter.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace samples {
namespace {

/// Block names whose tokens are consecutive numbers.
struct Tokens
{
    std::uint32_t first;
    std::array<std::string_view, 8> names;
};

// clang-format off
constexpr std::array kTokens = std::to_array<Tokens>({
    {0x02, {"point", "vector"}},
    {0x05, {"normals", "normal_idxs", "points", "uv_point", "uv_points"}},
    {0x0B, {"colours"}},
    {0x0D, {"image", "images", "texture", "textures"}},
    {0x12, {"light_materials"}},
    {0x17, {"slerp_rot", "tcb_rot", "controllers", "anim_node", "anim_nodes", "animation", "animations"}},
    {0x1F, {"lod_controls", "lod_control", "distance_levels_header", "distance_level_header", "dlevel_selection"}},
    {0x24, {"distance_levels", "distance_level", "sub_objects", "sub_object", "sub_object_header"}},
    {0x29, {"geometry_info", "geometry_nodes", "geometry_node", "geometry_node_map", "cullable_prims"}},
    {0x2E, {"vtx_state", "vtx_states", "vertex", "vertex_uvs", "vertices", "vertex_set", "vertex_sets"}},
    {0x35, {"primitives", "prim_state", "prim_states", "prim_state_idx"}},
    {0x3C, {"indexed_trilist", "tex_idxs"}},
    {0x3F, {"vertex_idxs", "flags", "matrix", "matrices", "hierarchy", "volumes", "vol_sphere"}},
    {0x46, {"shape_header", "shape", "shader_names"}},
    {0x4A, {"texture_filter_names"}},
    {0x4C, {"sort_vectors"}},
    {0x4F, {"light_model_cfgs", "light_model_cfg", "uv_ops"}},
    {0x54, {"uv_op_copy"}},
    {0x68, {"subobject_shaders", "subobject_light_cfgs"}},
    {0x7D, {"named_filter_mode"}},
    {0x81, {"named_shader"}},
});
// clang-format on

std::uint32_t tokenOf(std::string_view name)
{
    for (const Tokens &row : kTokens) {
        const auto at = std::find(row.names.begin(), row.names.end(), name);
        if (at != row.names.end())
            return row.first + static_cast<std::uint32_t>(at - row.names.begin());
    }
    throw std::invalid_argument("no token for the block " + std::string(name));
}

void appendUnits(std::string &out, std::string_view ascii)
{
    for (const char c : ascii)
        AppendU16(out, static_cast<unsigned char>(c));
}

} // namespace

void TextShapeSink::Begin(std::string_view name, std::string_view label)
{
    if (name == "vertex_uvs" || name == "tex_idxs")
        m_out += ' ';
    else
        m_out += '\n' + std::string(m_depth, '\t');
    ++m_depth;
    m_out += name;
    if (!label.empty())
        m_out += ' ' + std::string(label);
    m_out += " (";
}

void TextShapeSink::End()
{
    --m_depth;
    m_out += " )";
}

void TextShapeSink::Put(std::int64_t value)
{
    m_out += ' ' + std::to_string(value);
}

void TextShapeSink::Put(Hex value)
{
    m_out += ' ';
    for (unsigned shift = 32; shift > 0; shift -= 4)
        m_out += "0123456789abcdef"[value.value >> (shift - 4) & 15U];
}

void TextShapeSink::Put(float value)
{
    m_out += ' ' + Number(value);
}

void TextShapeSink::Put(std::string_view value)
{
    m_out += ' ' + Quoted(value);
}

void BinaryShapeSink::Begin(std::string_view name, std::string_view label)
{
    AppendU32(m_out, tokenOf(name));
    AppendU32(m_out, 0); // the length, which End fills in
    m_open.push_back(m_out.size());
    m_out += static_cast<char>(label.size());
    appendUnits(m_out, label);
}

void BinaryShapeSink::End()
{
    std::string length;
    AppendU32(length, static_cast<std::uint32_t>(m_out.size() - m_open.back()));
    m_out.replace(m_open.back() - 4, 4, length);
    m_open.pop_back();
}

void BinaryShapeSink::Put(std::int64_t value)
{
    AppendU32(m_out, static_cast<std::uint32_t>(value));
}

void BinaryShapeSink::Put(Hex value)
{
    AppendU32(m_out, value.value);
}

void BinaryShapeSink::Put(float value)
{
    AppendF32(m_out, value);
}

void BinaryShapeSink::Put(std::string_view value)
{
    AppendU16(m_out, static_cast<std::uint16_t>(value.size()));
    appendUnits(m_out, value);
}

} // namespace samples
