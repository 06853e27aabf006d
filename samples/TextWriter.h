// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace samples {

enum class Encoding
{
    Utf16Le,      ///< with BOM, as nearly all content
    Utf16LeNoBom, ///< as some tools write
    Utf16Be,      ///< with BOM
    Utf8,         ///< without BOM
    Utf8Bom,
    Windows1252
};

enum class LineEnd
{
    CrLf,
    Lf,
    CrCrLf ///< as left behind by a bad transfer
};

enum class Header
{
    Usual,
    None
};

struct TextFormat
{
    Encoding encoding = Encoding::Utf16Le;
    LineEnd lineEnd = LineEnd::CrLf;
    Header header = Header::Usual;
};

/// The bytes of a structured text file. `kind` is the two-character kind code of the header line
/// ("D0"); `body` is UTF-8 with LF line ends. Throws std::invalid_argument for a character that the
/// encoding does not have.
std::string EncodeText(std::string_view kind, std::string_view body, const TextFormat &format = {});

/// A value as it stands in a file: bare when it may be, else in quotes with escapes.
std::string Quoted(std::string_view value);

/// A number with a point and without locale, as short as it reads back exactly.
std::string Number(float value);

} // namespace samples
