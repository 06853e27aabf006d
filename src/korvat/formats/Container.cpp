// SPDX-License-Identifier: MIT
#include "korvat/formats/Container.h"

#include "korvat/formats/Limits.h"

#include <libdeflate.h>

#include <algorithm>
#include <new>

namespace korvat {
namespace {

constexpr std::string_view kMark = "SIMISA@";
constexpr std::string_view kKind = "JINX0";
constexpr std::size_t kMarkSize = 16;
constexpr std::size_t kKindLetter = 5, kFormLetter = 7; // in the sub-header
constexpr std::size_t kZlibHeader = 2;
constexpr int kLineEnds = 4; ///< number of line-end characters allowed before the mark

/// The decompressor writes a stored block whole or not at all. A stream that is longer than
/// announced therefore needs this much room after the announced end, or the last bytes before it
/// are lost.
constexpr std::size_t kLongestStep = 65535 + 258;

struct FreeDecompressor
{
    void operator()(libdeflate_decompressor *decompressor) const
    {
        libdeflate_free_decompressor(decompressor);
    }
};

class Inflater
{
public:
    explicit Inflater(Bytes stream)
        : m_stream(stream)
        , m_decompressor(libdeflate_alloc_decompressor())
    {
        if (!m_decompressor)
            throw std::bad_alloc();
    }

    libdeflate_result Zlib(std::uint8_t *out, std::size_t size, std::size_t &made)
    {
        return libdeflate_zlib_decompress(m_decompressor.get(), m_stream.data(), m_stream.size(),
                                          out, size, &made);
    }
    /// Inflates without verifying the checksum.
    libdeflate_result Unchecked(std::uint8_t *out, std::size_t size, std::size_t &made)
    {
        if (m_stream.size() < kZlibHeader)
            return LIBDEFLATE_BAD_DATA;
        return libdeflate_deflate_decompress(m_decompressor.get(), m_stream.data() + kZlibHeader,
                                             m_stream.size() - kZlibHeader, out, size, &made);
    }

private:
    Bytes m_stream;
    std::unique_ptr<libdeflate_decompressor, FreeDecompressor> m_decompressor;
};

ReadError checkSize(std::size_t size, std::size_t packed, std::size_t limit)
{
    if (size == 0)
        return {Status::Damaged, 8, "the size of the compressed content is given as 0"};
    if (size / kMaxInflateRatio > packed)
        return {Status::Damaged, 8,
                "the compressed content is given as " + std::to_string(size) +
                    " bytes, which cannot be in " + std::to_string(packed)};
    if (size > limit)
        return {Status::TooLarge, 8,
                "the compressed content is given as " + std::to_string(size) +
                    " bytes; more than " + std::to_string(limit) + " are not read"};
    return {};
}

/// Inflates a stream that is longer than announced. Everything up to the announced end is used.
bool inflateLonger(Inflater &inflater, std::size_t size, Container &out)
{
    out.inflated = std::make_unique<std::uint8_t[]>(size + kLongestStep);
    std::size_t made = 0;
    const auto result = inflater.Unchecked(out.inflated.get(), size + kLongestStep, made);
    out.notes.emplace_back("the compressed content is longer than its size field says");
    return result == LIBDEFLATE_SUCCESS || result == LIBDEFLATE_INSUFFICIENT_SPACE;
}

ReadError inflate(Bytes stream, std::size_t size, std::size_t where, Container &out)
{
    Inflater inflater(stream);
    out.inflated = std::make_unique_for_overwrite<std::uint8_t[]>(size);
    std::size_t made = 0;
    libdeflate_result result = inflater.Zlib(out.inflated.get(), size, made);
    if (result == LIBDEFLATE_BAD_DATA) {
        result = inflater.Unchecked(out.inflated.get(), size, made);
        if (result == LIBDEFLATE_SUCCESS)
            out.notes.emplace_back("the checksum of the compressed content is wrong or missing");
    }
    if (result == LIBDEFLATE_INSUFFICIENT_SPACE && inflateLonger(inflater, size, out)) {
        result = LIBDEFLATE_SUCCESS;
        made = size;
    }
    if (result != LIBDEFLATE_SUCCESS)
        return {Status::Damaged, where, "the compressed content cannot be inflated"};
    if (made < size)
        out.notes.emplace_back("the compressed content is shorter than its size field says");
    out.payload = Bytes(out.inflated.get(), made);
    return {};
}

ReadError openCompressed(ByteReader reader, std::size_t limit, Container &out)
{
    const std::optional<std::uint32_t> size = reader.ReadU32();
    if (!size || !reader.Skip(4))
        return {Status::Damaged, reader.Where(), "the file ends within its header"};
    const std::size_t where = reader.Where();
    const Bytes stream = *reader.Take(reader.Left());
    if (ReadError error = checkSize(*size, stream.size(), limit))
        return error;
    out.compressed = true;
    return inflate(stream, *size, where, out);
}

void readSubHeader(Container &out)
{
    const std::string_view head(reinterpret_cast<const char *>(out.payload.data()),
                                std::min(out.payload.size(), kSubHeaderSize));
    if (out.compressed &&
        (head.starts_with("\xFF\xFE") || (head.size() > 1 && head[1] == '\0' && head[0] >= ' ')))
        out.content = Container::Content::Text;
    if (head.size() < kSubHeaderSize || !head.starts_with(kKind))
        return;
    out.kind = head[kKindLetter];
    out.content = head[kFormLetter] == 'b' ? Container::Content::Binary : Container::Content::Text;
}

void wholeAsText(std::string_view bytes, Container &out)
{
    out.content = Container::Content::Text;
    out.payload = BytesOf(bytes);
    out.base = 0;
}

bool isUtf16(std::string_view bytes)
{
    return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF") ||
           bytes.starts_with(std::string_view("S\0", 2));
}

/// Returns the offset of the mark, or npos if there is none.
std::size_t markPlace(std::string_view bytes)
{
    std::size_t at = bytes.starts_with("\xEF\xBB\xBF") ? 3 : 0;
    for (int i = 0; i < kLineEnds && at < bytes.size() && (bytes[at] == '\r' || bytes[at] == '\n');
         ++i)
        ++at;
    const std::string_view mark = bytes.substr(at, kMark.size() + 1);
    const bool isMark = mark.size() > kMark.size() && mark.starts_with(kMark) &&
                        (mark.back() == 'F' || mark.back() == '@');
    return isMark ? at : bytes.npos;
}

ReadError openPlain(std::string_view bytes, ByteReader reader, Container &out)
{
    if (!reader.Skip(kMarkSize - kMark.size() - 1))
        return {Status::Damaged, bytes.size(), "the file ends within its header"};
    out.base = reader.Where();
    out.payload = *reader.Take(reader.Left());
    readSubHeader(out);
    if (out.content == Container::Content::Text)
        wholeAsText(bytes, out);
    return {};
}

} // namespace

ReadError OpenContainer(std::string_view bytes, std::size_t limit, Container &out)
{
    if (isUtf16(bytes)) {
        wholeAsText(bytes, out);
        return {};
    }
    const std::size_t at = markPlace(bytes);
    if (at == bytes.npos)
        return {Status::NotThisFormat, 0, "the file does not begin with SIMISA@"};
    ByteReader reader(BytesOf(bytes));
    reader.Skip(at + kMark.size() + 1);
    if (bytes[at + kMark.size()] == '@')
        return openPlain(bytes, reader, out);
    ReadError error = openCompressed(reader, limit, out);
    if (!error)
        readSubHeader(out);
    return error;
}

} // namespace korvat
