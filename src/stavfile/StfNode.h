// SPDX-License-Identifier: MIT
#pragma once

#include "host/RuntimeError.h"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class StfNodes;

namespace stavfile {
struct Node;
class Writer;
} // namespace stavfile

/// A handle on one block of a structured file: NAME [LABEL] ( values and child blocks ).
///
/// Cheap to copy; copies refer to the same block, and two handles on the same block are equal. A
/// handle keeps its block alive, even after its StfFile is gone. An empty handle is "no object": it
/// converts to false, and every use of it is run-time error 91. Values are UTF-8 text without the
/// enclosing quotes and with the escapes decoded; unchanged ones are written back with the bytes
/// that they were read from. Not thread-safe, not even for reading.
class StfNode
{
public:
    /// No object.
    StfNode() = default;
    /// Returns a new block that has no name, values or children and is not in any list.
    static StfNode Create();

    explicit operator bool() const { return m_node != nullptr; }
    friend bool operator==(const StfNode &, const StfNode &) = default;

    std::string Name() const;
    void SetName(std::string_view name);
    /// Returns the value between name and bracket ("MAIN" in `matrix MAIN ( ... )`); "" if there is
    /// none.
    std::string Label() const;

    /// Returns the live list of child blocks, in file order, 1-based.
    StfNodes Children() const;
    /// Returns the first direct child of exactly this name, or no object.
    StfNode Child(std::string_view name) const;
    /// Like Child, but throws error 91 if there is none: "FILE, line 7: Train has no block
    /// TrainCfg", as far as file and line are known. The file is the one that the block was read
    /// from.
    StfNode Require(std::string_view name) const;
    /// Looks through the children after `position` (0 at the start) for one whose name is exactly
    /// one of the alternatives, which are separated by "|". If it returns true, `position` is that
    /// child's 1-based position in Children; otherwise it is unchanged. Throws error 6, with file
    /// and line as in Require, if the position is beyond 16 bits.
    bool FindChild(std::string_view names, std::int16_t &position) const;

    /// Returns the number of plain values. It is an int, since large files exceed 16 bits.
    int NumParameters() const;
    /// Resizes the list of values; new ones are empty and unquoted. Throws error 5 below 0.
    void SetNumParameters(int count);
    /// Returns the value at a 0-based index; throws error 9 outside the list.
    std::string Parameter(int index) const;
    /// Returns a value as spelled in the file, with its quotes, escapes and joins; "" for a value
    /// that was set. Throws error 9 outside the list.
    std::string RawParameter(int index) const;
    /// Replaces the value at a 0-based index; throws error 9 outside the list. Text in double
    /// quotes is written unchanged (and read back without them); other text is quoted if necessary.
    /// Setting the text that a value already has, with or without quotes around it, keeps the
    /// value's spelling.
    void SetParameter(int index, std::string_view value);

    /// Returns the 1-based line of the block's name in its file; 0 for a new block.
    int Line() const;

private:
    friend class StfNodes;
    friend class StfFile;
    friend class stavfile::Writer;
    explicit StfNode(std::shared_ptr<stavfile::Node> node)
        : m_node(std::move(node))
    {
    }
    stavfile::Node &node() const;

    std::shared_ptr<stavfile::Node> m_node;
};

namespace stavfile {
/// Returns a text in double quotes with its escapes, which SetParameter writes unchanged.
std::string QuotedValue(std::string_view text);
/// Returns the value of a block at a 0-based index; "" if the block or the value is absent.
std::string ValueAt(const StfNode &node, int index = 0);
/// Returns all values of a block, joined by single blanks; "" if the block is absent.
std::string JoinedValues(const StfNode &node);
/// Like StfNode::Child, but also returns no object if the parent is absent.
StfNode ChildOf(const StfNode &parent, std::string_view name);
} // namespace stavfile

/// A live, ordered, 1-based list of blocks: the children of a block or the top level of a file.
/// Changing the list changes the document. Positions outside the list cause error 9.
class StfNodes
{
public:
    /// A position in the list, for `for (const StfNode block : node.Children())`.
    ///
    /// Stays valid when the list changes: it then refers to the block now at its position, and the
    /// loop ends after the block that is then the last. So a loop that removes its current block
    /// skips the next one. Must not outlive its StfNodes and must not be dereferenced at the end.
    /// Does not copy the list.
    class Iterator
    {
    public:
        using value_type = StfNode;
        using difference_type = std::ptrdiff_t;

        StfNode operator*() const { return StfNode((*m_blocks)[m_index]); }
        Iterator &operator++()
        {
            ++m_index;
            return *this;
        }
        void operator++(int) { ++m_index; }
        friend bool operator==(const Iterator &at, std::default_sentinel_t)
        {
            return at.m_index >= at.m_blocks->size();
        }

    private:
        friend class StfNodes;
        explicit Iterator(const std::vector<std::shared_ptr<stavfile::Node>> &blocks)
            : m_blocks(&blocks)
        {
        }

        const std::vector<std::shared_ptr<stavfile::Node>> *m_blocks;
        std::size_t m_index = 0;
    };
    Iterator begin() const;
    std::default_sentinel_t end() const { return std::default_sentinel; }

    int Count() const;
    StfNode Item(int place) const;
    /// Returns the first block, or no object if the list is empty.
    StfNode First() const;
    /// Appends a block. Throws error 5 if the block holds this list itself (directly or deeper),
    /// error 91 for no object.
    void Add(const StfNode &node);
    /// Inserts a block so that it is at `place`, 1 to Count() + 1.
    void Insert(const StfNode &node, int place);
    void Remove(int place);

private:
    friend class StfNode;
    friend class StfFile;
    explicit StfNodes(std::shared_ptr<stavfile::Node> owner)
        : m_owner(std::move(owner))
    {
    }

    std::shared_ptr<stavfile::Node> m_owner;
};
