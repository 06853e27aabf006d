// SPDX-License-Identifier: MIT
#pragma once

#include "samples/Output.h"

#include <cstdint>

namespace samples {

/// The amounts to generate in addition to the default sample.
struct Extra
{
    int folders = 0;
    int stock = 0;
    int consists = 0;
    std::uint64_t seed = 1;
};

/// Writes the generated part of a large sample. It is free of faults: its consists use existing
/// stock of both parts.
void WriteExtra(Output &output, const Extra &extra);

} // namespace samples
