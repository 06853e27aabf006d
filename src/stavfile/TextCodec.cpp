// SPDX-License-Identifier: MIT
#include "stavfile/TextCodec.h"

#include "host/Text.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

namespace stavfile {
namespace {

constexpr std::string_view kUtf8Bom = "\xEF\xBB\xBF";
constexpr std::size_t kGuessBytes = 64; // as much as other readers of the format examine

char16_t unitAt(std::string_view bytes, std::size_t at, bool bigEndian)
{
    const auto a = static_cast<unsigned char>(bytes[at]);
    const auto b = static_cast<unsigned char>(bytes[at + 1]);
    return static_cast<char16_t>(bigEndian ? a << 8 | b : b << 8 | a);
}

bool isHighSurrogate(char16_t c)
{
    return c >= 0xD800 && c < 0xDC00;
}
bool isLowSurrogate(char16_t c)
{
    return c >= 0xDC00 && c < 0xE000;
}

/// Copies a run of ASCII characters of little-endian UTF-16, four at a time; returns the position
/// after them.
std::size_t copyAsciiRun(std::string_view bytes, std::size_t at, std::string &out)
{
    if constexpr (std::endian::native != std::endian::little)
        return at;
    std::size_t end = at;
    for (std::uint64_t four = 0; end + sizeof four <= bytes.size(); end += sizeof four) {
        std::memcpy(&four, bytes.data() + end, sizeof four);
        if (four & 0xFF80FF80FF80FF80u)
            break;
    }
    const std::size_t old = out.size(), count = (end - at) / 2;
    out.resize(old + count);
    char *to = out.data() + old;
    const char *from = bytes.data() + at;
    for (std::size_t i = 0; i < count; ++i)
        to[i] = from[2 * i];
    return end;
}

void fromUtf16(std::string_view bytes, bool bigEndian, std::string &out)
{
    out.clear();
    out.reserve(bytes.size() / 2 + 16);
    std::size_t at = 0;
    while (at + 2 <= bytes.size()) {
        if (!bigEndian) {
            at = copyAsciiRun(bytes, at, out);
            if (at + 2 > bytes.size())
                break;
        }
        const char16_t unit = unitAt(bytes, at, bigEndian);
        at += 2;
        if (isHighSurrogate(unit) && at + 2 <= bytes.size()) {
            const char16_t low = unitAt(bytes, at, bigEndian);
            if (isLowSurrogate(low)) {
                at += 2;
                host::AppendUtf8(out, 0x10000 + ((unit - 0xD800u) << 10) + (low - 0xDC00u));
                continue;
            }
        }
        host::AppendUtf8(out, unit);
    }
}

/// Returns the code point at `at` of held text, which is well formed but for surrogates; advances
/// `at`.
char32_t nextCodePoint(std::string_view text, std::size_t &at)
{
    const auto lead = static_cast<unsigned char>(text[at++]);
    if (lead < 0x80)
        return lead;
    const int more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
    if (more == 0)
        return 0xFFFD;
    char32_t c = lead & (0x3F >> more);
    for (int i = 0; i < more && at < text.size(); ++i)
        c = c << 6 | (static_cast<unsigned char>(text[at++]) & 0x3F);
    return c;
}

void appendUnit(std::string &out, char32_t unit, bool bigEndian)
{
    const char low = static_cast<char>(unit & 0xFF), high = static_cast<char>(unit >> 8);
    out += bigEndian ? high : low;
    out += bigEndian ? low : high;
}

/// Appends the ASCII characters from `at` on, eight at a time where possible; returns the position
/// after them.
std::size_t appendAsciiRun(std::string &out, std::string_view text, std::size_t at, bool bigEndian)
{
    std::size_t end = at;
    for (std::uint64_t eight = 0; end + sizeof eight <= text.size(); end += sizeof eight) {
        std::memcpy(&eight, text.data() + end, sizeof eight);
        if (eight & 0x8080808080808080u)
            break;
    }
    while (end < text.size() && static_cast<unsigned char>(text[end]) < 0x80)
        ++end;
    const bool swapped = bigEndian == (std::endian::native == std::endian::little);
    const std::size_t old = out.size();
    out.resize(old + 2 * (end - at));
    char *to = out.data() + old;
    for (std::size_t i = at; i < end; ++i, to += 2) {
        const auto unit = static_cast<std::uint16_t>(swapped ? text[i] << 8 : text[i]);
        std::memcpy(to, &unit, sizeof unit);
    }
    return end;
}

std::string toUtf16(std::string_view text, bool bigEndian, bool bom)
{
    std::string out;
    out.reserve(text.size() * 2 + 2);
    if (bom)
        appendUnit(out, 0xFEFF, bigEndian);
    for (std::size_t at = 0; at < text.size();) {
        at = appendAsciiRun(out, text, at, bigEndian);
        if (at == text.size())
            break;
        const char32_t c = nextCodePoint(text, at);
        if (c < 0x10000) {
            appendUnit(out, c, bigEndian);
        } else {
            appendUnit(out, 0xD800 + ((c - 0x10000) >> 10), bigEndian);
            appendUnit(out, 0xDC00 + ((c - 0x10000) & 0x3FF), bigEndian);
        }
    }
    return out;
}

bool holdsSurrogate(std::string_view text, std::size_t at)
{
    return static_cast<unsigned char>(text[at]) == 0xED && at + 2 < text.size() &&
           static_cast<unsigned char>(text[at + 1]) >= 0xA0;
}

std::string withoutSurrogates(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (holdsSurrogate(text, at)) {
            out += "\xEF\xBF\xBD";
            at += 2;
        } else {
            out += text[at];
        }
    }
    return out;
}

/// Number of zero bytes at the start of a file, at even and at odd offsets.
struct Zeros
{
    std::size_t even = 0, odd = 0, pairs = 0;

