// SPDX-License-Identifier: MIT
#include "zelkctl/ShapeCommand.h"

#include "korvat/formats/ReadShape.h"
#include "korvat/model/Geometry.h"
#include "zelkctl/Session.h"

#include <charconv>
#include <cmath>
#include <memory>

namespace zelkctl {
namespace {

/// Returns a number in its shortest form; null if it is not finite.
std::string number(float value)
{
    char text[32];
    if (!std::isfinite(value))
        return "null";
    const auto result = std::to_chars(std::begin(text), std::end(text), value);
    return {text, result.ptr};
}

void writeNames(Output &out, const char *key, const std::vector<std::string> &names)
{
    out.Write(std::string(",\"") + key + "\":[");
    const char *separator = "";
    for (const std::string &name : names) {
        out.Write(separator);
        out.WriteJson(name);
        separator = ",";
    }
    out.Write("]");
}

void writeCount(Output &out, const char *key, std::size_t count)
{
    out.Write(std::string(",\"") + key + "\":" + std::to_string(count));
}

void writeLevels(Output &out, const korvat::Shape &shape)
{
    out.Write(",\"levels\":[");
    const char *separator = "{\"distance\":";
    for (const korvat::LodControl &control : shape.lodControls)
        for (const korvat::Level &level : control.levels) {
            const korvat::Geometry geometry = MakeGeometry(shape, level);
            out.Write(separator + number(level.distance));
            writeCount(out, "vertices", geometry.vertices.size());
            writeCount(out, "triangles", geometry.triangles);
            out.Write("}");
            separator = ",{\"distance\":";
        }
    out.Write("]");
}

void writeBounds(Output &out, const std::optional<korvat::Bounds> &bounds)
{
    if (!bounds)
        return out.Write(",\"bounds\":null");
    const auto [a, b] = *bounds;
    std::string text;
    for (const float value : {a.x, a.y, a.z, b.x, b.y, b.z})
        text += (text.empty() ? "" : ",") + number(value);
    out.Write(",\"bounds\":[" + text + "]");
}

void writeShape(Output &out, const korvat::ShapeFile &file)
{
    const korvat::Shape &shape = file.shape;
    std::vector<std::string> matrices;
    for (const korvat::NamedMatrix &matrix : shape.matrices)
        matrices.push_back(matrix.name);
    out.Write(std::string("{\"form\":\"") + ShapeFormName(file.form) + "\"");
    writeCount(out, "points", shape.points.size());
    writeCount(out, "normals", shape.normals.size());
    writeCount(out, "uvs", shape.uvs.size());
    writeNames(out, "matrices", matrices);
    writeNames(out, "images", shape.images);
    writeLevels(out, shape);
    writeBounds(out, RestBounds(shape));
    writeCount(out, "animations", shape.animations.size());
    out.Write("}\n");
}

void shape(Session &session, const std::string &path)
{
    NamingFile(path, [&] {
        const korvat::ShapeFile file = korvat::ReadShape(session.files.ReadFile(path));
        if (file.error)
            throw Failure(path + ": " + file.error.text);
        writeShape(session.out, file);
    });
}

} // namespace

void AddShapeCommand(CLI::App &app, Session &session)
{
    const auto path = std::make_shared<std::string>();
    CLI::App *command = app.add_subcommand("shape", "Show what a shape (.s) holds as JSON");
    command->add_option("file", *path, "The shape")->required()->type_name("FILE");
    command->callback([&session, path] { shape(session, *path); });
}

} // namespace zelkctl
