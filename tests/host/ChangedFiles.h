// SPDX-License-Identifier: MIT
#pragma once

#include "host/ChangeJournal.h"
#include "host/Leftovers.h"
#include "support/TempFolder.h"

#include <string>
#include <vector>

/// Three files in two folders, a change of all of them, and the folder of its journal.
struct ChangedFiles
{
    using Names = std::vector<std::string>;
    static constexpr const char *kNames[] = {"A/a.con", "A/b.con", "B/c.con"};

    ChangedFiles()
    {
        for (const char *const name : kNames)
            changes.push_back({folder.Write(name, OldOf(name)), OldOf(name), NewOf(name)});
    }
    static std::string OldOf(const std::string &name) { return "the old content of " + name; }
    static std::string NewOf(const std::string &name) { return "new " + name; }

    /// Returns one letter for each file: o for the old content, n for the new one, x for other
    /// content, - for no file.
    std::string State() const
    {
        std::string state;
        for (const std::string name : kNames) {
            const std::string bytes = folder.Exists(name) ? folder.Read(name) : "";
            state += bytes.empty()          ? '-'
                     : bytes == OldOf(name) ? 'o'
                     : bytes == NewOf(name) ? 'n'
                                            : 'x';
        }
        return state;
    }
    /// Returns the names in all folders, but for the last change.
    Names Others() const
    {
        Names others;
        for (const char *const in : {"A", "B", "state"})
            if (folder.Exists(in))
                for (const std::string &name : folder.Names(in))
                    if (!name.ends_with(".con") && name != "last.zelk-change")
                        others.push_back(name);
        return others;
    }
    /// Writes the journal of a change that a killed process began.
    void LeaveJournal(const std::string &bytes) const
    {
        constexpr std::uint64_t kNobody = 0x7ffffffe; // larger than any process number
        WriteJournal({host::disk::ThisProcess().machine, kNobody, 1}, bytes);
    }
    void WriteJournal(const host::disk::Writer &writer, const std::string &bytes) const
    {
        folder.Write("state/running" + host::disk::TemporaryName(writer, 7) + ".tmp", bytes);
    }
    std::string JournalBytes() const
    {
        return host::ChangeRecord::Of("Replace", changes).ToBytes();
    }

    support::TempFolder folder;
    host::ChangeJournal journal{folder.At("state")};
    std::vector<host::FileChange> changes;
};
