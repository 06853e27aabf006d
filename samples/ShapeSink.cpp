// SPDX-License-Identifier: MIT
#include "samples/ShapeSink.h"

#include "samples/Bytes.h"
#include "samples/TextWriter.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

namespace samples {
namespace {

constexpr std::array<std::pair<std::string_view, std::uint16_t>, 68> kTokens = {{
    {"point", 0x02},
    {"vector", 0x03},
    {"normals", 0x05},
    {"normal_idxs", 0x06},
    {"points", 0x07},
    {"uv_point", 0x08},
    {"uv_points", 0x09},
    {"colours", 0x0B},
    {"image", 0x0D},
    {"images", 0x0E},
    {"texture", 0x0F},
    {"textures", 0x10},
    {"light_materials", 0x12},
    {"slerp_rot", 0x17},
    {"tcb_rot", 0x18},
    {"controllers", 0x19},
    {"anim_node", 0x1A},
    {"anim_nodes", 0x1B},
    {"animation", 0x1C},
    {"animations", 0x1D},
    {"lod_controls", 0x1F},
    {"lod_control", 0x20},
    {"distance_levels_header", 0x21},
    {"distance_level_header", 0x22},
    {"dlevel_selection", 0x23},
    {"distance_levels", 0x24},
    {"distance_level", 0x25},
    {"sub_objects", 0x26},
    {"sub_object", 0x27},
    {"sub_object_header", 0x28},
    {"geometry_info", 0x29},
    {"geometry_nodes", 0x2A},
    {"geometry_node", 0x2B},
    {"geometry_node_map", 0x2C},
    {"cullable_prims", 0x2D},
    {"vtx_state", 0x2E},
    {"vtx_states", 0x2F},
    {"vertex", 0x30},
    {"vertex_uvs", 0x31},
    {"vertices", 0x32},
    {"vertex_set", 0x33},
    {"vertex_sets", 0x34},
    {"primitives", 0x35},
    {"prim_state", 0x36},
    {"prim_states", 0x37},
    {"prim_state_idx", 0x38},
    {"indexed_trilist", 0x3C},
    {"tex_idxs", 0x3D},
    {"vertex_idxs", 0x3F},
    {"flags", 0x40},
    {"matrix", 0x41},
    {"matrices", 0x42},
    {"hierarchy", 0x43},
    {"volumes", 0x44},
    {"vol_sphere", 0x45},
    {"shape_header", 0x46},
    {"shape", 0x47},
    {"shader_names", 0x48},
    {"texture_filter_names", 0x4A},
    {"sort_vectors", 0x4C},
    {"light_model_cfgs", 0x4F},
    {"light_model_cfg", 0x50},
    {"uv_ops", 0x51},
    {"uv_op_copy", 0x54},
    {"subobject_shaders", 0x68},
    {"subobject_light_cfgs", 0x69},
    {"named_filter_mode", 0x7D},
    {"named_shader", 0x81},
}};

std::uint16_t tokenOf(std::string_view name)
{
    const auto named = [&](const auto &entry) { return entry.first == name; };
    if (const auto *at = std::find_if(kTokens.begin(), kTokens.end(), named); at != kTokens.end())
        return at->second;
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
        m_out += '\n' + std::string(static_cast<std::size_t>(m_depth), '\t');
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

void TextShapeSink::Hex(std::uint32_t value)
{
    m_out += ' ';
    for (int shift = 28; shift >= 0; shift -= 4)
        m_out += "0123456789abcdef"[value >> static_cast<unsigned>(shift) & 15U];
}

void TextShapeSink::Count(std::uint32_t value)
{
    m_out += ' ' + std::to_string(value);
}

void TextShapeSink::Integer(std::int32_t value)
{
    m_out += ' ' + std::to_string(value);
}

void TextShapeSink::Real(float value)
{
    m_out += ' ' + Number(value);
}

void TextShapeSink::Text(std::string_view value)
{
    m_out += ' ' + Quoted(value);
}

void BinaryShapeSink::Begin(std::string_view name, std::string_view label)
{
    AppendU32(m_out, tokenOf(name));
    AppendU32(m_out, 0); // the length, known at the end
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

void BinaryShapeSink::Hex(std::uint32_t value)
{
    AppendU32(m_out, value);
}

void BinaryShapeSink::Count(std::uint32_t value)
{
    AppendU32(m_out, value);
}

void BinaryShapeSink::Integer(std::int32_t value)
{
    AppendU32(m_out, static_cast<std::uint32_t>(value));
}

void BinaryShapeSink::Real(float value)
{
    AppendF32(m_out, value);
}

void BinaryShapeSink::Text(std::string_view value)
{
    AppendU16(m_out, static_cast<std::uint16_t>(value.size()));
    appendUnits(m_out, value);
}

} // namespace samples
