// SPDX-License-Identifier: MIT
#pragma once

#include "stavfile/Source.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace stavfile {

/// One value of a node: either where it stands in the node's source, or a text that was set.
struct Value
{
    static constexpr std::uint32_t kSet = UINT32_MAX;

    std::uint32_t place = kSet; ///< in the source's text
    std::string text;           ///< when set

    bool FromSource() const { return place != kSet; }
};

/// A block behind its handles. A node that was read is a view of its source until it is changed;
/// its children become nodes when somebody first asks for them.
struct Node
{
    static constexpr std::uint32_t kRoot = UINT32_MAX; ///< as record: the top level of the source

    std::shared_ptr<const Source> source; ///< null for a node that was created
    std::uint32_t record = kRoot;
    std::string name; ///< when set
    bool nameIsSet = false;
    std::vector<Value> values; ///< when owned
    bool ownsValues = false;
    mutable std::vector<std::shared_ptr<Node>> children; ///< when loaded
    mutable bool childrenLoaded = false;

    /// A node without source.
    static std::shared_ptr<Node> Created();
    /// The top level of a source.
    static std::shared_ptr<Node> RootOf(std::shared_ptr<const Source> source);

    bool IsRoot() const { return record == kRoot; }
    /// The record of a node that was read and is no root.
    const Record *Read() const;

    std::size_t ValueCount() const;
    Value ValueAt(std::size_t index) const;
    /// Makes the values the node's own, ready to change.
    std::vector<Value> &OwnValues();
    /// The children, loaded.
    std::vector<std::shared_ptr<Node>> &Children() const;
    /// Indexes of the records of the children as read.
    std::vector<std::uint32_t> ChildRecords() const;

    /// True when writing the node gives the bytes that it was read from.
    bool Untouched() const;
    /// True when `other` is this node or stands somewhere below it.
    bool Holds(const Node &other) const;
};

} // namespace stavfile
