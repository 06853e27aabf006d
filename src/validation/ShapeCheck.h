// SPDX-License-Identifier: MIT
#pragma once

#include "validation/Findings.h"

#include <cstdint>
#include <string>

namespace validation {

class Content;

/// Checks a shape and its textures; throws RuntimeError like TSValidation::CheckShape.
std::int16_t CheckShape(Content &content, const std::string &fileName, Findings &findings);

} // namespace validation
