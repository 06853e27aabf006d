// SPDX-License-Identifier: MIT
#include "install/WineRegistry.h"

#include "host/Text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace install {
namespace {

/// Text built from single UTF-16 units; lone surrogates become U+FFFD.
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

/// Removes a number of at most `places` digits from the beginning of the text and returns it.
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

/// Removes the escape after a backslash from the text and adds its character: \n, \x20AC, \033, or
/// the character itself.
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

/// Removes the text up to and including an unescaped delimiter. Returns it without the delimiter,
/// or nothing if there is no delimiter.
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

/// Decodes bytes such as "25,00,...", two for each UTF-16 unit. A backslash continues the line.
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

/// A text as the file stores it. An expandable text contains variables, as in "%windir%\x".
struct StoredText
{
    std::string text;
    bool isExpandable = false;
};

/// Reads the value after the "=" of an entry.
std::optional<StoredText> textValue(std::string_view line, std::string_view following)
{
    const bool isExpandable = line.starts_with("str(2):") || line.starts_with("hex(2):");
    if (takePrefix(line, "hex(1):") || takePrefix(line, "hex(2):"))
        return StoredText{hexText(line, following), isExpandable};
    if (takePrefix(line, "str(")) {
        const std::size_t colon = line.find("):");
        line.remove_prefix(colon == std::string_view::npos ? line.size() : colon + 2);
    }
    std::optional<std::string> text;
    if (takePrefix(line, "\""))
        text = takeUntil(line, '"');
    return text ? std::optional(StoredText{*text, isExpandable}) : std::nullopt;
}

bool isSection(std::string_view line, std::string_view key)
{
    if (!takePrefix(line, "["))
        return false;
    const std::optional<std::string> name = takeUntil(line, ']');
    return name && host::EqualsNoCase(*name, key);
}

std::optional<StoredText> find(std::string_view text, std::string_view key, std::string_view value)
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

/// The places of the values of system variables; the first place for a name is that of a 32-bit
/// program. Other variables have their own names in the last key.
struct Variable
{
    std::string_view name, key, value;
};
constexpr std::string_view kWindows32 = R"(Software\Wow6432Node\Microsoft\Windows\CurrentVersion)";
constexpr std::string_view kWindows = R"(Software\Microsoft\Windows\CurrentVersion)";
constexpr std::string_view kWindowsNt = R"(Software\Microsoft\Windows NT\CurrentVersion)";
constexpr std::string_view kEnvironment =
    R"(System\CurrentControlSet\Control\Session Manager\Environment)";
constexpr std::array kVariables = {
    Variable{"ProgramFiles", kWindows32, "ProgramFilesDir"},
    Variable{"ProgramFiles", kWindows, "ProgramFilesDir"},
    Variable{"ProgramFiles(x86)", kWindows, "ProgramFilesDir (x86)"},
    Variable{"ProgramW6432", kWindows, "ProgramW6432Dir"},
    Variable{"CommonProgramFiles", kWindows32, "CommonFilesDir"},
    Variable{"CommonProgramFiles", kWindows, "CommonFilesDir"},
    Variable{"SystemRoot", kWindowsNt, "SystemRoot"},
    Variable{"windir", kWindowsNt, "SystemRoot"},
    Variable{"SystemDrive", kWindowsNt, "SystemRoot"},
};

std::optional<std::string> variableValue(std::string_view registry, std::string_view name)
{
    for (const Variable &variable : kVariables) {
        if (!host::EqualsNoCase(variable.name, name))
            continue;
        if (const auto found = find(registry, variable.key, variable.value))
            return variable.name == "SystemDrive" ? found->text.substr(0, 2) : found->text;
    }
    const auto found = find(registry, kEnvironment, name);
    return found ? std::optional(found->text) : std::nullopt;
}

/// Replaces the variables in the text by their values; an unknown variable stays as it is.
std::string expanded(std::string_view registry, std::string_view text)
{
    std::string out;
    while (!text.empty()) {
        const std::size_t begin = std::min(text.find('%'), text.size());
        out += text.substr(0, begin);
        text.remove_prefix(begin);
        const std::size_t end = text.find('%', 1);
        const auto value = end == std::string_view::npos
                               ? std::nullopt
                               : variableValue(registry, text.substr(1, end - 1));
        out += value.value_or(std::string(text.substr(0, 1)));
        text.remove_prefix(value ? end + 1 : std::min<std::size_t>(1, text.size()));
    }
    return out;
}

} // namespace

std::optional<std::string> ValueInWineRegistry(std::string_view text, std::string_view key,
                                               std::string_view value)
{
    const std::optional<StoredText> found = find(text, key, value);
    if (!found)
        return std::nullopt;
    return found->isExpandable ? expanded(text, found->text) : found->text;
}

} // namespace install
