// SPDX-License-Identifier: MIT
#include "host/Text.h"

#include "host/CaseTable.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace host {
namespace {

/// One step of strict UTF-8 decoding; `length` is 0 if the bytes are not UTF-8.
struct Decoded
{
    char32_t c = 0;
    std::size_t length = 0;
};

bool isAscii(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}

char upperAscii(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}

std::size_t lengthByLead(unsigned char lead)
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead < 0xE0)
        return 2;
    if (lead >= 0xE0 && lead < 0xF0)
        return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

Decoded decode(std::string_view text)
{
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = lengthByLead(lead);
    if (length <= 1)
        return {lead, length};
    if (text.size() < length)
        return {};
    char32_t c = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0) != 0x80)
            return {};
        c = (c << 6) | (next & 0x3Fu);
    }
    static constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = c >= 0xD800 && c < 0xE000;
    if (c < kSmallest[length] || surrogate || c > 0x10FFFF)
        return {};
    return {c, length};
}

/// Orders bytes so that UTF-8 texts sort by their UTF-16 code units: characters beyond the basic
/// plane (lead bytes from F0 on) before U+E000 to U+FFFF (lead bytes EE and EF).
unsigned utf16Weight(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0xEE)
        return byte;
    return byte < 0xF0 ? byte + 0x10u : byte - 2u;
}

/// Windows-1252 from 80 to 9F; elsewhere bytes are code points.
constexpr std::array<char16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

/// Returns the Windows-1252 byte of a character, or -1.
int windows1252Byte(char32_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c < 0x100))
        return static_cast<int>(c);
    const auto *const found = std::find(kWindows1252.begin(), kWindows1252.end(), c);
    return found == kWindows1252.end() ? -1 : 0x80 + static_cast<int>(found - kWindows1252.begin());
}

/// Applies a mapping of code points to a text; keeps bytes that are not UTF-8.
template <typename Mapping> std::string mapped(std::string_view text, Mapping mapping)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const Decoded next = decode(text.substr(at));
        if (next.length == 0)
            out += text[at];
        else
            AppendUtf8(out, mapping(next.c));
        at += std::max<std::size_t>(1, next.length);
    }
    return out;
}

} // namespace

char32_t ToUpper(char32_t c)
{
    if (c < 0x80)
        return c >= U'a' && c <= U'z' ? c - 32 : c;
    if (c > 0xFFFF)
        return c;
    const CaseRange *const end = kCaseRanges + kCaseRangeCount;
    const CaseRange *const range =
        std::lower_bound(kCaseRanges, end, c,
                         [](const CaseRange &left, char32_t right) { return left.last < right; });
    if (range == end || c < range->first || (c - range->first) % range->stride != 0)
        return c;
    return static_cast<char32_t>(static_cast<std::int32_t>(c) + range->delta);
}

char32_t ToLower(char32_t c)
{
    if (c < 0x80)
        return c >= U'A' && c <= U'Z' ? c + 32 : c;
    for (const CaseRange *range = kCaseRanges; range != kCaseRanges + kCaseRangeCount; ++range) {
        const auto lower = static_cast<std::int32_t>(c) - range->delta;
        if (lower >= range->first && lower <= range->last &&
            (lower - range->first) % range->stride == 0)
            return static_cast<char32_t>(lower);
    }
    return c;
}

std::string ToUpper(std::string_view text)
{
    if (!std::all_of(text.begin(), text.end(), isAscii))
        return mapped(text, [](char32_t c) { return ToUpper(c); });
    std::string out(text);
    std::transform(out.begin(), out.end(), out.begin(), upperAscii);
    return out;
}

UpperText::UpperText(std::string_view text)
{
    unsigned char high = 0;
    for (const char c : text)
        high |= static_cast<unsigned char>(c);
    if (high >= 0x80 || text.size() > m_short.size()) {
        m_long = ToUpper(text);
        m_view = m_long;
        return;
    }
    std::transform(text.begin(), text.end(), m_short.begin(), upperAscii);
    m_view = {m_short.data(), text.size()};
}

