// SPDX-License-Identifier: MIT
// Pictures that are written: each chunk has its length and its checksum, and the pixels come back
// out of the compressed rows. The first bytes give the size.
#include "Input.h"
#include "korvat/formats/Png.h"

#include <libdeflate.h>

namespace {

std::uint32_t number(std::string_view bytes)
{
    std::uint32_t value = 0;
    for (const char c : bytes.substr(0, 4))
        value = value << 8 | static_cast<std::uint8_t>(c);
    return value;
}

/// Takes a chunk of this type from the front and returns its content.
std::string_view takeChunk(std::string_view &png, std::string_view type)
{
    Require(png.size() >= 12 && number(png) <= png.size() - 12);
    const std::size_t size = number(png);
    const std::string_view body = png.substr(4, 4 + size);
    Require(body.starts_with(type));
    Require(number(png.substr(8 + size)) == libdeflate_crc32(0, body.data(), body.size()));
    png.remove_prefix(12 + size);
    return body.substr(4);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static libdeflate_decompressor *const inflate = libdeflate_alloc_decompressor();
    Input input(data, size);
    const std::uint32_t width = 1u + input.Byte(), height = 1u + input.Byte();
    korvat::PngRows rows(width, height);
    for (std::uint32_t y = 0; y < height; ++y) {
        const std::string_view row = input.Text(std::size_t{width} * 4);
        std::copy(row.begin(), row.end(), rows.FirstPixel() + y * rows.Stride());
    }
    const std::string bytes = korvat::EncodePng(rows);
    std::string_view png = bytes;
    Require(png.starts_with("\x89PNG\r\n\x1a\n"));
    png.remove_prefix(8);
    const std::string_view head = takeChunk(png, "IHDR");
    Require(head.size() == 13 && number(head) == width && number(head.substr(4)) == height);
    std::string packed;
    while (number(png) > 0)
        packed += takeChunk(png, "IDAT");
    takeChunk(png, "IEND");
    Require(png.empty());
    std::vector<std::uint8_t> pixels(rows.Bytes().size() + 1);
    std::size_t read = 0;
    Require(libdeflate_zlib_decompress(inflate, packed.data(), packed.size(), pixels.data(),
                                       pixels.size(), &read) == LIBDEFLATE_SUCCESS);
    pixels.pop_back();
    Require(read == pixels.size() && pixels == rows.Bytes());
    return 0;
}
