// SPDX-License-Identifier: MIT
#pragma once

#include "content/Finding.h"
#include "content/KnownFindings.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace content {

/// A report prepared for views that filter it: its wanted files, and texts for searches.
/// Immutable, so that threads can share it.
class HealthIndex
{
public:
    /// A file that findings of one cause want, or a file that is damaged.
    struct Wanted
    {
        std::size_t cause = 0; ///< index into HealthReport::causes
        std::string path;      ///< "" if the simulators look for no certain path
        std::string text;      ///< the path relative to the installation, or the value as written
        std::vector<std::uint32_t> findings; ///< indexes into HealthReport::findings
    };

    /// `root` is the installation folder. `isComplete` is false for a report of a part of a run.
    HealthIndex(HealthReport report, std::string root, bool isComplete);

    const HealthReport &Report() const { return m_report; }
    bool IsComplete() const { return m_isComplete; }
    /// Grouped by cause, in the order of the causes; the most severe and largest first.
    const std::vector<Wanted> &WantedFiles() const { return m_wanted; }
    /// Returns the path below the installation folder, with "/"; other paths whole.
    std::string Relative(const std::string &path) const;
    /// Returns where the simulators look for the file under the name as written, or else where it
    /// should be; the damaged file; or "".
    static std::string PathOf(const Finding &finding);
    /// True if the finding's texts or the files that need it contain the text, which is in upper
    /// case. `users` is what UsersWith returns for it.
    bool Matches(std::size_t finding, const std::string &upper,
                 const std::vector<bool> &users) const;
    std::vector<bool> UsersWith(const std::string &upper) const;

private:
    void addWanted(std::size_t cause);

    HealthReport m_report;
    std::string m_root;
    bool m_isComplete;
    std::vector<Wanted> m_wanted;
    std::vector<std::string> m_texts, m_users; ///< in upper case, by finding and by user
};

/// What a view shows of a report.
struct HealthFilter
{
    Profiles profiles = Profiles::Both();
    std::array<bool, 3> severities = {true, true, true}; ///< by Severity
    bool known = false;                                  ///< also shows known findings
    std::string search;                                  ///< letter case does not matter

    friend bool operator==(const HealthFilter &, const HealthFilter &) = default;
};

/// The findings that pass a filter, as a tree: causes, wanted files, files that want them.
/// Immutable. The findings under a cause or a wanted file are those that pass.
class HealthTree
{
public:
    /// What several findings have in common: the worst severity, all simulators, and the novelty
    /// that needs the most attention.
    struct Summary
    {
        Severity severity = Severity::Note;
        Profiles profiles;
        Novelty novelty = Novelty::Plain;
        void Add(const Summary &other);
    };
    struct WantedRow
    {
        const HealthIndex::Wanted *wanted = nullptr;
        std::vector<std::uint32_t> findings;
        std::size_t users = 0; ///< number of rows below
        Summary summary;
    };
    struct CauseRow
    {
        std::size_t cause = 0;                      ///< index into HealthReport::causes
        std::size_t firstWanted = 0, endWanted = 0; ///< range in Wanted()
        std::size_t findings = 0;
        Summary summary;
    };
    /// A file that needs the wanted file, and the finding that states it.
    struct UserRow
    {
        std::uint32_t finding = 0;
        std::string path;
    };

    HealthTree(std::shared_ptr<const HealthIndex> index, const HealthFilter &filter,
               const Baseline &known);

    const HealthIndex &Index() const { return *m_index; }
    const std::vector<CauseRow> &Causes() const { return m_causes; }
    const std::vector<WantedRow> &Wanted() const { return m_wanted; }
    /// Returns the rows below a wanted file.
    std::vector<UserRow> UsersOf(const WantedRow &wanted) const;
    Novelty NoveltyOf(std::size_t finding) const { return m_novelty[finding]; }
    Summary SummaryOf(std::size_t finding) const;

    std::size_t Shown() const { return m_shown; }
    /// Returns how many findings for the simulators of the filter it hides, and how many of these
    /// only because they are known.
    std::size_t Hidden() const { return m_hidden; }
    std::size_t HiddenKnown() const { return m_hiddenKnown; }
    /// Returns how many findings each severity has, apart from the filter of severities.
    const std::array<std::size_t, 3> &Counts() const { return m_counts; }
    /// True if the user has accepted any findings.
    bool HasKnown() const { return m_hasKnown; }
    /// Returns how many findings for the simulators of the filter have this novelty.
    std::size_t Count(Novelty novelty) const
    {
        return m_novelties[static_cast<std::size_t>(novelty)];
    }
    /// Returns the report with only the findings that are shown.
    HealthReport ShownReport() const;

private:
    void compare(const Baseline &known);
    std::vector<bool> passing(const HealthFilter &filter);
    void build(const std::vector<bool> &shown);
    void addRow(const HealthIndex::Wanted &wanted, const std::vector<bool> &shown);

    std::shared_ptr<const HealthIndex> m_index;
    std::vector<CauseRow> m_causes;
    std::vector<WantedRow> m_wanted;
    std::vector<Novelty> m_novelty; ///< by finding
    std::vector<bool> m_isShown;    ///< by finding
    std::array<std::size_t, 3> m_counts{};
    std::array<std::size_t, 4> m_novelties{};
    std::size_t m_shown = 0, m_hidden = 0, m_hiddenKnown = 0;
    bool m_hasKnown = false;
};

} // namespace content
