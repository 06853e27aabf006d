// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

namespace host {

/// Lower-case characters of the basic plane beyond ASCII: every `stride`-th from `first` to `last`.
/// The upper-case character is `delta` further on. Sorted, without overlap.
struct CaseRange
{
    char16_t first, last;
    std::uint16_t stride;
    std::int32_t delta;
};

extern const CaseRange kCaseRanges[];
extern const std::size_t kCaseRangeCount;

} // namespace host
