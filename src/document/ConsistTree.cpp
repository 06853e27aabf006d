// SPDX-License-Identifier: MIT
#include "document/ConsistTree.h"

#include "document/UnitClipboard.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/Text.h"
#include "install/modTS.h"

#include <algorithm>
#include <numeric>
#include <utility>

using host::RuntimeError;

namespace document {
namespace {

EditResult refusal(std::string why)
{
    return {0, std::move(why), true};
}

/// Returns "Flip Unit", or "Flip 3 Units".
std::string titled(const std::string &verb, std::size_t units)
{
    return verb + ' ' + (units == 1 ? "Unit" : host::Counted(units, "Unit", "Units"));
}

/// Sets the rows to select; the last one is the selected row of those who show only one.
EditResult selecting(std::vector<int> rows, EditResult result)
{
    result.selectedRow = rows.empty() ? 0 : rows.back();
    result.selectedRows = std::move(rows);
    return result;
}

std::vector<StfNode> newUnits(const std::vector<StockItem> &stock)
{
    std::vector<StfNode> units;
    for (const StockItem &item : stock)
        units.push_back(NewUnit(item.type, item.shape, item.folder));
    return units;
}

ConsistRow rowOf(const install::Unit &unit)
{
    ConsistRow row{unit.Item(), unit.Position()};
    if (unit.IsFlipped())
        row.item.type += '*';
    return row;
}

} // namespace

std::string ConsistName(std::string_view path)
{
    return host::path::BaseName(path);
}

ConsistTree::ConsistTree(host::GameFiles &files)
    : m_files(files)
    , m_file(files)
{
}

void ConsistTree::Load(const std::string &path)
{
    m_file.SetFileName(path);
    std::string bytes = m_files.ReadFile(path);
    m_onDisk = host::FileState(path, bytes);
    m_file.LoadBytes(std::move(bytes));
    m_changed = false;
    m_history.Clear();
    rebuildRows();
}

void ConsistTree::New(const std::string &path)
{
    m_file.New();
    m_file.SetFileName({});
    m_onDisk = host::FileState::Absent(path);
    modTS::NewDocumentTemplate(m_file, "con");
    m_changed = true;
    m_history.Clear();
    rebuildRows();
}

void ConsistTree::Restore(const std::string &path, std::string bytes, bool changedOnDisk)
{
    m_file.SetFileName(path);
    m_file.LoadBytes(std::move(bytes));
    m_onDisk = host::FileState::Absent(path);
    if (!changedOnDisk && !path.empty() && m_files.FileExists(path))
        m_onDisk = host::FileState(path, m_files.ReadFile(path));
    m_changed = true;
    m_history.Clear();
    rebuildRows();
}

void ConsistTree::rebuildRows()
{
    m_rows.clear();
    m_whyRowsEnd.clear();
    const StfNode cfg = trainCfg();
    try {
        for (const install::Unit unit : install::Units(cfg))
            m_rows.push_back(rowOf(unit));
    } catch (const RuntimeError &error) {
        m_whyRowsEnd = error.Detail();
    }
}

/// Returns a value to show; "" if any of the blocks around it is absent.
std::string ConsistTree::trainValue(std::string_view name, int index) const
{
    return stavfile::ValueAt(stavfile::ChildOf(install::FindTrain(m_file), name), index);
}

std::string ConsistTree::Title() const
{
    return install::TrainTitle(install::FindTrain(m_file));
}

std::string ConsistTree::MaxVelocity(int index) const
{
    return trainValue("MaxVelocity", index);
}

std::string ConsistTree::Durability() const
{
    return trainValue("Durability", 0);
}

EditResult ConsistTree::Edit(Move move, int selectedRow, const StockItem *stock)
{
    return Edit(move, selectedRow > 0 ? std::vector<int>{selectedRow} : std::vector<int>(),
                stock ? std::vector<StockItem>{*stock} : std::vector<StockItem>());
}

EditResult ConsistTree::Edit(Move move, std::vector<int> rows, const std::vector<StockItem> &stock)
{
    keepExisting(rows);
    switch (move) {
    case Move::Add:
        return add(stock, rows);
    case Move::Remove:
        return remove(titled("Remove", rows.size()), rows);
    case Move::RemoveAll:
        return removeAll();
    case Move::Forwards:
        return step(titled("Move", rows.size()) + " Forwards", rows,
                    [&](TrainEdit &edit) { return edit.Forwards(rows); });
    case Move::Backwards:
        return step(titled("Move", rows.size()) + " Backwards", rows,
                    [&](TrainEdit &edit) { return edit.Backwards(rows); });
    case Move::Flip:
        break;
    }
    return flip(rows);
}

EditResult ConsistTree::add(const std::vector<StockItem> &stock, const std::vector<int> &rows)
{
    EditResult result = Insert(stock, 0);
    return result.refused ? selecting(rows, std::move(result)) : result;
}

EditResult ConsistTree::Insert(const std::vector<StockItem> &stock, int place)
{
    return insert("Add", newUnits(stock), place, "No installed stock is selected.");
}

EditResult ConsistTree::Paste(const std::vector<StfNode> &units, int place)
{
    return insert("Paste", units, place, "There are no units to paste.");
}

EditResult ConsistTree::insert(const char *verb, const std::vector<StfNode> &units, int place,
                               const char *whyNone)
{
    place = std::clamp(place, 0, static_cast<int>(m_rows.size()) + 1);
    const std::vector<int> before = place > 1 ? std::vector{place - 1} : std::vector<int>();
    EditResult result = step(titled(verb, units.size()), before, [&](TrainEdit &edit) {
        return units.empty() ? refusal(whyNone) : edit.Insert(units, place);
    });
    if (result.refused || place != 0 || m_whyRowsEnd.empty())
        return result;
    if (!m_rows.empty())
        result = selecting({static_cast<int>(m_rows.size())}, std::move(result));
    const bool one = units.size() == 1;
    result.message = (one ? install::Unit(units.front()).Item().shape
                          : host::Counted(units.size(), "unit", "units")) +
                     (one ? " was" : " were") + " added at the end of the train, but " +
                     (one ? "is" : "are") + " not shown: " + m_whyRowsEnd + '.';
    return result;
}

EditResult ConsistTree::Cut(std::vector<int> rows)
{
    keepExisting(rows);
    return remove(titled("Cut", rows.size()), rows);
}

EditResult ConsistTree::remove(const std::string &name, const std::vector<int> &rows)
{
    return step(name, rows,
                [&](TrainEdit &edit) { return rows.empty() ? EditResult() : edit.Remove(rows); });
}

EditResult ConsistTree::removeAll()
{
    std::vector<int> rows(m_rows.size());
    std::iota(rows.begin(), rows.end(), 1);
    EditResult result = remove("Remove All Units", rows);
    if (!result.refused && !rows.empty() && !m_whyRowsEnd.empty())
        result.message += (result.message.empty() ? "" : "  ") +
                          ("Only the units shown were removed: " + m_whyRowsEnd + '.');
    return result;
}

/// Selects nothing. After Undo and Redo, the units are selected.
EditResult ConsistTree::flip(const std::vector<int> &rows)
{
    EditResult result = step(titled("Flip", rows.size()), rows, [&](TrainEdit &edit) {
        edit.Flip(rows);
        return selecting(rows, {});
    });
    return result.refused ? result : selecting({}, std::move(result));
}

EditResult ConsistTree::MoveTo(std::vector<int> rows, int place)
{
    keepExisting(rows);
    place = std::clamp(place, 1, static_cast<int>(m_rows.size()) + 1);
    return step(titled("Move", rows.size()), rows, [&](TrainEdit &edit) {
        return rows.empty() ? EditResult() : edit.MoveTo(rows, place);
    });
}

EditResult ConsistTree::Replace(std::vector<int> rows, const StockItem &vehicle)
{
    keepExisting(rows);
    return step(titled("Replace", rows.size()), rows,
                [&](TrainEdit &edit) { return edit.Replace(rows, vehicle); });
}

EditResult ConsistTree::Reverse(std::vector<int> rows)
{
    keepExisting(rows);
    return step("Reverse Train", rows, [&](TrainEdit &edit) { return edit.Reverse(rows); });
}

/// Sorts the rows, and drops those that do not exist and duplicates.
void ConsistTree::keepExisting(std::vector<int> &rows) const
{
    const int last = static_cast<int>(m_rows.size());
    std::erase_if(rows, [last](int row) { return row < 1 || row > last; });
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
}

/// Performs one edit and records it.
EditResult ConsistTree::step(const std::string &name, const std::vector<int> &rows,
                             const std::function<EditResult(TrainEdit &)> &act)
{
    m_changed = true;
    try {
        rebuildRows(); // throws if there is no train to edit
        std::vector<int> positions;
        for (const ConsistRow &row : m_rows)
            positions.push_back(row.position);
        TrainStep step(trainCfg(), rows);
        TrainEdit edit(step, trainCfg(), std::move(positions));
        EditResult result = act(edit);
        if (result.refused)
            return selecting(rows, std::move(result));
        rebuildRows();
        std::vector<int> selected = std::move(result.selectedRows);
        keepExisting(selected); // units that are inserted behind the last row have none
        result = selecting(std::move(selected), std::move(result));
        result.isStep = step.Finish(name, result.selectedRows);
        if (result.isStep)
            m_history.Add(std::move(step));
        return result;
    } catch (const RuntimeError &error) {
        return selecting(rows, refusal(error.Detail().empty() ? error.Text() : error.Detail()));
    }
}

EditResult ConsistTree::Undo()
{
    return m_history.Undoable() ? restored(m_history.Undo()) : EditResult();
}

EditResult ConsistTree::Redo()
{
    return m_history.Redoable() ? restored(m_history.Redo()) : EditResult();
}

EditResult ConsistTree::restored(std::vector<int> rows)
{
    m_changed = true;
    rebuildRows();
    keepExisting(rows);
    return selecting(std::move(rows), {});
}

std::string ConsistTree::UndoName() const
{
    return m_history.Undoable() ? m_history.Undoable()->Name() : std::string();
}

std::string ConsistTree::RedoName() const
{
    return m_history.Redoable() ? m_history.Redoable()->Name() : std::string();
}

void ConsistTree::Save(const std::string &path)
{
    save(path, nullptr);
}

void ConsistTree::Save(const std::string &path, const host::FileState &before)
{
    save(path, &before);
}

void ConsistTree::save(const std::string &path, const host::FileState *before)
{
    const std::string fileBefore = m_file.FileName();
    m_file.SetFileName(path);
    std::function<void()> takeNameBack;
    try {
        takeNameBack = writeName(ConsistName(path));
        const std::string bytes = m_file.ToBytes();
        if (before)
            m_files.WriteFile(path, bytes, *before);
        else
            m_files.WriteFile(path, bytes);
        m_onDisk = host::FileState(path, bytes);
    } catch (...) {
        m_file.SetFileName(fileBefore);
        if (takeNameBack)
            takeNameBack();
        throw;
    }
    rebuildRows(); // the name may be a new block in front of the units
    m_changed = false;
}

void ConsistTree::SaveCopy(const std::string &path) const
{
    CheckSavable();
    ConsistTree copy(m_files);
    copy.m_file.LoadBytes(m_file.ToBytes());
    copy.Save(path);
}

/// A third of all real consists have no name block. They get one as the first child; all other
/// blocks stay. Returns what takes the name back.
std::function<void()> ConsistTree::writeName(const std::string &name)
{
    const std::string value = name.find(' ') == name.npos ? name : stavfile::QuotedValue(name);
    StfNode cfg = trainCfg();
    StfNode nameNode = cfg.Child("Name");
    const bool isNew = !nameNode;
    SavedValues titleBefore(cfg), nameBefore(nameNode);
    cfg.SetNumParameters(1);
    cfg.SetParameter(0, value);
    if (isNew) {
        nameNode = StfNode::Create();
        nameNode.SetName("Name");
        cfg.Children().Insert(nameNode, 1);
    }
    nameNode.SetNumParameters(1);
    nameNode.SetParameter(0, value);
    return [cfg, isNew, titleBefore, nameBefore]() mutable {
        titleBefore.Restore();
        nameBefore.Restore();
        if (isNew)
            cfg.Children().Remove(1);
    };
}

} // namespace document
