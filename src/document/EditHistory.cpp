// SPDX-License-Identifier: MIT
#include "document/EditHistory.h"

#include "document/UnitCounter.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace document {
namespace {

std::vector<StfNode> blocksOf(const StfNode &train)
{
    std::vector<StfNode> blocks;
    const StfNodes children = train.Children();
    blocks.reserve(static_cast<std::size_t>(children.Count()));
    for (const StfNode block : children)
        blocks.push_back(block);
    return blocks;
}

} // namespace

StfNode NewFlip()
{
    StfNode mark = StfNode::Create();
    mark.SetName("Flip");
    mark.SetNumParameters(1);
    return mark;
}

TrainStep::TrainStep(StfNode trainCfg, std::vector<int> rows)
    : m_train(std::move(trainCfg))
    , m_children(blocksOf(m_train))
    , m_counter(m_train.Child(kUnitCounter))
    , m_newMark(NewFlip())
    , m_rowsBefore(std::move(rows))
{
}

void TrainStep::Flip(const StfNode &unit)
{
    Turn turn{unit, {}, 1, false};
    const StfNodes parts = unit.Children();
    while (turn.place <= parts.Count() && parts.Item(turn.place).Name() != "Flip")
        ++turn.place;
    if (turn.place <= parts.Count()) {
        turn.mark = parts.Item(turn.place);
        turn.inserted = true;
    } else {
        turn.mark = m_newMark;
        turn.place = 1;
    }
    exchange(turn);
    m_turns.push_back(std::move(turn));
}

void TrainStep::exchange(Turn &turn)
{
    StfNodes parts = turn.unit.Children();
    if (turn.inserted)
        parts.Remove(turn.place);
    else
        parts.Insert(turn.mark, turn.place);
    turn.inserted = !turn.inserted;
}

bool TrainStep::Finish(std::string name, std::vector<int> rows)
{
    m_name = std::move(name);
    m_rowsAfter = std::move(rows);
    m_turns.shrink_to_fit();
    std::erase_if(m_values, [](const SavedValues &values) { return values.Hold(); });
    if (m_counter.Hold())
        m_counter = {};
    std::vector<StfNode> before = std::exchange(m_children, {});
    const std::vector<StfNode> now = blocksOf(m_train);
    const auto [first, firstNow] =
        std::mismatch(before.begin(), before.end(), now.begin(), now.end());
    const auto [last, lastNow] = std::mismatch(before.rbegin(), std::make_reverse_iterator(first),
                                               now.rbegin(), std::make_reverse_iterator(firstNow));
    m_behind = static_cast<int>(lastNow - now.rbegin());
    m_length = static_cast<int>(lastNow.base() - firstNow);
    m_children.assign(std::make_move_iterator(first), std::make_move_iterator(last.base()));
    return m_length > 0 || !m_children.empty() || !m_turns.empty() || !m_values.empty() ||
           !m_counter.Hold();
}

const std::vector<int> &TrainStep::Exchange()
{
    exchangeChildren();
    for (auto turn = m_turns.rbegin(); turn != m_turns.rend(); ++turn)
        exchange(*turn);
    std::reverse(m_turns.begin(), m_turns.end());
    for (SavedValues &values : m_values)
        values.Exchange();
    m_counter.Exchange();
    m_undone = !m_undone;
    return m_undone ? m_rowsBefore : m_rowsAfter;
}

void TrainStep::exchangeChildren()
{
    StfNodes children = m_train.Children();
    const int begin = children.Count() - m_behind - m_length + 1;
    std::vector<StfNode> removed;
    removed.reserve(static_cast<std::size_t>(m_length));
    for (int i = 0; i < m_length; ++i)
        removed.push_back(children.Item(begin + i));
    for (int i = m_length; i-- > 0;)
        children.Remove(begin + i);
    for (const StfNode &block : m_children)
        children.Insert(block, begin + static_cast<int>(&block - m_children.data()));
    m_length = static_cast<int>(m_children.size());
    m_children = std::move(removed);
}

void EditHistory::Clear()
{
    m_steps.clear();
    m_done = 0;
}

void EditHistory::Add(TrainStep step)
{
    m_steps.erase(m_steps.begin() + static_cast<std::ptrdiff_t>(m_done), m_steps.end());
    m_steps.push_back(std::move(step));
    m_done = m_steps.size();
}

const TrainStep *EditHistory::Undoable() const
{
    return m_done > 0 ? &m_steps[m_done - 1] : nullptr;
}

const TrainStep *EditHistory::Redoable() const
{
    return m_done < m_steps.size() ? &m_steps[m_done] : nullptr;
}

} // namespace document
