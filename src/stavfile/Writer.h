// SPDX-License-Identifier: MIT
#pragma once

#include "stavfile/Node.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace stavfile {

/// Writes a tree as text. Copies untouched parts from their source, with the comments and blanks
/// around them. Formats only changed parts, laid out like their neighbours.
class Writer
{
public:
    /// The header line of a new file.
    static constexpr const char *kNewHeader = "SIMISA@@@@@@@@@@JINX0D0t______";

    explicit Writer(std::shared_ptr<Node> root);

    /// Returns the whole file in writable form (TextCodec.h), without byte order mark.
    std::string Run();

private:
    /// A value or child in the order in which it is written. `read` is its index among its parent's
    /// parts as read, if it was one of them.
    struct Part
    {
        const Node *child = nullptr;
        std::size_t value = 0; ///< index of the value if there is no child
        std::optional<std::size_t> read;
    };
    /// The extent of a value or child as read.
    struct ReadPart
    {
        std::size_t begin = 0, end = 0;
        std::optional<std::uint32_t> record; ///< if it is a child
        std::string carried; ///< comments of removed parts, written before this part's gap
    };
    struct Layout
    {
        std::vector<ReadPart> parts;
        std::string carriedToEnd;
    };
    /// The blanks before a new block: a line break and indentation, or a single blank.
    struct Gap
    {
        bool newLine = false;
        std::string indent;
    };

    class Ordering;

    void writeNode(const Node &node, const Gap &gap, bool mustClose);
    void writeRead(const Node &node, const Gap &gap, bool mustClose);
    void writeNew(const Node &node, const Gap &gap);
    void writeBody(const Node &node, std::size_t begin, std::size_t end, const Gap &gap,
                   bool mustClose);
    void writePart(const Node &node, const Layout &layout, const std::vector<Part> &order,
                   std::size_t index, std::size_t bodyBegin, const Gap &gap, bool mustClose);
    void writeValue(const Node &node, const Value &value, bool sameBehind, bool mustClose);
    void writeReadGap(const Node &node, const Layout &layout, std::size_t part,
                      std::size_t bodyBegin, bool asBefore, bool fits);
    void writeGap(const Gap &gap);
    void writeTail(const Node &node);
    void separate();
    void copy(const Source &source, std::size_t begin, std::size_t end);

    static Layout layoutOf(const Node &node);
    static bool standsAsRead(const Node &node, const std::vector<Part> &order, std::size_t index);
    static bool endsAsRead(const Node &node, const Layout &layout, const std::vector<Part> &order);
    char lastCharacter() const;
    Value respelled(const Node &node, std::size_t index, bool sameBehind) const;
    static bool isSet(const Node &node, const Part &part);
    static bool isUnwritten(const Node &node, const Value &value);
    static bool isAsRead(const Node &node, const Part &part);
    static void carryComments(const Source &source, Layout &layout, const std::vector<Part> &order,
                              std::size_t bodyBegin);
    static Gap gapOfChildren(const Node &node, const Layout &layout, std::size_t bodyBegin,
                             const Gap &own);
    static std::string newValues(const Node &node);

    std::shared_ptr<Node> m_root;
    std::string m_lineEnd;
    std::string m_out;
};

} // namespace stavfile
