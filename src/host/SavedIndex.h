// SPDX-License-Identifier: MIT
#pragma once

#include "host/Disk.h"
#include "host/Recording.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace host {

class Snapshot;

/// How a command uses saved indexes.
struct IndexOptions
{
    std::string folder; ///< the folder with the indexes; "" for none
    std::function<std::int64_t()> now = disk::Now;
};

/// Results of work on an installation, kept from one run to the next. Each has a key and the
/// dependencies that were recorded while it was made; it is found again only while all of these are
/// as they were, so that a run gets what it would have made itself. Each folder and file is asked
/// for its mark once; a folder is listed only if its mark has changed or cannot be trusted.
///
/// The index is a cache: an index that is damaged, that belongs to another version or that was
/// saved in the future is ignored, and a failure to save it is not reported. Thread-safe, except
/// for construction and Save.
class SavedIndex
{
public:
    /// Reads the index that was saved for `root`, the installation folder, and `purpose`, which
    /// names the work and everything but the disk that its results depend on. The snapshot, whose
    /// work is recorded, must outlive this object. `begin` is a time of IndexOptions::now before
    /// the snapshot listed its first folder.
    SavedIndex(Snapshot &snapshot, const IndexOptions &options, std::int64_t begin,
               const std::string &root, const std::string &purpose);
    ~SavedIndex();
    SavedIndex(const SavedIndex &) = delete;
    SavedIndex &operator=(const SavedIndex &) = delete;

    /// Returns the folder of the user's indexes.
    static std::string UserFolder();
    /// Deletes all indexes of an installation, so that the next runs make everything again.
    static void Forget(const std::string &folder, const std::string &root);

    /// Returns a kept result; nothing if there is none or if it may have changed. The text is valid
    /// as long as this object. Adds its dependencies to the Recording of this thread.
    std::optional<std::string_view> Find(std::string_view key);
    /// Keeps a result. Does nothing if its dependencies cannot be compared later: it then has to be
    /// made again in the next run.
    void Keep(std::string_view key, std::string_view value, const Dependencies &dependencies);

    /// Returns the number of a text for Recording::AddFact. A fact is something that the work takes
    /// for granted, apart from the disk.
    std::uint32_t FactOf(std::string_view text);
    /// Returns whether a fact is still true. Set it before results that depend on facts are found.
    std::function<bool(std::string_view fact)> FactHolds;

    /// What a run has asked for.
    enum class Extent
    {
        Part, ///< other results are saved too, if they still hold
        Whole ///< other results are dropped
    };
    /// Saves the results that were found or kept.
    void Save(Extent extent);

private:
    class Old;
    class New;

    IndexOptions m_options;
    std::string m_file;
    std::unique_ptr<Old> m_old;
    std::unique_ptr<New> m_new;
};

} // namespace host
