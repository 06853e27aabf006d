// SPDX-License-Identifier: MIT
#include "content/HelpText.h"

#include "content/HealthText.h"
#include "content/Resolver.h"
#include "host/Path.h"
#include "host/Text.h"

#include <algorithm>
#include <unordered_set>

namespace content {
namespace {

constexpr const char *kDamagedAdvice =
    "Install the file again. If it is text, you can also correct it in a text editor.";

constexpr std::size_t kListed = 3; ///< items of a list in a text for help

/// A list of different texts that is cut when it is shown.
class ShortList
{
public:
    void Add(const std::string &text)
    {
        if (!text.empty() && m_all.insert(text).second && m_shown.size() < kListed)
            m_shown.push_back(text);
    }
    /// Sets the number of items, if not all of them were added.
    void SetCount(std::size_t count) { m_count = count; }
    bool Empty() const { return m_all.empty(); }
    std::string Text() const
    {
        std::string text;
        for (const std::string &item : m_shown)
            text += (text.empty() ? "" : "; ") + item;
        const std::size_t count = std::max(m_count, m_all.size());
        if (count > m_shown.size())
            text += " and " + std::to_string(count - m_shown.size()) + " more";
        return text;
    }

private:
    std::vector<std::string> m_shown;
    std::unordered_set<std::string> m_all;
    std::size_t m_count = 0;
};

/// The parts of a text for help.
struct Parts
{
    std::string title, advice;
    ShortList rules, wanted, users, looked, candidates;
};

constexpr std::size_t kConsidered = 200; ///< parts of a group, since a text shows few of them

void addFinding(const HealthTree &tree, std::uint32_t index, Parts &parts)
{
    const Finding &finding = tree.Index().Report().findings[index];
    parts.rules.Add(finding.rule);
    for (const std::string &path : finding.looked)
        parts.looked.Add(tree.Index().Relative(FolderOfPath(path)));
    for (const std::string &path : finding.candidates)
        parts.candidates.Add(tree.Index().Relative(path));
}

void addWanted(const HealthTree &tree, const HealthTree::WantedRow &wanted, Parts &parts)
{
    parts.wanted.Add(wanted.wanted->text);
    const std::size_t count = std::min(wanted.findings.size(), kConsidered);
    for (std::size_t i = 0; i < count; ++i)
        addFinding(tree, wanted.findings[i], parts);
    const auto users = tree.UsersOf(wanted);
    for (std::size_t i = 0; i < std::min(users.size(), kConsidered); ++i)
        parts.users.Add(PlaceText(tree, users[i]));
}

std::string textOf(const Parts &parts, std::size_t users)
{
    std::string text = parts.title + '\n';
    const auto line = [&text](const char *label, const std::string &value) {
        text += std::string(label) + ": " + (value.empty() ? "none" : value) + '\n';
    };
    line("Rule", parts.rules.Text());
    line("Wanted", parts.wanted.Text());
    line("Wanted by", (users > kListed ? std::to_string(users) + " places: " : std::string()) +
                          parts.users.Text());
    if (!parts.looked.Empty())
        line("Looked in", parts.looked.Text());
    line("Candidates", parts.candidates.Text());
    line("What to do", parts.advice);
    return text;
}

std::string titleOf(const Finding &finding)
{
    std::string title = std::string(SeverityName(finding.severity)) + ": " + SentenceOf(finding);
    if (finding.profiles != Profiles::Both())
        title += finding.profiles.Has(Profile::Msts) ? " (MSTS)" : " (Open Rails)";
    return title;
}

std::string adviceForMissing(const Finding &finding)
{
    return finding.candidates.empty()
               ? "Install the missing file, or correct the entry that names it."
               : "Correct the entry if it means one of the candidates; otherwise install the "
                 "missing file.";
}

} // namespace

std::string AdviceFor(const Finding &finding)
{
    struct Row
    {
        const char *rule, *advice;
    };
    constexpr Row kRows[] = {
        {"unquoted-name", "Put the name into quotes, because it contains blanks."},
        {"wrong-folder", "Copy the file to the folder where it is looked for, or correct the "
                         "entry."},
        {"wrong-extension", "Correct the extension in the entry, or convert the file."},
        {"missing-folder", "Install the folder, or correct the entry."},
        {"broken-include", "Install the included file, or correct its path in the entry."},
        {"include-cycle", "Remove the include that leads back to the file."},
        {"include-depth", "Reduce the number of included files."},
        {"include-first-line", "Insert an empty line at the start of the included file."},
        {"self-reference", "Replace the name by that of a sound file."},
        {"unreadable-folder", "Check that you may read the folder."},
    };
    for (const Row &row : kRows)
        if (finding.rule == row.rule)
            return row.advice;
    if (finding.rule.starts_with("damaged-"))
        return kDamagedAdvice;
    return adviceForMissing(finding);
}

std::string AdviceFor(const Cause &cause)
{
    if (cause.isSingles)
        return "These findings have different causes: select each for details.";
    if (cause.id == "default-sounds")
        return "Copy the sounds of Train Simulator to the SOUND folder of the installation.";
    if (cause.id.starts_with("damaged:"))
        return kDamagedAdvice;
    if (cause.id.starts_with("folder:"))
        return "Install the folder, or replace it in the files that name it.";
    return "Select a finding for details.";
}

std::string HelpHeader(std::string_view version, Profiles profiles)
{
    const char *const simulators = profiles == Profiles::Both()       ? "MSTS and Open Rails"
                                   : profiles.Has(Profile::OpenRails) ? "Open Rails"
                                                                      : "MSTS";
    return "ZELK " + std::string(version) + ", health report for " + simulators + '\n';
}

std::string HelpText(const HealthTree &tree, const HealthTree::CauseRow &row)
{
    const Cause &cause = tree.Index().Report().causes[row.cause];
    Parts parts;
    parts.title = std::string(SeverityName(row.summary.severity)) + ": " + ShownText(cause.what) +
                  ": " + host::Counted(row.findings, "finding", "findings");
    parts.advice = AdviceFor(cause);
    std::size_t users = 0;
    for (std::size_t i = row.firstWanted; i < row.endWanted; ++i) {
        users += tree.Wanted()[i].users;
        if (i - row.firstWanted < kConsidered)
            addWanted(tree, tree.Wanted()[i], parts);
    }
    parts.wanted.SetCount(row.endWanted - row.firstWanted);
    return textOf(parts, users);
}

std::string HelpText(const HealthTree &tree, const HealthTree::WantedRow &row)
{
    const Finding &finding = tree.Index().Report().findings[row.findings.front()];
    Parts parts;
    parts.title = titleOf(finding);
    parts.advice = AdviceFor(finding);
    addWanted(tree, row, parts);
    return textOf(parts, row.users);
}

std::string HelpText(const HealthTree &tree, const HealthTree::UserRow &row)
{
    const Finding &finding = tree.Index().Report().findings[row.finding];
    Parts parts;
    parts.title = titleOf(finding);
    parts.advice = AdviceFor(finding);
    const std::string path = HealthIndex::PathOf(finding);
    parts.wanted.Add(path.empty() ? ShownText(finding.wants) : tree.Index().Relative(path));
    parts.users.Add(PlaceText(tree, row));
    addFinding(tree, row.finding, parts);
    return textOf(parts, 1);
}

std::string DetailsOf(const HealthTree &tree, const HealthTree::UserRow &row)
{
    const Finding &finding = tree.Index().Report().findings[row.finding];
    std::string text = titleOf(finding) + "\nWanted by: " + PlaceText(tree, row) + '\n';
    const auto list = [&](const char *label, const std::vector<std::string> &paths) {
        if (paths.empty())
            return;
        text += label;
        for (const std::string &path : paths)
            text += "\n    " + tree.Index().Relative(path);
        text += '\n';
    };
    text += "What to do: " + AdviceFor(finding) + '\n';
    list("Looked for:", finding.looked);
    list("Candidates:", finding.candidates);
    return text + "Rule: " + finding.rule;
}

std::string PlaceText(const HealthTree &tree, const HealthTree::UserRow &row)
{
    const Finding &finding = tree.Index().Report().findings[row.finding];
    const std::string user = tree.Index().Relative(row.path);
    const std::string line =
        finding.line > 0 ? ", line " + std::to_string(finding.line) : std::string();
    if (row.path == finding.file)
        return user + line;
    const bool isBeside = FolderOfPath(row.path) == FolderOfPath(finding.file);
    return user + " (" +
           (isBeside ? ShownText(std::string(host::path::FileName(finding.file)))
                     : tree.Index().Relative(finding.file)) +
           line + ')';
}

} // namespace content
