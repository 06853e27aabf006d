// SPDX-License-Identifier: MIT
#include "korvat/formats/ShapeTokens.h"

#include <array>
#include <utility>

namespace korvat {
namespace {

constexpr std::pair<Token, std::string_view> kTokens[] = {
    {Token::Point, "point"},
    {Token::Vector, "vector"},
    {Token::Normals, "normals"},
    {Token::Points, "points"},
    {Token::UvPoint, "uv_point"},
    {Token::UvPoints, "uv_points"},
    {Token::Colour, "colour"},
    {Token::Colours, "colours"},
    {Token::Image, "image"},
    {Token::Images, "images"},
    {Token::Texture, "texture"},
    {Token::Textures, "textures"},
    {Token::LightMaterial, "light_material"},
    {Token::LightMaterials, "light_materials"},
    {Token::LinearKey, "linear_key"},
    {Token::TcbKey, "tcb_key"},
    {Token::LinearPos, "linear_pos"},
    {Token::TcbPos, "tcb_pos"},
    {Token::SlerpRot, "slerp_rot"},
    {Token::TcbRot, "tcb_rot"},
    {Token::Controllers, "controllers"},
    {Token::AnimNode, "anim_node"},
    {Token::AnimNodes, "anim_nodes"},
    {Token::Animation, "animation"},
    {Token::Animations, "animations"},
    {Token::LodControls, "lod_controls"},
    {Token::LodControl, "lod_control"},
    {Token::DistanceLevelHeader, "distance_level_header"},
    {Token::DlevelSelection, "dlevel_selection"},
    {Token::DistanceLevels, "distance_levels"},
    {Token::DistanceLevel, "distance_level"},
    {Token::SubObjects, "sub_objects"},
    {Token::SubObject, "sub_object"},
    {Token::SubObjectHeader, "sub_object_header"},
    {Token::VtxState, "vtx_state"},
    {Token::VtxStates, "vtx_states"},
    {Token::Vertex, "vertex"},
    {Token::VertexUvs, "vertex_uvs"},
    {Token::Vertices, "vertices"},
    {Token::VertexSet, "vertex_set"},
    {Token::VertexSets, "vertex_sets"},
    {Token::Primitives, "primitives"},
    {Token::PrimState, "prim_state"},
    {Token::PrimStates, "prim_states"},
    {Token::PrimStateIdx, "prim_state_idx"},
    {Token::IndexedTrilist, "indexed_trilist"},
    {Token::TexIdxs, "tex_idxs"},
    {Token::VertexIdxs, "vertex_idxs"},
    {Token::Matrix, "matrix"},
    {Token::Matrices, "matrices"},
    {Token::Hierarchy, "hierarchy"},
    {Token::Volumes, "volumes"},
    {Token::VolSphere, "vol_sphere"},
    {Token::Shape, "shape"},
    {Token::ShaderNames, "shader_names"},
    {Token::TextureFilterNames, "texture_filter_names"},
    {Token::LightModelCfgs, "light_model_cfgs"},
    {Token::LightModelCfg, "light_model_cfg"},
    {Token::UvOps, "uv_ops"},
    {Token::UvOpCopy, "uv_op_copy"},
    {Token::NamedFilterMode, "named_filter_mode"},
    {Token::NamedShader, "named_shader"},
};

constexpr std::size_t kIds = 0x82; // one past the largest

/// The block names, indexed by id.
constexpr std::array<std::string_view, kIds> kNames = [] {
    std::array<std::string_view, kIds> names{};
    for (const auto &[token, name] : kTokens)
        names[static_cast<std::size_t>(token)] = name;
    return names;
}();

} // namespace

std::string_view TokenName(Token token)
{
    const auto id = static_cast<std::size_t>(token);
    return id < kNames.size() && !kNames[id].empty() ? kNames[id] : "unknown block";
}

} // namespace korvat
