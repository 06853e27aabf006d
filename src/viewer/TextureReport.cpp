// SPDX-License-Identifier: MIT
#include "viewer/TextureReport.h"

#include "host/Path.h"
#include "viewer/TSView.h"

#include <unordered_map>

namespace viewer {
namespace {

constexpr const char *kLineEnd = "\r\n";
constexpr const char *kBetween = "\r\n\r\n";

std::string texturesOf(const TSViewObject &object, const std::string &heading)
{
    const int count = object.NumTextures();
    std::string text = heading + "Textures: " + std::to_string(count);
    for (int i = 1; i <= count; ++i)
        text += kLineEnd + std::to_string(i) + '\t' + object.Texture(i);
    return text;
}

std::string numbered(const std::string &heading, const std::vector<std::string> &lines)
{
    if (lines.empty())
        return {};
    std::string text = kBetween + heading + std::to_string(lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i)
        text += kLineEnd + std::to_string(i + 1) + '\t' + lines[i];
    return text;
}

} // namespace

std::string ShapeTextures(const ViewObjects &objects)
{
    return objects.Count() > 0 ? texturesOf(objects.Item(1), "Shape ") : std::string();
}

std::string ConsistTextures(const ViewObjects &objects)
{
    std::string text = "All Consist Textures";
    for (int place = 1; place <= objects.Count(); ++place)
        text += std::string(kLineEnd) + kLineEnd +
                texturesOf(objects.Item(place), "Item " + std::to_string(place) + ' ');
    return text;
}

std::string AddedTextures(const ViewObjects &objects)
{
    std::vector<const TSViewObject::Added *> shapes; // one of each file
    std::unordered_map<std::string, int> uses;
    for (int place = 1; place <= objects.Count(); ++place)
        for (const TSViewObject::Added &added : objects.Item(place).AddedShapes())
            if (uses[added.file]++ == 0)
                shapes.push_back(&added);
    if (shapes.empty())
        return {};
    std::string text = std::string(kBetween) + "Added Shapes: " + std::to_string(shapes.size());
    for (const TSViewObject::Added *added : shapes) {
        const ShapeModel &model = added->model;
        const int times = uses[added->file];
        text += kBetween + std::string(host::path::FileName(added->file)) +
                (times > 1 ? " (" + std::to_string(times) + " times)" : "") +
                " Textures: " + std::to_string(model.TextureCount());
        for (int i = 0; i < model.TextureCount(); ++i)
            text += kLineEnd + std::to_string(i + 1) + '\t' + model.TextureInfo(i);
    }
    return text;
}

std::string NotLoaded(const std::vector<std::string> &reasons)
{
    return numbered("Not loaded: ", reasons);
}

std::string Incomplete(const std::vector<std::string> &faults)
{
    return numbered("Incomplete: ", faults);
}

} // namespace viewer
