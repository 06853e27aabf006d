// SPDX-License-Identifier: MIT
#include "host/Leftovers.h"

#include "host/Disk.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <system_error>

namespace host::disk {
namespace {

constexpr std::string_view kStart = ".zelk-", kEnd = ".tmp", kOld = ".old";
constexpr std::size_t kMarkDigits = 16;

/// Takes a decimal number and the character behind it from the front of a text.
std::optional<std::uint64_t> takeNumber(std::string_view &text, char behind)
{
    std::uint64_t number = 0;
    const char *const end = text.data() + text.size();
    const auto [at, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || at == end || *at != behind)
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(at - text.data()) + 1);
    return number;
}

bool isListed(const Listing &listing, const std::string &name)
{
    return std::any_of(listing.names.begin(), listing.names.end(),
                       [&name](const ListedName &listed) { return listed.name == name; });
}

} // namespace

std::string MarkOf(std::string_view text)
{
    std::uint64_t hash = 0xcbf29ce484222325; // FNV-1a: the same in every build
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    std::string mark(kMarkDigits, '0');
    for (std::size_t at = kMarkDigits; at-- > 0; hash >>= 4)
        mark[at] = "0123456789abcdef"[hash & 15U];
    return mark;
}

std::string TemporaryName(const Writer &writer, unsigned number)
{
    return std::string(kStart) + writer.machine + '-' + std::to_string(writer.process) + '-' +
           std::to_string(writer.start) + '-' + std::to_string(number);
}

std::optional<Writer> WriterOf(std::string_view name)
{
    if (!name.starts_with(kStart) || !name.ends_with(kEnd))
        return std::nullopt;
    name.remove_prefix(kStart.size());
    const std::string_view machine = name.substr(0, kMarkDigits);
    if (machine.find_first_not_of("0123456789abcdef") != machine.npos)
        return std::nullopt;
    name.remove_prefix(machine.size());
    if (!name.starts_with('-'))
        return std::nullopt;
    name.remove_prefix(1);
    const auto process = takeNumber(name, '-'), start = takeNumber(name, '-');
    if (!process || !start || !takeNumber(name, '.') || name != kEnd.substr(1))
        return std::nullopt;
    return Writer{std::string(machine), *process, *start};
}

void RemoveLeftovers(const std::string &folder)
{
    const std::optional<Listing> listing = List(folder);
    if (!listing)
        return;
    std::string thisMachine;
    for (const ListedName &file : listing->names) {
        const std::optional<Writer> writer =
            file.kind == Kind::File ? WriterOf(file.name) : std::nullopt;
        if (!writer)
            continue;
        if (thisMachine.empty())
            thisMachine = ThisProcess().machine;
        std::string old = file.name;
        old.replace(old.size() - kEnd.size(), kEnd.size(), kOld);
        if (writer->machine == thisMachine && !isListed(*listing, old) && !MayRun(*writer))
            Remove(Join(folder, file.name));
    }
}

} // namespace host::disk
