// SPDX-License-Identifier: MIT
#pragma once

#include "validation/Findings.h"
#include "validation/Verdict.h"

#include <string>

namespace validation {

class Content;

/// Checks a shape and its textures; throws RuntimeError like TSValidation::CheckShape.
Verdict CheckShape(Content &content, const std::string &fileName, Findings &findings);

} // namespace validation
