// SPDX-License-Identifier: MIT
#include "host/Path.h"

#include "host/Disk.h"
#include "host/Text.h"

#include <algorithm>

namespace host {
namespace {

/// Turns the other separators from `at` on into the platform's own.
void useOwnSeparators(std::string &text, std::size_t at = 0)
{
    const char other = path::kSeparator == '/' ? '\\' : '/';
    while ((at = text.find(other, at)) != std::string::npos)
        text[at] = path::kSeparator;
}

std::string withOwnSeparators(std::string_view text)
{
    std::string out(text);
    useOwnSeparators(out);
    return out;
}

/// One past the last separator, 0 without one.
std::size_t endOfFolder(std::string_view path)
{
    std::size_t end = path.size();
    while (end > 0 && !IsSeparator(path[end - 1]))
        --end;
    return end;
}

/// The names of a path after its root; a ".." with no name before it stays in a relative path and
/// is dropped at a root.
std::vector<std::string_view> namesOf(std::string_view rest, bool hasRoot)
{
    constexpr std::size_t kUsual = 12;
    std::vector<std::string_view> names;
    names.reserve(kUsual);
    while (!rest.empty()) {
        const auto end = std::find_if(rest.begin(), rest.end(), IsSeparator);
        const std::string_view name(rest.begin(), end);
        rest.remove_prefix(std::min(name.size() + 1, rest.size()));
        if (name.empty() || name == ".")
            continue;
        const bool takesAway = name == ".." && !names.empty() && names.back() != "..";
        if (takesAway)
            names.pop_back();
        else if (name != ".." || !hasRoot)
            names.push_back(name);
    }
    return names;
}

std::string joined(const std::vector<std::string_view> &names)
{
    std::size_t length = 0;
    for (const std::string_view name : names)
        length += name.size() + 1;
    std::string out;
    out.reserve(length);
    for (const std::string_view name : names) {
        if (!out.empty())
            out += path::kSeparator;
        out += name;
    }
    return out;
}

} // namespace

std::optional<GamePath> GamePath::Of(std::string_view path)
{
    if (path.empty() || path.find('\0') != std::string_view::npos)
        return std::nullopt;
    std::string absolute;
    if (disk::RootLength(path) == 0) {
        absolute = disk::Join(disk::CurrentFolder(), path);
        path = absolute;
    }
    const std::size_t rootLength = disk::RootLength(path);
    const auto names = namesOf(path.substr(rootLength), true);
    GamePath out;
    out.root = withOwnSeparators(path.substr(0, rootLength));
    out.text = out.root + joined(names);
    out.names.assign(names.begin(), names.end());
    out.endsInSeparator = IsSeparator(path.back());
    return out;
}

namespace path {

std::string Join(std::string_view folder, std::string_view relative, Leading leading)
{
    if (leading == Leading::Dropped && !relative.empty() && IsSeparator(relative.front()))
        relative.remove_prefix(1);
    std::string out;
    out.reserve(folder.size() + 1 + relative.size());
    out = folder;
    if (out.empty() || !IsSeparator(out.back()))
        out += kSeparator;
    out += relative;
    useOwnSeparators(out);
    return out;
}

std::string_view FileName(std::string_view path)
{
    return path.substr(endOfFolder(path));
}

std::string_view FolderWithSeparator(std::string_view path)
{
    return path.substr(0, endOfFolder(path));
}

std::string Folder(std::string_view path)
{
    const std::size_t end = endOfFolder(path);
    return end == 0 ? "." : std::string(path.substr(0, end - 1));
}

std::string Extension(std::string_view path)
{
    const std::size_t dot = path.rfind('.');
    return ToLower(dot == std::string_view::npos ? path : path.substr(dot + 1));
}

bool HasExtension(std::string_view path, std::string_view extension)
{
    return Extension(path) == extension;
}

std::string BaseName(std::string_view path)
{
    const std::string_view name = FileName(path);
    return std::string(name.substr(0, name.rfind('.')));
}

std::string Absolute(std::string_view path)
{
    std::optional<GamePath> steps = GamePath::Of(path);
    return steps ? std::move(steps->text) : std::string(path);
}

std::string ToText(std::string_view bytes)
{
    std::string text;
    for (std::size_t at = 0; at < bytes.size();) {
        const auto end = std::find_if(bytes.begin() + at, bytes.end(), IsSeparator);
        const std::string_view name(bytes.begin() + at, end);
        text += IsValidUtf8(name) ? std::string(name) : FromWindows1252(name);
        at += name.size();
        if (at < bytes.size())
            text += bytes[at++];
    }
    return text;
}

std::string Normalise(std::string_view path)
{
    const std::size_t rootLength = disk::RootLength(path);
    return withOwnSeparators(path.substr(0, rootLength)) +
           joined(namesOf(path.substr(rootLength), rootLength > 0));
}

} // namespace path
} // namespace host
