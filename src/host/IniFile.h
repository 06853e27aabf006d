// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// A small text store: "[section]" lines, "key=value" lines, ";" and "#" comment lines. Sections
/// and keys ignore letter case. A value is the UTF-8 text after the "=", without the blanks around
/// it; a value in double quotes keeps its blanks. A backslash has no special meaning. Every line
/// that is not set or removed keeps its bytes and its line end.
class IniFile
{
public:
    static IniFile FromText(std::string_view text);
    std::string ToText() const;

    std::optional<std::string> Value(std::string_view section, std::string_view key) const;
    /// Replaces the value in its place, or adds key and section at the end. Line breaks in a value
    /// become blanks.
    void SetValue(std::string_view section, std::string_view key, std::string_view value);
    /// Removes every line with this key; the rest of its section stays.
    void RemoveValue(std::string_view section, std::string_view key);

private:
    struct Line
    {
        std::string text; ///< as read, without its line end
        std::string end;  ///< "" for a last line without one
        std::string section, key, value;
        bool isValue = false;

        bool Is(std::string_view ofSection, std::string_view ofKey) const;
    };
    static Line readLine(std::string_view text, std::string &section);
    void insert(std::size_t place, Line line);

    bool m_hasByteOrderMark = false;
    std::vector<Line> m_lines;
    std::string m_lineEnd = "\n"; ///< that of the first line read
};

} // namespace host
