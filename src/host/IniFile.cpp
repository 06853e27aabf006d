// SPDX-License-Identifier: MIT
#include "host/IniFile.h"

#include "host/Text.h"

#include <algorithm>

namespace host {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool isQuoted(std::string_view text)
{
    return text.size() >= 2 && text.front() == '"' && text.back() == '"';
}

std::string_view unquoted(std::string_view text)
{
    return isQuoted(text) ? text.substr(1, text.size() - 2) : text;
}

/// Returns the name in a "[name]" line, or nothing.
std::optional<std::string_view> sectionName(std::string_view line)
{
    const std::size_t close = line.rfind(']');
    if (!line.starts_with('[') || close == std::string_view::npos)
        return std::nullopt;
    return trimmed(line.substr(1, close - 1));
}

bool isComment(std::string_view line)
{
    return line.starts_with(';') || line.starts_with('#');
}

std::string onOneLine(std::string_view value)
{
    std::string out(value);
    std::replace_if(
        out.begin(), out.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return out;
}

/// Returns the spelling of a value that is read back with its blanks and quotes.
std::string spelled(const std::string &value)
{
    return trimmed(value) != value || isQuoted(value) ? '"' + value + '"' : value;
}

} // namespace

IniFile IniFile::FromText(std::string_view text)
{
    IniFile ini;
    std::string section;
    ini.m_hasByteOrderMark = text.starts_with(kByteOrderMark);
    if (ini.m_hasByteOrderMark)
        text.remove_prefix(kByteOrderMark.size());
    const std::size_t firstEnd = text.find('\n');
    if (firstEnd != std::string_view::npos && firstEnd > 0 && text[firstEnd - 1] == '\r')
        ini.m_lineEnd = "\r\n";
    while (!text.empty()) {
        const std::size_t feed = text.find('\n');
        const std::string_view whole =
            text.substr(0, feed == std::string_view::npos ? feed : feed + 1);
        ini.m_lines.push_back(readLine(whole, section));
        text.remove_prefix(whole.size());
    }
    return ini;
}

/// Reads a line with its end. Some editors leave several carriage returns there.
IniFile::Line IniFile::readLine(std::string_view text, std::string &section)
{
    Line line;
    const std::size_t last = text.find_last_not_of("\r\n");
    line.end = text.substr(last == std::string_view::npos ? 0 : last + 1);
    line.text = text.substr(0, text.size() - line.end.size());
    text = trimmed(line.text);
    const std::size_t equals = text.find('=');
    if (const auto name = sectionName(text)) {
        section = *name;
    } else if (!isComment(text) && equals != std::string_view::npos) {
        line.isValue = true;
        line.key = trimmed(text.substr(0, equals));
        line.value = unquoted(trimmed(text.substr(equals + 1)));
    }
    line.section = section;
    return line;
}

bool IniFile::Line::Is(std::string_view ofSection, std::string_view ofKey) const
{
    return isValue && EqualsNoCase(key, ofKey) && EqualsNoCase(section, ofSection);
}

std::string IniFile::ToText() const
{
    std::string text(m_hasByteOrderMark ? kByteOrderMark : "");
    for (const Line &line : m_lines)
        text += line.text + line.end;
    return text;
}

std::optional<std::string> IniFile::Value(std::string_view section, std::string_view key) const
{
    for (const Line &line : m_lines)
        if (line.Is(section, key))
            return line.value;
    return std::nullopt;
}

void IniFile::SetValue(std::string_view section, std::string_view key, std::string_view value)
{
    Line fresh;
    fresh.isValue = true;
    fresh.section = section;
    fresh.key = key;
    fresh.value = onOneLine(value);
    fresh.text = fresh.key + '=' + spelled(fresh.value);

    std::size_t afterSection = 0;
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        Line &line = m_lines[i];
        const bool inSection = EqualsNoCase(line.section, section);
        if (line.Is(section, key)) {
            fresh.end = line.end;
            line = std::move(fresh);
            return;
        }
        if (inSection && !trimmed(line.text).empty())
            afterSection = i + 1;
    }
    if (afterSection == 0 && !section.empty()) {
        insert(m_lines.size(), {'[' + fresh.section + ']', {}, fresh.section, {}, {}, false});
        afterSection = m_lines.size();
    }
    insert(afterSection, std::move(fresh));
}

/// Adds a line with an end, also to the line before it if that is the last one and has none.
void IniFile::insert(std::size_t place, Line line)
{
    if (place > 0 && !m_lines[place - 1].end.ends_with('\n'))
        m_lines[place - 1].end += m_lineEnd;
    line.end = m_lineEnd;
    m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(place), std::move(line));
}

void IniFile::RemoveValue(std::string_view section, std::string_view key)
{
    std::erase_if(m_lines, [&](const Line &line) { return line.Is(section, key); });
}

} // namespace host
