// SPDX-License-Identifier: MIT
#pragma once

#include "content/Baseline.h"

#include <string>
#include <vector>

namespace host {
class GameFiles;
}

namespace content {

/// The findings that the user has accepted as known for one installation, in a file of the user's
/// state folder. A file that cannot be read, or that does not have the format of a baseline, is a
/// fault: it is never overwritten, and nothing counts as known.
class KnownFindings
{
public:
    /// `files` must outlive the object. `folder` is the installation folder; folders that differ
    /// only in letter case share one file.
    KnownFindings(host::GameFiles &files, const std::string &folder);

    const std::string &File() const { return m_file; }
    /// Reads the file; no file means that nothing is known.
    void Load();
    /// Returns the fault of the file for the user; "" if there is none.
    const std::string &Fault() const { return m_fault; }
    const Baseline &Findings() const { return m_findings; }

    /// Accept findings, withdraw that, and drop those that a complete report no longer has. They
    /// read the file again first, so that the changes of another window stay, and write it whole.
    /// They throw RuntimeError if the file has a fault or cannot be written.
    void Accept(const std::vector<const Finding *> &findings);
    void Withdraw(const std::vector<const Finding *> &findings);
    void DropGone(const HealthReport &report);

private:
    template <typename Change> void update(const Change &change);

    host::GameFiles &m_files;
    std::string m_file, m_fault;
    Baseline m_findings;
};

/// A finding compared with the known ones; the last needs the most attention.
enum class Novelty
{
    Plain, ///< nothing has been accepted yet
    Known,
    Changed, ///< known with another answer
    New
};
/// Returns "", "known", "changed" or "new".
const char *NoveltyName(Novelty novelty);

} // namespace content
