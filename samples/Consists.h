// SPDX-License-Identifier: MIT
#pragma once

#include "samples/Stock.h"

#include <initializer_list>
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
    int uid = -1;               ///< negative: the next number after that of the last unit
    bool bare = false;          ///< the folder lacks the quotes that it needs
    const char *variables = ""; ///< values of an EngineVariables block
    const char *before = "";    ///< text in front of the unit
};

/// The order of the blocks at the head of a train. Real files have all of these.
enum class Head
{
    NameFirst,
    SerialFirst,  ///< no Name at all
    VelocityFirst ///< no Name at all
};

/// The contents of a TrainCfg block.
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

/// A .con file of the sample.
struct Consist
{
    std::string file; ///< without ".con"
    Train train;
    TextFormat format = {};
    bool cutShort = false; ///< the last bracket is missing
};

/// The consists of the sample.
std::vector<Consist> Consists();

/// The unit for this vehicle, which faces forwards.
Unit UnitOf(const Vehicle &vehicle);
/// The units with these files from the table of stock; "<" in front of a name flips the unit.
std::vector<Unit> Units(std::initializer_list<std::string_view> files);

/// A TrainCfg block, indented by `depth` tabs.
std::string TrainText(const Train &train, int depth);

/// The text of a whole consist file.
std::string ConsistText(const Train &train);

SampleFiles ConsistFiles();

} // namespace samples
