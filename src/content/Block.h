// SPDX-License-Identifier: MIT
#pragma once

#include "stavfile/Block.h"

#include <cstddef>
#include <string_view>

namespace content {

using stavfile::Block;
using stavfile::TopBlocks;

/// Finds the lines of offsets in a source. For offsets in rising order, it needs one pass in all.
class LineCounter
{
public:
    explicit LineCounter(const stavfile::Source &source)
        : m_text(source.text)
    {
    }
    /// 1-based.
    int LineOf(std::size_t place);

private:
    std::string_view m_text;
    std::size_t m_at = 0;
    int m_line = 1;
};

} // namespace content
