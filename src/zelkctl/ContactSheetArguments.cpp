// SPDX-License-Identifier: MIT
#include "zelkctl/ContactSheetArguments.h"

#include "host/Number.h"
#include "host/Path.h"

namespace zelkctl {
namespace {

constexpr const char *kCommand = "contact-sheet";
constexpr int kSmallest = 64, kLargest = 1024;
constexpr std::size_t kBeforeConsists = 7;

int sizeOf(const std::string &text)
{
    const std::optional<int> size = host::NumberIn<int>(text);
    if (!size || *size < kSmallest || *size > kLargest)
        throw Failure("--size: expected a number from " + std::to_string(kSmallest) + " to " +
                      std::to_string(kLargest) + ", not \"" + text + "\"");
    return *size;
}

} // namespace

ContactSheetRequest RequestOf(const ContactSheetArguments &arguments)
{
    using host::path::HasExtension;
    ContactSheetRequest request;
    request.isPage = HasExtension(arguments.out, "html") || HasExtension(arguments.out, "htm");
    if (!request.isPage && !HasExtension(arguments.out, "png"))
        throw Failure("--out: expected a file that ends in .html or .png, not \"" + arguments.out +
                      "\"");
    if (!arguments.consists.empty() && !arguments.filter.empty())
        throw Failure("--filter chooses among all vehicles, so it cannot be used with a consist");
    request.consists = arguments.consists;
    request.filter = arguments.filter;
    request.out = arguments.out;
    request.width = sizeOf(arguments.size);
    request.units = content::UnitSystemOf(arguments.units).value_or(content::UnitSystem::Metric);
    request.loads = arguments.loads;
    return request;
}

std::vector<std::string> ToList(const ContactSheetArguments &a)
{
    std::vector<std::string> list{
        kCommand, a.out, a.filter, a.size, a.units, a.msts, a.loads ? "loads" : ""};
    list.insert(list.end(), a.consists.begin(), a.consists.end());
    return list;
}

std::optional<ContactSheetArguments> ContactSheetFromList(const std::vector<std::string> &list)
{
    if (list.size() < kBeforeConsists || list[0] != kCommand)
        return std::nullopt;
    ContactSheetArguments arguments;
    arguments.out = list[1];
    arguments.filter = list[2];
    arguments.size = list[3];
    arguments.units = list[4];
    arguments.msts = list[5];
    arguments.loads = !list[6].empty();
    arguments.consists.assign(list.begin() + kBeforeConsists, list.end());
    return arguments;
}

} // namespace zelkctl
