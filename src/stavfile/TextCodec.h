// SPDX-License-Identifier: MIT
#pragma once

#include "stavfile/Format.h"

#include <string>
#include <string_view>

namespace stavfile {

/// A file's bytes in held form, which the lexer needs: one byte per ASCII character, so that all
/// structure can be found byte by byte. UTF-16 is held as UTF-8, with a lone surrogate as the three
/// bytes that UTF-8 would give it, which makes the conversion back exact. 8-bit files are held
/// unchanged.
struct DecodedText
{
    std::string text; ///< without the byte order mark
    Encoding encoding = Encoding::Utf8;
    bool bom = false;
    std::string oddByte;  ///< the last byte of a UTF-16 file of odd length, else empty
    bool isUtf32 = false; ///< it has a UTF-32 byte order mark, and nothing is decoded
};

/// Finds the encoding and decodes (docs/formats.md, "Encodings"). Changes `bytes`: 8-bit text takes
/// their place. Text that must be converted takes the place of `memory`, whose content is lost.
DecodedText Decode(std::string &&bytes, std::string &&memory = {});

/// Converts held text to UTF-8 for display: decodes Windows-1252 and replaces lone surrogates by
/// U+FFFD.
std::string ToShownText(std::string held, Encoding encoding);

/// Converts held text to UTF-8 for writing; lone surrogates stay three bytes.
std::string ToWritableText(std::string_view held, Encoding encoding);

/// Returns the bytes that held text was decoded from.
std::string BytesOfHeldText(std::string_view held, Encoding encoding, bool bom,
                            std::string_view oddByte);

/// Returns the bytes of a file for writable text: the byte order mark if asked for, then the text.
/// Text that does not fit the encoding, or whose encoding would be guessed wrongly when it is read
/// again, becomes UTF-16LE with a byte order mark instead.
std::string Encode(std::string_view text, Encoding encoding, bool bom, std::string_view oddByte);

} // namespace stavfile
