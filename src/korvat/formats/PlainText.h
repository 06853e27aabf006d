// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/formats/ShapeTokens.h"
#include "stavfile/Format.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvat {

/// The text of a shape as exporters write it, read from front to back without a tree. It gives up
/// at everything that needs the rules of structured files or a message: comments, joined strings,
/// values in unexpected places, unclosed blocks. The text must then be read by TextBlock.
class PlainText
{
public:
    /// `text` is in held form (stavfile/TextCodec.h) and must outlive this object.
    PlainText(std::string_view text, stavfile::Encoding encoding);

    /// True if the text has been given up. Everything that was read from it is then invalid.
    bool IsUnusual() const { return m_unusual; }
    /// True if everything was read and nothing follows.
    bool IsComplete() const { return !m_unusual && m_depth == 0 && m_at == m_text.size(); }

private:
    friend class PlainBlock;

    void giveUp() { m_unusual = true; }
    void skipBlanks();
    char next() const { return m_at < m_text.size() ? m_text[m_at] : '\0'; }
    void leaveTo(int depth);
    std::string_view takeWord();
    bool leaveNumber(std::size_t length);
    std::string takeString();

    std::string_view m_text;
    stavfile::Encoding m_encoding;
    std::size_t m_at = 0; ///< never at a blank
    int m_depth = 0;      ///< number of open blocks
    bool m_unusual = false;
};

/// A block of a PlainText, with the members of BinaryBlock. Reading a block moves the text; what a
/// block's reader leaves out is skipped. Once the text is given up, every block is at its end and
/// every number is 0.
class PlainBlock
{
public:
    /// The top level of a text.
    explicit PlainBlock(PlainText &text)
        : m_text(&text)
    {
    }

    bool Is(Token token) const;
    std::string Label() const;
    std::optional<PlainBlock> Next();

    std::uint32_t U32();
    std::uint32_t Hex();
    std::int32_t I32() { return static_cast<std::int32_t>(U32()); }
    float F32();
    std::string Text();
    bool HasMore();
    /// Reads the count in front of a list of blocks. Returns at most as many as the rest of the
    /// text has room for. The text is given up if there are far fewer.
    std::size_t Count(std::size_t size);
    /// Reads the count in front of a list of numbers. Returns 1 if a number follows, else 0.
    std::size_t NumberCount()
    {
        U32();
        return HasMore() ? 1 : 0;
    }
    template <typename Number> void Numbers(std::vector<Number> &out)
    {
        U32();
        while (HasMore())
            out.push_back(static_cast<Number>(U32()));
    }

private:
    PlainBlock(PlainText &text, std::string_view name, std::string_view label)
        : m_text(&text)
        , m_name(name)
        , m_label(label)
        , m_depth(text.m_depth)
    {
    }
    bool isOpen();
    std::string_view number();
    template <typename Number> Number take(bool (*read)(std::string_view word, Number &value));
    std::optional<PlainBlock> child();
    std::optional<PlainBlock> end();

    PlainText *m_text;
    std::string_view m_name, m_label;
    int m_depth = 0;
    std::size_t m_promised = 0, m_children = 0;
    bool m_skippedValue = false, m_hasText = false;
};

} // namespace korvat
