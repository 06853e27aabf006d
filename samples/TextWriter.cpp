// SPDX-License-Identifier: MIT
#include "samples/TextWriter.h"

#include "samples/Bytes.h"

#include <array>
#include <charconv>
#include <stdexcept>

namespace samples {
namespace {

/// Removes the first code point from well-formed UTF-8 and returns it.
char32_t takeCodePoint(std::string_view &text)
{
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (length > text.size())
        throw std::invalid_argument("text cut within a character");
    char32_t c = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i)
        c = (c << 6U) | (static_cast<unsigned char>(text[i]) & 0x3FU);
    text.remove_prefix(length);
    return c;
}

void appendUnit(std::string &out, std::uint16_t unit, bool bigEndian)
{
    if (bigEndian)
        unit = static_cast<std::uint16_t>((unit << 8U) | (unit >> 8U));
    AppendU16(out, unit);
}

std::string toUtf16(std::string_view text, bool bigEndian)
{
    std::string out;
    out.reserve(text.size() * 2);
    while (!text.empty()) {
        const char32_t c = takeCodePoint(text);
        if (c < 0x10000) {
            appendUnit(out, static_cast<std::uint16_t>(c), bigEndian);
        } else {
            const char32_t rest = c - 0x10000;
            appendUnit(out, static_cast<std::uint16_t>(0xD800U + (rest >> 10U)), bigEndian);
            appendUnit(out, static_cast<std::uint16_t>(0xDC00U + (rest & 0x3FFU)), bigEndian);
        }
    }
    return out;
}

/// Supports only the characters that Windows-1252 shares with Latin-1.
std::string toWindows1252(std::string_view text)
{
    std::string out;
    while (!text.empty()) {
        const char32_t c = takeCodePoint(text);
        if (c > 0xFF || (c >= 0x80 && c < 0xA0))
            throw std::invalid_argument("character not in Windows-1252");
        out += static_cast<char>(c);
    }
    return out;
}

std::string withLineEnds(std::string_view text, LineEnd lineEnd)
{
    if (lineEnd == LineEnd::Lf)
        return std::string(text);
    std::string out;
    out.reserve(text.size() + text.size() / 16);
    for (const char c : text) {
        if (c == '\n')
            out += lineEnd == LineEnd::CrLf ? "\r" : "\r\r";
        out += c;
    }
    return out;
}

bool isBare(std::string_view value)
{
    const std::string_view safe =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789._!?$*/-";
    return !value.empty() && value.front() != '_' &&
           value.find_first_not_of(safe) == std::string_view::npos;
}

} // namespace

std::string EncodeText(std::string_view kind, std::string_view body, const TextFormat &format)
{
    std::string text;
    if (format.header == Header::Usual)
        text = "SIMISA@@@@@@@@@@JINX0" + std::string(kind) + "t______\n\n";
    text = withLineEnds(text.append(body), format.lineEnd);
    switch (format.encoding) {
    case Encoding::Utf16Le:
        return "\xFF\xFE" + toUtf16(text, false);
    case Encoding::Utf16LeNoBom:
        return toUtf16(text, false);
    case Encoding::Utf16Be:
        return "\xFE\xFF" + toUtf16(text, true);
    case Encoding::Utf8:
        return text;
    case Encoding::Utf8Bom:
        return "\xEF\xBB\xBF" + text;
    case Encoding::Windows1252:
        return toWindows1252(text);
    }
    throw std::invalid_argument("unknown encoding");
}

std::string Quoted(std::string_view value)
{
    if (isBare(value))
        return std::string(value);
    std::string out = "\"";
    for (const char c : value) {
        if (c == '"' || c == '\\')
            out += '\\';
        if (c == '\n')
            out += "\\n";
        else
            out += c;
    }
    return out + '"';
}

std::string Number(float value)
{
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    return {digits.data(), end.ptr};
}

} // namespace samples
