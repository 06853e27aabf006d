// SPDX-License-Identifier: MIT
#include "host/IndexParts.h"

#include "host/Digest.h"
#include "host/Path.h"

#include <algorithm>

namespace host {
namespace {

constexpr std::uint32_t kNone = IndexTables::kNone;

std::string_view folderOf(std::string_view path)
{
    std::string_view folder = path::FolderWithSeparator(path);
    if (folder.size() > 1)
        folder.remove_suffix(1);
    return folder;
}

} // namespace

SavedIndex::New::New(Snapshot &snapshot, std::string root, std::string identity, std::int64_t begin)
    : m_snapshot(snapshot)
    , m_root(std::move(root))
    , m_begin(begin)
{
    m_tables.identity = std::move(identity);
}

void SavedIndex::New::Add(std::string_view key, std::string_view value,
                          const Dependencies &dependencies)
{
    const std::lock_guard lock(m_mutex);
    IndexTables::Dependencies numbers;
    if (!addPlaces(dependencies.folders, numbers.folders) ||
        !addPlaces(dependencies.names, numbers.names))
        return;
    for (const Dependencies::File &file : dependencies.files)
        if (!addFile(file, numbers.files))
            return;
    numbers.facts = dependencies.facts;
    AddUnit({m_tables.Keep(key), m_tables.Keep(value),
             m_tables.Keep(IndexTables::PackDependencies(numbers))});
}

bool SavedIndex::New::addPlaces(const std::vector<const Place *> &places,
                                std::vector<std::uint32_t> &numbers)
{
    for (const Place *const place : places) {
        const std::uint32_t number = PlaceOf(place);
        if (number == kNone)
            return false;
        numbers.push_back(number);
    }
    return true;
}

bool SavedIndex::New::addFile(const Dependencies::File &file, std::vector<std::uint32_t> &numbers)
{
    if (!file.mark.IsTrusted(m_begin))
        return false;
    numbers.push_back(FileOf(folderOf(file.path), path::FileName(file.path), file.mark));
    return true;
}

std::uint32_t SavedIndex::New::PlaceOf(const Place *place)
{
    if (!place)
        return kNone;
    const auto [known, isNew] = m_places.try_emplace(place, kNone);
    if (isNew) {
        const std::uint32_t number = placeRow(*place);
        m_places[place] = number; // `known` may have moved
        return number;
    }
    return known->second;
}

std::uint32_t SavedIndex::New::placeRow(const Place &place)
{
    const PlaceState state = Snapshot::StateOf(place);
    std::uint32_t parent = kNone;
    if (state.path != m_root) {
        parent = PlaceOf(state.parent);
        if (parent == kNone)
            return kNone;
    }
    if (!state.isListed)
        return kNone;
    IndexTables::PlaceRow row = rowOf(state);
    return CopyPlace(row, parent);
}

IndexTables::PlaceRow SavedIndex::New::rowOf(const PlaceState &state)
{
    IndexTables::PlaceRow row;
    row.path = m_tables.Keep(state.path);
    row.names = state.names;
    row.hasLinks = state.hasLinks;
    for (const PlaceState::Folder &folder : state.folders)
        row.folders.push_back({folder.path == state.path ? row.path : m_tables.Keep(folder.path),
                               folder.mark, folder.isMarked && folder.mark.IsTrusted(m_begin)});
    return row;
}

std::uint32_t SavedIndex::New::CopyPlace(const IndexTables::PlaceRow &row, std::uint32_t parent)
{
    const auto number = static_cast<std::uint32_t>(m_tables.places.size());
    const auto [known, isNew] = m_placesByPath.try_emplace(row.path, number);
    if (isNew) {
        m_tables.places.push_back(row);
        m_tables.places.back().parent = parent;
    }
    return known->second;
}

std::uint32_t SavedIndex::New::FileOf(std::string_view folder, std::string_view name,
                                      const FileMark &mark)
{
    const auto next = static_cast<std::uint32_t>(m_tables.fileFolders.size());
    auto known = m_folders.find(folder);
    if (known == m_folders.end()) {
        const std::string_view kept = m_tables.Keep(folder);
        m_tables.fileFolders.push_back(kept);
        known = m_folders.emplace(kept, next).first;
    }
    const std::uint32_t in = known->second;
    std::vector<std::uint32_t> &same = m_files[Digest(name) ^ in];
    // A file that changed during the run has two rows, and one of them will not hold.
    for (const std::uint32_t number : same)
        if (const IndexTables::FileRow &row = m_tables.files[number];
            row.folder == in && row.name == name && row.mark == mark)
            return number;
    same.push_back(static_cast<std::uint32_t>(m_tables.files.size()));
    m_tables.files.push_back({in, m_tables.Keep(name), mark});
    return same.back();
}

void SavedIndex::New::AddUnit(const IndexTables::UnitRow &unit)
{
    const auto number = static_cast<std::uint32_t>(m_tables.units.size());
    if (m_units.try_emplace(unit.key, number).second)
        m_tables.units.push_back(unit);
}

std::uint32_t SavedIndex::New::FactOf(std::string_view text)
{
    const std::lock_guard lock(m_mutex);
    if (const auto known = m_facts.find(text); known != m_facts.end())
        return known->second;
    const auto number = static_cast<std::uint32_t>(m_tables.facts.size());
    m_tables.facts.push_back(m_tables.Keep(text));
    return m_facts.emplace(m_tables.facts.back(), number).first->second;
}

std::string SavedIndex::New::Pack(std::int64_t now)
{
    m_tables.savedAt = now;
    if (m_tables.places.empty())
        PlaceOf(std::string_view(m_root));
    return m_tables.Pack();
}

SavedIndex::Old::Old(Snapshot &snapshot, std::string bytes)
    : m_snapshot(snapshot)
    , m_bytes(std::move(bytes))
{
}

std::unique_ptr<SavedIndex::Old> SavedIndex::Old::Of(Snapshot &snapshot, std::string bytes,
                                                     const std::string &identity, std::int64_t now)
{
    std::unique_ptr<Old> old(new Old(snapshot, std::move(bytes)));
    std::optional<IndexTables> tables = IndexTables::Unpack(old->m_bytes);
    if (!tables || tables->identity != identity || tables->savedAt > now)
        return nullptr;
    old->m_tables = std::move(*tables);
    old->load();
    return old;
}

void SavedIndex::Old::load()
{
    m_units.reserve(m_tables.units.size());
    for (std::size_t i = 0; i < m_tables.units.size(); ++i)
        m_units.emplace(m_tables.units[i].key, static_cast<std::uint32_t>(i));
    m_marks = States(m_tables.places.size());
    m_targets = States(m_tables.places.size());
    m_names = States(m_tables.places.size());
    m_files = States(m_tables.files.size());
    m_facts = States(m_tables.facts.size());
    m_used = std::vector<std::atomic<bool>>(m_tables.units.size());
    m_firstFile.assign(m_tables.fileFolders.size() + 1, 0);
    for (const IndexTables::FileRow &file : m_tables.files)
        ++m_firstFile[file.folder + 1];
    for (std::size_t i = 1; i < m_firstFile.size(); ++i)
        m_firstFile[i] += m_firstFile[i - 1];
    std::vector<std::uint32_t> next = m_firstFile;
    m_filesByFolder.resize(m_tables.files.size());
    for (std::size_t i = 0; i < m_tables.files.size(); ++i)
        m_filesByFolder[next[m_tables.files[i].folder]++] = static_cast<std::uint32_t>(i);
}

template <typename Test> bool SavedIndex::Old::stateOf(std::atomic<State> &state, const Test &test)
{
    State known = state.load(std::memory_order_acquire);
    if (known == State::Unknown) {
        known = test() ? State::Same : State::Changed;
        state.store(known, std::memory_order_release);
    }
    return known == State::Same;
}

/// True if the names in the folders are the same for sure, without listing them.
bool SavedIndex::Old::hasSameMark(std::uint32_t place)
{
    return stateOf(m_marks[place], [&] {
        const IndexTables::PlaceRow &row = m_tables.places[place];
        if (row.hasLinks)
            return false;
        for (const IndexTables::PlaceRow::Folder &folder : row.folders)
            if (!folder.isTrusted || MarkedFolder(std::string(folder.path)).Mark() != folder.mark) {
                m_isStale = true;
                return false;
            }
        return true;
    });
}

/// True if the path leads to the same folders on the disk, whatever they contain.
bool SavedIndex::Old::leadsToSame(std::uint32_t place)
{
    return stateOf(m_targets[place], [&] {
        const IndexTables::PlaceRow &row = m_tables.places[place];
        if (row.parent != kNone) {
            if (!leadsToSame(row.parent))
                return false;
            if (hasSameMark(row.parent))
                return true;
        }
        const Place *const now = m_snapshot.PlaceOf(row.path);
        if (!now)
            return false;
        const PlaceState state = Snapshot::StateOf(*now);
        return std::equal(row.folders.begin(), row.folders.end(), state.folders.begin(),
                          state.folders.end(),
                          [](const auto &a, const auto &b) { return a.path == b.path; });
    });
}

bool SavedIndex::Old::hasSameNames(std::uint32_t place)
{
    return stateOf(m_names[place], [&] {
        if (!leadsToSame(place))
            return false;
        if (hasSameMark(place))
            return true;
        const IndexTables::PlaceRow &row = m_tables.places[place];
        const PlaceState state = Snapshot::StateOf(*m_snapshot.PlaceOf(row.path));
        return state.isListed && state.names == row.names;
    });
}

bool SavedIndex::Old::isSameFile(std::uint32_t file)
{
    State state = m_files[file].load(std::memory_order_acquire);
    if (state == State::Unknown) {
        lookAtFiles(m_tables.files[file].folder);
        state = m_files[file].load(std::memory_order_acquire);
    }
    return state == State::Same;
}

void SavedIndex::Old::lookAtFiles(std::uint32_t folder)
{
    const MarkedFolder open{std::string(m_tables.fileFolders[folder])};
    for (std::uint32_t i = m_firstFile[folder]; i < m_firstFile[folder + 1]; ++i) {
        const IndexTables::FileRow &row = m_tables.files[m_filesByFolder[i]];
        const bool isSame = open.MarkOf(std::string(row.name)) == row.mark;
        m_files[m_filesByFolder[i]].store(isSame ? State::Same : State::Changed,
                                          std::memory_order_release);
    }
}

bool SavedIndex::Old::holds(const IndexTables::Dependencies &dependencies,
                            const FactHolds &factHolds)
{
    const auto all = [](const std::vector<std::uint32_t> &numbers, const auto &test) {
        return std::all_of(numbers.begin(), numbers.end(), test);
    };
    return all(dependencies.files, [this](std::uint32_t i) { return isSameFile(i); }) &&
           all(dependencies.names, [this](std::uint32_t i) { return hasSameNames(i); }) &&
           all(dependencies.folders, [this](std::uint32_t i) { return leadsToSame(i); }) &&
           all(dependencies.facts, [&](std::uint32_t i) {
               return stateOf(m_facts[i],
                              [&] { return factHolds && factHolds(m_tables.facts[i]); });
           });
}

std::optional<std::string_view> SavedIndex::Old::Find(std::string_view key,
                                                      const FactHolds &factHolds)
{
    const auto found = m_units.find(key);
    if (found == m_units.end())
        return std::nullopt;
    const IndexTables::UnitRow &unit = m_tables.units[found->second];
    const auto dependencies = m_tables.UnpackDependencies(unit.dependencies);
    if (!dependencies || !holds(*dependencies, factHolds))
        return std::nullopt;
    m_used[found->second] = true;
    if (Recording *const recording = Recording::Current())
        record(*dependencies, *recording);
    return unit.value;
}

void SavedIndex::Old::record(const IndexTables::Dependencies &dependencies,
                             Recording &recording) const
{
    for (const std::uint32_t i : dependencies.folders)
        recording.AddFolder(m_snapshot.PlaceOf(m_tables.places[i].path));
    for (const std::uint32_t i : dependencies.names)
        recording.AddNames(m_snapshot.PlaceOf(m_tables.places[i].path));
    Dependencies files;
    for (const std::uint32_t i : dependencies.files) {
        const IndexTables::FileRow &row = m_tables.files[i];
        files.files.push_back(
            {disk::Join(std::string(m_tables.fileFolders[row.folder]), row.name), row.mark});
    }
    files.isComplete = dependencies.facts.empty();
    recording.Add(files);
}

void SavedIndex::Old::FindAll(const FactHolds &factHolds)
{
    for (const IndexTables::UnitRow &unit : m_tables.units)
        Find(unit.key, factHolds);
}

bool SavedIndex::Old::IsCurrent() const
{
    return !m_isStale && std::all_of(m_used.begin(), m_used.end(),
                                     [](const std::atomic<bool> &used) { return used.load(); });
}

/// Takes the marks of folders that were listed in this run from there.
std::uint32_t SavedIndex::Old::copyPlace(std::uint32_t place, New &to)
{
    std::uint32_t &copied = m_copied[place];
    if (copied != kNone)
        return copied;
    const IndexTables::PlaceRow &row = m_tables.places[place];
    const bool isListed = m_marks[place].load() == State::Changed;
    if (isListed)
        return copied = to.PlaceOf(row.path);
    const std::uint32_t parent = row.parent == kNone ? kNone : copyPlace(row.parent, to);
    return copied = to.CopyPlace(row, parent);
}

void SavedIndex::Old::CopyTo(New &to)
{
    m_copied.assign(m_tables.places.size(), kNone);
    for (std::size_t unit = 0; unit < m_tables.units.size(); ++unit) {
        if (!m_used[unit])
            continue;
        IndexTables::UnitRow row = m_tables.units[unit];
        auto numbers = m_tables.UnpackDependencies(row.dependencies);
        bool isWhole = true;
        for (std::uint32_t &place : numbers->folders) {
            place = copyPlace(place, to);
            isWhole = isWhole && place != kNone;
        }
        for (std::uint32_t &place : numbers->names) {
            const std::uint64_t names = m_tables.places[place].names;
            place = copyPlace(place, to);
            // The folder may have changed since this result was found to hold.
            isWhole = isWhole && place != kNone && to.Row(place).names == names;
        }
        for (std::uint32_t &file : numbers->files) {
            const IndexTables::FileRow &old = m_tables.files[file];
            file = to.FileOf(m_tables.fileFolders[old.folder], old.name, old.mark);
        }
        for (std::uint32_t &fact : numbers->facts)
            fact = to.FactOf(m_tables.facts[fact]);
        row.dependencies = to.Keep(IndexTables::PackDependencies(*numbers));
        if (isWhole)
            to.AddUnit(row);
    }
}

} // namespace host
