// SPDX-License-Identifier: MIT
#pragma once

#include "host/FileState.h"
#include "install/Train.h"
#include "stavfile/StfFile.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace document {

using install::StockItem;
using install::StockPath;

/// One unit of the train as the editor lists it.
struct ConsistRow
{
    StockItem item;
    std::int16_t position = 0; ///< 1-based position of the entry among the children of TrainCfg

    friend bool operator==(const ConsistRow &, const ConsistRow &) = default;
};

/// The editing buttons, in the order of their indexes.
enum class Move
{
    Add = 0,
    Remove = 1,
    RemoveAll = 2,
    Forwards = 3,
    Backwards = 4,
    Flip = 5
};

/// The result of an edit, for the window to show.
struct EditResult
{
    int selectedRow = 0;  ///< 1-based row to select, 0 for none
    std::string message;  ///< a remark for the status bar, often ""
    bool refused = false; ///< nothing was changed; the message gives the reason
};

/// A consist document and its edits. The tree is the data; the rows are a view of it, rebuilt after
/// each edit. Rows count from 1; 0 means "none selected".
///
/// The rows end before the first unit that cannot be listed. That unit and all units after it stay
/// in the tree, and no edit changes them.
class ConsistTree
{
public:
    explicit ConsistTree(host::GameFiles &files);

    /// Reads a consist file and clears Changed. Throws RuntimeError as StfFile::Load does. Throws
    /// error 91 with the file's name if there is no Train or TrainCfg block; the tree is loaded
    /// even then.
    void Load(const std::string &path);
    /// Starts a new consist from the template and sets Changed. `path` is the file in which the
    /// consist will be saved, which does not exist yet; "" if it has no name yet.
    void New(const std::string &path = {});

    /// Takes up the unsaved state of a consist, whose file is `path` (there may be none), and sets
    /// Changed. If `changedOnDisk`, the file counts as changed by another program. Throws as Load.
    void Restore(const std::string &path, std::string bytes, bool changedOnDisk);

    bool Changed() const { return m_changed; }
    void SetChanged(bool changed) { m_changed = changed; }

    const std::vector<ConsistRow> &Rows() const { return m_rows; }
    /// Returns the file, the line and the fault of the first unit that cannot be listed; "" if the
    /// rows show every unit.
    const std::string &WhyRowsEnd() const { return m_whyRowsEnd; }
    /// Returns the values of TrainCfg, joined by single blanks and trimmed; "" if there are none.
    std::string Title() const;
    /// Return values of MaxVelocity (index 0 and 1) and Durability as text from the file; "" if
    /// absent.
    std::string MaxVelocity(int index) const;
    std::string Durability() const;

    /// Performs an editing operation and rebuilds the rows. Every call sets Changed, even one that
    /// changes nothing. `stock` is the selected row of the stock list, or null for none; only Add
    /// needs it. Never throws because of the file's content: if the edit is impossible, the tree
    /// stays as it is, and the result states why.
    EditResult Edit(Move move, int selectedRow, const StockItem *stock = nullptr);

    /// Sets the consist's name, in TrainCfg and its name node, to the file name; writes the
    /// document to `path` and clears Changed. Throws RuntimeError as StfFile::Save does, or 91 with
    /// the file's name if there is no TrainCfg to hold the name. After an error the consist keeps
    /// its old name, and Changed stays as it was.
    void Save(const std::string &path);
    /// Like Save, but throws host::FileChanged instead of overwriting a file whose content is not
    /// `before`.
    void Save(const std::string &path, const host::FileState &before);
    /// Returns the state of the file that was last loaded or saved, as it was then.
    const host::FileState &OnDisk() const { return m_onDisk; }

    /// True if `path` leads to the file that was last loaded or saved, and the file now has other
    /// content: saving would overwrite another program's change.
    bool ChangedOnDisk(const std::string &path) const { return m_onDisk.HasChanged(m_files, path); }

    /// Writes a copy as Save would. The document, its name and Changed stay as they are.
    void SaveCopy(const std::string &path) const;

    /// Throws RuntimeError 91 with the file's name if Save could not write the name. Call it before
    /// deleting a file to make room for this one.
    void CheckSavable() const { trainCfg(); }

    const StfFile &Document() const { return m_file; }

private:
    StfNode trainCfg() const { return install::RequireTrain(m_file); }
    std::string trainValue(std::string_view name, int index) const;
    void rebuildRows();
    EditResult perform(Move move, int row, const StockItem *stock);
    EditResult add(const StockItem &stock);
    EditResult remove(int row);
    EditResult removeAll();
    EditResult forwards(int row);
    EditResult backwards(int row);
    EditResult flip(int row);
    void save(const std::string &path, const host::FileState *before);
    void writeName(const std::string &name);

    host::GameFiles &m_files;
    StfFile m_file;
    host::FileState m_onDisk; ///< the file's content when last read or written here
    std::vector<ConsistRow> m_rows;
    std::string m_whyRowsEnd;
    bool m_changed = false;
};

/// Returns the name that a consist gets from its file: the file name without folder and last
/// extension.
std::string ConsistName(std::string_view path);

} // namespace document