std::string ToLower(std::string_view text)
{
    return mapped(text, [](char32_t c) { return ToLower(c); });
}

int CompareCodeUnits(std::string_view a, std::string_view b)
{
    constexpr std::size_t kPiece = 8; // the bytes of one machine comparison
    const std::size_t shared = std::min(a.size(), b.size());
    std::size_t i = 0;
    while (i + kPiece <= shared && std::memcmp(a.data() + i, b.data() + i, kPiece) == 0)
        i += kPiece;
    for (; i < shared; ++i)
        if (a[i] != b[i])
            return utf16Weight(a[i]) < utf16Weight(b[i]) ? -1 : 1;
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

std::uint64_t CodeUnitPrefix(std::string_view text)
{
    constexpr std::size_t kBytes = 8;
    std::uint64_t prefix = 0;
    for (std::size_t i = 0; i < kBytes; ++i)
        prefix = prefix << 8 | (i < text.size() ? utf16Weight(text[i]) : 0);
    return prefix;
}

int CompareNoCase(std::string_view a, std::string_view b)
{
    return CompareCodeUnits(ToUpper(a), ToUpper(b));
}

bool EqualsNoCase(std::string_view a, std::string_view b)
{
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
        if (!isAscii(a[i]) || !isAscii(b[i]))
            return ToUpper(a.substr(i)) == ToUpper(b.substr(i));
        if (ToUpper(static_cast<char32_t>(a[i])) != ToUpper(static_cast<char32_t>(b[i])))
            return false;
    }
    return a.size() == b.size();
}

bool ListsBefore(std::string_view a, std::string_view b)
{
    const int order = CompareNoCase(a, b);
    return order != 0 ? order < 0 : a < b;
}

bool IsValidUtf8(std::string_view bytes)
{
    std::size_t at = 0;
    for (std::uint64_t eight = 0; at + sizeof eight <= bytes.size(); at += sizeof eight) {
        std::memcpy(&eight, bytes.data() + at, sizeof eight);
        if (eight & 0x8080808080808080u)
            break;
    }
    while (at < bytes.size()) {
        const std::size_t length = isAscii(bytes[at]) ? 1 : decode(bytes.substr(at)).length;
        if (length == 0)
            return false;
        at += length;
    }
    return true;
}

std::string FromWindows1252(std::string_view bytes)
{
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 8);
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        AppendUtf8(out, byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - 0x80u] : byte);
    }
    return out;
}

bool ToWindows1252(std::string_view utf8, std::string &out)
{
    out.clear();
    while (!utf8.empty()) {
        const Decoded next = decode(utf8);
        const int byte = next.length == 0 ? -1 : windows1252Byte(next.c);
        if (byte < 0)
            return false;
        out += static_cast<char>(byte);
        utf8.remove_prefix(next.length);
    }
    return true;
}

void AppendUtf8(std::string &out, char32_t c)
{
    const auto tail = [&](int shift) { out += static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        tail(0);
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        tail(6);
        tail(0);
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

std::string_view TrimBlanks(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string Counted(std::size_t count, std::string_view one, std::string_view many)
{
    return std::to_string(count).append(1, ' ').append(count == 1 ? one : many);
}

std::string Fingerprint(std::string_view text)
{
    constexpr std::uint64_t kOffset = 14695981039346656037u, kPrime = 1099511628211u;
    std::uint64_t hash = kOffset;
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * kPrime;
    std::string digits;
    for (int shift = 60; shift >= 0; shift -= 4)
        digits += "0123456789abcdef"[hash >> shift & 15];
    return digits;
}

std::vector<std::string> Split(std::string_view text, char separator)
{
    std::vector<std::string> parts;
    if (text.empty())
        return parts;
    for (std::size_t at = 0; at != std::string_view::npos;) {
        const std::size_t end = text.find(separator, at);
        parts.emplace_back(text.substr(at, end == std::string_view::npos ? end : end - at));
        at = end == std::string_view::npos ? end : end + 1;
    }
    return parts;
}

} // namespace host
