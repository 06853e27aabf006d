// SPDX-License-Identifier: MIT
#pragma once

#include "samples/Stock.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace samples {

/// One entry of a consist: an engine or a wagon.
struct Unit
{
    std::string folder;
    std::string file;
    bool engine = false;
    bool flip = false;
    int uid = -1;               ///< negative: one more than that of the previous unit
    bool bare = false;          ///< leaves out the quotes that the folder needs
    const char *variables = ""; ///< values of an EngineVariables block
    const char *before = "";    ///< text written before the unit
};

/// The order of the first blocks in a TrainCfg block. All of these occur in real files.
enum class Head
{
    NameFirst,
    SerialFirst,  ///< without Name
    VelocityFirst ///< without Name
};

/// The contents of a TrainCfg block.
struct Train
{
    std::string title;
    std::string name = {};
    Head head = Head::NameFirst;
    int firstUid = 0;
    int nextUid = -1; ///< negative: one more than the last UiD
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

/// Returns the consists of the sample.
std::vector<Consist> Consists();

/// Returns a unit for the vehicle, not flipped.
Unit UnitOf(const Vehicle &vehicle);
/// Returns units for these files from the stock table. A "<" before a name flips the unit.
std::vector<Unit> Units(std::initializer_list<std::string_view> files);

/// Returns a TrainCfg block, indented by `depth` tabs.
std::string TrainText(const Train &train, int depth);

/// Returns the text of a whole consist file.
std::string ConsistText(const Train &train);

SampleFiles ConsistFiles();

} // namespace samples
