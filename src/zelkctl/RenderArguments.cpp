// SPDX-License-Identifier: MIT
#include "zelkctl/RenderArguments.h"

#include "host/Number.h"

#include <array>
#include <iterator>
#include <utility>

namespace zelkctl {
namespace {

constexpr int kLargestSide = 8192;

using viewer::Season;
using viewer::ViewOptions;

constexpr std::array<std::pair<const char *, Season>, 4> kSeasons = {{{"summer", Season::Summer},
                                                                      {"spring", Season::Spring},
                                                                      {"autumn", Season::Autumn},
                                                                      {"winter", Season::Winter}}};

/// The switches, in the order of the list for the program that draws.
struct Switch
{
    bool RenderArguments::*given;
    bool ViewOptions::*option;
};
constexpr Switch kSwitches[] = {{&RenderArguments::snow, &ViewOptions::snow},
                                {&RenderArguments::night, &ViewOptions::night},
                                {&RenderArguments::lights, &ViewOptions::lights},
                                {&RenderArguments::wireframe, &ViewOptions::wireframe},
                                {&RenderArguments::boxes, &ViewOptions::boxes},
                                {&RenderArguments::normals, &ViewOptions::normals},
                                {&RenderArguments::markMissing, &ViewOptions::marksMissing}};
constexpr std::size_t kTexts = 8; ///< in the list, before the switches

/// Parses numbers between separators; returns false unless there are exactly `count`.
template <typename Number, std::size_t count>
bool parseNumbers(const std::string &text, char separator, std::array<Number, count> &numbers)
{
    const std::vector<std::string> parts = host::Split(text, separator);
    if (parts.size() != count)
        return false;
    for (std::size_t i = 0; i < count; ++i) {
        const std::optional<Number> number = host::NumberIn<Number>(parts[i]);
        if (!number)
            return false;
        numbers[i] = *number;
    }
    return true;
}

Season seasonNamed(const std::string &name)
{
    for (const auto &[known, season] : kSeasons)
        if (name == known)
            return season;
    throw Failure("--season: expected spring, summer, autumn or winter, not \"" + name + "\"");
}

ViewOptions optionsOf(const RenderArguments &arguments)
{
    ViewOptions options;
    options.season = seasonNamed(arguments.season);
    for (const Switch &each : kSwitches)
        options.*each.option = arguments.*each.given;
    return options;
}

} // namespace

RenderRequest RequestOf(const RenderArguments &arguments)
{
    RenderRequest request;
    request.file = arguments.file;
    request.out = arguments.out;
    auto &size = request.size;
    if (!parseNumbers(arguments.size, 'x', size) || size[0] < 1 || size[1] < 1 ||
        size[0] > kLargestSide || size[1] > kLargestSide)
        throw Failure("--size: expected two numbers from 1 to " + std::to_string(kLargestSide) +
                      ", as in 1280x720, not \"" + arguments.size + "\"");
    std::array<int, 1> loose{};
    if (!parseNumbers(arguments.loose, ',', loose) || loose[0] < 1)
        throw Failure("--loose: expected a number from 1 on, not \"" + arguments.loose + "\"");
    request.loose = loose[0];
    request.loads = arguments.loads;
    request.options = optionsOf(arguments);
    if (arguments.camera.empty())
        return request;
    if (!parseNumbers(arguments.camera, ',', request.camera.emplace()))
        throw Failure("--camera: expected six numbers, as in 10,2,0,0,2,0, not \"" +
                      arguments.camera + "\"");
    return request;
}

std::vector<std::string> ToList(const RenderArguments &a)
{
    std::vector<std::string> list = {a.file,   a.out,  a.size,   a.loose,
                                     a.camera, a.msts, a.season, a.loads ? "loads" : ""};
    for (const Switch &each : kSwitches)
        list.emplace_back(a.*each.given ? "on" : "");
    return list;
}

RenderArguments FromList(const std::vector<std::string> &list)
{
    if (list.size() != kTexts + std::size(kSwitches))
        throw Failure("this program draws for zelkctl, which starts it");
    RenderArguments a{list[0], list[1], list[2], list[3], list[4], list[5], list[6]};
    a.loads = !list[7].empty();
    for (std::size_t i = 0; i < std::size(kSwitches); ++i)
        a.*kSwitches[i].given = !list[kTexts + i].empty();
    return a;
}

} // namespace zelkctl
