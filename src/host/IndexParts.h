// SPDX-License-Identifier: MIT
#pragma once

#include "host/IndexTables.h"
#include "host/SavedIndex.h"
#include "host/Snapshot.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

namespace host {

/// The results of this run, and those of the last one that are still used.
class SavedIndex::New
{
public:
    /// `root` is absolute. Marks of `begin` or later are not trusted.
    New(Snapshot &snapshot, std::string root, std::string identity, std::int64_t begin);

    bool IsEmpty() const { return m_tables.units.empty(); }
    void Add(std::string_view key, std::string_view value, const Dependencies &dependencies);
    std::uint32_t FactOf(std::string_view text);

    /// Return the numbers of rows, which are added if they are missing; kNone for a folder outside
    /// the installation or for one whose names cannot be read.
    std::uint32_t PlaceOf(const Place *place);
    std::uint32_t PlaceOf(std::string_view path) { return PlaceOf(m_snapshot.PlaceOf(path)); }
    std::uint32_t FileOf(std::string_view folder, std::string_view name, const FileMark &mark);
    void AddUnit(const IndexTables::UnitRow &unit);
    const IndexTables::PlaceRow &Row(std::uint32_t place) const { return m_tables.places[place]; }
    std::string_view Keep(std::string_view text) { return m_tables.Keep(text); }
    /// Adds a row of another index, whose parent is a row of this one, unless the path has one.
    std::uint32_t CopyPlace(const IndexTables::PlaceRow &row, std::uint32_t parent);

    std::string Pack(std::int64_t now);

private:
    bool addPlaces(const std::vector<const Place *> &places, std::vector<std::uint32_t> &numbers);
    bool addFile(const Dependencies::File &file, std::vector<std::uint32_t> &numbers);
    std::uint32_t placeRow(const Place &place);
    IndexTables::PlaceRow rowOf(const PlaceState &state);

    using Numbers = std::unordered_map<std::string_view, std::uint32_t>;

    Snapshot &m_snapshot;
    std::string m_root;
    std::int64_t m_begin;
    std::mutex m_mutex;
    IndexTables m_tables;
    std::unordered_map<const Place *, std::uint32_t> m_places;
    Numbers m_placesByPath, m_folders, m_facts, m_units;
    std::unordered_map<std::uint64_t, std::vector<std::uint32_t>> m_files; ///< by a hash
};

/// The results of the last run.
class SavedIndex::Old
{
public:
    /// Returns null if the bytes are not those of an index with this identity that was saved before
    /// `now`.
    static std::unique_ptr<Old> Of(Snapshot &snapshot, std::string bytes,
                                   const std::string &identity, std::int64_t now);

    using FactHolds = std::function<bool(std::string_view)>;
    std::optional<std::string_view> Find(std::string_view key, const FactHolds &factHolds);
    /// Finds everything that still holds.
    void FindAll(const FactHolds &factHolds);
    /// True if everything was found and the marks need no update.
    bool IsCurrent() const;
    void CopyTo(New &to);

private:
    /// Not found out yet, or the result. Threads may find out the same twice.
    enum class State : std::uint8_t
    {
        Unknown,
        Same,
        Changed
    };
    using States = std::vector<std::atomic<State>>;

    Old(Snapshot &snapshot, std::string bytes);
    void load();

    bool holds(const IndexTables::Dependencies &dependencies, const FactHolds &factHolds);
    template <typename Test> static bool stateOf(std::atomic<State> &state, const Test &test);
    bool hasSameMark(std::uint32_t place);
    bool leadsToSame(std::uint32_t place);
    bool hasSameNames(std::uint32_t place);
    bool isSameFile(std::uint32_t file);
    void lookAtFiles(std::uint32_t folder);
    void record(const IndexTables::Dependencies &dependencies, Recording &recording) const;
    std::uint32_t copyPlace(std::uint32_t place, New &to);

    Snapshot &m_snapshot;
    std::string m_bytes;
    IndexTables m_tables;
    std::unordered_map<std::string_view, std::uint32_t> m_units;
    std::vector<std::uint32_t> m_filesByFolder, m_firstFile; ///< the files of each folder
    States m_marks, m_targets, m_names, m_files, m_facts;
    std::vector<std::atomic<bool>> m_used; ///< units
    std::atomic<bool> m_isStale = false;   ///< a mark was not trusted, or has changed
    std::vector<std::uint32_t> m_copied;   ///< places, by the row that CopyTo gave them
};

} // namespace host
