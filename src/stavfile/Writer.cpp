// SPDX-License-Identifier: MIT
#include "stavfile/Writer.h"

#include "stavfile/Keywords.h"
#include "stavfile/Lexer.h"

#include <algorithm>

namespace stavfile {
namespace {

bool isBlank(std::string_view text)
{
    return lexer::SkipBlanks(text, 0) == text.size();
}

/// Returns the blanks between the last line break and the end of `text`; nothing if there are other
/// characters or no line break.
std::optional<std::string> indentAtEnd(std::string_view text)
{
    const std::size_t feed = text.find_last_of("\r\n");
    if (feed == text.npos || !isBlank(text.substr(feed + 1)))
        return std::nullopt;
    return std::string(text.substr(feed + 1));
}

/// Appends what follows some comments; a blank keeps a comment's mark or last word from growing.
std::string joined(std::string carried, std::string_view behind)
{
    if (!carried.empty() && !behind.empty() && lexer::SkipBlanks(behind, 0) == 0)
        carried += ' ';
    return carried.append(behind);
}

bool isChildAsRead(const Node &parent, const Node &child)
{
    return child.source && child.source == parent.source && !child.IsRoot();
}

} // namespace

/// Puts the parts of a block into the order in which they are written. Children keep the order of
/// the list, values theirs. A value stays before the child that it preceded, and a new value
/// follows the value before it.
class Writer::Ordering
{
public:
    Ordering(const Node &node, const Layout &layout)
        : m_node(node)
        , m_layout(layout)
        , m_used(layout.parts.size())
    {
        for (std::size_t i = 0; i < layout.parts.size(); ++i)
            if (!layout.parts[i].record)
                m_readValues.push_back(i);
    }

    std::vector<Part> Run()
    {
        const auto &children = m_node.Children();
        const std::size_t none = m_layout.parts.size();
        m_order.reserve(children.size() + m_node.ValueCount());
        std::vector<std::size_t> read(children.size()), nextRead(children.size() + 1, none);
        for (std::size_t i = 0; i < children.size(); ++i)
            read[i] = readPartOf(*children[i]);
        for (std::size_t i = children.size(); i-- > 0;)
            nextRead[i] = read[i] == none ? nextRead[i + 1] : read[i];
        for (std::size_t i = 0; i < children.size(); ++i) {
            takeValuesBefore(nextRead[i]);
            takeChild(*children[i], read[i]);
        }
        takeValuesBefore(none);
        return std::move(m_order);
    }

private:
    /// Returns the index of the part that a child was read from; the number of parts if there is
    /// none.
    std::size_t readPartOf(const Node &child)
    {
        const auto &parts = m_layout.parts;
        if (!isChildAsRead(m_node, child))
            return parts.size();
        const std::size_t begin = child.Read()->begin;
        // Most children still follow the one that they followed when they were read.
        if (m_expected >= parts.size() || parts[m_expected].begin != begin)
            m_expected = static_cast<std::size_t>(
                std::lower_bound(
                    parts.begin(), parts.end(), begin,
                    [](const ReadPart &part, std::size_t place) { return part.begin < place; }) -
                parts.begin());
        if (m_expected == parts.size() || parts[m_expected].record != child.record)
            return parts.size();
        return m_expected++;
    }

    void takeValuesBefore(std::size_t part)
    {
        for (; m_value < m_node.ValueCount(); ++m_value) {
            std::optional<std::size_t> read;
            if (m_value < m_readValues.size())
                read = m_readValues[m_value];
            if (read && *read >= part)
                return;
            m_order.push_back({nullptr, m_value, read});
        }
    }

    void takeChild(const Node &child, std::size_t readPart)
    {
        std::optional<std::size_t> read;
        if (readPart < m_used.size() && !m_used[readPart]) // else the same block again
            read = readPart;
        if (read)
            m_used[*read] = true;
        m_order.push_back({&child, 0, read});
    }

