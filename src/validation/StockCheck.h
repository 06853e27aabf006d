// SPDX-License-Identifier: MIT
#pragma once

#include "validation/Findings.h"

#include <cstdint>
#include <string>

namespace validation {

class Content;

/// The checks of one vehicle and of what it names besides its shape. They give the verdict and
/// never throw for bad files; TSValidation says what they look at.
std::int16_t CheckStock(Content &content, const std::string &fileName, Findings &findings);
std::int16_t CheckSound(Content &content, const std::string &fileName, Findings &findings);
std::int16_t CheckCabView(Content &content, const std::string &fileName, Findings &findings);

} // namespace validation
