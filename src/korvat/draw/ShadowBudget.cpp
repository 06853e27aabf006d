// SPDX-License-Identifier: MIT
#include "korvat/draw/ShadowBudget.h"

namespace korvat {
namespace {

constexpr int kSlowFrames = 2; ///< one alone may have waited for another program

} // namespace

bool ShadowBudget::Affords(int width, int height)
{
    const long long pixels = static_cast<long long>(width) * height;
    if (pixels * 5 < m_pixels * 4 || pixels * 4 > m_pixels * 5) {
        m_pixels = pixels;
        m_isFirst = true;
        m_slow = 0;
    }
    return m_slow < kSlowFrames;
}

void ShadowBudget::Took(double milliseconds)
{
    // The first frame also compiles programs and uploads models.
    if (m_slow < kSlowFrames && !m_isFirst)
        m_slow = milliseconds > kMilliseconds ? m_slow + 1 : 0;
    m_isFirst = false;
}

} // namespace korvat
