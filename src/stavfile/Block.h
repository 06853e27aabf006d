// SPDX-License-Identifier: MIT
#pragma once

#include "stavfile/Source.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace stavfile {

/// A block of a file, for readers that go through many files once: there is no tree, and a value
/// becomes a string only when it is asked for. Names compare with letter case ignored, except in
/// the functions that say otherwise. Cheap to copy. The source must outlive it. Thread-safe.
class Block
{
public:
    Block(const stavfile::Source &source, std::uint32_t record)
        : m_source(&source)
        , m_record(record)
    {
    }

    const stavfile::Source &Source() const { return *m_source; }
    std::uint32_t Record() const { return m_record; }
    /// Returns the name in the spelling of the source.
    std::string_view Name() const { return m_source->Name(record()); }
    bool Is(std::string_view name) const;

    std::size_t ValueCount() const { return record().valueCount; }
    /// Returns a value in UTF-8 without quotes and escapes; "" if there is no such value.
    std::string Value(std::size_t index = 0) const;
    /// Like Value, but treats backslashes literally, for paths whose author did not double
    /// them.
    std::string LiteralValue(std::size_t index = 0) const;
    /// Returns the offset of the name in the source's text.
    std::size_t Where() const { return record().begin; }

    /// The blocks directly below, for `for (Block child : block.Children())`.
    class Range;
    Range Children() const;
    /// Finds the first child of this name. Returns false, and leaves `found` unchanged, if there is
    /// none.
    bool Find(std::string_view name, Block &found) const;
    /// Returns the first child of exactly this name, which is ASCII, like StfNode::Child.
    std::optional<Block> Child(std::string_view name) const;

    static bool SameName(std::string_view a, std::string_view b);

private:
    friend class Range;
    const stavfile::Record &record() const { return m_source->records[m_record]; }

    const stavfile::Source *m_source;
    std::uint32_t m_record;
};

class Block::Range
{
public:
    class Iterator
    {
    public:
        Iterator(const stavfile::Source *source, std::uint32_t record)
            : m_source(source)
            , m_record(record)
        {
        }
        Block operator*() const { return {*m_source, m_record}; }
        Iterator &operator++()
        {
            m_record = m_source->records[m_record].next;
            return *this;
        }
        bool operator!=(const Iterator &other) const { return m_record != other.m_record; }

    private:
        const stavfile::Source *m_source;
        std::uint32_t m_record;
    };

    Range(const stavfile::Source &source, std::uint32_t first, std::uint32_t end)
        : m_source(&source)
        , m_first(first)
        , m_end(end)
    {
    }
    Iterator begin() const { return {m_source, m_first}; }
    Iterator end() const { return {m_source, m_end}; }

private:
    const stavfile::Source *m_source;
    std::uint32_t m_first, m_end;
};

/// Returns the top-level blocks of a file.
Block::Range TopBlocks(const stavfile::Source &source);

} // namespace stavfile
