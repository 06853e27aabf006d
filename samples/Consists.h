// SPDX-License-Identifier: MIT
#pragma once

#include "samples/SampleFile.h"
#include "samples/TextWriter.h"

#include <string>
#include <string_view>
#include <vector>

namespace samples {

/// One engine or wagon of a train.
struct Unit
{
    std::string folder;
    std::string file;
    bool engine = false;
    bool flip = false;
    int uid = -1;               ///< negative: counted on from the first
    bool bare = false;          ///< folder without the quotes that it needs
    const char *variables = ""; ///< values of an EngineVariables block
    const char *before = "";    ///< text in front of the unit
};

/// The blocks at the head of a train, in the orders that real files have.
enum class Head
{
    NameFirst,
    SerialFirst,  ///< no Name at all
    VelocityFirst ///< no Name at all
};

/// What a TrainCfg block holds.
struct Train
{
    std::string title;
    std::string name = {};
    Head head = Head::NameFirst;
    int firstUid = 0;
    int nextUid = -1; ///< negative: one more than the last
    bool isDefault = false;
    std::vector<Unit> units = {};
    const char *tail = ""; ///< text before the end of the block
};

/// One .con of the sample.
struct Consist
{
    std::string file; ///< without ".con"
    Train train;
    TextFormat format = {};
    bool cutShort = false; ///< the last bracket is missing
};

/// The consists of the sample.
std::vector<Consist> Consists();

/// A unit from the table of stock.
Unit UnitOf(std::string_view folder, std::string_view file, bool flip = false);

/// A TrainCfg block, indented by `depth` tabs.
std::string TrainText(const Train &train, int depth);

/// The text of a whole consist file.
std::string ConsistText(const Train &train);

SampleFiles ConsistFiles();

} // namespace samples
