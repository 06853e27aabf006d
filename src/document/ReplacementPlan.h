// SPDX-License-Identifier: MIT
#pragma once

#include "document/StockReplacement.h"

#include <cstddef>
#include <string>
#include <vector>

namespace install {
class Installation;
}

namespace document {

/// A file to search for a vehicle, and its name for people.
struct SearchedFile
{
    std::string path;
    std::string name; ///< of a consist as lists show it; "ROUTE/NAME.act" for an activity
    bool isActivity = false;
};

/// Returns all installed consists, then the activities of all routes. Adds the folders that cannot
/// be listed to `faults`.
std::vector<SearchedFile> FilesToSearch(const install::Installation &installation,
                                        host::GameFiles &files, std::vector<std::string> &faults);

/// The units that use a vehicle, and the user's choice among them. At first all units of consists
/// are chosen, and none of activities.
class ReplacementPlan
{
public:
    struct File
    {
        std::string name;
        bool isActivity = false;
        FileInUse found;
        std::vector<bool> chosen; ///< by unit
        std::string blocked;      ///< why no unit can be chosen; "" if they can

        std::size_t ChosenUnits() const;
    };

    /// Nothing to replace.
    ReplacementPlan() = default;
    /// `found` is the result of searching these files.
    ReplacementPlan(install::StockItem from, const std::vector<SearchedFile> &searched,
                    FoundInUse found);

    const install::StockItem &From() const { return m_from; }
    /// The files that use the vehicle: consists, then activities.
    const std::vector<File> &Files() const { return m_files; }
    std::size_t Consists() const { return m_consists; }
    /// "FILE: REASON" for each file that could not be searched. These files stay as they are.
    const std::vector<std::string> &Faults() const { return m_faults; }

    /// Choose a unit, or all units of a file. Do nothing if the file is blocked.
    void Choose(std::size_t file, std::size_t unit, bool chosen);
    void Choose(std::size_t file, bool chosen);
    /// Withdraws the choice of a file's units, for a reason. "" lifts the block.
    void Block(std::size_t file, std::string reason);
    /// Repeats the choice of an earlier plan for the same files. In a file that has changed since,
    /// all units are chosen if all were, else none.
    void ChooseAsIn(const ReplacementPlan &earlier);

    std::size_t ChosenUnits() const;
    /// Returns what will change: "3 of 12 units in 2 consists will change."
    std::string Summary() const;
    /// Returns the changes of all files with chosen units. Throws as StockReplacement does.
    std::vector<host::FileChange> Changes(host::GameFiles &files,
                                          const install::StockItem &to) const;

private:
    install::StockItem m_from;
    std::vector<File> m_files;
    std::vector<std::string> m_faults;
    std::size_t m_consists = 0;
};

/// Returns the title of a change: "Replace A/x.wag by B/y.wag".
std::string ReplacementTitle(const install::StockItem &from, const install::StockItem &to);

} // namespace document
