// SPDX-License-Identifier: MIT
#pragma once

#include "validation/Findings.h"

#include <cstdint>
#include <string>

namespace validation {

class Content;

/// Check one vehicle and what it names besides its shape. They return the verdict and never throw
/// for bad files; TSValidation describes what they check.
std::int16_t CheckStock(Content &content, const std::string &fileName, Findings &findings);
std::int16_t CheckSound(Content &content, const std::string &fileName, Findings &findings);
std::int16_t CheckCabView(Content &content, const std::string &fileName, Findings &findings);

} // namespace validation
