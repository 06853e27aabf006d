// SPDX-License-Identifier: MIT
#include "viewer/TextureReport.h"

#include "viewer/TSView.h"

namespace viewer {
namespace {

constexpr const char *kLineEnd = "\r\n";

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
