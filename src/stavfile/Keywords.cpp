// SPDX-License-Identifier: MIT
#include "stavfile/Keywords.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace stavfile {
namespace {

constexpr Keyword text(std::string_view name, int strings)
{
    return {name, strings, false, false};
}
constexpr Keyword plain(std::string_view name)
{
    return {name, 0, false, false};
}
constexpr Keyword shape(std::string_view name)
{
    return {name, 0, true, false};
}
constexpr Keyword labelled(std::string_view name)
{
    return {name, 0, true, true};
}
constexpr Keyword shapeText(std::string_view name)
{
    return {name, 1, true, false};
}

constexpr std::array kKeywords = {
    // Stock, consists, activities, services, routes, sounds, cabs.
    text("Wagon", 1),
    text("Engine", 1),
    text("TrainCfg", 1),
    text("Name", 1),
    text("EngineData", 2),
    text("WagonData", 2),
    text("EOTData", 2),
    text("LoadData", 2),
    text("WagonShape", 1),
    text("FreightAnim", 1),
    text("Sound", 1),
    text("CabView", 1),
    text("Thumbnail", 1),
    text("Description", 1),
    text("Briefing", 1),
    text("Type", 1),
    text("BrakeSystemType", 1),
    text("BrakeEquipmentType", 1),
    text("PassengerCabinFile", 1),
    text("ORTS3DCabFile", 1),
    text("FrontCouplerAnim", 1),
    text("RearCouplerAnim", 1),
    text("FrontCouplerOpenAnim", 1),
    text("RearCouplerOpenAnim", 1),
    text("File", 1),
    text("CabViewFile", 1),
    text("CabViewWindowFile", 1),
    text("Graphic", 1),
    text("FuelCoal", 1),
    text("Train_Config", 1),
    text("PathID", 1),
    text("RouteID", 1),
    text("FileName", 1),
    text("LoadingScreen", 1),
    text("Player_Service_Definition", 1),
    text("Service_Definition", 1),
    text("Player_Traffic_Definition", 1),
    text("Traffic_Definition", 1),
    text("include", 1),
    text("DefaultSignalSMS", 1),
    text("DefaultCrossingSMS", 1),
    text("DefaultWaterTowerSMS", 1),
    text("DefaultCoalTowerSMS", 1),
    text("DefaultDieselTowerSMS", 1),
    text("SpringClear", 1),
    text("SpringRain", 1),
    text("SpringSnow", 1),
    text("SummerClear", 1),
    text("SummerRain", 1),
    text("SummerSnow", 1),
    text("AutumnClear", 1),
    text("AutumnRain", 1),
    text("AutumnSnow", 1),
    text("WinterClear", 1),
    text("WinterRain", 1),
    text("WinterSnow", 1),
    plain("Train"),
    plain("Serial"),
    plain("MaxVelocity"),
    plain("NextWagonUID"),
    plain("NextWagonId"),
    plain("Durability"),
    plain("Default"),
    plain("UiD"),
    plain("Flip"),
    plain("EngineVariables"),
    plain("ORTSEOT"),
    plain("Size"),
    plain("Mass"),
    plain("Inside"),
    plain("PassengerCabinHeadPos"),
    plain("RotationLimit"),
    plain("StartDirection"),
    plain("Coupling"),
    plain("ORTSFreightAnims"),
    plain("ORTS3DCab"),
    plain("Lights"),
    plain("Light"),
    plain("MaxBrakeForce"),
    plain("NumWheels"),
    plain("WheelRadius"),
    plain("CouplingUniqueType"),
    plain("MaxPower"),
    plain("MaxForce"),
    plain("MaxContinuousForce"),
    plain("HeadOut"),
    plain("EngineControllers"),
    plain("Effects"),
    plain("Tr_Activity"),
    plain("Tr_Activity_Header"),
    plain("Tr_Activity_File"),
    plain("ActivityObjects"),
    plain("ActivityObject"),
    plain("ObjectType"),
    plain("Direction"),
    plain("ID"),
    plain("Tile"),
    plain("Events"),
    plain("NextServiceUID"),
    plain("NextActivityObjectUID"),
    plain("Tr_RouteFile"),
    plain("Environment"),
    plain("Electrified"),
    plain("Tr_SMS"),
    plain("ScalabiltyGroup"),
    plain("Activation"),
    plain("Deactivation"),
    plain("Volume"),
    plain("Streams"),
    plain("Stream"),
    plain("Priority"),
    plain("Triggers"),
    plain("Initial_Trigger"),
    plain("Variable_Trigger"),
    plain("Discrete_Trigger"),
    plain("StartLoop"),
    plain("StartLoopRelease"),
    plain("PlayOneShot"),
    plain("SelectionMethod"),
    plain("FrequencyCurve"),
    plain("CurvePoints"),
    plain("Granularity"),
    plain("Tr_CabViewFile"),
    plain("CabViewType"),
    plain("CabViewWindow"),
    plain("Position"),
    plain("CabViewControls"),
    plain("ESD_Detail_Level"),
    plain("ESD_Alternative_Texture"),
    plain("ESD_Bounding_Box"),
    plain("ESD_No_Visual_Obstruction"),
    plain("ESD_Snapable"),
    plain("ESD_SubObj"),
    plain("ESD_Software_DLev"),
    plain("ESD_Complex"),
    plain("ESD_Tunnel"),
    plain("ESD_Sphere"),
    // Shapes; the misspellings are part of the names.
    labelled("matrix"),
    labelled("prim_state"),
    labelled("anim_node"),
    shapeText("image"),
    shapeText("named_shader"),
    shapeText("shader_name"),
    shapeText("named_filter_mode"),
    shapeText("texture_filter_name"),
    text("shape", 1),
    shape("point"),
    shape("vector"),
    shape("quat"),
    shape("normals"),
    shape("normal_idxs"),
    shape("points"),
    shape("uv_point"),
    shape("uv_points"),
    shape("colour"),
    shape("colours"),
    shape("packed_colour"),
    shape("images"),
    shape("texture"),
    shape("textures"),
    shape("light_material"),
    shape("light_materials"),
    shape("linear_key"),
    shape("tcb_key"),
    shape("linear_pos"),
    shape("tcb_pos"),
    shape("slerp_rot"),
    shape("tcb_rot"),
    shape("controllers"),
    shape("anim_nodes"),
    shape("animation"),
    shape("animations"),
    shape("anim"),
    shape("lod_controls"),
    shape("lod_control"),
    shape("distance_levels_header"),
    shape("distance_level_header"),
    shape("dlevel_selection"),
    shape("distance_levels"),
    shape("distance_level"),
    shape("sub_objects"),
    shape("sub_object"),
    shape("sub_object_header"),
    shape("geometry_info"),
    shape("geometry_nodes"),
    shape("geometry_node"),
    shape("geometry_node_map"),
    shape("cullable_prims"),
    shape("vtx_state"),
    shape("vtx_states"),
    shape("vertex"),
    shape("vertex_uvs"),
    shape("vertices"),
    shape("vertex_set"),
    shape("vertex_sets"),
    shape("primitives"),
    shape("prim_states"),
    shape("prim_state_idx"),
    shape("indexed_point_list"),
    shape("point_list"),
    shape("indexed_line_list"),
    shape("indexed_trilist"),
    shape("tex_idxs"),
    shape("tri"),
    shape("vertex_idxs"),
    shape("flags"),
    shape("matrices"),
    shape("hierarchy"),
    shape("volumes"),
    shape("vol_sphere"),
    shape("shape_header"),
    shape("shader_names"),
    shape("texture_filter_names"),
    shape("sort_vectors"),
    shape("uvop_arg_sets"),
    shape("uvop_arg_set"),
    shape("light_model_cfgs"),
    shape("light_model_cfg"),
    shape("uv_ops"),
    shape("uv_op_share"),
    shape("uv_op_copy"),
    shape("uv_op_uniformscale"),
    shape("uv_op_nonuniformscale"),
    shape("uv_op_transform"),
    shape("uv_op_reflectxy"),
    shape("uv_op_reflectmap"),
    shape("uv_op_reflectmapfull"),
    shape("uv_op_spheremap"),
    shape("uv_op_spheremapfull"),
    shape("uv_op_specularmap"),
    shape("uv_op_embossbump"),
    shape("subobject_shaders"),
    shape("subobject_light_cfgs"),
};

constexpr char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

constexpr std::size_t kSlots = 1024;

constexpr std::uint32_t hashOf(std::string_view name)
{
    std::uint32_t hash = static_cast<std::uint32_t>(name.size());
    const auto mix = [&hash](char c) { hash = hash * 33 + static_cast<unsigned char>(lower(c)); };
    mix(name.front());
    mix(name[name.size() / 2]);
    mix(name[name.size() * 3 / 4]);
    mix(name.back());
    return hash ^ hash >> 10;
}

/// Open addressing: a slot holds the index of a keyword plus one, or 0 if it is free, and the rest
/// of the hash, so that a name is compared with hardly any keyword but its own.
struct Slot
{
    std::uint16_t place = 0;
    std::uint16_t rest = 0;
};

constexpr std::uint16_t restOf(std::uint32_t hash)
{
    return static_cast<std::uint16_t>(hash >> 10);
}

constexpr std::array<Slot, kSlots> makeSlots()
{
    std::array<Slot, kSlots> slots{};
    for (std::size_t i = 0; i < kKeywords.size(); ++i) {
        const std::uint32_t hash = hashOf(kKeywords[i].name);
        std::size_t slot = hash % kSlots;
        while (slots[slot].place)
            slot = (slot + 1) % kSlots;
        slots[slot] = {static_cast<std::uint16_t>(i + 1), restOf(hash)};
    }
    return slots;
}

constexpr std::array kTable = makeSlots();

constexpr bool sameName(std::string_view keyword, std::string_view name)
{
    if (keyword.size() != name.size())
        return false;
    if (keyword == name) // as nearly all are spelled
        return true;
    for (std::size_t i = 0; i < name.size(); ++i)
        if (lower(keyword[i]) != lower(name[i]))
            return false;
    return true;
}

constexpr const Keyword *find(std::string_view name)
{
    if (name.empty())
        return nullptr;
    const std::uint32_t hash = hashOf(name);
    for (std::size_t slot = hash % kSlots; kTable[slot].place; slot = (slot + 1) % kSlots) {
        const Keyword &keyword = kKeywords[kTable[slot].place - 1U];
        if (kTable[slot].rest == restOf(hash) && sameName(keyword.name, name))
            return &keyword;
    }
    return nullptr;
}

static_assert(std::all_of(kKeywords.begin(), kKeywords.end(),
                          [](const Keyword &keyword) { return find(keyword.name) == &keyword; }));

} // namespace

const Keyword *FindKeyword(std::string_view name)
{
    return find(name);
}

} // namespace stavfile
