// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <future>
#include <optional>
#include <string>
#include <vector>

namespace document {

class ConsistTree;

/// A consist whose changes were not saved.
struct UnsavedConsist
{
    std::string path;      ///< the file of the consist; "" if it has none yet
    std::string title;     ///< what its window showed
    std::int64_t time = 0; ///< of the last change that is kept, in nanoseconds since 1970
    /// The file was changed by another program after it was opened.
    bool changedOnDisk = false;
    std::string bytes; ///< what a save would have written
};

/// Keeps the unsaved state of one consist in a file in the user's state folder, so that it survives
/// a crash of the program. Writes on another thread. Call its functions from one thread.
class RecoveryFile
{
public:
    explicit RecoveryFile(std::string folder = DefaultFolder());
    /// Drops the file: the consist was closed on purpose.
    ~RecoveryFile();
    RecoveryFile(const RecoveryFile &) = delete;
    RecoveryFile &operator=(const RecoveryFile &) = delete;
    /// Returns "unsaved" in the user's state folder & "/zelk".
    static std::string DefaultFolder();

    /// Begins to write the file, whole or not at all. Returns false if the last state is still
    /// being written: call it again later.
    bool Keep(UnsavedConsist consist);
    /// Removes the file: the consist was saved or its changes were dropped.
    void Drop();
    /// Returns the file and the reason if the last Keep has failed, once; "" otherwise. Never
    /// waits.
    std::string TakeFailure();
    /// True while the last state is being written.
    bool IsWriting() const;
    /// Waits for the last Keep. Returns the file and the reason if it failed, else "".
    std::string Finish();

private:
    const std::string m_folder;
    std::string m_path; ///< "" as long as there is no file
    std::future<std::string> m_writing;
};

/// Returns what Keep needs for a consist whose window shows a title. Throws RuntimeError if the
/// consist cannot be written.
UnsavedConsist UnsavedStateOf(const ConsistTree &consist, const std::string &path,
                              const std::string &title);

/// The unsaved consists of processes that have ended. The constructor takes their recovery files
/// over, so that of several programs that start at the same time only one offers them. Files that
/// were cut off or damaged are left where they are and never offered: half a consist must not
/// replace a whole one, and a person may still read it.
class LostConsists
{
public:
    explicit LostConsists(const std::string &folder = RecoveryFile::DefaultFolder());

    const std::vector<UnsavedConsist> &All() const { return m_consists; }
    /// Deletes the recovery file of a consist. All that are not dropped are found again after this
    /// process has ended.
    void Drop(std::size_t index);

private:
    std::vector<UnsavedConsist> m_consists;
    std::vector<std::string> m_paths;
};

} // namespace document
