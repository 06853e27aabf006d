// SPDX-License-Identifier: MIT
#pragma once

#include "document/ConsistTree.h"

#include <string>

namespace zelkctl {

/// One operation of `edit` as written on the command line.
struct EditOperation
{
    std::string text; ///< as written
    document::Move move = document::Move::Add;
    int row = 0;               ///< from 1; 0 for add and clear
    document::StockItem stock; ///< for add
};

/// Parses "add=Wagon,FOLDER,NAME", "remove=N", "clear", "forwards=N", "backwards=N" or "flip=N". A
/// folder or name that holds a comma must be in double quotes. Throws Failure for anything else.
EditOperation ParseEditOperation(const std::string &text);

} // namespace zelkctl