    /// True if the zeros are mainly at one parity: UTF-16 without a byte order mark.
    bool LookLikeUtf16() const
    {
        const std::size_t most = std::max(even, odd), least = std::min(even, odd);
        return most * 2 > pairs && least * 2 < most;
    }
};

Zeros countZeros(std::string_view bytes)
{
    Zeros zeros;
    const std::size_t end = std::min(bytes.size(), kGuessBytes);
    zeros.pairs = end / 2;
    for (std::size_t i = 0; i < zeros.pairs * 2; ++i)
        if (bytes[i] == 0)
            ++(i % 2 ? zeros.odd : zeros.even);
    return zeros;
}

/// True for the container mark in 8-bit characters. Binary files contain many zeros after it.
bool startsWithMark(std::string_view bytes)
{
    const std::size_t start = bytes.find_first_not_of("\r\n");
    return start != bytes.npos && bytes.substr(start).starts_with("SIMISA@");
}

/// The mark could also be UTF-16 that begins with a NUL, so the first character must fit too.
bool looksLikeUtf32(std::string_view bytes)
{
    using namespace std::string_view_literals;
    return bytes.size() >= 8 && bytes.starts_with("\xFF\xFE\0\0"sv) && bytes[4] != '\0' &&
           bytes.substr(6, 2) == "\0\0"sv;
}

bool hasUtf16Bom(std::string_view bytes)
{
    return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
}

Encoding guess(std::string_view bytes)
{
    if (hasUtf16Bom(bytes))
        return bytes[0] == '\xFE' ? Encoding::Utf16Be : Encoding::Utf16Le;
    const Zeros zeros = countZeros(bytes);
    if (!startsWithMark(bytes) && zeros.LookLikeUtf16())
        return zeros.even > zeros.odd ? Encoding::Utf16Be : Encoding::Utf16Le;
    if (bytes.starts_with(kUtf8Bom))
        bytes.remove_prefix(kUtf8Bom.size());
    return host::IsValidUtf8(bytes) ? Encoding::Utf8 : Encoding::Windows1252;
}

void decodeUtf16(DecodedText &result, std::string_view bytes, bool bigEndian)
{
    result.encoding = bigEndian ? Encoding::Utf16Be : Encoding::Utf16Le;
    result.bom = hasUtf16Bom(bytes);
    if (result.bom)
        bytes.remove_prefix(2);
    if (bytes.size() % 2)
        result.oddByte = bytes.substr(bytes.size() - 1);
    fromUtf16(bytes, bigEndian, result.text);
}

void decode8Bit(DecodedText &result, std::string &&bytes, Encoding encoding)
{
    result.bom = bytes.starts_with(kUtf8Bom);
    if (result.bom)
        bytes.erase(0, kUtf8Bom.size());
    result.encoding = encoding;
    result.text = std::move(bytes);
}

std::string encodeAs(std::string_view text, Encoding encoding, bool bom, std::string_view oddByte)
{
    const std::string mark = bom ? std::string(kUtf8Bom) : std::string();
    std::string bytes;
    switch (encoding) {
    case Encoding::Utf16Le:
    case Encoding::Utf16Be:
        return toUtf16(text, encoding == Encoding::Utf16Be, bom).append(oddByte);
    case Encoding::Utf8:
        return mark + withoutSurrogates(text);
    case Encoding::Windows1252:
        break;
    }
    return host::ToWindows1252(text, bytes) ? mark + bytes : std::string();
}

} // namespace

