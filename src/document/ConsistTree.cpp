// SPDX-License-Identifier: MIT
#include "document/ConsistTree.h"

#include "document/UnitCounter.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "install/modTS.h"

#include <limits>
#include <utility>

using host::RuntimeError;

namespace document {
namespace {

EditResult refusal(std::string why)
{
    return {0, std::move(why), true};
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
    rebuildRows();
}

void ConsistTree::New(const std::string &path)
{
    m_file.New();
    m_file.SetFileName({});
    m_onDisk = host::FileState::Absent(path);
    modTS::NewDocumentTemplate(m_file, "con");
    m_changed = true;
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
    m_changed = true;
    if (selectedRow < 0 || selectedRow > static_cast<int>(m_rows.size()))
        selectedRow = 0;
    EditResult result;
    try {
        rebuildRows(); // throws if there is no train to edit
        result = perform(move, selectedRow, stock);
    } catch (const RuntimeError &error) {
        result = refusal(error.Detail().empty() ? error.Text() : error.Detail());
    }
    if (result.refused)
        result.selectedRow = selectedRow;
    return result;
}

EditResult ConsistTree::perform(Move move, int row, const StockItem *stock)
{
    switch (move) {
    case Move::Add:
        return stock ? add(*stock) : refusal("No installed stock is selected.");
    case Move::Remove:
        return remove(row);
    case Move::RemoveAll:
        return removeAll();
    case Move::Forwards:
        return forwards(row);
    case Move::Backwards:
        return backwards(row);
    case Move::Flip:
        break;
    }
    return flip(row);
}

EditResult ConsistTree::add(const StockItem &stock)
{
    const StfNode cfg = trainCfg();
    UnitCounter counter(cfg);
    if (const std::string why = counter.WhyNoNext(); !why.empty())
        return refusal("Nothing was changed: " + why);
    if (cfg.Children().Count() >= std::numeric_limits<std::int16_t>::max())
        return refusal("Nothing was changed: the consist is full, its positions have 16 bits.");

    StfNode entry = modTS::AddNode(cfg.Children(), stock.type);
    modTS::AddNode(entry.Children(), "UiD", {std::to_string(counter.Take())});
    modTS::AddNode(entry.Children(), stock.type + "Data", {stock.shape, stock.folder});
    rebuildRows();
    EditResult result{static_cast<int>(m_rows.size()), {}};
    if (!m_whyRowsEnd.empty())
        result.message = stock.shape +
                         " was added at the end of the train, but is not shown: " + m_whyRowsEnd +
                         '.';
    return result;
}

EditResult ConsistTree::remove(int row)
{
    if (row == 0)
        return {};
    const StfNode cfg = trainCfg();
    cfg.Children().Remove(m_rows[static_cast<std::size_t>(row - 1)].position);
    std::string remark = UnitCounter(cfg).Subtract(1);
    rebuildRows();
    const int next = row > 1 ? row - 1 : row;
    return {next <= static_cast<int>(m_rows.size()) ? next : 0, std::move(remark)};
}

/// One step for the whole train, because rebuilding the rows after each unit is slow.
EditResult ConsistTree::removeAll()
{
    if (m_rows.empty())
        return {};
    const StfNode cfg = trainCfg();
    StfNodes children = cfg.Children();
    for (auto row = m_rows.rbegin(); row != m_rows.rend(); ++row)
        children.Remove(row->position);
    std::string remark = UnitCounter(cfg).Subtract(static_cast<int>(m_rows.size()));
    rebuildRows();
    if (!m_whyRowsEnd.empty())
        remark += (remark.empty() ? "" : "  ") +
                  ("Only the units shown were removed: " + m_whyRowsEnd + '.');
    return {0, std::move(remark)};
}

EditResult ConsistTree::forwards(int row)
{
    if (row < 2)
        return {row, {}};
    StfNodes children = trainCfg().Children();
    const int from = m_rows[static_cast<std::size_t>(row - 1)].position;
    const int above = m_rows[static_cast<std::size_t>(row - 2)].position;
    const StfNode entry = children.Item(from);
    children.Remove(from);
    children.Insert(entry, above);
    rebuildRows();
    return {row - 1, {}};
}

EditResult ConsistTree::backwards(int row)
{
    if (row == 0 || row >= static_cast<int>(m_rows.size()))
        return {row, {}};
    StfNodes children = trainCfg().Children();
    const int from = m_rows[static_cast<std::size_t>(row - 1)].position;
    const int below = m_rows[static_cast<std::size_t>(row)].position;
    const StfNode entry = children.Item(from);
    children.Remove(from);
    children.Insert(entry, below); // after the unit below, which has moved up by one
    rebuildRows();
    return {row + 1, {}};
}

EditResult ConsistTree::flip(int row)
{
    if (row == 0)
        return {};
    const int position = m_rows[static_cast<std::size_t>(row - 1)].position;
    StfNodes parts = trainCfg().Children().Item(position).Children();
    int at = 1;
    while (at <= parts.Count() && parts.Item(at).Name() != "Flip")
        ++at;
    if (at <= parts.Count()) {
        parts.Remove(at);
    } else {
        StfNode mark = StfNode::Create();
        mark.SetName("Flip");
        mark.SetNumParameters(1);
        parts.Insert(mark, 1);
    }
    rebuildRows();
    return {};
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
    const std::string treeBefore = m_file.ToBytes(), nameBefore = m_file.FileName();
    m_file.SetFileName(path);
    try {
        writeName(ConsistName(path));
        const std::string bytes = m_file.ToBytes();
        if (before)
            m_files.WriteFile(path, bytes, *before);
        else
            m_files.WriteFile(path, bytes);
        m_onDisk = host::FileState(path, bytes);
    } catch (...) {
        m_file.SetFileName(nameBefore);
        m_file.LoadBytes(treeBefore);
        throw;
    }
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
/// blocks stay.
void ConsistTree::writeName(const std::string &name)
{
    const std::string value = name.find(' ') == name.npos ? name : stavfile::QuotedValue(name);
    StfNode cfg = trainCfg();
    cfg.SetNumParameters(1);
    cfg.SetParameter(0, value);
    StfNode nameNode = cfg.Child("Name");
    if (!nameNode) {
        nameNode = StfNode::Create();
        nameNode.SetName("Name");
        cfg.Children().Insert(nameNode, 1);
    }
    nameNode.SetNumParameters(1);
    nameNode.SetParameter(0, value);
}

} // namespace document
