// SPDX-License-Identifier: MIT
#include "TestShape.h"

#include <cstdio>

namespace {

std::string number(float value)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%g ", static_cast<double>(value));
    return text.data();
}

/// Returns "NAME ( count entries )".
std::string list(const std::string &name, std::size_t count, const std::string &entries)
{
    return name + " ( " + std::to_string(count) + ' ' + entries + ")\n";
}

std::string vectorText(const char *name, korvat::Vec3 v)
{
    return std::string(name) + " ( " + number(v.x) + number(v.y) + number(v.z) + ") ";
}

void appendNumber(std::string &bytes, std::uint32_t value)
{
    for (int shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(value >> shift & 0xFF);
}

/// Returns the blocks that have one entry for each panel.
struct Lists
{
    std::string shaders, points, normals, images, textures, looks, states, vertices, primitives;

    void Add(const Panel &panel, std::size_t place)
    {
        const std::string at = std::to_string(place);
        shaders += "named_shader ( " + panel.shader + " ) ";
        images += "image ( " + panel.image + " ) ";
        textures += "texture ( " + at + " 0 0 ff000000 ) ";
        looks += "vtx_state ( 00000000 0 " + std::to_string(panel.lightMaterial) + " 0 00000002 ) ";
        states += "prim_state P" + at + " ( 00000000 " + at + " tex_idxs ( 1 " + at + " ) 0 " + at +
                  ' ' + std::to_string(panel.alphaTest) + " 0 1 ) ";
        const auto &c = panel.corners;
        normals +=
            vectorText("vector", korvat::Normalised(korvat::Cross(c[1] - c[0], c[2] - c[0])));
        for (std::size_t i = 0; i < 4; ++i) {
            points += vectorText("point", c[i]);
            vertices += "vertex ( 00000000 " + std::to_string(4 * place + i) + ' ' + at +
                        " ffffffff ff000000 vertex_uvs ( 1 " + std::to_string(i) + " ) ) ";
        }
        const auto corner = [place](std::size_t i) { return std::to_string(4 * place + i) + ' '; };
        primitives += "prim_state_idx ( " + at + " ) indexed_trilist ( vertex_idxs ( 6 " +
                      corner(0) + corner(1) + corner(2) + corner(0) + corner(2) + corner(3) +
                      ") normal_idxs ( 2 0 3 0 3 ) flags ( 2 00000000 00000000 ) ) ";
    }
};

} // namespace

Panel SidePanel(float x, float facing, korvat::Vec3 middle, float length, float height)
{
    const float z = facing * length / 2, y = height / 2;
    const auto corner = [&](float dy, float dz) {
        return korvat::Vec3{x, middle.y + dy, middle.z + dz};
    };
    return {{corner(y, -z), corner(y, z), corner(-y, z), corner(-y, -z)}};
}

Panel EndPanel(float z, float facing, korvat::Vec3 middle, float width, float height)
{
    const float x = facing * width / 2, y = height / 2;
    const auto corner = [&](float dx, float dy) {
        return korvat::Vec3{middle.x + dx, middle.y + dy, z};
    };
    return {{corner(x, y), corner(-x, y), corner(-x, -y), corner(x, -y)}};
}

std::string ShapeText(const std::vector<Panel> &panels, const std::string &filter)
{
    Lists lists;
    for (std::size_t place = 0; place < panels.size(); ++place)
        lists.Add(panels[place], place);
    const std::size_t count = panels.size();
    return "SIMISA@@@@@@@@@@JINX0s1t______\n\nshape ( shape_header ( 00000000 00000000 )\n" +
           list("volumes", 1, "vol_sphere ( vector ( 0 0 0 ) 20 ) ") +
           list("shader_names", count, lists.shaders) +
           list("texture_filter_names", 1, "named_filter_mode ( " + filter + " ) ") +
           list("points", 4 * count, lists.points) +
           list("uv_points", 4,
                "uv_point ( 0 0 ) uv_point ( 1 0 ) uv_point ( 1 1 ) uv_point ( 0 1 ) ") +
           list("normals", count, lists.normals) + list("sort_vectors", 0, "") +
           list("colours", 0, "") +
           list("matrices", 1, "matrix MAIN ( 1 0 0 0 1 0 0 0 1 0 0 0 ) ") +
           list("images", count, lists.images) + list("textures", count, lists.textures) +
           list("light_materials", 0, "") +
           list("light_model_cfgs", 1,
                "light_model_cfg ( 00000000 uv_ops ( 1 uv_op_copy ( 1 0 ) ) ) ") +
           list("vtx_states", count, lists.looks) + list("prim_states", count, lists.states) +
           "lod_controls ( 1 lod_control ( distance_levels_header ( 0 ) distance_levels ( 1\n"
           "distance_level ( distance_level_header ( dlevel_selection ( 2000 ) hierarchy ( 1 -1 ) "
           ")\n"
           "sub_objects ( 1 sub_object (\n"
           "sub_object_header ( 00000400 -1 -1 000001d2 000001c4 geometry_info ( 1 1 0 3 0 0 1 0 0 "
           "0 "
           "geometry_nodes ( 0 ) geometry_node_map ( 1 0 ) ) subobject_shaders ( 1 0 ) "
           "subobject_light_cfgs ( 1 0 ) 0 )\n" +
           list("vertices", 4 * count, lists.vertices) +
           list("vertex_sets", 1, "vertex_set ( 0 0 " + std::to_string(4 * count) + " ) ") +
           list("primitives", 2 * count, lists.primitives) + ") ) ) ) ) ) )\n";
}

std::string PictureFile(unsigned width, unsigned height,
                        const std::function<Pixel(unsigned x, unsigned y)> &pixel)
{
    std::string bytes = "DDS ";
    // Size, flags, height, width, pitch, depth, levels; then the pixel format.
    for (const std::uint32_t value : {124u, 0x100Fu, height, width, width * 4, 0u, 1u})
        appendNumber(bytes, value);
    bytes.append(44, '\0');
    for (const std::uint32_t value :
         {32u, 0x41u, 0u, 32u, 0x00FF0000u, 0x0000FF00u, 0x000000FFu, 0xFF000000u, 0x1000u})
        appendNumber(bytes, value);
    bytes.append(16, '\0');
    for (unsigned y = 0; y < height; ++y)
        for (unsigned x = 0; x < width; ++x) {
            const Pixel p = pixel(x, y);
            for (const std::uint8_t byte : {p[2], p[1], p[0], p[3]})
                bytes += static_cast<char>(byte);
        }
    return bytes;
}

std::string PictureFile(Pixel colour)
{
    return PictureFile(4, 4, [colour](unsigned, unsigned) { return colour; });
}

std::string LetterFile()
{
    return PictureFile(5, 7, [](unsigned x, unsigned y) {
        return kLetter[y][x] == '#' ? Pixel{255, 255, 255, 255} : Pixel{0, 0, 160, 255};
    });
}
