// SPDX-License-Identifier: MIT
#pragma once

#include "document/EditHistory.h"
#include "document/TrainEdit.h"
#include "host/FileState.h"
#include "install/Train.h"
#include "stavfile/StfFile.h"

#include <cstdint>
#include <functional>
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

/// A consist document and its edits. The tree is the data; the rows are a view of it, rebuilt after
/// each edit. Rows count from 1; 0 means "none selected".
///
/// Every edit that changes something is a step that can be undone, however many units it changes.
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
    /// Performs an editing operation on several rows, in train order, as one step; Add adds all of
    /// `stock`. With one row, or one item, the result is that of the function above. Units that
    /// move keep their order. Ignores rows that do not exist; no rows are no selection.
    EditResult Edit(Move move, std::vector<int> rows, const std::vector<StockItem> &stock = {});

    // Each of these is one step too, and sets Changed like Edit.

    /// Inserts stock so that the first item becomes row `place`; 0 appends it as Add does.
    EditResult Insert(const std::vector<StockItem> &stock, int place);
    /// Like Insert, for whole units that are not in any train (UnitClipboard.h).
    EditResult Paste(const std::vector<StfNode> &units, int place);
    /// Like Remove; the step is named Cut.
    EditResult Cut(std::vector<int> rows);
    /// Makes units name another vehicle of the same kind.
    EditResult Replace(std::vector<int> rows, const StockItem &vehicle);
    /// Moves units together in front of the unit that is now row `place`; a row more than there are
    /// means the end of the train.
    EditResult MoveTo(std::vector<int> rows, int place);
    /// Reverses the order of the units and turns each of them round. Selects the units that were in
    /// these rows.
    EditResult Reverse(std::vector<int> rows = {});

    /// Undo the last step, or redo the one last undone, and set Changed. They restore the bytes of
    /// all blocks, but not a name that a save has written. They do nothing if there is no step.
    /// Load and New drop all steps.
    EditResult Undo();
    EditResult Redo();
    /// Return the title of the step that Undo or Redo would take, as "Remove 3 Units"; "" if there
    /// is none.
    std::string UndoName() const;
    std::string RedoName() const;

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
    void keepExisting(std::vector<int> &rows) const;
    EditResult step(const std::string &name, const std::vector<int> &rows,
                    const std::function<EditResult(TrainEdit &)> &act);
    EditResult add(const std::vector<StockItem> &stock, const std::vector<int> &rows);
    EditResult insert(const char *verb, const std::vector<StfNode> &units, int place,
                      const char *whyNone);
    EditResult remove(const std::string &name, const std::vector<int> &rows);
    EditResult removeAll();
    EditResult flip(const std::vector<int> &rows);
    EditResult restored(std::vector<int> rows);
    void save(const std::string &path, const host::FileState *before);
    std::function<void()> writeName(const std::string &name);

    host::GameFiles &m_files;
    StfFile m_file;
    host::FileState m_onDisk; ///< the file's content when last read or written here
    std::vector<ConsistRow> m_rows;
    EditHistory m_history;
    std::string m_whyRowsEnd;
    bool m_changed = false;
};

/// Returns the name that a consist gets from its file: the file name without folder and last
/// extension.
std::string ConsistName(std::string_view path);

} // namespace document
