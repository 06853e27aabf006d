// SPDX-License-Identifier: MIT
#include "content/WorldFile.h"

#include "host/Path.h"
#include "host/Text.h"
#include "korvat/formats/BinaryBlock.h"
#include "korvat/formats/Container.h"
#include "korvat/formats/Limits.h"

#include <unordered_set>

namespace content {
namespace {

using korvat::ByteReader;
using korvat::Bytes;

/// Collects the names of shapes, each once.
class ShapeNames
{
public:
    /// Adds a name unless it is known or not a shape. `line` is called only for a new name.
    template <typename Line> void Add(const std::string &name, const Line &line)
    {
        if (!host::path::HasExtension(name, "s") || name.size() > kMaxNameLength ||
            !m_seen.insert(host::ToUpper(name)).second)
            return;
        Reference reference;
        reference.kind = Kind::RouteShape;
        reference.wants = name;
        reference.name.file = name;
        reference.line = line();
        m_found.push_back(std::move(reference));
    }
    std::vector<Reference> &Found() { return m_found; }

private:
    std::unordered_set<std::string> m_seen; ///< in upper case
    std::vector<Reference> m_found;
};

void readText(const stavfile::Source &source, ShapeNames &names)
{
    LineCounter lines(source);
    const auto count = static_cast<std::uint32_t>(source.records.Size());
    for (std::uint32_t record = 0; record < count; ++record) {
        const Block block(source, record);
        if (!block.Is("FileName"))
            continue;
        const std::string name = block.Value();
        const std::size_t before = names.Found().size();
        names.Add(name, [&] { return lines.LineOf(block.Where()); });
        if (names.Found().size() == before)
            continue;
        if (std::string literal = block.LiteralValue(); literal != name)
            names.Found().back().otherReadings.push_back({{}, std::move(literal)});
    }
}

/// A block of a token stream without its id, whose meaning is not needed: the file name of an
/// object is the only block that holds nothing but a name of a shape.
struct Token
{
    static std::optional<Token> From(ByteReader &reader)
    {
        const bool hasId = reader.ReadU32().has_value();
        const auto length = reader.ReadU32();
        if (!hasId || !length || *length > reader.Left())
            return std::nullopt;
        ByteReader block = *reader.TakeReader(*length);
        const auto label = block.ReadU8();
        if (!label || !block.Skip(std::size_t{2} * *label))
            return std::nullopt;
        return Token{*block.Take(block.Left())};
    }
    Bytes content;
};

/// True if the bytes are one block after the other, up to the end.
bool areTokens(Bytes bytes)
{
    ByteReader reader(bytes);
    while (reader.Left() > 0)
        if (!Token::From(reader))
            return false;
    return !bytes.empty();
}

bool isText(Bytes bytes)
{
    const auto count = ByteReader(bytes).ReadU16();
    return count && *count > 0 && bytes.size() == sizeof(std::uint16_t) * (std::size_t{1} + *count);
}

void readTokens(Bytes bytes, ShapeNames &names, int depth)
{
    ByteReader reader(bytes);
    while (reader.Left() > 0) {
        const auto token = Token::From(reader);
        if (!token)
            return;
        if (isText(token->content)) {
            korvat::Trouble trouble;
            names.Add(korvat::BinaryBlock(ByteReader(token->content), trouble).Text(),
                      [] { return 0; });
        } else if (depth > 0 && areTokens(token->content)) {
            readTokens(token->content, names, depth - 1);
        }
    }
}

} // namespace

WorldFile ReadWorldFile(std::string bytes)
{
    constexpr int kMaxDepth = 8; // the name of an object is three blocks deep
    WorldFile file;
    ShapeNames names;
    korvat::Container container;
    const bool isContainer = bytes.starts_with("SIMISA@") &&
                             !korvat::OpenContainer(bytes, korvat::kMaxShapeBytes, container);
    if (isContainer && container.content == korvat::Container::Content::Binary) {
        const Bytes tokens = container.payload.subspan(korvat::kSubHeaderSize);
        if (areTokens(tokens))
            readTokens(tokens, names, kMaxDepth);
        else
            file.fault = "its tokens are damaged";
    } else {
        const ReadResult read = ParseFile(std::move(bytes));
        file.fault = read.fault;
        if (read.source)
            readText(*read.source, names);
    }
    file.shapes = std::move(names.Found());
    return file;
}

} // namespace content