    const Node &m_node;
    const Layout &m_layout;
    std::vector<bool> m_used;
    std::vector<std::size_t> m_readValues; ///< part of each value as read
    std::size_t m_value = 0;               ///< the next value to take
    std::size_t m_expected = 0;            ///< the likely part of the next child
    std::vector<Part> m_order;
};

Writer::Writer(std::shared_ptr<Node> root)
    : m_root(std::move(root))
    , m_lineEnd(m_root->source ? m_root->source->lineEnd : "\r\n")
{
}

std::string Writer::Run()
{
    const Source *source = m_root->source.get();
    if (!source) {
        m_out = kNewHeader + m_lineEnd + m_lineEnd;
        for (const auto &child : m_root->children) {
            writeNode(*child, {true, {}}, true);
            m_out += m_lineEnd;
        }
        return std::move(m_out);
    }
    m_out.reserve(source->text.size() + source->text.size() / 8);
    // The blank lines after the header belong to it, whatever happens to the first block.
    const std::size_t begin = lexer::SkipBlanks(source->text, source->body);
    copy(*source, 0, begin);
    if (begin == source->text.size() && !source->header.empty())
        m_out += m_lineEnd; // a lone header may lack its line end
    writeBody(*m_root, begin, source->text.size(), {true, {}}, false);
    return std::move(m_out);
}

/// Writes a block without the blanks before it. `mustClose` is false if a block that was never
/// closed in its file may stay open, because nothing is written after it.
void Writer::writeNode(const Node &node, const Gap &gap, bool mustClose)
{
    if (!node.Read()) {
        writeNew(node, gap);
        return;
    }
    if (!node.Untouched()) {
        writeRead(node, gap, mustClose);
        return;
    }
    const Record &record = *node.Read();
    copy(*node.source, record.begin, record.end);
    if (!record.Unclosed() || !mustClose)
        return;
    m_out += node.source->tailFix;
    for (std::uint32_t i = node.record; i < record.next; ++i)
        if (node.source->records[i].Unclosed())
            m_out += " )";
}

void Writer::writeRead(const Node &node, const Gap &gap, bool mustClose)
{
    const Record &record = *node.Read();
    const std::size_t nameEnd = record.begin + node.source->Name(record).size();
    if (node.nameIsSet)
        m_out += node.name;
    else
        copy(*node.source, record.begin, nameEnd);
    copy(*node.source, nameEnd, record.open + 1);
    const std::size_t end = record.Unclosed() ? record.end : record.end - 1;
    writeBody(node, record.open + 1, end, gap, mustClose);
    if (!record.Unclosed())
        m_out += ')';
    else if (mustClose)
        m_out += " )";
}

/// Writes `NAME ( values` and then each child on a separate line, or everything on one line if the
/// neighbours are.
void Writer::writeNew(const Node &node, const Gap &gap)
{
    m_out += node.name + " (" + newValues(node);
    const Gap inner{gap.newLine, gap.indent + '\t'};
    for (const auto &child : node.children) {
        writeGap(inner);
        writeNode(*child, inner, true);
    }
    if (node.children.empty())
        m_out += " )";
    else {
        writeGap(gap);
        m_out += ')';
    }
}

std::string Writer::newValues(const Node &node)
{
    const bool nothing = node.values.size() == 1 && node.values.front().text.empty();
    std::string text;
    if (!nothing)
        for (const Value &value : node.values)
            text += ' ' + lexer::Spelling(value.text);
    return text;
}

void Writer::writeBody(const Node &node, std::size_t begin, std::size_t end, const Gap &gap,
                       bool mustClose)
{
    Layout layout = layoutOf(node);
    const std::vector<Part> order = Ordering(node, layout).Run();
    carryComments(*node.source, layout, order, begin);
    const Gap inner = gapOfChildren(node, layout, begin, gap);
    for (std::size_t i = 0; i < order.size(); ++i)
        writePart(node, layout, order, i, begin, inner, mustClose);
    const std::size_t last = layout.parts.empty() ? begin : layout.parts.back().end;
    const bool grew = !order.empty() && order.back().child && !order.back().read && !node.IsRoot();
    std::string tail =
        joined(layout.carriedToEnd, std::string_view(node.source->text).substr(last, end - last));
    const bool same = endsAsRead(node, layout, order);
    if (!same && (order.empty() || !order.back().child))
        tail = lexer::MovableGap(tail);
    if (!same && !tail.empty() && lexer::SkipBlanks(tail, 0) == 0)
        separate();
    if (grew && inner.newLine && isBlank(tail) && tail.find('\n') == tail.npos)
        writeGap(gap); // new lines now precede the bracket, so it gets one too
    else
        m_out += ToWritableText(tail, node.source->encoding);
    if (mustClose && node.Read() && node.Read()->Unclosed())
        writeTail(node);
}

/// Closes a string or comment that the end of the file cut off.
void Writer::writeTail(const Node &node)
{
    const Source &source = *node.source;
    const Layout layout = layoutOf(node);
    const bool inLastPart = !layout.parts.empty() && layout.parts.back().end == source.text.size();
    if (!inLastPart)
        m_out += source.tailFix;
}

void Writer::writePart(const Node &node, const Layout &layout, const std::vector<Part> &order,
                       std::size_t index, std::size_t bodyBegin, const Gap &gap, bool mustClose)
{
    const Part &part = order[index];
    const bool asRead = standsAsRead(node, order, index);
    const bool behindBlock = index > 0 && order[index - 1].child;
    const bool sameBefore =
        asRead && !isSet(node, part) && (index == 0 || !isSet(node, order[index - 1]));
    if (part.read)
        writeReadGap(node, layout, *part.read, bodyBegin, sameBefore, asRead || behindBlock);
    else if (part.child)
        writeGap(gap);
    else
        m_out += ' ';
    if (!sameBefore)
        separate();
    const bool isLast = index + 1 == order.size();
    if (part.child) {
        // After a string, the "+" at the start of such a name would be read as joining the two.
        if (part.child->Read() && part.child->source->Name(*part.child->Read()).starts_with('+') &&
            lastCharacter() == '"')
            m_out += " comment ( ) ";
        const bool parentStaysOpen = node.IsRoot() || (node.Read()->Unclosed() && !mustClose);
        writeNode(*part.child, gap, !isLast || !parentStaysOpen);
        return;
    }
    const bool sameBehind =
        isLast ? endsAsRead(node, layout, order)
               : standsAsRead(node, order, index + 1) && !isSet(node, order[index + 1]);
    writeValue(node, respelled(node, part.value, sameBehind), sameBehind, !isLast || mustClose);
}

/// Returns the last character written that is not a blank.
char Writer::lastCharacter() const
{
    const auto last = std::find_if(m_out.rbegin(), m_out.rend(), [](char c) {
        return lexer::ClassOf(c) != lexer::CharClass::Blank;
    });
    return last != m_out.rend() ? *last : '(';
}

/// Quotes a word whose neighbours would give it another meaning: one that begins with "+" after a
/// string, or a keyword before a block.
Value Writer::respelled(const Node &node, std::size_t index, bool sameBehind) const
{
    Value value = node.ValueAt(index);
    if (!value.FromSource())
        return value;
    const Source &source = *node.source;
    const std::string_view rest = std::string_view(source.text).substr(value.place);
    const bool joins = rest.front() == '+' && lastCharacter() == '"';
    const bool names = !sameBehind && FindKeyword(rest.substr(0, lexer::WordEnd(rest, 0)));
    if (!joins && !names)
        return value;
    const std::string decoded = lexer::DecodedValue(source.text, value.place);
    return {Value::kSet, ToWritableText(decoded, source.encoding)};
}

/// True if a part and the one before it were neighbours in the file too and are written as read.
bool Writer::standsAsRead(const Node &node, const std::vector<Part> &order, std::size_t index)
{
    const Part &part = order[index];
    if (!isAsRead(node, part))
        return false;
    if (index == 0)
        return *part.read == 0;
    return isAsRead(node, order[index - 1]) && *order[index - 1].read + 1 == *part.read;
}

/// True if the part before the closing bracket was there in the file too and is written as read.
bool Writer::endsAsRead(const Node &node, const Layout &layout, const std::vector<Part> &order)
{
    if (order.empty() || layout.parts.empty())
        return order.empty() == layout.parts.empty();
    return isAsRead(node, order.back()) && *order.back().read + 1 == layout.parts.size();
}

bool Writer::isSet(const Node &node, const Part &part)
{
    return !part.child && !node.ValueAt(part.value).FromSource();
}

/// True if the part leaves the meaning of what follows unchanged: it is as read, or set in quotes.
bool Writer::isAsRead(const Node &node, const Part &part)
{
    if (!part.read || part.child)
        return part.read.has_value();
    const Value value = node.ValueAt(part.value);
    return value.FromSource() ||
           (!isUnwritten(node, value) && lexer::Spelling(value.text).front() == '"');
}

/// True for a single empty value that was set, which means no value at all.
bool Writer::isUnwritten(const Node &node, const Value &value)
{
    return !value.FromSource() && value.text.empty() && node.ValueCount() == 1;
}

void Writer::writeValue(const Node &node, const Value &value, bool sameBehind, bool mustClose)
{
    if (!value.FromSource()) {
        const std::string spelling =
            isUnwritten(node, value) ? std::string() : lexer::Spelling(value.text);
        if (spelling.starts_with('"') && lastCharacter() == '+')
            m_out += "comment ( ) "; // a "+" that joined nothing must not join this
        m_out += spelling;
        return;
    }
    const lexer::Extent extent = lexer::ValueExtent(node.source->text, value.place);
    // Drops a stray "+", unless another "+" follows, which would become stray instead.
    const std::string_view text = node.source->text;
    const std::size_t next = lexer::SkipBlanks(text, extent.end);
    const bool keepsPlus = next < text.size() && text[next] == '+';
    const bool whole = sameBehind && (!extent.strayPlus || keepsPlus);
    copy(*node.source, value.place, whole ? extent.end : extent.cleanEnd);
    if (extent.unterminated && mustClose)
        m_out += node.source->tailFix;
}

/// `asBefore` is true if the part before is written as it was in the file, `fits` if what precedes
/// the gap cannot change its meaning: a block cannot, nor can what preceded it in the file.
void Writer::writeReadGap(const Node &node, const Layout &layout, std::size_t part,
                          std::size_t bodyBegin, bool asBefore, bool fits)
{
    const Source &source = *node.source;
    const ReadPart &read = layout.parts[part];
    const std::size_t begin = part == 0 ? bodyBegin : layout.parts[part - 1].end;
    std::string gap =
        joined(read.carried, std::string_view(source.text).substr(begin, read.begin - begin));
    if (!fits)
        gap = lexer::MovableGap(gap);
    if (!asBefore && !gap.empty() && lexer::SkipBlanks(gap, 0) == 0)
        separate();
    m_out += ToWritableText(gap, source.encoding);
}

void Writer::writeGap(const Gap &gap)
{
    m_out += gap.newLine ? m_lineEnd + gap.indent : " ";
}

/// Separates two parts that were not neighbours in the file.
void Writer::separate()
{
    if (!m_out.empty() && lexer::ClassOf(m_out.back()) != lexer::CharClass::Blank &&
        m_out.back() != '(')
        m_out += ' ';
}

void Writer::copy(const Source &source, std::size_t begin, std::size_t end)
{
    const std::string_view held = std::string_view(source.text).substr(begin, end - begin);
    if (source.encoding == Encoding::Windows1252)
        m_out += ToWritableText(held, source.encoding);
    else
        m_out += held;
}

Writer::Layout Writer::layoutOf(const Node &node)
{
    Layout layout;
    const Source &source = *node.source;
    if (const Record *record = node.Read())
        for (std::uint32_t i = 0; i < record->valueCount; ++i) {
            const std::size_t place = source.values[record->firstValue + i];
            layout.parts.push_back({place, lexer::ValueExtent(source.text, place).end, {}, {}});
        }
    for (const std::uint32_t index : node.ChildRecords())
        layout.parts.push_back({source.records[index].begin, source.records[index].end, index, {}});
    std::sort(layout.parts.begin(), layout.parts.end(),
              [](const ReadPart &a, const ReadPart &b) { return a.begin < b.begin; });
    return layout;
}

/// Keeps the comments before a removed part: they move to the next part that remains.
void Writer::carryComments(const Source &source, Layout &layout, const std::vector<Part> &order,
                           std::size_t bodyBegin)
{
    std::vector<bool> kept(layout.parts.size());
    for (const Part &part : order)
        if (part.read)
            kept[*part.read] = true;
    std::string carried;
    std::size_t gapBegin = bodyBegin;
    for (std::size_t i = 0; i < layout.parts.size(); ++i) {
        ReadPart &part = layout.parts[i];
        const std::string_view gap =
            std::string_view(source.text).substr(gapBegin, part.begin - gapBegin);
        gapBegin = part.end;
        if (kept[i])
            part.carried = std::exchange(carried, {});
        else if (!isBlank(gap))
            carried =
                joined(std::move(carried), gap.substr(0, gap.find_last_not_of(" \t\r\n") + 1));
    }
    layout.carriedToEnd = std::move(carried);
}

/// Lays new children out like the last child that was read, else one step deeper than the block
/// itself.
Writer::Gap Writer::gapOfChildren(const Node &node, const Layout &layout, std::size_t bodyBegin,
                                  const Gap &own)
{
    const std::string_view text = node.source->text;
    for (std::size_t i = layout.parts.size(); i-- > 0;) {
        const ReadPart &part = layout.parts[i];
        if (!part.record)
            continue;
        const std::size_t before = i == 0 ? bodyBegin : layout.parts[i - 1].end;
        if (i == 0 && node.IsRoot())
            return {true, {}};
        const auto indent = indentAtEnd(text.substr(before, part.begin - before));
        return {indent.has_value(), indent.value_or("")};
    }
    if (node.IsRoot())
        return {true, {}};
    const auto indent = indentAtEnd(text.substr(0, node.Read()->begin));
    return {own.newLine, indent.value_or(own.indent) + '\t'};
}

} // namespace stavfile
