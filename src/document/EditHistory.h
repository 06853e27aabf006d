// SPDX-License-Identifier: MIT
#pragma once

#include "document/SavedValues.h"
#include "stavfile/StfNode.h"

#include <cstddef>
#include <string>
#include <vector>

namespace document {

/// Returns the block that marks a unit as turned round.
StfNode NewFlip();

/// One edit of a train, which can be undone and redone. It keeps the blocks that the edit replaced,
/// not copies of them, so that undoing restores every byte. It refers to blocks by their distance
/// from the end of the train, since a save may insert a name block at the beginning.
class TrainStep
{
public:
    /// Starts recording. `rows` are those that the edit applies to.
    TrainStep(StfNode trainCfg, std::vector<int> rows);

    /// Turns a unit round as part of the edit: removes its first Flip block, or inserts one.
    void Flip(const StfNode &unit);
    /// Keeps the values of a block, which the edit is about to change.
    void KeepValues(const StfNode &block) { m_values.emplace_back(block); }
    /// Ends recording. Returns false if the edit has changed nothing. `rows` are those to select
    /// after the edit.
    bool Finish(std::string name, std::vector<int> rows);

    /// Undoes the edit, or redoes it if it is undone. Returns the rows to select.
    const std::vector<int> &Exchange();
    /// Returns what the edit does, as a title: "Remove 3 Units".
    const std::string &Name() const { return m_name; }

private:
    /// A Flip block that the edit inserted or removed.
    struct Turn
    {
        StfNode unit, mark;
        int place = 1;         ///< of the mark in the unit
        bool inserted = false; ///< the unit has the mark now
    };

    static void exchange(Turn &turn);
    void exchangeChildren();

    StfNode m_train;
    std::string m_name;
    std::vector<StfNode> m_children; ///< all while recording, then the other content of the range
    int m_behind = 0, m_length = 0;  ///< the range: children behind it and in it
    std::vector<Turn> m_turns;
    std::vector<SavedValues> m_values;
    SavedValues m_counter;
    StfNode m_newMark; ///< of all units that get one: a block for each would take much memory
    std::vector<int> m_rowsBefore, m_rowsAfter;
    bool m_undone = false;
};

/// The steps of a consist since it was read. There is no limit.
class EditHistory
{
public:
    void Clear();
    /// Adds a step that has just been made; steps that were undone are dropped.
    void Add(TrainStep step);

    /// Returns the step to undo or to redo next, or null.
    const TrainStep *Undoable() const;
    const TrainStep *Redoable() const;
    /// Undo or redo that step, which must exist, and return the rows to select.
    const std::vector<int> &Undo() { return m_steps[--m_done].Exchange(); }
    const std::vector<int> &Redo() { return m_steps[m_done++].Exchange(); }

private:
    std::vector<TrainStep> m_steps;
    std::size_t m_done = 0; ///< steps that are not undone
};

} // namespace document
