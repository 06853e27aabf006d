// SPDX-License-Identifier: MIT
#pragma once

#include "samples/SampleFile.h"

namespace samples {

/// All sound files (.sms) with their waves, and all cab views with their pictures.
SampleFiles SoundFiles();
SampleFiles CabFiles();

} // namespace samples