const char *EncodingName(Encoding encoding)
{
    switch (encoding) {
    case Encoding::Utf16Le:
        return "utf-16le";
    case Encoding::Utf16Be:
        return "utf-16be";
    case Encoding::Utf8:
        return "utf-8";
    case Encoding::Windows1252:
        break;
    }
    return "windows-1252";
}

DecodedText Decode(std::string &&bytes, std::string &&memory)
{
    const std::string_view view = bytes;
    DecodedText result;
    result.text = std::move(memory);
    if (looksLikeUtf32(view)) {
        result.isUtf32 = true;
        result.encoding = Encoding::Windows1252; // keeps all bytes as they are
        result.text = std::move(bytes);
        return result;
    }
    const Encoding encoding = guess(view);
    if (encoding == Encoding::Utf8 || encoding == Encoding::Windows1252)
        decode8Bit(result, std::move(bytes), encoding);
    else
        decodeUtf16(result, view, encoding == Encoding::Utf16Be);
    return result;
}

std::string ToShownText(std::string held, Encoding encoding)
{
    if (encoding == Encoding::Windows1252)
        return host::FromWindows1252(held);
    const bool utf16 = encoding != Encoding::Utf8;
    return utf16 && held.find('\xED') != held.npos ? withoutSurrogates(held) : std::move(held);
}

std::string ToWritableText(std::string_view held, Encoding encoding)
{
    return encoding == Encoding::Windows1252 ? host::FromWindows1252(held) : std::string(held);
}

std::string BytesOfHeldText(std::string_view held, Encoding encoding, bool bom,
                            std::string_view oddByte)
{
    if (encoding == Encoding::Utf16Le || encoding == Encoding::Utf16Be)
        return toUtf16(held, encoding == Encoding::Utf16Be, bom).append(oddByte);
    return (bom ? std::string(kUtf8Bom) : std::string()).append(held);
}

std::string Encode(std::string_view text, Encoding encoding, bool bom, std::string_view oddByte)
{
    std::string bytes = encodeAs(text, encoding, bom, oddByte);
    const bool fits = !bytes.empty() || text.empty();
    const bool ascii = std::all_of(text.begin(), text.end(),
                                   [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    const bool eightBit = encoding == Encoding::Windows1252 || encoding == Encoding::Utf8;
    if (fits && ((ascii && eightBit) || guess(bytes) == encoding))
        return bytes;
    return toUtf16(text, false, true);
}

} // namespace stavfile
