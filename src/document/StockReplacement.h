// SPDX-License-Identifier: MIT
#pragma once

#include "document/NameSearch.h"
#include "host/ChangeRecord.h"
#include "install/Train.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {
class GameFiles;
}

namespace document {

/// A unit that uses a vehicle.
struct UnitInUse
{
    int loose = 0;  ///< the number of its loose consist in an activity, from 1; 0 in a consist
    int number = 0; ///< among the units of its train, from 1; 0 for a data block outside any unit
    int line = 0;   ///< of its data block
    std::string name, folder; ///< as the file spells them
};

/// A file with units that use a vehicle.
struct FileInUse
{
    std::string path;  ///< as given to the search
    std::string bytes; ///< the content in which the units were found
    std::vector<UnitInUse> units;
};

/// Replaces a vehicle by another one of the same kind in the trains of consist files and in the
/// loose consists of activities. A unit uses the vehicle if its data block, at any place in the
/// file, has this name and folder; letter case is ignored. A folder name with blanks and without
/// quotes is several values, which are joined.
class StockReplacement
{
public:
    /// Throws RuntimeError 5 if the two are not of the same kind.
    StockReplacement(host::GameFiles &files, install::StockItem from, install::StockItem to);

    const install::StockItem &From() const { return m_from; }
    const install::StockItem &To() const { return m_to; }

    /// Returns the units of a file that use the vehicle; nothing if there are none. Throws
    /// RuntimeError with the file and the reason if it cannot be read, or if it is not text and may
    /// use the vehicle. Thread-safe.
    std::optional<FileInUse> Find(const std::string &path) const;

    /// Returns the file with the replacement in the units whose places in `units` are set in
    /// `chosen`; in all of them if it is empty. Name and folder are written as given, in quotes
    /// only if necessary; all other bytes stay. Only if a new name does not fit the encoding of the
    /// file, the file becomes UTF-16. Throws RuntimeError 53 if there is no such file any more.
    host::FileChange ChangeOf(const FileInUse &file, const std::vector<bool> &chosen = {}) const;

private:
    bool mayUse(std::string_view bytes) const;
    bool isUsedBy(const StfNode &data) const;

    host::GameFiles &m_files;
    const install::StockItem m_from, m_to;
    const NameSearch m_name, m_folder, m_compressed;
};

/// Returns the vehicle that "FOLDER/NAME.wag" or "FOLDER/NAME.eng" names, with either separator;
/// nothing for any other text.
std::optional<install::StockItem> VehicleOf(std::string_view text);
/// Returns "FOLDER/NAME.wag".
std::string VehicleText(const install::StockItem &vehicle);
/// Writes the vehicle into the data block of a unit, name and folder as given.
void WriteVehicle(StfNode data, const install::StockItem &vehicle);

/// The files of a search that use the vehicle, and those that could not be searched.
struct FoundInUse
{
    std::vector<FileInUse> files;
    std::vector<std::string> faults; ///< "FILE: REASON"
};
/// Searches files in order, on several threads. Calls `goOn` after each file with the number of
/// files searched so far, and ends early if it returns false.
FoundInUse FindInUse(const StockReplacement &replacement, const std::vector<std::string> &paths,
                     const std::function<bool(std::size_t done)> &goOn = {});

} // namespace document
