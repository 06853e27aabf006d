// SPDX-License-Identifier: MIT
#pragma once

#include "validation/Findings.h"

#include <exception>

namespace validation {

/// The result of one check of one file.
struct Outcome
{
    Findings findings;
    Verdict verdict = Verdict::Valid;
    std::exception_ptr error = nullptr; ///< thrown by the check; the verdict is then meaningless
};

} // namespace validation
