// SPDX-License-Identifier: MIT
#include "zelkctl/RenderArguments.h"

#include "host/Number.h"

namespace zelkctl {
namespace {

constexpr int kLargestSide = 8192;

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

} // namespace

RenderRequest RequestOf(const RenderArguments &arguments)
{
    RenderRequest request{arguments.file, arguments.out, {}, 1, {}};
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
    if (arguments.camera.empty())
        return request;
    if (!parseNumbers(arguments.camera, ',', request.camera.emplace()))
        throw Failure("--camera: expected six numbers, as in 10,2,0,0,2,0, not \"" +
                      arguments.camera + "\"");
    return request;
}

std::vector<std::string> ToList(const RenderArguments &a)
{
    return {a.file, a.out, a.size, a.loose, a.camera, a.msts, a.loads ? "loads" : ""};
}

RenderArguments FromList(const std::vector<std::string> &list)
{
    if (list.size() != 7)
        throw Failure("this program draws for zelkctl, which starts it");
    return {list[0], list[1], list[2], list[3], list[4], list[5], !list[6].empty()};
}

} // namespace zelkctl
