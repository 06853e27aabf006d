// SPDX-License-Identifier: MIT
#pragma once

namespace korvat {

/// Decides whether a slow device can afford shadows, by the time that its frames took with them.
/// The decision holds until the size of the picture changes clearly.
class ShadowBudget
{
public:
    static constexpr double kMilliseconds = 40; ///< for a frame

    /// Returns whether the next frame, of this many pixels, may have shadows.
    bool Affords(int width, int height);
    /// Reports the time that a frame with shadows took.
    void Took(double milliseconds);

private:
    long long m_pixels = 0;
    bool m_isFirst = true;
    int m_slow = 0; ///< frames in a row that took too long
};

} // namespace korvat
