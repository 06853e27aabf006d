// SPDX-License-Identifier: MIT
#include "korvat/formats/Png.h"

#include <libdeflate.h>

#include <cassert>
#include <memory>
#include <new>
#include <string_view>

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

/// Appends the length and the name of a chunk, its content and its checksum.
void appendChunk(std::string &out, std::string_view type, std::string_view content)
{
    out += bigEndian(static_cast<std::uint32_t>(content.size()));
    const std::size_t checked = out.size();
    out.append(type).append(content);
    out += bigEndian(libdeflate_crc32(0, out.data() + checked, out.size() - checked));
}

/// Compressed bytes. Their buffer is larger, but the part behind them is never touched, so that it
/// needs no memory.
struct Compressed
{
    std::unique_ptr<char[]> buffer;
    std::size_t size = 0;
};

Compressed compressed(const std::vector<std::uint8_t> &bytes)
{
    const std::unique_ptr<libdeflate_compressor, FreeCompressor> compressor(
        libdeflate_alloc_compressor(kLevel));
    if (!compressor)
        throw std::bad_alloc();
    const std::size_t bound = libdeflate_zlib_compress_bound(compressor.get(), bytes.size());
    Compressed out{std::make_unique_for_overwrite<char[]>(bound), 0};
    out.size = libdeflate_zlib_compress(compressor.get(), bytes.data(), bytes.size(),
                                        out.buffer.get(), bound);
    return out;
}

} // namespace

PngRows::PngRows(std::uint32_t width, std::uint32_t height)
    : m_width(width)
    , m_height(height)
    , m_bytes(Stride() * height)
{
    assert(width && height);
}

std::string EncodePng(const PngRows &rows)
{
    const Compressed pixels = compressed(rows.Bytes());
    std::string out = "\x89PNG\r\n\x1A\n";
    out.reserve(pixels.size + 100);
    const std::string eightBitsAndAlpha("\x08\x06\0\0\0", 5);
    appendChunk(out, "IHDR",
                bigEndian(rows.Width()) + bigEndian(rows.Height()) + eightBitsAndAlpha);
    appendChunk(out, "IDAT", {pixels.buffer.get(), pixels.size});
    appendChunk(out, "IEND", {});
    return out;
}

} // namespace korvat
