// SPDX-License-Identifier: MIT

#include "samples/Bytes.h"

#include <libdeflate.h>

#include <memory>
#include <new>
#include <stdexcept>

namespace samples {
namespace {

struct FreeCompressor
{
    void operator()(libdeflate_compressor *compressor) const
    {
        libdeflate_free_compressor(compressor);
    }
};

constexpr int kLevel = 6;

} // namespace

std::string StorePayload(std::string_view payload)
{
    return "SIMISA@@@@@@@@@@" + std::string(payload);
}

std::string CompressPayload(std::string_view payload)
{
    const std::unique_ptr<libdeflate_compressor, FreeCompressor> compressor(
        libdeflate_alloc_compressor(kLevel));
    if (!compressor)
        throw std::bad_alloc();
    std::string out = "SIMISA@F";
    AppendU32(out, static_cast<std::uint32_t>(payload.size()));
    out += "@@@@";
    const std::size_t start = out.size();
    out.resize(start + libdeflate_zlib_compress_bound(compressor.get(), payload.size()));
    const std::size_t size = libdeflate_zlib_compress(
        compressor.get(), payload.data(), payload.size(), out.data() + start, out.size() - start);
    if (size == 0)
        throw std::runtime_error("compression failed");
    out.resize(start + size);
    return out;
}

} // namespace samples
