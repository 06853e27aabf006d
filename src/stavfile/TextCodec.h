// SPDX-License-Identifier: MIT
#pragma once

#include "stavfile/Format.h"

#include <string>
#include <string_view>

namespace stavfile {

/// A file's bytes as the lexer wants them: one byte per ASCII character, so that all structure can
/// be found byte by byte. UTF-16 is held as UTF-8, lone surrogates as the three bytes that UTF-8
/// would give them, which makes the way back exact; 8-bit files are held as they are.
struct DecodedText
{
    std::string text; ///< without the byte order mark
    Encoding encoding = Encoding::Utf8;
    bool bom = false;
    std::string oddByte;  ///< the last byte of a UTF-16 file of odd length, else empty
    bool isUtf32 = false; ///< a UTF-32 byte order mark was met; nothing is decoded then
};

/// Finds the encoding and decodes (docs/formats.md, "Encodings").
DecodedText Decode(std::string bytes);

/// Held text of an encoding as UTF-8 to show: Windows-1252 converted, lone surrogates as U+FFFD.
std::string ToShownText(std::string held, Encoding encoding);

/// Held text of an encoding as UTF-8 to write; lone surrogates stay three bytes.
std::string ToWritableText(std::string_view held, Encoding encoding);

/// The bytes that held text was decoded from.
std::string BytesOfHeldText(std::string_view held, Encoding encoding, bool bom,
                            std::string_view oddByte);

/// The bytes of a file from writable text: the byte order mark if asked for, then the text. Text
/// that does not fit the encoding, or that would be taken for another one when it is read again,
/// is written as UTF-16LE with a byte order mark instead.
std::string Encode(std::string_view text, Encoding encoding, bool bom, std::string_view oddByte);

} // namespace stavfile
