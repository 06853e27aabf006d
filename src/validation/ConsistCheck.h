// SPDX-License-Identifier: MIT
#pragma once

#include "validation/Findings.h"
#include "validation/Verdict.h"

#include <string>

namespace validation {

class Content;

/// Checks a consist's vehicles and their shapes and returns the verdict; never throws for bad
/// files.
Verdict CheckConsist(Content &content, const std::string &fileName, Findings &findings);

} // namespace validation
