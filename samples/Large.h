// SPDX-License-Identifier: MIT
#pragma once

#include "samples/Output.h"

#include <cstdint>

namespace samples {

/// How much to generate in addition to the default sample.
struct Extra
{
    int folders = 0;
    int stock = 0;
    int consists = 0;
    std::uint64_t seed = 1;
};

/// Writes the generated part of a large sample. It has no faults: its consists use only vehicles
/// that exist, from the default sample and from the generated part.
void WriteExtra(Output &output, const Extra &extra);

} // namespace samples
