// SPDX-License-Identifier: MIT
#include "content/Vehicle.h"

#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/Text.h"

#include <algorithm>

namespace content {
namespace {

constexpr std::string_view kSameName = "[[SameName]]";

/// Replaces every [[SameName]], in any letter case.
std::string withSameName(std::string name, std::string_view replacement)
{
    for (std::size_t at = 0; at + kSameName.size() <= name.size();) {
        if (!Block::SameName(std::string_view(name).substr(at, kSameName.size()), kSameName)) {
            ++at;
            continue;
        }
        name.replace(at, kSameName.size(), replacement);
        at += replacement.size();
    }
    return name;
}

void addOnce(std::vector<std::string> &names, std::string name)
{
    if (!name.empty() && std::find(names.begin(), names.end(), name) == names.end())
        names.push_back(std::move(name));
}

/// Returns the readings of an include, in order. Whether [[SameName]] has an extension is not
/// documented, so both readings are tried. Backslashes may not have been doubled.
std::vector<std::string> readingsOf(const Block &block, std::string_view includer)
{
    std::vector<std::string> names;
    for (const std::string &written : {block.Value(), block.LiteralValue()}) {
        addOnce(names, withSameName(written, host::path::FileName(includer)));
        addOnce(names, withSameName(written, host::path::BaseName(includer)));
    }
    return names;
}

/// True if the first line, which simulators skip, is not blank.
bool losesFirstLine(const stavfile::Source &source)
{
    if (!source.header.empty())
        return false;
    const std::string_view text = source.text;
    const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
    return line.find_first_not_of(" \t") != line.npos;
}

/// True if the text has an include without brackets: simulators read it, but it is not a block.
bool hasBareInclude(std::string_view text)
{
    constexpr std::string_view kInclude = "include", kBlanks = " \t\r\n";
    for (std::size_t at = 0; (at = text.find_first_of("iI", at)) != text.npos; ++at) {
        if (!Block::SameName(text.substr(at, kInclude.size()), kInclude))
            continue;
        const std::size_t next = text.find_first_not_of(kBlanks, at + kInclude.size());
        if (next != text.npos && text[next] != '(')
            return true;
    }
    return false;
}

bool isKeptFromBase(std::string_view path)
{
    const std::string_view last = path.substr(path.rfind('/') + 1);
    return Block::SameName(last, "Name") || Block::SameName(last, "Description");
}

} // namespace

std::string PathIn(std::string_view folder, std::string_view name)
{
    while (!name.empty() && (name.back() == ' ' || name.back() == '\t'))
        name.remove_suffix(1);
    const bool isPlain = std::none_of(name.begin(), name.end(), host::IsSeparator) &&
                         !name.empty() && name != "." && name != "..";
    if (!isPlain || folder.empty())
        return host::path::Normalise(host::path::Join(folder, name));
    std::string path;
    path.reserve(folder.size() + 1 + name.size());
    path = folder;
    if (!host::IsSeparator(path.back()))
        path += host::path::kSeparator;
    path += name;
    return path;
}

std::string FolderOfPath(std::string_view path)
{
    const std::string_view folder = host::path::FolderWithSeparator(path);
    return std::string(folder.substr(0, folder.empty() ? 0 : folder.size() - 1));
}

VehicleFiles FindVehicle(FileStore &store, const std::string &folder, const std::string &name)
{
    VehicleFiles files;
    files.folder = folder;
    files.base = store.Find(host::path::Join(folder, name)).value_or("");
    files.overrideFile =
        store.Find(host::path::Join(host::path::Join(folder, "OpenRails"), name)).value_or("");
    return files;
}

Vehicle::Vehicle(FileStore &store, const VehicleFiles &files, Profile profile,
                 std::shared_ptr<const ReadResult> base)
    : m_profile(profile)
    , m_basePath(files.base)
    , m_base(std::move(base))
{
    const std::string &first = files.For(profile);
    const bool isBase = first == m_basePath && m_base != nullptr;
    const ReadResult read = isBase ? *m_base : store.Read(first);
    m_fault = read.fault;
    if (!read.source)
        return;
    m_files.push_back({first, read.source});
    m_entries.reserve(read.source->records.Size());
    m_stack.push_back({0, 0, static_cast<std::uint32_t>(read.source->records.Size()), kTop, true});
    this->read(store);
    m_losesLine = !m_includes.empty() && losesFirstLine(*read.source);
}

void Vehicle::read(FileStore &store)
{
    while (!m_stack.empty()) {
        Frame &frame = m_stack.back();
        if (frame.at == frame.end) {
            m_stack.pop_back();
            continue;
        }
        const Frame now = frame;
        const Block block(*m_files[now.file].source, now.at);
        frame.at = block.Source().records[now.at].next;
        if (m_profile == Profile::OpenRails && block.Is("include")) {
            followInclude(store, block, now.file);
            continue;
        }
        if (m_entries.size() == kMaxVehicleBlocks)
            return;
        m_entries.push_back({now.at, now.parent, now.file});
        if (frame.at > now.at + 1)
            m_stack.push_back({now.file, now.at + 1, frame.at,
                               static_cast<std::uint32_t>(m_entries.size() - 1), false});
    }
}

bool Vehicle::isActive(const std::string &path) const
{
    return std::any_of(m_stack.begin(), m_stack.end(), [&](const Frame &frame) {
        return frame.isFile && m_files[frame.file].path == path;
    });
}

void Vehicle::resolveInclude(FileStore &store, const Block &block, Include &include) const
{
    const std::string &includer = m_files[include.file].path;
    const std::string folder = FolderOfPath(includer);
    for (const std::string &name : readingsOf(block, includer)) {
        if (name.size() > kMaxNameLength)
            continue;
        include.looked.push_back(PathIn(folder, name));
        if (auto found = store.Folders().FindFile(include.looked.back())) {
            include.foundAt = std::move(*found);
            return;
        }
    }
}

std::size_t Vehicle::fileIndex(const std::string &path,
                               std::shared_ptr<const stavfile::Source> source)
{
    const auto known = std::find_if(m_files.begin(), m_files.end(),
                                    [&](const File &file) { return file.path == path; });
    if (known != m_files.end())
        return static_cast<std::size_t>(known - m_files.begin());
    m_files.push_back({path, std::move(source)});
    return m_files.size() - 1;
}

void Vehicle::followInclude(FileStore &store, const Block &block, std::size_t file)
{
    if (m_includes.size() > kMaxIncludes)
        return;
    Include include;
    include.file = file;
    include.line = LineCounter(block.Source()).LineOf(block.Where());
    include.wants = block.Value();
    resolveInclude(store, block, include);
    const auto depth = std::count_if(m_stack.begin(), m_stack.end(),
                                     [](const Frame &frame) { return frame.isFile; });
    if (include.foundAt.empty()) {
        include.state = Include::State::Missing;
    } else if (isActive(include.foundAt)) {
        include.state = Include::State::Cycle;
    } else if (static_cast<std::size_t>(depth) > kMaxIncludeDepth ||
               m_includes.size() == kMaxIncludes) {
        include.state = Include::State::TooMany;
    } else {
        const auto read =
            m_base && include.foundAt == m_basePath ? m_base : store.ReadShared(include.foundAt);
        include.state = read->source ? Include::State::Read : Include::State::Damaged;
        include.fault = read->fault;
        if (read->source) {
            include.losesLine = losesFirstLine(*read->source);
            const auto end = static_cast<std::uint32_t>(read->source->records.Size());
            const auto index = static_cast<std::uint32_t>(fileIndex(include.foundAt, read->source));
            m_stack.push_back({index, 0, end, m_stack.back().parent, true});
        }
    }
    m_includes.push_back(std::move(include));
}

bool Vehicle::MayLackBlocks() const
{
    return std::any_of(m_includes.begin(), m_includes.end(),
                       [](const Include &each) { return each.state != Include::State::Read; }) ||
           std::any_of(m_files.begin(), m_files.end(),
                       [](const File &file) { return hasBareInclude(file.source->text); });
}

bool Vehicle::isAt(const Entry &entry, std::string_view path) const
{
    const std::size_t slash = path.rfind('/');
    if (!BlockOf(entry).Is(path.substr(slash == path.npos ? 0 : slash + 1)))
        return false;
    if (slash == path.npos || entry.parent == kTop)
        return slash == path.npos && entry.parent == kTop;
    return isAt(m_entries[entry.parent], path.substr(0, slash));
}

const Vehicle::Entry *Vehicle::findEntry(std::string_view path) const
{
    const Entry *found = nullptr;
    const bool fromBase = isKeptFromBase(path);
    const auto isInBase = [&](const Entry &entry) {
        return m_files[entry.file].path == m_basePath;
    };
    for (const Entry &entry : m_entries)
        if (isAt(entry, path) && !(fromBase && found && isInBase(*found) && !isInBase(entry)))
            found = &entry;
    return found;
}

std::optional<Block> Vehicle::FindBlock(std::string_view path) const
{
    const Entry *found = findEntry(path);
    return found ? std::optional(BlockOf(*found)) : std::nullopt;
}

std::optional<Vehicle::Value> Vehicle::Find(std::string_view path) const
{
    const Entry *found = findEntry(path);
    if (!found)
        return std::nullopt;
    const Block block = BlockOf(*found);
    return Value{block.Value(), m_files[found->file].path,
                 LineCounter(block.Source()).LineOf(block.Where())};
}

} // namespace content
