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
    if (reasons.empty())
        return {};
    std::string text =
        std::string(kLineEnd) + kLineEnd + "Not loaded: " + std::to_string(reasons.size());
    for (std::size_t i = 0; i < reasons.size(); ++i)
        text += kLineEnd + std::to_string(i + 1) + '\t' + reasons[i];
    return text;
}

} // namespace viewer
