// SPDX-License-Identifier: MIT
#include "host/CheckedParts.h"

#include "host/Number.h"
#include "host/Text.h"

#include <optional>

namespace host {
namespace {

constexpr std::string_view kStart = "ZELK ", kVersion = " 1 ";

/// Takes a line from the front of a text; nothing if it has no end.
std::optional<std::string_view> takeLine(std::string_view &text)
{
    const std::size_t end = text.find('\n');
    if (end == text.npos)
        return std::nullopt;
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end + 1);
    return line;
}

/// Takes a part from the front of a text; nothing if it is incomplete or damaged.
std::optional<std::string_view> takePart(std::string_view &text)
{
    const auto line = takeLine(text);
    const std::size_t blank = line ? line->find(' ') : std::string_view::npos;
    if (blank == std::string_view::npos)
        return std::nullopt;
    const auto size = NumberIn<std::size_t>(line->substr(0, blank));
    if (!size || *size >= text.size() || text[*size] != '\n')
        return std::nullopt;
    const std::string_view part = text.substr(0, *size);
    if (line->substr(blank + 1) != Fingerprint(part))
        return std::nullopt;
    text.remove_prefix(*size + 1);
    return part;
}

} // namespace

std::string JoinParts(std::string_view kind, const std::vector<std::string_view> &parts)
{
    std::size_t size = 64;
    for (const std::string_view part : parts)
        size += part.size() + 64;
    std::string bytes;
    bytes.reserve(size);
    bytes.append(kStart).append(kind).append(kVersion).append(std::to_string(parts.size())) += '\n';
    for (const std::string_view part : parts) {
        bytes.append(std::to_string(part.size())).append(" ").append(Fingerprint(part)) += '\n';
        bytes.append(part) += '\n';
    }
    return bytes;
}

CheckedParts SplitParts(std::string_view kind, std::string_view bytes)
{
    CheckedParts result;
    const std::string start = std::string(kStart).append(kind).append(kVersion);
    const auto line = takeLine(bytes);
    if (!line || !line->starts_with(start))
        return result;
    const auto count = NumberIn<std::size_t>(line->substr(start.size()));
    while (const auto part = takePart(bytes))
        result.parts.push_back(*part);
    result.whole = bytes.empty() && count == result.parts.size();
    return result;
}

} // namespace host
