// SPDX-License-Identifier: MIT
#pragma once

#include "stavfile/Format.h"
#include "stavfile/PagedArray.h"
#include "stavfile/TextCodec.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace stavfile {

/// One block as it was read. Records are in the order of their beginnings, so that the first child
/// of a record is the next one, and `next` leads to the following sibling. All positions are byte
/// offsets into the source's text.
struct Record
{
    static constexpr std::uint32_t kUnclosed = 1;

    std::uint32_t begin = 0;      ///< of the name
    std::uint32_t open = 0;       ///< of the opening bracket
    std::uint32_t end = 0;        ///< one past the closing bracket; the text's size if unclosed
    std::uint32_t label = 0;      ///< of the label, 0 for none
    std::uint32_t firstValue = 0; ///< index into the source's values
    std::uint32_t valueCount = 0;
    std::uint32_t next = 0; ///< index of the first record after this one's descendants
    std::uint32_t flags = 0;

    bool Unclosed() const { return flags & kUnclosed; }
};

/// A file as it was read: its text and the positions of everything in it. Never changes after
/// parsing; nodes point into it and keep it alive.
struct Source
{
    std::string fileName; ///< named in errors; "" when unknown
    std::string text;     ///< held form (TextCodec.h); the raw bytes when `form` is not Text
    Encoding encoding = Encoding::Utf16Le;
    bool bom = true;
    std::string oddByte;
    Form form = Form::Text;
    std::string header;   ///< in UTF-8, without line end and trailing blanks
    std::size_t body = 0; ///< beginning of the tree, after the header
    std::string lineEnd = "\r\n";
    std::string tailFix; ///< closes a string or a skipped block that the end of the text cut off
    PagedArray<Record> records;
    PagedArray<std::uint32_t> values; ///< positions of values; those of one record are contiguous
    std::vector<Note> notes;

    std::string_view Name(const Record &record) const;
    std::string_view Label(const Record &record) const;
    int LineOf(std::size_t place) const;
};

/// Decodes and parses a file. Never fails: `form` reports what cannot be read as text.
std::shared_ptr<const Source> ReadSource(std::string bytes, std::string fileName = {});
/// Does the same for a reader that goes through many files and keeps none: replaces the content of
/// a source, and uses the memory that it has already. `bytes` is unspecified afterwards.
void ReadSource(Source &source, std::string &&bytes);

/// True if 8-bit content without a header looks binary: near its start, a NUL is followed by other
/// characters. Text followed only by NULs is padded text.
bool LooksBinary(std::string_view text);

} // namespace stavfile
