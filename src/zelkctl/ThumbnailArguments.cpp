// SPDX-License-Identifier: MIT
#include "zelkctl/ThumbnailArguments.h"

#include "host/Number.h"

namespace zelkctl {
namespace {

constexpr int kLargestSide = 4096;
constexpr const char *kCommand = "thumbnail";

} // namespace

ThumbnailRequest RequestOf(const ThumbnailArguments &arguments)
{
    const std::optional<int> size = host::NumberIn<int>(arguments.size);
    if (!size || *size < 1 || *size > kLargestSide)
        throw Failure("--size: expected a number from 1 to " + std::to_string(kLargestSide) +
                      ", not \"" + arguments.size + "\"");
    return {arguments.file, arguments.out, *size};
}

std::vector<std::string> ToList(const ThumbnailArguments &arguments)
{
    return {kCommand, arguments.file, arguments.out, arguments.size};
}

std::optional<ThumbnailArguments> ThumbnailFromList(const std::vector<std::string> &list)
{
    if (list.size() != 4 || list[0] != kCommand)
        return std::nullopt;
    return ThumbnailArguments{list[1], list[2], list[3]};
}

} // namespace zelkctl
