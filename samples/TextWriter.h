// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace samples {

enum class Encoding
{
    Utf16Le,      ///< with BOM, like nearly all content
    Utf16LeNoBom, ///< some tools write it
    Utf16Be,      ///< with BOM
    Utf8,         ///< without BOM
    Utf8Bom,
    Windows1252
};

enum class LineEnd
{
    CrLf,
    Lf,
    CrCrLf ///< the result of a faulty transfer
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

/// Returns the bytes of a structured text file. `kind` is the two-character kind code of the header
/// line ("D0"); `body` is UTF-8 with LF line ends. Throws std::invalid_argument for a character
/// outside the encoding.
std::string EncodeText(std::string_view kind, std::string_view body, const TextFormat &format = {});

/// Returns a value as files spell it: bare if possible, else in quotes with escapes.
std::string Quoted(std::string_view value);

/// Returns the shortest decimal notation that reads back as the same number, with a point.
std::string Number(float value);

} // namespace samples
