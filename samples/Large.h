// SPDX-License-Identifier: MIT
#pragma once

#include "samples/Output.h"

#include <cstdint>

namespace samples {

/// How much is made besides the default sample.
struct Extra
{
    int folders = 0;
    int stock = 0;
    int consists = 0;
    std::uint64_t seed = 1;
};

/// Writes the generated part of a large sample. All of it is clean; its consists refer to stock
/// that is there, of both parts.
void WriteExtra(Output &output, const Extra &extra);

} // namespace samples
