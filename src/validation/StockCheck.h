// SPDX-License-Identifier: MIT
#pragma once

#include "validation/Findings.h"
#include "validation/Verdict.h"

#include <string>

namespace validation {

class Content;

/// The checks of one vehicle and of what it names besides its shape. They give the verdict and
/// never throw for bad files; TSValidation says what they look at.
Verdict CheckStock(Content &content, const std::string &fileName, Findings &findings);
Verdict CheckSound(Content &content, const std::string &fileName, Findings &findings);
Verdict CheckCabView(Content &content, const std::string &fileName, Findings &findings);

} // namespace validation
