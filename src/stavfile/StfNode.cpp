// SPDX-License-Identifier: MIT
#include "stavfile/StfNode.h"

#include "stavfile/Lexer.h"
#include "stavfile/Node.h"

#include <algorithm>
#include <limits>
#include <utility>

using host::ErrorNumber;
using host::RuntimeError;
using stavfile::Node;
using stavfile::Value;

namespace {

std::string shown(const Node &node, std::string held)
{
    return stavfile::ToShownText(std::move(held), node.source->encoding);
}

std::string decoded(const Node &node, const Value &value)
{
    if (value.FromSource())
        return shown(node, stavfile::lexer::DecodedValue(node.source->text, value.place));
    return stavfile::lexer::Unspelled(value.text);
}

std::size_t checkedIndex(const Node &node, int index)
{
    const std::size_t count = node.ValueCount();
    if (index < 0 || static_cast<std::size_t>(index) >= count)
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange, "value " + std::to_string(index + 1) +
                                                                 " is needed, but there are " +
                                                                 std::to_string(count));
    return static_cast<std::size_t>(index);
}

std::size_t checkedPlace(int place, std::size_t last)
{
    if (place < 1 || static_cast<std::size_t>(place) > last)
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange,
                           "place " + std::to_string(place) + " of " + std::to_string(last));
    return static_cast<std::size_t>(place - 1);
}

std::string nameOf(const Node &node)
{
    return node.nameIsSet || !node.Read()
               ? node.name
               : shown(node, std::string(node.source->Name(*node.Read())));
}

/// Returns "FILE, line 7: ", leaving out the parts that are not known.
std::string placeOf(const Node &node)
{
    std::string place = node.source ? node.source->fileName : std::string();
    if (const stavfile::Record *record = node.Read())
        place += (place.empty() ? "line " : ", line ") +
                 std::to_string(node.source->LineOf(record->begin));
    return place.empty() ? place : place + ": ";
}

/// Compares without creating a string if the name was read and needs no conversion.
bool hasName(const Node &node, std::string_view name)
{
    if (node.nameIsSet || node.source->encoding == stavfile::Encoding::Windows1252)
        return nameOf(node) == name;
    const stavfile::Record &record = *node.Read();
    const std::string_view text = node.source->text;
    return text.substr(record.begin).starts_with(name) && node.source->Name(record) == name;
}

/// True if the node's name is one of `names`, which are separated by "|".
bool isAnyOf(const Node &node, std::string_view names)
{
    for (;;) {
        const std::size_t bar = names.find('|');
        if (hasName(node, names.substr(0, bar)))
            return true;
        if (bar == names.npos)
            return false;
        names.remove_prefix(bar + 1);
    }
}

} // namespace

std::string stavfile::QuotedValue(std::string_view text)
{
    return '"' + lexer::Escaped(text) + '"';
}

std::string stavfile::ValueAt(const StfNode &node, int index)
{
    return node && index < node.NumParameters() ? node.Parameter(index) : std::string();
}

std::string stavfile::JoinedValues(const StfNode &node)
{
    std::string values;
    for (int i = 0; node && i < node.NumParameters(); ++i)
        values += (i == 0 ? "" : " ") + node.Parameter(i);
    return values;
}

StfNode stavfile::ChildOf(const StfNode &parent, std::string_view name)
{
    return parent ? parent.Child(name) : StfNode();
}

StfNode StfNode::Create()
{
    return StfNode(Node::Created());
}

Node &StfNode::node() const
{
    if (!m_node)
        throw RuntimeError(ErrorNumber::ObjectNotSet);
    return *m_node;
}

std::string StfNode::Name() const
{
    return nameOf(node());
}

void StfNode::SetName(std::string_view name)
{
    if (nameOf(node()) == name)
        return;
    node().name = name;
    node().nameIsSet = true;
}

std::string StfNode::Label() const
{
    const stavfile::Record *record = node().Read();
    if (!record || !record->label)
        return {};
    return shown(node(), stavfile::lexer::DecodedValue(node().source->text, record->label));
}

