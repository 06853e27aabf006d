// SPDX-License-Identifier: MIT
#pragma once

#include "content/Block.h"
#include "content/FileStore.h"
#include "content/ReferenceRules.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace content {

/// The files of one vehicle.
struct VehicleFiles
{
    std::string folder; ///< the stock folder's path
    std::string base;   ///< the .eng or .wag in it; "" if there is only an override
    /// The file of the same name in its OpenRails folder; "" if there is none.
    std::string overrideFile;

    /// Returns the file that a simulator loads first; "" if it sees none.
    const std::string &For(Profile profile) const
    {
        return profile == Profile::OpenRails && !overrideFile.empty() ? overrideFile : base;
    }
};

/// Finds the files of a vehicle: `name` is "x.wag", `folder` the path of its stock folder.
VehicleFiles FindVehicle(FileStore &store, const std::string &folder, const std::string &name);

/// An include entry and its outcome.
struct Include
{
    enum class State : std::uint8_t
    {
        Read,
        Missing,
        Damaged,
        Cycle,   ///< the file is already being included
        TooMany, ///< beyond kMaxIncludeDepth or kMaxIncludes
    };

    State state = State::Missing;
    bool losesLine = false; ///< the first line, which simulators skip, is not blank
    std::size_t file = 0;   ///< index of the file with the entry
    int line = 0;
    std::string wants; ///< after unescaping
    std::vector<std::string> looked;
    std::string foundAt; ///< "" if it is missing
    std::string fault;   ///< the fault of a damaged file
};

inline constexpr std::size_t kMaxIncludeDepth = 100;
/// Maximum includes of one vehicle, repeated ones counted. Real vehicles have a handful.
inline constexpr std::size_t kMaxIncludes = 1000;
/// Maximum blocks of one vehicle with all its includes. Real vehicles have a few thousand.
inline constexpr std::size_t kMaxVehicleBlocks = 1000000;

/// A vehicle as one simulator sees it: for MSTS, the .eng or .wag without its includes; for Open
/// Rails, the override if there is one, with each include replaced by the content of its file.
/// Blocks keep their order; of several with the same name, the last one counts. Names of blocks
/// ignore letter case. Does not change after construction, so that several threads may read it.
class Vehicle
{
public:
    /// `base` is the content of `files.base` if the caller has already read it, else null.
    Vehicle(FileStore &store, const VehicleFiles &files, Profile profile,
            std::shared_ptr<const ReadResult> base = nullptr);

    /// Returns the simulator for which the vehicle was read.
    Profile Simulator() const { return m_profile; }

    struct File
    {
        std::string path;
        std::shared_ptr<const stavfile::Source> source;
    };
    /// Returns the files of the vehicle, beginning with the one that the simulator loads first.
    /// Empty if that one cannot be read; Fault then returns the reason.
    const std::vector<File> &Files() const { return m_files; }
    const std::string &Fault() const { return m_fault; }
    const std::vector<Include> &Includes() const { return m_includes; }
    /// True if an included file could not be read, or an include has no brackets, so that blocks of
    /// the vehicle may be unknown.
    bool MayLackBlocks() const;
    /// True if the first file includes others although its first line, which Open Rails skips, is
    /// not blank.
    bool LosesLine() const { return m_losesLine; }

    static constexpr std::uint32_t kTop = UINT32_MAX;
    struct Entry
    {
        std::uint32_t record = 0;
        std::uint32_t parent = kTop; ///< index of the entry around it
        std::uint32_t file = 0;
    };
    /// Returns all blocks in the order in which the simulator reads them.
    const std::vector<Entry> &Entries() const { return m_entries; }
    Block BlockOf(const Entry &entry) const { return {*m_files[entry.file].source, entry.record}; }

    struct Value
    {
        std::string text;
        std::string file;
        int line = 0;
    };
    /// Returns the first value of the block at a path such as "Wagon/WagonShape". The last such
    /// block counts, except for Name and Description, which an override cannot change.
    std::optional<Value> Find(std::string_view path) const;
    /// Like Find, but returns the whole block.
    std::optional<Block> FindBlock(std::string_view path) const;

private:
    const Entry *findEntry(std::string_view path) const;
    void read(FileStore &store);
    void followInclude(FileStore &store, const Block &block, std::size_t file);
    bool isActive(const std::string &path) const;
    void resolveInclude(FileStore &store, const Block &block, Include &include) const;
    bool isAt(const Entry &entry, std::string_view path) const;
    std::size_t fileIndex(const std::string &path, std::shared_ptr<const stavfile::Source> source);

    struct Frame
    {
        std::uint32_t file = 0, at = 0, end = 0, parent = kTop;
        bool isFile = false; ///< a whole file, not the children of a block
    };

    Profile m_profile;
    std::string m_basePath;
    std::shared_ptr<const ReadResult> m_base;
    std::vector<File> m_files;
    std::vector<Entry> m_entries;
    std::vector<Include> m_includes;
    std::vector<Frame> m_stack; ///< while reading
    std::string m_fault;
    bool m_losesLine = false;
};

/// Longer names are not looked up: no system opens such a path, and comparing them is slow.
inline constexpr std::size_t kMaxNameLength = 4096;

/// Returns the path of a name that a file gives, relative to a folder. Accepts both separators,
/// repeated separators and blanks at the end, as Windows does. `folder` is normalised, but may end
/// in a separator.
std::string PathIn(std::string_view folder, std::string_view name);
/// Returns the text before the last separator; "" if there is none.
std::string FolderOfPath(std::string_view path);

} // namespace content
