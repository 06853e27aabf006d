// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Text helpers for names and paths. All text in the rooms below the forms is UTF-8.
namespace host {

/// Upper case by simple one-to-one mappings of the basic plane (as NTFS compares names), the same
/// on every machine and in every locale. Bytes that are no UTF-8 are kept as they are.
std::string ToUpper(std::string_view text);
/// The mapping for one code point.
char32_t ToUpper(char32_t c);
/// The same mappings backwards.
std::string ToLower(std::string_view text);
char32_t ToLower(char32_t c);

/// Three-way comparison of the upper-case forms by UTF-16 code unit order, as directory listings
/// are ordered; <0, 0, >0.
int CompareNoCase(std::string_view a, std::string_view b);
bool EqualsNoCase(std::string_view a, std::string_view b);

/// Three-way comparison of two texts by UTF-16 code units, letter case counting; <0, 0, >0.
int CompareCodeUnits(std::string_view a, std::string_view b);

/// Listing order: by upper case, and by bytes where that is equal.
bool ListsBefore(std::string_view a, std::string_view b);

bool IsValidUtf8(std::string_view bytes);
/// Windows-1252 to UTF-8; the five unassigned bytes map to the same code point.
std::string FromWindows1252(std::string_view bytes);
/// UTF-8 to Windows-1252; false when a character has no place there (`out` is then unspecified).
bool ToWindows1252(std::string_view utf8, std::string &out);
/// Appends one code point as UTF-8 (surrogates are written as three bytes each).
void AppendUtf8(std::string &out, char32_t c);

/// Without leading and trailing blanks (spaces only, as the command line is trimmed).
std::string_view TrimBlanks(std::string_view text);
/// "1 consist", "3 consists".
std::string Counted(std::size_t count, std::string_view one, std::string_view many);
/// Parts between separators; an empty text has no parts.
std::vector<std::string> Split(std::string_view text, char separator);

} // namespace host
