// SPDX-License-Identifier: MIT
#pragma once

#include "stavfile/Source.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace stavfile {

/// One value of a node: a position in the node's source, or a text that was set.
struct Value
{
    static constexpr std::uint32_t kSet = UINT32_MAX;

    std::uint32_t place = kSet; ///< in the source's text
    std::string text;           ///< if set

    bool FromSource() const { return place != kSet; }
};

/// A block, which StfNode handles refer to. A node that was read is a view of its source until it
/// is changed; its children become nodes on first access.
struct Node
{
    static constexpr std::uint32_t kRoot = UINT32_MAX; ///< as record: the source's top level

    std::shared_ptr<const Source> source; ///< null for a node that was created
    std::uint32_t record = kRoot;
    std::string name; ///< if set
    bool nameIsSet = false;
    std::vector<Value> values; ///< if owned
    bool ownsValues = false;
    mutable std::vector<std::shared_ptr<Node>> children; ///< if loaded
    mutable bool childrenLoaded = false;

    /// Returns a new node without source.
    static std::shared_ptr<Node> Created();
    /// Returns the top level of a source.
    static std::shared_ptr<Node> RootOf(std::shared_ptr<const Source> source);

    bool IsRoot() const { return record == kRoot; }
    /// Returns the record of a node that was read and is not a root.
    const Record *Read() const;

    std::size_t ValueCount() const;
    Value ValueAt(std::size_t index) const;
    /// Copies the values into the node, ready to change.
    std::vector<Value> &OwnValues();
    /// Returns the children, after loading them if necessary.
    std::vector<std::shared_ptr<Node>> &Children() const;
    /// Returns the indexes of the children's records as read.
    std::vector<std::uint32_t> ChildRecords() const;

    /// True if writing the node gives the bytes that it was read from.
    bool Untouched() const;
    /// True if `other` is this node or below it.
    bool Holds(const Node &other) const;
};

} // namespace stavfile
