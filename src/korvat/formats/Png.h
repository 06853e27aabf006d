// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace korvat {

/// The pixels of a picture, laid out as a PNG file compresses them, so that the file can be made
/// without a second copy of the picture. At first all are transparent black.
class PngRows
{
public:
    /// Neither side may be 0.
    PngRows(std::uint32_t width, std::uint32_t height);

    std::uint32_t Width() const { return m_width; }
    std::uint32_t Height() const { return m_height; }
    /// Returns the left pixel of the top row: red, green, blue, alpha. The pixels of a row follow
    /// each other; the next row begins Stride() bytes after this one.
    std::uint8_t *FirstPixel() { return m_bytes.data() + kFilter; }
    std::size_t Stride() const { return kFilter + std::size_t{m_width} * 4; }
    const std::vector<std::uint8_t> &Bytes() const { return m_bytes; }

private:
    static constexpr std::size_t kFilter = 1; ///< each row begins with a byte 0: not filtered

    std::uint32_t m_width, m_height;
    std::vector<std::uint8_t> m_bytes;
};

/// Returns the bytes of a PNG file with 8 bits each of red, green, blue and alpha. Throws
/// std::bad_alloc if the memory does not suffice.
std::string EncodePng(const PngRows &rows);

} // namespace korvat
