// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Text helpers for names and paths. All text in the rooms without Qt is UTF-8.
namespace host {

/// Converts to upper case by simple one-to-one mappings of the basic plane (as NTFS compares
/// names), the same on every machine and in every locale. Keeps bytes that are not UTF-8.
std::string ToUpper(std::string_view text);
/// Returns the mapping of one code point.
char32_t ToUpper(char32_t c);
/// Apply the same mappings backwards.
std::string ToLower(std::string_view text);
char32_t ToLower(char32_t c);

/// The upper-case form of a text, which is valid as long as this object. Needs no memory for short
/// ASCII texts.
class UpperText
{
public:
    explicit UpperText(std::string_view text);
    UpperText(const UpperText &) = delete;
    UpperText &operator=(const UpperText &) = delete;

    std::string_view View() const { return m_view; }

private:
    std::array<char, 64> m_short;
    std::string m_long;
    std::string_view m_view;
};

/// Compares the upper-case forms by UTF-16 code units, as directory listings are ordered; returns
/// <0, 0 or >0.
int CompareNoCase(std::string_view a, std::string_view b);
bool EqualsNoCase(std::string_view a, std::string_view b);

/// Compares two texts by UTF-16 code units, without ignoring letter case; returns <0, 0 or >0.
int CompareCodeUnits(std::string_view a, std::string_view b);
/// Returns the first eight bytes of a text as a number. If the numbers of two texts differ, they
/// compare like the texts in CompareCodeUnits.
std::uint64_t CodeUnitPrefix(std::string_view text);

/// True if `a` precedes `b` in listing order: by upper case, and by bytes if that is equal.
bool ListsBefore(std::string_view a, std::string_view b);

bool IsValidUtf8(std::string_view bytes);
/// Converts Windows-1252 to UTF-8; the five unassigned bytes map to the same code point.
std::string FromWindows1252(std::string_view bytes);
/// Converts UTF-8 to Windows-1252; returns false, with `out` unspecified, if a character does not
/// exist there.
bool ToWindows1252(std::string_view utf8, std::string &out);
/// Appends one code point as UTF-8; a surrogate becomes three bytes.
void AppendUtf8(std::string &out, char32_t c);

/// Removes leading and trailing blanks (spaces only, as for the command line).
std::string_view TrimBlanks(std::string_view text);
/// Returns a number with its noun: "1 consist", "3 consists".
std::string Counted(std::size_t count, std::string_view one, std::string_view many);
/// Returns 16 hexadecimal digits that depend on the bytes of the text alone (FNV-1a, 64 bits), for
/// keys that are stored. Not secure against forgery.
std::string Fingerprint(std::string_view text);
/// Returns the parts between separators; an empty text has no parts.
std::vector<std::string> Split(std::string_view text, char separator);

} // namespace host
