// SPDX-License-Identifier: MIT
#include "host/ChangeJournal.h"

#include "host/Disk.h"
#include "host/Folders.h"
#include "host/GameFiles.h"
#include "host/Leftovers.h"
#include "host/Path.h"
#include "host/Replace.h"
#include "host/RuntimeError.h"
#include "host/Text.h"

#include <algorithm>
#include <mutex>
#include <set>

namespace host {
namespace {

constexpr const char *kRunning = "running", *kKept = "kept", *kLast = "last.zelk-change";

/// One change at a time in this process, so that Recover may take over what an earlier one left.
std::mutex &oneAtATime()
{
    static std::mutex mutex;
    return mutex;
}

[[noreturn]] void fail(const disk::Failure &failure, const std::string &path)
{
    throw RuntimeError(failure.number, path + ": " + failure.reason);
}

std::optional<disk::Failure> contentOf(const std::string &path, std::string &bytes)
{
    return disk::Read(path, GameFiles::kReadLimit, bytes);
}

bool holds(const std::string &path, std::string_view wanted)
{
    std::string bytes;
    return !disk::Read(path, wanted.size(), bytes) && bytes == wanted;
}

constexpr const char *kUnreadable = "?"; ///< in place of a mark

/// Returns the mark of a file's content: "" if there is no file, kUnreadable if it cannot be read.
std::string markOf(const std::string &path)
{
    std::string bytes;
    if (contentOf(path, bytes))
        return disk::KindOf(path) == disk::Kind::Absent ? "" : kUnreadable;
    return ContentMark(bytes);
}

std::set<std::string> foldersOf(const std::vector<FileChange> &changes)
{
    std::set<std::string> folders;
    for (const FileChange &change : changes)
        folders.insert(disk::FolderOfTarget(change.path));
    return folders;
}

/// Writes all new files, then replaces the old ones and counts them. A file that is in the set
/// twice, through a link, already holds its new content the second time.
void replaceAll(const std::vector<FileChange> &changes, std::size_t &replaced)
{
    const std::set<std::string> folders = foldersOf(changes);
    for (const std::string &folder : folders)
        disk::RemoveLeftovers(folder);
    std::vector<disk::Replacement> files(changes.size());
    for (std::size_t i = 0; i < changes.size(); ++i)
        if (const auto failure = files[i].Prepare(changes[i].path, changes[i].after))
            fail(*failure, changes[i].path);
    for (std::size_t i = 0; i < changes.size(); ++i)
        if (const auto failure = files[i].Flush())
            fail(*failure, changes[i].path);
    for (replaced = 0; replaced < changes.size(); ++replaced) {
        const FileChange &change = changes[replaced];
        const auto failure = files[replaced].Commit([&change] {
            return holds(change.path, change.before) || holds(change.path, change.after);
        });
        if (failure)
            fail(*failure, change.path);
    }
    for (const std::string &folder : folders)
        disk::FlushNames(folder);
}

/// The result of bringing old content back.
struct Restoring
{
    std::vector<std::string> left; ///< for each file that keeps other content: path and reason
    bool mayRetry = false;         ///< a failure of the machine was among the reasons
};

/// Returns why a file did not get its old content back; nothing if it has it.
std::optional<disk::Failure> restore(const ChangeRecord::File &file)
{
    const std::string now = markOf(file.path);
    if (now == file.before)
        return std::nullopt;
    if (now == kUnreadable)
        return disk::Failure{ErrorNumber::PermissionDenied, "it cannot be read"};
    // On some systems a killed process leaves no file of that name for a moment.
    if (now != file.after && !now.empty())
        return disk::Failure{ErrorNumber::PathFileAccess, "it was changed since, and stays so"};
    if (!file.old)
        return disk::Failure{ErrorNumber::PathFileAccess, "its old content is lost"};
    disk::Replacement replacement;
    if (auto failure = replacement.Prepare(file.path, *file.old))
        return failure;
    if (auto failure = replacement.Flush())
        return failure;
    return replacement.Commit([&] { return markOf(file.path) == now; });
}

/// Brings the old content of files back that have the new one.
Restoring restoreAll(const std::vector<ChangeRecord::File> &files)
{
    Restoring result;
    std::set<std::string> folders;
    for (const ChangeRecord::File &file : files)
        folders.insert(disk::FolderOfTarget(file.path));
    for (const std::string &folder : folders)
        disk::RemoveLeftovers(folder);
    for (const ChangeRecord::File &file : files)
        if (const auto failure = restore(file)) {
            const std::string now = markOf(file.path);
            result.left.push_back(file.path + ": " + failure->reason);
            result.mayRetry =
                result.mayRetry || now == kUnreadable || now.empty() || now == file.after;
        }
    for (const std::string &folder : folders)
        disk::FlushNames(folder);
    return result;
}

std::string listed(const std::vector<std::string> &lines)
{
    std::string text;
    for (const std::string &line : lines)
        text += "\n  " + line;
    return text;
}

std::string allFiles(const ChangeRecord &record)
{
    return record.files.size() == 1 ? "The file has"
                                    : "All " + std::to_string(record.files.size()) + " files have";
}

} // namespace

ChangeJournal::ChangeJournal(std::string folder)
    : m_journals(std::move(folder), kRunning)
{
}

std::string ChangeJournal::DefaultFolder()
{
    return path::Join(StateFolder(), "zelk/changes");
}

std::string ChangeJournal::LastFile() const
{
    return disk::Join(m_journals.Folder(), kLast);
}

void ChangeJournal::Apply(const std::string &title, const std::vector<FileChange> &changes)
{
    const std::lock_guard lock(oneAtATime());
    if (!changes.empty())
        run(ChangeRecord::Of(title, changes), changes);
}

void ChangeJournal::run(const ChangeRecord &record, const std::vector<FileChange> &changes)
{
    if (const auto failure = disk::MakeFolders(m_journals.Folder()))
        fail(*failure, m_journals.Folder());
    const std::string journal = m_journals.NewPath();
    if (const auto failure = disk::Replace(journal, record.ToBytes()))
        fail(*failure, journal);
    std::size_t replaced = 0;
    try {
        refuseBesideOthers();
        replaceAll(changes, replaced);
        finish(record, journal);
    } catch (const RuntimeError &error) {
        const std::string left = rollBack(record, journal, replaced);
        throw RuntimeError(error.Code(), error.Detail() + left);
    } catch (...) {
        rollBack(record, journal, replaced);
        throw;
    }
}

/// Brings the old content of the first files back. Returns the sentence that ends the message.
std::string ChangeJournal::rollBack(const ChangeRecord &record, const std::string &journal,
                                    std::size_t replaced)
{
    // On some systems a failed replacement can leave no file of that name.
    if (replaced < record.files.size() && markOf(record.files[replaced].path).empty())
        ++replaced;
    const auto begin = record.files.begin();
    const Restoring restoring = restoreAll({begin, begin + static_cast<std::ptrdiff_t>(replaced)});
    if (!restoring.left.empty())
        return ". These files could not be restored; the next start tries it again:" +
               listed(restoring.left);
    disk::Remove(journal);
    return ". No file was changed.";
}

/// Every process writes its journal before it looks for others, so that of two that begin at the
/// same time at least one sees the other.
void ChangeJournal::refuseBesideOthers() const
{
    for (const OwnedFiles::File &other : m_journals.List())
        if (other.owner == OwnedFiles::Owner::Running)
            throw RuntimeError(ErrorNumber::PathFileAccess,
                               other.path + ": another ZELK changes files at this moment");
}

/// Makes a change whose files are all replaced the last one; an undo leaves no last change.
void ChangeJournal::finish(const ChangeRecord &record, const std::string &journal) const
{
    if (record.undoes.empty()) {
        if (const auto failure = disk::Rename(journal, LastFile()))
            fail(*failure, LastFile());
    } else {
        const std::string mark = markOf(LastFile());
        const auto failure = mark == record.undoes ? disk::Remove(LastFile()) : std::nullopt;
        if (failure || mark == kUnreadable)
            fail(failure.value_or(disk::Failure{ErrorNumber::PathFileAccess, "it cannot be read"}),
                 LastFile());
        disk::Remove(journal); // if this fails, Recover removes it
    }
    disk::FlushNames(m_journals.Folder());
}

std::optional<ChangeRecord> ChangeJournal::Last() const
{
    std::string bytes;
    if (const auto failure = contentOf(LastFile(), bytes)) {
        if (disk::KindOf(LastFile()) == disk::Kind::Absent)
            return std::nullopt;
        fail(*failure, LastFile());
    }
    std::optional<ChangeRecord> record = ChangeRecord::FromBytes(std::move(bytes));
    if (!record || !record->whole)
        throw RuntimeError(ErrorNumber::PathFileAccess,
                           LastFile() + ": this record of the last change is damaged, so that the "
                                        "change cannot be taken back");
    return record;
}

ChangeRecord ChangeJournal::Undo()
{
    const std::lock_guard lock(oneAtATime());
    std::optional<ChangeRecord> last = Last();
    if (!last)
        throw RuntimeError(ErrorNumber::InvalidCall, "There is no change to take back.");
    std::vector<FileChange> changes;
    for (const ChangeRecord::File &file : last->files) {
        FileChange change{file.path, {}, std::string(*file.old)};
        if (const auto failure = contentOf(file.path, change.before))
            fail(*failure, file.path);
        if (ContentMark(change.before) != file.after)
            throw RuntimeError(ErrorNumber::PathFileAccess,
                               file.path + ": it was changed since, so that the change cannot be "
                                           "taken back. No file was changed.");
        changes.push_back(std::move(change));
    }
    ChangeRecord undo = ChangeRecord::Of("Undo " + last->title, changes);
    undo.undoes = ContentMark(*last->bytes);
    run(undo, changes);
    return std::move(*last);
}

std::vector<std::string> ChangeJournal::Recover()
{
    const std::lock_guard lock(oneAtATime());
    std::vector<std::string> messages;
    for (const OwnedFiles::File &file : m_journals.List()) {
        if (file.owner != OwnedFiles::Owner::Ended && file.owner != OwnedFiles::Owner::Self)
            continue;
        const auto journal = m_journals.TakeOver(file.path);
        if (!journal)
            continue;
        try {
            messages.push_back(recover(*journal));
        } catch (const RuntimeError &error) {
            messages.push_back(error.Detail());
        }
    }
    return messages;
}

/// Returns the message for the user.
std::string ChangeJournal::recover(const std::string &journal)
{
    const std::string kept = m_journals.Retired(journal, kKept);
    std::string bytes;
    if (const auto failure = contentOf(journal, bytes))
        return journal + ": " + failure->reason + ". The change that it describes was interrupted.";
    const std::optional<ChangeRecord> record = ChangeRecord::FromBytes(std::move(bytes));
    if (!record) {
        disk::Rename(journal, kept);
        return kept + ": this record of an interrupted change is damaged. Files of the change may "
                      "have their new content.";
    }
    const std::string start = '"' + record->title + "\" was interrupted. ";
    const bool isDone =
        std::all_of(record->files.begin(), record->files.end(),
                    [](const ChangeRecord::File &file) { return markOf(file.path) == file.after; });
    if (isDone && record->whole) {
        finish(*record, journal);
        return start + allFiles(*record) + " the new content.";
    }
    const Restoring restoring = restoreAll(record->files);
    if (restoring.left.empty() && record->whole) {
        disk::Remove(journal);
        return start + allFiles(*record) + " the old content again.";
    }
    if (restoring.mayRetry && record->whole)
        return start + "These files could not be restored; the next start tries it again:" +
               listed(restoring.left);
    disk::Rename(journal, kept);
    std::string text = start + "The old content of its files is kept in " + kept + ".";
    if (!record->whole)
        text += " That record is damaged, so that files may be missing here.";
    return text + (restoring.left.empty() ? "" : " These files do not have it:") +
           listed(restoring.left);
}

} // namespace host
