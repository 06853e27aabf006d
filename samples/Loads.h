// SPDX-License-Identifier: MIT
#pragma once

#include "samples/Output.h"

namespace samples {

/// Returns the files of vehicles with loads, couplers and hoses, and a consist of them. They use
/// shapes and sounds of the default sample.
SampleFiles LoadFiles();

} // namespace samples
