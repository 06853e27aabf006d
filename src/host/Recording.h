// SPDX-License-Identifier: MIT
#pragma once

#include "host/FileMark.h"

#include <cstdint>
#include <string>
#include <vector>

namespace host {

struct Place; // host/Snapshot.h

/// What a unit of work has learned from the disk: its result is the same as long as all of this is.
struct Dependencies
{
    struct File
    {
        std::string path; ///< on the disk
        FileMark mark;
    };

    std::vector<const Place *> folders; ///< what folder paths lead to
    std::vector<const Place *> names;   ///< which names these folders contain
    std::vector<File> files;            ///< the content of these files
    std::vector<std::uint32_t> facts;   ///< SavedIndex::FactOf
    /// False if the work depends on more than that, so that its result must not be kept.
    bool isComplete = true;
};

/// Records what the work on this thread learns from the disk while the object exists: from a
/// Snapshot, which must outlive what was recorded, and from files. Records can be nested; only the
/// innermost one grows.
class Recording
{
public:
    Recording();
    ~Recording();
    Recording(const Recording &) = delete;
    Recording &operator=(const Recording &) = delete;

    /// Returns the innermost record of this thread, null if there is none.
    static Recording *Current();

    void AddFolder(const Place *folder);
    void AddNames(const Place *folder);
    /// Adds a file that was read; `stamp` was taken before that.
    void AddFile(const std::string &path, const disk::Stamp &stamp, std::uint64_t size);
    void AddFact(std::uint32_t fact);
    /// Adds what another record contains: the result of other work was used.
    void Add(const Dependencies &used);
    /// Records that the work has learned something that cannot be compared later.
    void Spoil() { m_used.isComplete = false; }

    Dependencies Take() { return std::move(m_used); }

private:
    Recording *m_outer;
    Dependencies m_used;
};

} // namespace host
