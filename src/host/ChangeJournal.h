// SPDX-License-Identifier: MIT
#pragma once

#include "host/ChangeRecord.h"
#include "host/OwnedFiles.h"

#include <optional>
#include <string>
#include <vector>

namespace host {

/// Changes sets of files: each set whole or not at all, even if the process is killed. A folder of
/// the user's own holds a journal of the running change, with the old content of its files, and the
/// record of the last complete change, so that it can be taken back.
///
/// A journal belongs to the process that wrote it (OwnedFiles.h). Recover takes over those of
/// processes that have ended. While another process changes a set, Apply and Undo refuse to begin.
/// Journals of other machines, in a shared home folder, are left alone. Thread-safe.
class ChangeJournal
{
public:
    /// The folder is created when it is needed.
    explicit ChangeJournal(std::string folder = DefaultFolder());
    /// Returns "changes" in the user's state folder & "/zelk".
    static std::string DefaultFolder();

    /// Changes all files or none, flushed. First writes the journal and every new file beside its
    /// target, so that a full disk changes nothing. Then replaces the files, each only if it still
    /// holds `before`. Throws RuntimeError, with the file and the reason, after it has brought the
    /// old content back. `title` is for the user: "Replace A/x.wag by B/y.wag".
    void Apply(const std::string &title, const std::vector<FileChange> &changes);

    /// Returns the path of the record of the last complete change, which need not exist.
    std::string LastFile() const;
    /// Returns the record of the last complete change; nothing if there is none. Throws
    /// RuntimeError if it cannot be read.
    std::optional<ChangeRecord> Last() const;
    /// Gives all files of the last change their old content, or none, and forgets the change.
    /// Returns its record. Throws RuntimeError if there is no change to take back, or if a file
    /// does not hold what the change wrote; the detail names that file.
    ChangeRecord Undo();

    /// Ends changes whose processes were killed: gives all their files the old content, or finishes
    /// the change if all of them have the new content. A file that was changed since stays as it
    /// is, and the journal with its old content is kept. Returns a message for the user for each
    /// change.
    std::vector<std::string> Recover();

private:
    void run(const ChangeRecord &record, const std::vector<FileChange> &changes);
    static std::string rollBack(const ChangeRecord &record, const std::string &journal,
                                std::size_t replaced);
    void refuseBesideOthers() const;
    std::string recover(const std::string &journal);
    void finish(const ChangeRecord &record, const std::string &journal) const;

    const OwnedFiles m_journals;
};

} // namespace host
