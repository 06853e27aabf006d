// SPDX-License-Identifier: MIT
#pragma once

#include "validation/Findings.h"

#include <cstdint>
#include <string>

namespace validation {

class Content;

/// Checks a consist's vehicles and their shapes and returns the verdict; never throws for bad
/// files.
std::int16_t CheckConsist(Content &content, const std::string &fileName, Findings &findings);

} // namespace validation
