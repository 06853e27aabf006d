// SPDX-License-Identifier: MIT
#include "stavfile/Node.h"

#include <algorithm>

namespace stavfile {

std::shared_ptr<Node> Node::Created()
{
    auto node = std::make_shared<Node>();
    node->nameIsSet = node->ownsValues = node->childrenLoaded = true;
    return node;
}

std::shared_ptr<Node> Node::RootOf(std::shared_ptr<const Source> source)
{
    auto node = std::make_shared<Node>();
    node->source = std::move(source);
    return node;
}

const Record *Node::Read() const
{
    return source && !IsRoot() ? &source->records[record] : nullptr;
}

std::size_t Node::ValueCount() const
{
    if (ownsValues)
        return values.size();
    return Read() ? Read()->valueCount : 0;
}

Value Node::ValueAt(std::size_t index) const
{
    if (ownsValues)
        return values[index];
    return {source->values[Read()->firstValue + index], {}};
}

std::vector<Value> &Node::OwnValues()
{
    if (!ownsValues) {
        const std::size_t count = ValueCount();
        for (std::size_t i = 0; i < count; ++i)
            values.push_back(ValueAt(i));
        ownsValues = true;
    }
    return values;
}

std::vector<std::shared_ptr<Node>> &Node::Children() const
{
    if (!childrenLoaded) {
        const std::vector<std::uint32_t> records = ChildRecords();
        const auto made = std::make_shared<Node[]>(records.size()); // a single allocation
        children.reserve(records.size());
        for (std::size_t i = 0; i < records.size(); ++i) {
            made[i].source = source;
            made[i].record = records[i];
            children.emplace_back(made, &made[i]);
        }
        childrenLoaded = true;
    }
    return children;
}

std::vector<std::uint32_t> Node::ChildRecords() const
{
    std::vector<std::uint32_t> found;
    if (!source)
        return found;
    const std::size_t end = IsRoot() ? source->records.Size() : Read()->next;
    for (std::size_t i = IsRoot() ? 0 : record + 1; i < end; i = source->records[i].next)
        found.push_back(static_cast<std::uint32_t>(i));
    return found;
}

bool Node::Untouched() const
{
    if (!source || nameIsSet)
        return false;
    if (ownsValues) {
        const std::size_t read = Read() ? Read()->valueCount : 0;
        if (values.size() != read)
            return false;
        for (std::size_t i = 0; i < read; ++i)
            if (values[i].place != source->values[Read()->firstValue + i])
                return false;
    }
    if (!childrenLoaded)
        return true;
    const std::vector<std::uint32_t> read = ChildRecords();
    return std::equal(children.begin(), children.end(), read.begin(), read.end(),
                      [this](const std::shared_ptr<Node> &child, std::uint32_t index) {
                          return child->source == source && child->record == index &&
                                 child->Untouched();
                      });
}

bool Node::Holds(const Node &other) const
{
    return this == &other ||
           std::any_of(children.begin(), children.end(),
                       [&](const std::shared_ptr<Node> &child) { return child->Holds(other); });
}

} // namespace stavfile
