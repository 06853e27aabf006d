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
    std::int16_t position = 0; ///< 1-based place of the entry among the children of TrainCfg

    friend bool operator==(const ConsistRow &, const ConsistRow &) = default;
};

/// The editing buttons, by their index.
enum class Move
{
    Add = 0,
    Remove = 1,
    RemoveAll = 2,
    Forwards = 3,
    Backwards = 4,
    Flip = 5
};

/// The outcome of an edit, for the window to show.
struct EditResult
{
    int selectedRow = 0;  ///< 1-based row to select, 0 for none
    std::string message;  ///< a remark for the status bar, often ""
    bool refused = false; ///< nothing was changed, and the message says why
};

/// A consist document and its edits. The tree is the data; rows are a view of it, rebuilt after
/// each edit. Rows count from 1, 0 is "none selected".
///
/// The rows end before the first unit that cannot be listed. That unit and everything behind it
/// stay in the tree, and no edit touches them.
class ConsistTree
{
public:
    explicit ConsistTree(host::GameFiles &files);

    /// Reads a consist file. RuntimeError as StfFile::Load; error 91 with the file's name when
    /// there is no Train or TrainCfg block (the tree is loaded all the same). Clears Changed.
    void Load(const std::string &path);
    /// Starts a new consist from the template and sets Changed. `path` is a file that does not
    /// exist yet, under whose name the consist will be saved; "" when the name is still open.
    void New(const std::string &path = {});

    bool Changed() const { return m_changed; }
    void SetChanged(bool changed) { m_changed = changed; }

    const std::vector<ConsistRow> &Rows() const { return m_rows; }
    /// The file, the line and the fault of the first unit that cannot be listed; "" when the rows
    /// show every unit.
    const std::string &WhyRowsEnd() const { return m_whyRowsEnd; }
    /// The values of TrainCfg joined by single blanks, trimmed; "" when there is none.
    std::string Title() const;
    /// Values of MaxVelocity (index 0 and 1) and Durability as the file's text; "" when absent.
    std::string MaxVelocity(int index) const;
    std::string Durability() const;

    /// Performs an editing operation and rebuilds the rows. Every call sets Changed, even one that
    /// changes nothing. `stock` is the selected row of the stock list, needed by Add only (null for
    /// none selected). Never throws on the file's content: an edit that cannot be done leaves the
    /// tree as it is, and the result says why.
    EditResult Edit(Move move, int selectedRow, const StockItem *stock = nullptr);

    /// Sets the consist's name after the file name in TrainCfg and its name node, writes the
    /// document to `path` and clears Changed. RuntimeError as StfFile::Save, or 91 with the file's
    /// name when there is no TrainCfg to hold the name; the consist then keeps its old name, and
    /// Changed stays as it was.
    void Save(const std::string &path);

    /// True when `path` leads to the file that was loaded or saved last, and the file has another
    /// content now: saving would overwrite what somebody else has written.
    bool ChangedOnDisk(const std::string &path) const { return m_onDisk.HasChanged(m_files, path); }

    /// Writes a copy as Save would; the document itself, its name and Changed stay as they are.
    void SaveCopy(const std::string &path) const;

    /// RuntimeError 91 with the file's name when Save could not write the name, so that nobody
    /// deletes a file to make room for what cannot be written.
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
    void writeName(const std::string &name);

    host::GameFiles &m_files;
    StfFile m_file;
    host::FileState m_onDisk; ///< what the document's file held when it was read or written here
    std::vector<ConsistRow> m_rows;
    std::string m_whyRowsEnd;
    bool m_changed = false;
};

/// The name that a consist gets from its file: the file name without folder and last extension.
std::string ConsistName(std::string_view path);

} // namespace document