StfNodes StfNode::Children() const
{
    node().Children();
    return StfNodes(m_node);
}

StfNode StfNode::Child(std::string_view name) const
{
    for (const auto &child : node().Children())
        if (hasName(*child, name))
            return StfNode(child);
    return {};
}

StfNode StfNode::Require(std::string_view name) const
{
    StfNode child = Child(name);
    if (!child)
        throw RuntimeError(ErrorNumber::ObjectNotSet,
                           (placeOf(node()) + Name() + " has no block ").append(name));
    return child;
}

bool StfNode::FindChild(std::string_view names, std::int16_t &position) const
{
    const auto &children = node().Children();
    for (std::size_t i = position < 0 ? 0 : static_cast<std::size_t>(position); i < children.size();
         ++i) {
        if (!isAnyOf(*children[i], names))
            continue;
        if (i >= std::numeric_limits<std::int16_t>::max())
            throw RuntimeError(ErrorNumber::Overflow,
                               placeOf(node()) + Name() + " has more than 32767 entries");
        position = static_cast<std::int16_t>(i + 1);
        return true;
    }
    return false;
}

int StfNode::NumParameters() const
{
    return static_cast<int>(node().ValueCount());
}

void StfNode::SetNumParameters(int count)
{
    if (count < 0)
        throw RuntimeError(ErrorNumber::InvalidCall, std::to_string(count) + " values");
    if (static_cast<std::size_t>(count) != node().ValueCount())
        node().OwnValues().resize(static_cast<std::size_t>(count));
}

std::string StfNode::Parameter(int index) const
{
    return decoded(node(), node().ValueAt(checkedIndex(node(), index)));
}

std::string StfNode::RawParameter(int index) const
{
    const Value value = node().ValueAt(checkedIndex(node(), index));
    if (!value.FromSource())
        return {};
    const std::string_view text = node().source->text;
    const std::size_t end = stavfile::lexer::ValueExtent(text, value.place).cleanEnd;
    return shown(node(), std::string(text.substr(value.place, end - value.place)));
}

void StfNode::SetParameter(int index, std::string_view value)
{
    const std::size_t at = checkedIndex(node(), index);
    const Value old = node().ValueAt(at);
    const std::string text = stavfile::lexer::Unspelled(value);
    if (old.FromSource() && decoded(node(), old) == text)
        return;
    // A value that gets back the text that it has in the file also gets back its spelling there.
    const stavfile::Record *record = node().Read();
    if (record && at < record->valueCount)
        if (const Value read{node().source->values[record->firstValue + at], {}};
            decoded(node(), read) == text) {
            node().OwnValues()[at] = read;
            return;
        }
    node().OwnValues()[at] = {Value::kSet, std::string(value)};
}

int StfNode::Line() const
{
    const stavfile::Record *record = node().Read();
    return record ? node().source->LineOf(record->begin) : 0;
}

StfNodes::Iterator StfNodes::begin() const
{
    return Iterator(m_owner->Children());
}

int StfNodes::Count() const
{
    return static_cast<int>(m_owner->Children().size());
}

StfNode StfNodes::Item(int place) const
{
    const auto &children = m_owner->Children();
    return StfNode(children[checkedPlace(place, children.size())]);
}

StfNode StfNodes::First() const
{
    const auto &children = m_owner->Children();
    return children.empty() ? StfNode() : StfNode(children.front());
}

void StfNodes::Add(const StfNode &node)
{
    Insert(node, Count() + 1);
}

void StfNodes::Insert(const StfNode &node, int place)
{
    if (node.node().Holds(*m_owner))
        throw RuntimeError(ErrorNumber::InvalidCall, "a block cannot be put into itself");
    auto &children = m_owner->Children();
    const std::size_t at = checkedPlace(place, children.size() + 1);
    children.insert(children.begin() + static_cast<std::ptrdiff_t>(at), node.m_node);
}

void StfNodes::Remove(int place)
{
    auto &children = m_owner->Children();
    const std::size_t at = checkedPlace(place, children.size());
    children.erase(children.begin() + static_cast<std::ptrdiff_t>(at));
}
