// SPDX-License-Identifier: MIT
#include "korvat/ShapeTokens.h"

#include <array>
#include <utility>

namespace korvat {
namespace {

using Names = std::array<std::string_view, 0x82>;

constexpr Names makeNames()
{
    Names names{};
    const auto name = [&names](Token token, std::string_view text) {
        names[static_cast<std::size_t>(token)] = text;
    };
    name(Token::Point, "point");
    name(Token::Vector, "vector");
    name(Token::Normals, "normals");
    name(Token::Points, "points");
    name(Token::UvPoint, "uv_point");
    name(Token::UvPoints, "uv_points");
    name(Token::Colour, "colour");
    name(Token::Colours, "colours");
    name(Token::Image, "image");
    name(Token::Images, "images");
    name(Token::Texture, "texture");
    name(Token::Textures, "textures");
    name(Token::LightMaterial, "light_material");
    name(Token::LightMaterials, "light_materials");
    name(Token::LinearKey, "linear_key");
    name(Token::TcbKey, "tcb_key");
    name(Token::LinearPos, "linear_pos");
    name(Token::TcbPos, "tcb_pos");
    name(Token::SlerpRot, "slerp_rot");
    name(Token::TcbRot, "tcb_rot");
    name(Token::Controllers, "controllers");
    name(Token::AnimNode, "anim_node");
    name(Token::AnimNodes, "anim_nodes");
    name(Token::Animation, "animation");
    name(Token::Animations, "animations");
    name(Token::LodControls, "lod_controls");
    name(Token::LodControl, "lod_control");
    name(Token::DistanceLevelHeader, "distance_level_header");
    name(Token::DlevelSelection, "dlevel_selection");
    name(Token::DistanceLevels, "distance_levels");
    name(Token::DistanceLevel, "distance_level");
    name(Token::SubObjects, "sub_objects");
    name(Token::SubObject, "sub_object");
    name(Token::SubObjectHeader, "sub_object_header");
    name(Token::VtxState, "vtx_state");
    name(Token::VtxStates, "vtx_states");
    name(Token::Vertex, "vertex");
    name(Token::VertexUvs, "vertex_uvs");
    name(Token::Vertices, "vertices");
    name(Token::VertexSet, "vertex_set");
    name(Token::VertexSets, "vertex_sets");
    name(Token::Primitives, "primitives");
    name(Token::PrimState, "prim_state");
    name(Token::PrimStates, "prim_states");
    name(Token::PrimStateIdx, "prim_state_idx");
    name(Token::IndexedTrilist, "indexed_trilist");
    name(Token::TexIdxs, "tex_idxs");
    name(Token::VertexIdxs, "vertex_idxs");
    name(Token::Matrix, "matrix");
    name(Token::Matrices, "matrices");
    name(Token::Hierarchy, "hierarchy");
    name(Token::Volumes, "volumes");
    name(Token::VolSphere, "vol_sphere");
    name(Token::Shape, "shape");
    name(Token::ShaderNames, "shader_names");
    name(Token::TextureFilterNames, "texture_filter_names");
    name(Token::LightModelCfgs, "light_model_cfgs");
    name(Token::LightModelCfg, "light_model_cfg");
    name(Token::UvOps, "uv_ops");
    name(Token::UvOpCopy, "uv_op_copy");
    name(Token::NamedFilterMode, "named_filter_mode");
    name(Token::NamedShader, "named_shader");
    return names;
}

constexpr Names kNames = makeNames();

} // namespace

std::string_view TokenName(Token token)
{
    const auto id = static_cast<std::size_t>(token);
    return id < kNames.size() && !kNames[id].empty() ? kNames[id] : "unknown block";
}

} // namespace korvat
