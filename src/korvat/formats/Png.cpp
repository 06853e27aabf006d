// SPDX-License-Identifier: MIT
#include "korvat/formats/Png.h"

#include <libdeflate.h>

#include <cassert>
#include <memory>
#include <new>

namespace korvat {
namespace {

constexpr int kLevel = 6;

struct FreeCompressor
{
    void operator()(libdeflate_compressor *compressor) const
    {
        libdeflate_free_compressor(compressor);
    }
};

std::string bigEndian(std::uint32_t value)
{
    std::string out;
    for (int shift = 24; shift >= 0; shift -= 8)
        out += static_cast<char>(value >> shift & 0xFF);
    return out;
}

void appendChunk(std::string &out, const std::string &type, const std::string &content)
{
    const std::string checked = type + content;
    out += bigEndian(static_cast<std::uint32_t>(content.size())) + checked;
    out += bigEndian(libdeflate_crc32(0, checked.data(), checked.size()));
}

std::string compressed(const std::string &bytes)
{
    const std::unique_ptr<libdeflate_compressor, FreeCompressor> compressor(
        libdeflate_alloc_compressor(kLevel));
    if (!compressor)
        throw std::bad_alloc();
    std::string out(libdeflate_zlib_compress_bound(compressor.get(), bytes.size()), '\0');
    out.resize(libdeflate_zlib_compress(compressor.get(), bytes.data(), bytes.size(), out.data(),
                                        out.size()));
    return out;
}

} // namespace

std::string EncodePng(std::uint32_t width, std::uint32_t height, Bytes rgba)
{
    const std::size_t row = std::size_t{width} * 4;
    assert(width && height && rgba.size() == row * height);
    std::string rows;
    rows.reserve((row + 1) * height);
    for (std::size_t y = 0; y < height; ++y) {
        rows += '\0'; // no filter
        const Bytes pixels = rgba.subspan(y * row, row);
        rows.append(reinterpret_cast<const char *>(pixels.data()), pixels.size());
    }
    std::string out = "\x89PNG\r\n\x1A\n";
    const std::string eightBitsAndAlpha("\x08\x06\0\0\0", 5);
    appendChunk(out, "IHDR", bigEndian(width) + bigEndian(height) + eightBitsAndAlpha);
    appendChunk(out, "IDAT", compressed(rows));
    appendChunk(out, "IEND", {});
    return out;
}

} // namespace korvat
