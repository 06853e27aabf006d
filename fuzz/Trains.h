// SPDX-License-Identifier: MIT
#pragma once

#include "Input.h"
#include "document/ConsistTree.h"

#include <string>
#include <vector>

/// A simple model of a train and the text of its file, for targets that compare the editor with it.

struct ModelUnit
{
    document::StockItem item; ///< its type without "*"
    bool flipped = false;

    friend bool operator==(const ModelUnit &, const ModelUnit &) = default;
};

/// Returns stock with names that need care when they are written.
inline document::StockItem StockFor(std::uint8_t choice)
{
    static const char *const kNames[] = {"a", "b c", "\xC3\xA9(", "x\"y", "+", "#", "_i", "1"};
    return {choice & 1 ? "Engine" : "Wagon", kNames[choice >> 1 & 7], kNames[choice >> 4 & 7]};
}

inline std::string CounterBlock(int number)
{
    return "  NextWagonUID ( " + std::to_string(number) + " )\n";
}

/// Returns a train of up to seven units as authors write them, with other blocks between them, and
/// appends the units to the model. `spice` 1 adds a unit counter with the number of units.
inline std::string TrainFor(std::uint8_t choice, std::uint8_t spice, std::vector<ModelUnit> &units)
{
    std::string text = "SIMISA@@@@@@@@@@JINX0D0t______\n\nTrain (\n TrainCfg ( \"x\"\n";
    text += spice & 2 ? " MaxVelocity ( 1 2 )\n" : " Name ( \"x\" )\n";
    if (spice & 1)
        text += CounterBlock(choice % 8);
    for (int i = 0; i < choice % 8; ++i) {
        const bool engine = (choice >> 3) + i & 1, flipped = spice >> 2 & i & 1;
        const std::string type = engine ? "Engine" : "Wagon", shape = "s" + std::to_string(i);
        text.append(type).append(flipped ? " ( Flip ( ) UiD ( 0 ) " : " ( UiD ( 0 ) ");
        text.append(type).append("Data ( ").append(shape).append(" \"my folder\" ) )\n");
        if (spice & 16)
            text += "  Comment ( Engine ( x ) )\n";
        units.push_back({{type, "my folder", shape}, flipped});
    }
    return text + " )\n)\n";
}

inline void RequireRows(const document::ConsistTree &tree, const std::vector<ModelUnit> &units)
{
    Require(tree.Rows().size() == units.size());
    for (std::size_t i = 0; i < units.size(); ++i) {
        document::StockItem expected = units[i].item;
        expected.type += units[i].flipped ? "*" : "";
        Require(tree.Rows()[i].item == expected);
    }
}
