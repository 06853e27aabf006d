// SPDX-License-Identifier: MIT
#pragma once

#include "validation/Findings.h"
#include "validation/Verdict.h"

#include <string>

namespace validation {

class Content;

/// Check one vehicle and the files that it names, except its shape. They return the verdict and
/// never throw for bad files; TSValidation describes what they check.
Verdict CheckStock(Content &content, const std::string &fileName, Findings &findings);
Verdict CheckSound(Content &content, const std::string &fileName, Findings &findings);
Verdict CheckCabView(Content &content, const std::string &fileName, Findings &findings);

} // namespace validation
