// SPDX-License-Identifier: MIT
#pragma once

#include "host/GameFiles.h"
#include "stavfile/StfFile.h"

#include <string>
#include <string_view>

/// A structured file read from memory.
class MemoryFile
{
public:
    explicit MemoryFile(std::string bytes)
        : file(m_files)
    {
        file.LoadBytes(std::move(bytes));
    }

private:
    host::GameFiles m_files;

public:
    StfFile file;
};

/// Returns a tree on one line: `Name:label(value|value Child(...))`, values first. A single empty
/// value is shown like no value, because the writer omits one that was never quoted.
std::string TreeText(const StfNodes &nodes);

/// Return the tree of a text, and the reader's notes about it, one per line.
std::string TreeOf(std::string text);
std::string NotesOf(std::string text);

inline constexpr std::string_view kHeader = "SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\n";
/// Returns the text with the usual header before it.
std::string WithHeader(std::string_view body);
/// Returns ASCII text as UTF-16 with a byte order mark.
std::string Utf16(std::string_view text, bool bigEndian = false);
