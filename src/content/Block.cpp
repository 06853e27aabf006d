// SPDX-License-Identifier: MIT
#include "content/Block.h"

#include <algorithm>

namespace content {

int LineCounter::LineOf(std::size_t place)
{
    place = std::min(place, m_text.size());
    if (place < m_at) {
        m_at = 0;
        m_line = 1;
    }
    m_line +=
        static_cast<int>(std::count(m_text.begin() + static_cast<std::ptrdiff_t>(m_at),
                                    m_text.begin() + static_cast<std::ptrdiff_t>(place), '\n'));
    m_at = place;
    return m_line;
}

} // namespace content
