// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace stavfile {

enum class Encoding
{
    Utf16Le,
    Utf16Be,
    Utf8,
    Windows1252
};
/// "utf-16le", "utf-16be", "utf-8" or "windows-1252".
const char *EncodingName(Encoding encoding);

/// The form of a file. All but Text give an empty tree.
enum class Form
{
    Text,
    Binary,
    Compressed,
    NulsOnly
};

/// A repair by the reader, or a fault on which other readers may fail.
struct Note
{
    int line = 0; ///< 1-based
    std::string text;
};

/// Blocks nested deeper than this are skipped with a note. No real file comes near this limit,
/// which bounds every walk over a tree.
inline constexpr int kMaxBlockDepth = 200;

} // namespace stavfile
