// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace korvat {

/// Returns noise of 0 to 1 for a position, the same on every machine.
inline float NoiseAt(unsigned x, unsigned y, unsigned seed)
{
    unsigned h = x * 374761393u + y * 668265263u + seed * 2246822519u;
    h = (h ^ (h >> 13)) * 1274126177u;
    return static_cast<float>((h ^ (h >> 16)) & 0xFFFF) / 65535.0f;
}

/// Noise without hard edges, in cells of `cell` pixels, that repeats after `side` pixels.
class SmoothNoise
{
public:
    SmoothNoise(unsigned cell, unsigned side, unsigned seed)
        : m_cell(cell)
        , m_cells(side / cell)
    {
        for (unsigned y = 0; y < m_cells; ++y)
            for (unsigned x = 0; x < m_cells; ++x)
                m_corners.push_back(NoiseAt(x, y, seed));
        for (unsigned at = 0; at < cell; ++at) {
            const float t = static_cast<float>(at) / static_cast<float>(cell);
            m_ease.push_back(t * t * (3 - 2 * t));
        }
    }
    float At(unsigned x, unsigned y) const
    {
        const unsigned left = x / m_cell % m_cells, top = y / m_cell % m_cells;
        const unsigned right = (left + 1) % m_cells, bottom = (top + 1) % m_cells;
        const float tx = m_ease[x % m_cell], ty = m_ease[y % m_cell];
        const auto row = [&](unsigned at) {
            const float from = m_corners[at * m_cells + left];
            return from + (m_corners[at * m_cells + right] - from) * tx;
        };
        const float upper = row(top);
        return upper + (row(bottom) - upper) * ty;
    }

private:
    unsigned m_cell, m_cells;
    std::vector<float> m_corners, m_ease;
};

} // namespace korvat
