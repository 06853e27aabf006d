// SPDX-License-Identifier: MIT
#pragma once

#include "samples/Output.h"

namespace samples {

/// Returns the files of vehicles with lights, with textures for snow and night, and with a missing
/// texture, and a consist of them.
SampleFiles LookFiles();

} // namespace samples
