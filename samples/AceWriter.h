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

/// An image. Rows go from top to bottom, pixels from left to right.
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
    Full  ///< the mask and an 8-bit channel
};

struct AceFormat
{
    AceAlpha alpha = AceAlpha::None;
    bool mipmaps = false;    ///< needs a square image whose side is a power of two
    bool dxt1 = false;       ///< 4x4 blocks; width and height must be multiples of 4
    bool compressed = false; ///< compresses the file's contents
};

/// Returns the bytes of a texture file. Throws std::invalid_argument for an image that the format
/// cannot hold.
std::string AceBytes(const Picture &picture, const AceFormat &format);

/// Returns a square in `base` with a frame in `trim` on all sides but the bottom, so that its
/// orientation is visible.
Picture PanelPicture(int side, Colour base, Colour trim);

} // namespace samples
