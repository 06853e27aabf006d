// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace samples {

struct Colour
{
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 255;
};

/// Rows from the top, pixels from the left.
struct Picture
{
    int width = 0;
    int height = 0;
    std::vector<Colour> pixels;
};

enum class AceAlpha
{
    None,
    Mask, ///< one bit: opaque from alpha 128
    Full  ///< mask and 8 bits
};

struct AceFormat
{
    AceAlpha alpha = AceAlpha::None;
    bool mipmaps = false;    ///< needs a square picture with a power of two as side
    bool dxt1 = false;       ///< blocks of 4x4; needs sides that are multiples of 4
    bool compressed = false; ///< the container
};

/// Returns the bytes of a texture file. Throws std::invalid_argument for a picture that the format
/// cannot hold.
std::string AceBytes(const Picture &picture, const AceFormat &format);

/// A square in `base` with a frame of `trim` except at its bottom, so that top, bottom and edges
/// are recognisable.
Picture PanelPicture(int side, Colour base, Colour trim);

} // namespace samples
