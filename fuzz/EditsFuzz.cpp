// SPDX-License-Identifier: MIT
// Compares edits of several rows, undo and redo with a simple model: units in a vector, and the
// bytes after each step. An edit that is no step changes no byte, and undoing one restores all of
// them.
#include "Trains.h"
#include "document/UnitClipboard.h"
#include "host/GameFiles.h"

#include <numeric>

namespace {

using document::EditResult;
using document::Move;
using Units = std::vector<ModelUnit>;

struct Step
{
    Units units;
    std::string bytes;
};

class Editor
{
public:
    Editor(host::GameFiles &files, const std::string &text, Units units)
        : m_tree(files)
    {
        m_tree.Restore({}, text, false);
        m_steps.push_back({std::move(units), m_tree.Document().ToBytes()});
        RequireRows(m_tree, now());
    }

    void Run(Input &input)
    {
        const int what = input.Below(14);
        if (what >= 12)
            return exchange(what == 12);
        Units after = now();
        const EditResult result = edit(what, input, after);
        const std::string bytes = m_tree.Document().ToBytes();
        Require(!result.refused || !result.isStep);
        Require(result.isStep == (bytes != m_steps[m_at].bytes) || after == now());
        if (result.isStep) {
            m_steps.resize(++m_at);
            m_steps.push_back({std::move(after), bytes});
        } else {
            Require(bytes == m_steps[m_at].bytes);
        }
        RequireRows(m_tree, now());
        for (const int row : result.selectedRows)
            Require(row >= 1 && row <= count());
    }

    void RequireReadsBack(host::GameFiles &files) const
    {
        document::ConsistTree again(files);
        again.Restore({}, m_tree.Document().ToBytes(), false);
        RequireRows(again, now());
    }

private:
    const Units &now() const { return m_steps[m_at].units; }
    int count() const { return static_cast<int>(now().size()); }

    void exchange(bool undo)
    {
        const bool can = undo ? m_at > 0 : m_at + 1 < m_steps.size();
        Require((undo ? m_tree.UndoName() : m_tree.RedoName()).empty() != can);
        undo ? m_tree.Undo() : m_tree.Redo();
        if (can)
            m_at = undo ? m_at - 1 : m_at + 1;
        Require(m_tree.Document().ToBytes() == m_steps[m_at].bytes);
        RequireRows(m_tree, now());
    }

    /// Returns rows that exist, each once and sorted.
    std::vector<int> takeRows(Input &input) const
    {
        const std::uint8_t choice = input.Byte();
        std::vector<int> rows;
        for (int row = 1; row <= count(); ++row)
            if (choice >> (row - 1) % 8 & 1)
                rows.push_back(row);
        return rows;
    }

    static Units takeOut(Units &units, const std::vector<int> &rows)
    {
        Units taken;
        for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
            taken.insert(taken.begin(), units[static_cast<std::size_t>(*row - 1)]);
            units.erase(units.begin() + (*row - 1));
        }
        return taken;
    }

    /// Puts units in front of a row; 0 means the end.
    static void put(Units &units, const Units &added, int place)
    {
        units.insert(place == 0 ? units.end() : units.begin() + (place - 1), added.begin(),
                     added.end());
    }

    static void moveOn(Units &units, const std::vector<int> &rows)
    {
        int fixed = 0;
        for (const int row : rows)
            if (row == fixed + 1)
                fixed = row;
            else
                std::swap(units[static_cast<std::size_t>(row - 2)],
                          units[static_cast<std::size_t>(row - 1)]);
    }

    static void moveBack(Units &units, const std::vector<int> &rows)
    {
        const int last = static_cast<int>(units.size()) + 1;
        std::vector<int> mirrored;
        for (auto row = rows.rbegin(); row != rows.rend(); ++row)
            mirrored.push_back(last - *row);
        std::reverse(units.begin(), units.end());
        moveOn(units, mirrored);
        std::reverse(units.begin(), units.end());
    }

    EditResult edit(int what, Input &input, Units &after)
    {
        const std::vector<int> rows = takeRows(input);
        const int place = input.Below(count() + 2);
        const document::StockItem stock = StockFor(input.Byte());
        switch (what) {
        case 0:
            put(after, {{stock, false}, {stock, false}}, 0);
            return m_tree.Edit(Move::Add, rows, {stock, stock});
        case 1:
            put(after, {{stock, false}}, place);
            return m_tree.Insert({stock}, place);
        case 2: {
            put(after, {{stock, false}, {stock, false}}, place);
            const auto unit = [&] {
                return document::NewUnit(stock.type, stock.shape, stock.folder);
            };
            return m_tree.Paste({unit(), unit()}, place);
        }
        case 3:
            takeOut(after, rows);
            return m_tree.Edit(Move::Remove, rows);
        case 4:
            takeOut(after, rows);
            return m_tree.Cut(rows);
        case 5:
            moveOn(after, rows);
            return m_tree.Edit(Move::Forwards, rows);
        case 6:
            moveBack(after, rows);
            return m_tree.Edit(Move::Backwards, rows);
        default:
            return editWhole(what, rows, std::max(place, 1), stock, after);
        }
    }

    EditResult editWhole(int what, const std::vector<int> &rows, int place,
                         const document::StockItem &stock, Units &after)
    {
        if (what == 7) {
            for (const int row : rows)
                after[static_cast<std::size_t>(row - 1)].flipped ^= true;
            return m_tree.Edit(Move::Flip, rows);
        }
        if (what == 8) {
            std::reverse(after.begin(), after.end());
            for (ModelUnit &unit : after)
                unit.flipped = !unit.flipped;
            return m_tree.Reverse(rows);
        }
        if (what == 9) {
            const auto before = std::lower_bound(rows.begin(), rows.end(), place) - rows.begin();
            put(after, takeOut(after, rows), place - static_cast<int>(before));
            return m_tree.MoveTo(rows, place);
        }
        if (what == 10) {
            after.clear();
            return m_tree.Edit(Move::RemoveAll, rows);
        }
        for (const int row : rows)
            after[static_cast<std::size_t>(row - 1)].item = stock;
        const EditResult result = m_tree.Replace(rows, stock);
        const bool fits = std::all_of(rows.begin(), rows.end(), [&](int row) {
            return now()[static_cast<std::size_t>(row - 1)].item.type == stock.type;
        });
        Require(result.refused == !fits);
        return result;
    }

    document::ConsistTree m_tree;
    std::vector<Step> m_steps;
    std::size_t m_at = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static host::GameFiles files;
    Input input(data, size);
    const std::uint8_t choice = input.Byte(), spice = input.Byte();
    Units units;
    const std::string text = TrainFor(choice, spice, units);
    Editor editor(files, text, std::move(units));
    for (int edits = 0; !input.IsAtEnd() && edits < 60; ++edits)
        editor.Run(input);
    editor.RequireReadsBack(files);
    return 0;
}
