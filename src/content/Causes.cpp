// SPDX-License-Identifier: MIT
#include "content/Causes.h"

#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/Text.h"

#include <algorithm>
#include <map>
#include <set>

namespace content {
namespace {

std::string upper(std::string_view text)
{
    return host::ToUpper(text);
}

/// Returns the path relative to the installation folder, with "/"; the whole path if the file is
/// not below it.
std::string relative(const std::string &path, const std::string &root)
{
    std::string_view rest = path;
    if (rest.size() > root.size() && upper(rest.substr(0, root.size())) == upper(root))
        rest.remove_prefix(root.size() + (root.ends_with(host::path::kSeparator) ? 0 : 1));
    std::string out(rest);
    std::replace(out.begin(), out.end(), '\\', '/');
    return out;
}

class Grouping
{
public:
    Grouping(HealthReport &report, host::Snapshot &folders, const InstallFolders &install)
        : m_report(report)
        , m_folders(folders)
        , m_install(install)
    {
    }

    void Run()
    {
        countDefaultSounds();
        for (std::size_t i = 0; i < m_report.findings.size(); ++i)
            if (m_report.findings[i].IsProblem())
                add(i);
        for (auto &[id, cause] : m_causes)
            m_report.causes.push_back(std::move(cause));
        CountCauses(m_report);
    }

private:
    /// True for a missing sound that is named without a folder, which could be in the root SOUND
    /// folder.
    static bool mayBeDefault(const Finding &finding)
    {
        return (finding.kind == Kind::Sound || finding.kind == Kind::SoundFile) &&
               IsProblem(finding.answer) &&
               std::none_of(finding.wants.begin(), finding.wants.end(), host::IsSeparator);
    }
    bool isDefault(const Finding &finding) const
    {
        if (!mayBeDefault(finding))
            return false;
        const auto found = m_soundFolders.find(upper(finding.wants));
        return found != m_soundFolders.end() && found->second.size() > 1;
    }
    /// A sound that files of several stock folders name without a folder is assumed to be one of
    /// the simulator's default sounds.
    void countDefaultSounds()
    {
        for (const Finding &finding : m_report.findings)
            if (mayBeDefault(finding))
                m_soundFolders[upper(finding.wants)].insert(stockFolderOf(finding.file));
    }
    /// Returns the name of the stock folder that contains the file, in upper case; for other files,
    /// their folder.
    std::string stockFolderOf(const std::string &file) const
    {
        const std::string path = upper(file), trainset = upper(m_install.trainset);
        if (!path.starts_with(trainset) || path.size() <= trainset.size() + 1)
            return upper(FolderOfPath(file));
        const std::size_t from = trainset.size() + 1;
        return path.substr(from, path.find(host::path::kSeparator, from) - from);
    }

    /// Returns the topmost folder of the path that does not exist; "" if all exist.
    const std::string &absentFolder(const std::string &path)
    {
        const std::string folder = FolderOfPath(path);
        const auto known = m_absent.find(folder);
        if (known != m_absent.end())
            return known->second;
        std::string absent;
        if (!folder.empty() && !m_folders.FolderExists(folder)) {
            absent = absentFolder(folder);
            if (absent.empty())
                absent = folder;
        }
        return m_absent.emplace(folder, std::move(absent)).first->second;
    }

    void add(std::size_t index)
    {
        Finding &finding = m_report.findings[index];
        // A name without quotes leads to a folder that nobody meant.
        const bool isMissing = IsProblem(finding.answer) && finding.rule != "unquoted-name";
        const std::string absent = isMissing ? absentFolder(finding.Expected()) : std::string();
        Cause cause;
        cause.id = "single-files";
        cause.what = "Single files";
        if (isDefault(finding)) {
            cause.id = "default-sounds";
            cause.what = "Sounds that come with Train Simulator are not in the SOUND folder";
        } else if (!absent.empty()) {
            const std::string folder = relative(absent, m_install.root);
            cause.id = "folder:" + host::ToLower(folder);
            cause.what = folderTitle(folder);
            if (finding.kind != Kind::Include && finding.rule.starts_with("missing-"))
                finding.rule = "missing-folder";
        } else if (finding.rule.starts_with("damaged-") && finding.neededBy.size() > 1) {
            const std::string file = relative(finding.file, m_install.root);
            cause.id = "damaged:" + host::ToLower(file);
            cause.what = "Damaged file " + file;
        }
        cause.isSingles = cause.id == "single-files";
        finding.cause = cause.id;
        const auto [kept, isNew] = m_causes.try_emplace(cause.id, cause);
        kept->second.findings.push_back(index);
    }

    std::string folderTitle(const std::string &folder) const
    {
        const std::string trainset = relative(m_install.trainset, m_install.root) + '/';
        const bool isStock = upper(folder).starts_with(upper(trainset)) &&
                             folder.find('/', trainset.size()) == std::string::npos;
        return isStock ? "Stock folder " + folder.substr(trainset.size()) + " is not installed"
                       : "Folder " + folder + " does not exist";
    }

    HealthReport &m_report;
    host::Snapshot &m_folders;
    const InstallFolders &m_install;
    std::map<std::string, Cause> m_causes; ///< by id
    std::map<std::string, std::set<std::string>>
        m_soundFolders;                          ///< by name: the folders that name it
    std::map<std::string, std::string> m_absent; ///< by folder
};

bool before(const Cause &a, const Cause &b)
{
    if (a.isSingles != b.isSingles)
        return b.isSingles;
    if (a.severity != b.severity)
        return a.severity > b.severity;
    return a.findings.size() > b.findings.size();
}

void count(const HealthReport &report, Cause &cause)
{
    std::set<std::uint32_t> users;
    cause.severity = Severity::Note;
    for (const std::size_t index : cause.findings) {
        const Finding &finding = report.findings[index];
        users.insert(finding.neededBy.begin(), finding.neededBy.end());
        cause.severity = std::max(cause.severity, finding.severity);
    }
    cause.users = users.size();
    const std::string files = host::Counted(cause.users, "file", "files");
    if (cause.isSingles)
        cause.title =
            cause.what + ": " + host::Counted(cause.findings.size(), "finding", "findings");
    else if (cause.id.starts_with("damaged:"))
        cause.title = cause.what + ": needed by " + files;
    else
        cause.title = cause.what + ": " +
                      host::Counted(cause.findings.size(), "reference", "references") + " from " +
                      files;
}

} // namespace

void CountCauses(HealthReport &report)
{
    for (Cause &cause : report.causes)
        count(report, cause);
    std::stable_sort(report.causes.begin(), report.causes.end(), before);
}

void GroupByCause(HealthReport &report, host::Snapshot &folders, const InstallFolders &install)
{
    Grouping(report, folders, install).Run();
}

} // namespace content
