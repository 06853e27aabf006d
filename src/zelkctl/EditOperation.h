// SPDX-License-Identifier: MIT
#pragma once

#include "document/ConsistTree.h"

#include <string>
#include <utility>
#include <vector>

namespace zelkctl {

enum class EditVerb
{
    Add,
    Insert,
    Copy,
    Move,
    Remove,
    Clear,
    Forwards,
    Backwards,
    Flip,
    Reverse
};

/// One operation of `edit` as written on the command line.
struct EditOperation
{
    std::string text; ///< as written
    EditVerb verb = EditVerb::Add;
    std::vector<std::pair<int, int>> rows; ///< first and last of each range, from 1
    int behind = 0;                        ///< for insert, copy and move: the row, 0 for the head
    document::StockItem stock;             ///< for add and insert
};

/// Parses "add=Wagon,FOLDER,NAME", "insert=N,Wagon,FOLDER,NAME", "copy=ROWS:N", "move=ROWS:N",
/// "remove=ROWS", "clear", "forwards=ROWS", "backwards=ROWS", "flip=ROWS" or "reverse". ROWS are
/// numbers and ranges: "2,4-6". A folder or name that holds a comma must be in double quotes.
/// Throws Failure for anything else.
EditOperation ParseEditOperation(const std::string &text);

/// Performs an operation. Throws Failure if the train has no such row.
document::EditResult Perform(const EditOperation &operation, document::ConsistTree &consist,
                             host::GameFiles &files);

} // namespace zelkctl
