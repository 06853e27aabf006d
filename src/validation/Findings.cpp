// SPDX-License-Identifier: MIT
#include "validation/Findings.h"

namespace validation {

Verdict Findings::Record(Verdict verdict, std::string file, std::string dependent)
{
    if (m_verbose || verdict != Verdict::Valid)
        m_entries.emplace_back(Finding{verdict, std::move(file), std::move(dependent)});
    return verdict;
}

} // namespace validation
