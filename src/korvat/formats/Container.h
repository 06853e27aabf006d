// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/formats/ByteReader.h"
#include "korvat/formats/ReadError.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace korvat {

/// The container format that shapes and textures share. See docs/formats.md, "Container and header
/// line".
struct Container
{
    enum class Content
    {
        Text,   ///< structured text, in any encoding
        Binary, ///< token stream of a shape
        Raw     ///< no sub-header: a texture
    };

    Content content = Content::Raw;
    bool compressed = false;
    char kind = 0; ///< letter of the sub-header: 's' for a shape, 'w' for a world file; 0 for none
    /// The bytes after the mark, including the sub-header; for uncompressed text, the whole file.
    /// Points into the file's bytes or into `inflated`.
    Bytes payload;
    /// Offset of `payload` in the file; 0 if it was inflated.
    std::size_t base = 0;
    std::vector<std::string> notes; ///< what was repaired, one sentence each

    std::unique_ptr<std::uint8_t[]> inflated;
};

/// Length of the sub-header at the front of a payload that is Binary or compressed Text.
inline constexpr std::size_t kSubHeaderSize = 16;

/// Opens a file's bytes, which must outlive `out` unless they are compressed. Inflates at most
/// `limit` bytes. Returns NotThisFormat if there is no container mark, Damaged if the compressed
/// part cannot be inflated, TooLarge beyond the limit. A compressed part that is shorter or longer
/// than its size field, or has a wrong checksum, is used and gets a note.
ReadError OpenContainer(std::string_view bytes, std::size_t limit, Container &out);

} // namespace korvat
