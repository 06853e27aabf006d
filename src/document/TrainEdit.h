// SPDX-License-Identifier: MIT
#pragma once

#include "document/EditHistory.h"
#include "install/Train.h"
#include "stavfile/StfNode.h"

#include <string>
#include <vector>

namespace document {

/// The result of an edit, for the window to show.
struct EditResult
{
    int selectedRow = 0;                ///< 1-based row to select, the last of several, 0 for none
    std::string message;                ///< a remark for the status bar, often ""
    bool refused = false;               ///< nothing was changed; the message gives the reason
    bool isStep = false;                ///< it can be undone: something was changed
    std::vector<int> selectedRows = {}; ///< all rows to select, selectedRow among them
};

/// The operations of one edit on the blocks of a train. Rows are sorted, each is there once, and
/// all of them exist. Several units keep their order among themselves. The results hold only the
/// rows to select, some of which may not exist any more.
class TrainEdit
{
public:
    /// `positions` are those of the rows among the children of `trainCfg`.
    TrainEdit(TrainStep &step, StfNode trainCfg, std::vector<int> positions);

    /// Inserts units that are not in any list, so that the first one becomes row `place`; 0 appends
    /// them behind all blocks of the train. Each gets its identifier from the counter. Refuses what
    /// does not fit into 16 bits.
    EditResult Insert(const std::vector<StfNode> &units, int place);
    /// Removes units, of which there is one at least. Selects the row before the first of them.
    EditResult Remove(const std::vector<int> &rows);
    /// Move units by one place. Those that cannot go on stay, and so do units against them.
    EditResult Forwards(const std::vector<int> &rows);
    EditResult Backwards(const std::vector<int> &rows);
    /// Turns units round.
    void Flip(const std::vector<int> &rows);
    /// Makes units name another vehicle; everything else in them stays. Refuses one of another kind
    /// (engine, wagon).
    EditResult Replace(const std::vector<int> &rows, const install::StockItem &vehicle);
    /// Moves units so that they follow each other in front of the unit that is now row `place`; a
    /// row more than there are means the end.
    EditResult MoveTo(const std::vector<int> &rows, int place);
    /// Turns the whole train round. Selects the units that were in these rows.
    EditResult Reverse(const std::vector<int> &rows);

private:
    StfNode entry(int row) const { return m_train.Children().Item(position(row)); }
    int position(int row) const { return m_positions[static_cast<std::size_t>(row - 1)]; }
    int &position(int row) { return m_positions[static_cast<std::size_t>(row - 1)]; }
    int rowCount() const { return static_cast<int>(m_positions.size()); }
    void swapWithNext(int row, bool backwards);
    std::vector<StfNode> takeOut(const std::vector<int> &rows);

    TrainStep &m_step;
    StfNode m_train;
    std::vector<int> m_positions; ///< of the rows
};

} // namespace document
