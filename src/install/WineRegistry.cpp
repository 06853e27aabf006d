// SPDX-License-Identifier: MIT
#include "install/WineRegistry.h"

#include "host/Text.h"

#include <algorithm>
#include <charconv>

namespace install {
namespace {

/// Text from UTF-16 units that come one by one; lone surrogates become U+FFFD.
class Utf16Text
{
public:
    void Add(char32_t unit)
    {
        const bool isLow = unit >= 0xDC00 && unit < 0xE000;
        if (m_high != 0 && isLow) {
            host::AppendUtf8(m_text, 0x10000 + ((m_high - 0xD800) << 10) + (unit - 0xDC00));
            m_high = 0;
            return;
        }
        flush();
        if (unit >= 0xD800 && unit < 0xDC00)
            m_high = unit;
        else
            host::AppendUtf8(m_text, isLow ? kReplacement : unit);
    }
    void AddByte(char c)
    {
        flush();
        m_text += c;
    }
    std::string Take()
    {
        flush();
        return std::move(m_text);
    }

private:
    static constexpr char32_t kReplacement = 0xFFFD;

    void flush()
    {
        if (m_high != 0)
            host::AppendUtf8(m_text, kReplacement);
        m_high = 0;
    }

    std::string m_text;
    char32_t m_high = 0;
};

std::string_view takeLine(std::string_view &text)
{
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

/// A number of at most `places` digits at the beginning of the text, taken off it.
std::optional<char32_t> takeNumber(std::string_view &text, std::size_t places, int base)
{
    unsigned number = 0;
    const char *const begin = text.data();
    const auto [end, error] =
        std::from_chars(begin, begin + std::min(places, text.size()), number, base);
    if (error != std::errc())
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - begin));
    return number;
}

/// What stands after a backslash, taken off the text: \n, \x20AC, \033, or the character itself.
void takeEscape(std::string_view &text, Utf16Text &out)
{
    static constexpr std::string_view kLetters = "abefnrtv";
    static constexpr std::string_view kMeanings = "\a\b\x1B\f\n\r\t\v";
    const char c = text.front();
    if (c >= '0' && c <= '7') {
        out.Add(takeNumber(text, 3, 8).value_or(0));
        return;
    }
    text.remove_prefix(1);
    if (c == 'x') {
        if (const auto unit = takeNumber(text, 4, 16)) {
            out.Add(*unit);
            return;
        }
    }
    const std::size_t letter = kLetters.find(c);
    out.AddByte(letter == std::string_view::npos ? c : kMeanings[letter]);
}

/// The text up to an unescaped delimiter, both taken off; nothing when there is no delimiter.
std::optional<std::string> takeUntil(std::string_view &text, char delimiter)
{
    Utf16Text out;
    while (!text.empty()) {
        const char c = text.front();
        text.remove_prefix(1);
        if (c == delimiter)
            return out.Take();
        if (c == '\\' && !text.empty())
            takeEscape(text, out);
        else
            out.AddByte(c);
    }
    return std::nullopt;
}

bool takePrefix(std::string_view &text, std::string_view prefix)
{
    if (!text.starts_with(prefix))
        return false;
    text.remove_prefix(prefix.size());
    return true;
}

/// Bytes as "25,00,..." over lines that end in a backslash, two to a UTF-16 unit.
std::string hexText(std::string_view line, std::string_view following)
{
    Utf16Text out;
    std::optional<char32_t> low;
    for (;;) {
        if (line.empty() || line == "\\") {
            if (line.empty() || following.empty())
                return out.Take();
            line = takeLine(following);
            line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
            continue;
        }
        const auto byte = takeNumber(line, 2, 16);
        if (!byte)
            return out.Take();
        if (low)
            out.Add(*low | (*byte << 8));
        low = low ? std::nullopt : byte;
        takePrefix(line, ",");
    }
}

/// What stands after the "=" of an entry.
std::optional<std::string> textValue(std::string_view line, std::string_view following)
{
    if (takePrefix(line, "hex(1):") || takePrefix(line, "hex(2):"))
        return hexText(line, following);
    if (takePrefix(line, "str(")) {
        const std::size_t colon = line.find("):");
        line.remove_prefix(colon == std::string_view::npos ? line.size() : colon + 2);
    }
    return takePrefix(line, "\"") ? takeUntil(line, '"') : std::nullopt;
}

bool isSection(std::string_view line, std::string_view key)
{
    if (!takePrefix(line, "["))
        return false;
    const std::optional<std::string> name = takeUntil(line, ']');
    return name && host::EqualsNoCase(*name, key);
}

} // namespace

std::optional<std::string> ValueInWineRegistry(std::string_view text, std::string_view key,
                                               std::string_view value)
{
    bool inKey = false;
    while (!text.empty()) {
        std::string_view line = takeLine(text);
        if (line.starts_with('['))
            inKey = isSection(line, key);
        if (!inKey || !takePrefix(line, "\""))
            continue;
        const std::optional<std::string> name = takeUntil(line, '"');
        if (name && host::EqualsNoCase(*name, value) && takePrefix(line, "="))
            return textValue(line, text);
    }
    return std::nullopt;
}

} // namespace install
