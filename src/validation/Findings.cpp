// SPDX-License-Identifier: MIT
#include "validation/Findings.h"

namespace validation {

Verdict Findings::Record(Verdict verdict, std::string_view file, std::string_view dependent)
{
    if (m_verbose || verdict != Verdict::Valid)
        m_entries.emplace_back(Finding{verdict, std::string(file), std::string(dependent)});
    return verdict;
}

} // namespace validation
