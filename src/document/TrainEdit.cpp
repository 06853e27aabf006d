// SPDX-License-Identifier: MIT
#include "document/TrainEdit.h"

#include "document/StockReplacement.h"
#include "document/UnitCounter.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <numeric>
#include <utility>

namespace document {
namespace {

EditResult refusal(const std::string &why)
{
    return {0, "Nothing was changed: " + why, true};
}

EditResult selecting(std::vector<int> rows)
{
    EditResult result;
    result.selectedRows = std::move(rows);
    return result;
}

std::vector<int> rowsFrom(int first, std::size_t count)
{
    std::vector<int> rows(count);
    std::iota(rows.begin(), rows.end(), first);
    return rows;
}

void setIdentifier(const StfNode &unit, int number)
{
    StfNode identifier = unit.Child("UiD");
    if (!identifier) {
        identifier = StfNode::Create();
        identifier.SetName("UiD");
        StfNodes parts = unit.Children();
        parts.Insert(identifier, parts.Count() > 0 && parts.First().Name() == "Flip" ? 2 : 1);
    }
    if (identifier.NumParameters() == 0)
        identifier.SetNumParameters(1);
    identifier.SetParameter(0, std::to_string(number));
}

} // namespace

TrainEdit::TrainEdit(TrainStep &step, StfNode trainCfg, std::vector<int> positions)
    : m_step(step)
    , m_train(std::move(trainCfg))
    , m_positions(std::move(positions))
{
}

EditResult TrainEdit::Insert(const std::vector<StfNode> &units, int place)
{
    UnitCounter counter(m_train);
    const int count = static_cast<int>(units.size());
    if (const std::string why = counter.WhyNoNext(count); !why.empty())
        return refusal(why);
    StfNodes children = m_train.Children();
    if (children.Count() + count > std::numeric_limits<std::int16_t>::max())
        return refusal("the consist is full, its positions have 16 bits.");
    int at = children.Count() + 1;
    if (place > 1)
        at = position(place - 1) + 1;
    else if (place == 1 && rowCount() > 0)
        at = position(1);
    for (const StfNode &unit : units) {
        setIdentifier(unit, counter.Take());
        children.Insert(unit, at++);
    }
    return selecting(rowsFrom(place > 0 ? place : rowCount() + 1, units.size()));
}

EditResult TrainEdit::Remove(const std::vector<int> &rows)
{
    StfNodes children = m_train.Children();
    for (auto row = rows.rbegin(); row != rows.rend(); ++row)
        children.Remove(position(*row));
    EditResult result = selecting({std::max(rows.front() - 1, 1)});
    result.message = UnitCounter(m_train).Subtract(static_cast<int>(rows.size()));
    return result;
}

/// Lets the units of two rows change places. Blocks between them end up behind both if the lower
/// unit moves (forwards), in front of both if the upper one does.
void TrainEdit::swapWithNext(int row, bool backwards)
{
    StfNodes children = m_train.Children();
    const int upper = position(row), lower = position(row + 1);
    const StfNode moved = entry(backwards ? row : row + 1);
    children.Remove(backwards ? upper : lower);
    children.Insert(moved, backwards ? lower : upper);
    position(row) = backwards ? lower - 1 : upper;
    position(row + 1) = backwards ? lower : upper + 1;
}

EditResult TrainEdit::Forwards(const std::vector<int> &rows)
{
    std::vector<int> moved;
    int fixed = 0; // the units up to this row stay
    for (const int row : rows) {
        const bool stays = row == fixed + 1;
        if (stays)
            fixed = row;
        else
            swapWithNext(row - 1, false);
        moved.push_back(stays ? row : row - 1);
    }
    return selecting(std::move(moved));
}

EditResult TrainEdit::Backwards(const std::vector<int> &rows)
{
    std::vector<int> moved;
    int fixed = rowCount() + 1;
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
        const bool stays = *row == fixed - 1;
        if (stays)
            fixed = *row;
        else
            swapWithNext(*row, true);
        moved.push_back(stays ? *row : *row + 1);
    }
    std::reverse(moved.begin(), moved.end());
    return selecting(std::move(moved));
}

void TrainEdit::Flip(const std::vector<int> &rows)
{
    for (const int row : rows)
        m_step.Flip(entry(row));
}

EditResult TrainEdit::Replace(const std::vector<int> &rows, const install::StockItem &vehicle)
{
    for (const int row : rows)
        if (entry(row).Name() != vehicle.type)
            return refusal("an engine can only be replaced by an engine, a wagon only by a wagon.");
    for (const int row : rows) {
        const StfNode data = entry(row).Require(vehicle.type + "Data");
        m_step.KeepValues(data);
        WriteVehicle(data, vehicle);
    }
    return selecting(rows);
}

/// Removes units and returns them. The positions are then those of the remaining units.
std::vector<StfNode> TrainEdit::takeOut(const std::vector<int> &rows)
{
    StfNodes children = m_train.Children();
    std::vector<StfNode> units;
    for (const int row : rows)
        units.push_back(entry(row));
    std::vector<int> remaining;
    int removed = 0;
    for (int row = 1; row <= rowCount(); ++row)
        if (std::binary_search(rows.begin(), rows.end(), row))
            children.Remove(position(row) - removed++);
        else
            remaining.push_back(position(row) - removed);
    m_positions = std::move(remaining);
    return units;
}

EditResult TrainEdit::MoveTo(const std::vector<int> &rows, int place)
{
    const int last = rows.back(), count = static_cast<int>(rows.size());
    const bool together = last - rows.front() + 1 == count;
    if (together && place >= rows.front() && place <= last + 1)
        return selecting(rows);
    const auto before = std::lower_bound(rows.begin(), rows.end(), place) - rows.begin();
    const int first = place - static_cast<int>(before);
    const std::vector<StfNode> units = takeOut(rows);
    StfNodes children = m_train.Children();
    int at = first <= rowCount() ? position(first) : position(rowCount()) + 1;
    for (const StfNode &unit : units)
        children.Insert(unit, at++);
    return selecting(rowsFrom(first, units.size()));
}

EditResult TrainEdit::Reverse(const std::vector<int> &rows)
{
    StfNodes children = m_train.Children();
    for (int upper = 1, lower = rowCount(); upper < lower; ++upper, --lower) {
        const StfNode first = entry(upper), second = entry(lower);
        children.Remove(position(lower));
        children.Insert(first, position(lower));
        children.Remove(position(upper));
        children.Insert(second, position(upper));
    }
    for (int row = 1; row <= rowCount(); ++row)
        m_step.Flip(entry(row));
    std::vector<int> selected;
    for (auto row = rows.rbegin(); row != rows.rend(); ++row)
        selected.push_back(rowCount() + 1 - *row);
    return selecting(std::move(selected));
}

} // namespace document
