// SPDX-License-Identifier: MIT
#include "validation/Findings.h"

#include "validation/TSValidation.h"

namespace validation {

std::int16_t Findings::Record(std::int16_t code, std::string file, std::string dependent)
{
    if (m_verbose || code != TSValidation::IsValid)
        m_entries.emplace_back(Finding{code, std::move(file), std::move(dependent)});
    return code;
}

} // namespace validation
