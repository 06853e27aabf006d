// SPDX-License-Identifier: MIT
#pragma once

#include "host/GameFiles.h"
#include "stavfile/StfFile.h"

#include <string>
#include <string_view>

/// A document read from memory.
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

/// A tree on one line: `Name:label(value|value Child(...))`, values first. A lone empty value shows
/// like none, since one that was never quoted is not written.
std::string TreeText(const StfNodes &nodes);

/// The tree of a text, and the texts of the notes taken while reading it, one a line.
std::string TreeOf(std::string text);
std::string NotesOf(std::string text);

inline constexpr std::string_view kHeader = "SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\n";
/// The text with the usual header before it.
std::string WithHeader(std::string_view body);
/// ASCII text as UTF-16 with a byte order mark.
std::string Utf16(std::string_view text, bool bigEndian = false);
