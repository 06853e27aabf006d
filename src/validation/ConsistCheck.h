// SPDX-License-Identifier: MIT
#pragma once

#include "validation/Findings.h"
#include "validation/Verdict.h"

#include <string>

namespace validation {

class Content;

/// The check of a consist's vehicles and their shapes; never throws for bad files.
Verdict CheckConsist(Content &content, const std::string &fileName, Findings &findings);

} // namespace validation
