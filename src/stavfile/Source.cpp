// SPDX-License-Identifier: MIT
#include "stavfile/Source.h"

#include "stavfile/Lexer.h"
#include "stavfile/Parser.h"
#include "stavfile/TextCodec.h"

#include <algorithm>

namespace stavfile {
namespace {

constexpr std::string_view kMark = "SIMISA@@@@@@@@@@";
constexpr std::string_view kKind = "JINX0";
constexpr std::string_view kTexture("\x01\0\0\0", 4); // a texture has no sub-header
constexpr std::size_t kFormLetter = 7; // in the sub-header: 't' for text, 'b' for binary
constexpr std::size_t kSubHeader = 16; // including its line end or two more underscores
constexpr std::size_t kLookForNuls = 1024;

Form formOf(const Source &source, std::size_t mark)
{
    const std::string_view text = source.text;
    if (text.find_first_not_of('\0') == text.npos)
        return text.empty() ? Form::Text : Form::NulsOnly;
    const std::string_view head = text.substr(std::min(mark, text.size()));
    if (head.starts_with("SIMISA@F"))
        return Form::Compressed;
    const bool eightBit =
        source.encoding == Encoding::Utf8 || source.encoding == Encoding::Windows1252;
    if (!head.starts_with(kMark))
        return eightBit && LooksBinary(text) ? Form::Binary : Form::Text;
    const std::string_view sub = head.substr(kMark.size(), kSubHeader);
    if (sub.starts_with(kKind))
        return sub.size() > kFormLetter && sub[kFormLetter] == 'b' ? Form::Binary : Form::Text;
    return sub.starts_with(kTexture) ? Form::Binary : Form::Text;
}

/// Returns the position one past the header: after its fixed 32 characters if the tree follows on
/// the same line, else at the end of its line.
std::size_t headerEnd(std::string_view text, std::size_t mark)
{
    const std::size_t fixed = mark + kMark.size() + kSubHeader;
    const std::string_view rest = text.substr(mark);
    const std::string_view sub = rest.substr(std::min(rest.size(), kMark.size()), kSubHeader);
    if (sub.size() == kSubHeader && sub.starts_with(kKind) && sub.ends_with("________"))
        return fixed;
    return std::min(text.find_first_of("\r\n", mark), text.size());
}

void readHeader(Source &source, std::size_t mark)
{
    const std::string_view text = source.text;
    if (mark == text.size() || !text.substr(mark).starts_with("SIMISA")) {
        const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
        if (lexer::SkipBlanks(line, 0) != line.size())
            source.notes.push_back({1, "no header line: a simulator would not read this line"});
        return;
    }
    source.body = headerEnd(text, mark);
    std::string_view header = text.substr(mark, source.body - mark);
    while (lexer::ClassOf(header.back()) == lexer::CharClass::Blank)
        header.remove_suffix(1);
    source.header = ToShownText(std::string(header), source.encoding);
}

std::string lineEndOf(std::string_view text)
{
    const std::size_t feed = text.find('\n');
    if (feed == text.npos)
        return "\r\n";
    return feed > 0 && text[feed - 1] == '\r' ? "\r\n" : "\n";
}

const char *noteOf(Form form)
{
    switch (form) {
    case Form::Binary:
        return "a binary file: its content is not read as text";
    case Form::Compressed:
        return "a compressed file: its content is not read as text";
    case Form::NulsOnly:
        return "the file holds NUL characters only";
    case Form::Text:
        break;
    }
    return "";
}

/// Decodes into a source that holds nothing yet, but may have memory for its text.
void decode(Source &source, std::string &&bytes)
{
    DecodedText decoded = Decode(std::move(bytes), std::move(source.text));
    source.text = std::move(decoded.text);
    source.encoding = decoded.encoding;
    source.bom = decoded.bom;
    source.oddByte = std::move(decoded.oddByte);
    source.form = decoded.isUtf32 ? Form::Binary : Form::Text;
}

void parse(Source &source)
{
    const std::size_t mark = lexer::SkipBlanks(source.text, 0);
    if (source.form == Form::Text)
        source.form = formOf(source, mark);
    if (source.form != Form::Text) {
        source.notes.push_back({1, noteOf(source.form)});
        return;
    }
    source.lineEnd = lineEndOf(source.text);
    readHeader(source, mark);
    ParseBlocks(source);
}

} // namespace

bool LooksBinary(std::string_view text)
{
    const std::string_view start = text.substr(0, kLookForNuls);
    const std::size_t nul = start.find('\0');
    return nul != start.npos && start.find_first_not_of('\0', nul) != start.npos;
}

std::string_view Source::Name(const Record &record) const
{
    const std::string_view view = text;
    return view.substr(record.begin, lexer::WordEnd(view, record.begin) - record.begin);
}

std::string_view Source::Label(const Record &record) const
{
    if (!record.label)
        return {};
    const std::string_view view = text;
    return view.substr(record.label,
                       lexer::ValueExtent(view, record.label).cleanEnd - record.label);
}

int Source::LineOf(std::size_t place) const
{
    return 1 + static_cast<int>(std::count(
                   text.begin(), text.begin() + static_cast<std::ptrdiff_t>(place), '\n'));
}

std::shared_ptr<const Source> ReadSource(std::string bytes, std::string fileName)
{
    auto source = std::make_shared<Source>();
    source->fileName = std::move(fileName);
    decode(*source, std::move(bytes));
    std::string().swap(bytes); // the text may be large, and the blocks need memory too
    parse(*source);
    return source;
}

void ReadSource(Source &source, std::string &&bytes)
{
    source.fileName.clear();
    source.header.clear();
    source.body = 0;
    source.lineEnd = "\r\n";
    source.tailFix.clear();
    source.records.Clear();
    source.values.Clear();
    source.notes.clear();
    decode(source, std::move(bytes));
    parse(source);
}

} // namespace stavfile
