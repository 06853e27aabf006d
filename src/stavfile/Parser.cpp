// SPDX-License-Identifier: MIT
#include "stavfile/Parser.h"

#include "stavfile/Keywords.h"
#include "stavfile/Lexer.h"
#include "stavfile/Scanner.h"
#include "stavfile/Source.h"

#include <string>
#include <utility>
#include <vector>

namespace stavfile {
namespace {

constexpr std::size_t kUsualDepth = 8, kUsualValues = 32;
constexpr std::size_t kMaxNotes = 200; // enough for any report; hostile files have millions

/// Parses in one pass, with an explicit stack of open blocks: no recursion on file depth.
class Parser
{
public:
    explicit Parser(Source &source)
        : m_source(source)
        , m_text(source.text)
        , m_scanner(m_text)
        , m_at(source.body)
        , m_notedAt(source.body)
        , m_notedLine(source.LineOf(source.body))
    {
    }

    void Run()
    {
        m_frames.reserve(kUsualDepth);
        m_pending.reserve(kUsualValues);
        m_frames.push_back({});
        while ((m_at = m_scanner.SkipBlanks(m_at)) < m_text.size())
            step();
        closeAtEnd();
    }

private:
    enum class Last
    {
        None,
        Word,
        Quoted
    };

    struct Frame
    {
        std::uint32_t record = 0;
        std::size_t firstPending = 0;
        int stringsLeft = 0;    ///< leading values that are texts
        Last last = Last::None; ///< kind of the last item, not counting comments
    };

    /// The extent of a value, which may turn out to be the name or the label of the next block.
    struct Seen
    {
        std::size_t begin = 0;
        std::size_t wordEnd = 0; ///< `begin` if it is quoted
        std::size_t end = 0;     ///< with its quotes
    };

    bool atTop() const { return m_frames.size() == 1; }

    void step()
    {
        switch (lexer::ClassOf(m_text[m_at])) {
        case lexer::CharClass::Quote:
            quotedValue();
            break;
        case lexer::CharClass::Bracket:
            m_text[m_at] == '(' ? openBlock() : closeBlock();
            break;
        default:
            word();
            break;
        }
    }

    void quotedValue()
    {
        const lexer::Extent extent = lexer::ValueExtent(m_text, m_at);
        if (extent.strayPlus)
            note(m_at, "a \"+\" without a following string is ignored");
        if (extent.unterminated) {
            note(m_at, "the string that begins here is not closed: it runs to the end of the file");
            m_source.tailFix = lexer::StringFix(m_text);
        } else if (extent.end == m_at + 2 && extent.end < m_text.size() &&
                   lexer::ClassOf(m_text[extent.end]) == lexer::CharClass::Word) {
            note(m_at, "an empty string is directly before a word: a doubled quote?");
        } else {
            noteSwallowedLines(extent.end);
        }
        pushValue(Last::Quoted, m_at, extent.end);
    }

    /// A string across a line end, with NAME ( in it, most likely lacks its closing quote.
    void noteSwallowedLines(std::size_t end)
    {
        const std::string_view value = m_text.substr(m_at, end - m_at);
        for (std::size_t feed = value.find('\n'); feed != value.npos;
             feed = value.find('\n', feed + 1)) {
            const std::size_t name = lexer::SkipBlanks(value, feed);
            const std::size_t nameEnd = lexer::WordEnd(value, name);
            const std::size_t next = lexer::SkipBlanks(value, nameEnd);
            if (nameEnd > name && next < value.size() && value[next] == '(') {
                note(m_at, "the string that begins here holds whole blocks: a lost quote?");
                return;
            }
        }
    }

    void word()
    {
        const std::size_t end = m_scanner.WordEnd(m_at);
        if (lexer::IsCommentWord(m_text.substr(m_at, end - m_at)) && !isTextHere(end)) {
            skipComment(end);
            return;
        }
        const bool quote = end < m_text.size() && m_text[end] == '"';
        if (quote)
            note(end, "a quote at the end of a word is ignored");
        pushValue(Last::Word, end, quote ? end + 1 : end);
    }

    /// Where a text is expected, a word that looks like a comment mark is a value: file names and
    /// labels can begin with "_" and "#".
    bool isTextHere(std::size_t wordEnd) const
    {
        const std::size_t next = lexer::SkipBlanks(m_text, wordEnd);
        const bool blockFollows = next < m_text.size() && m_text[next] == '(';
        if (blockFollows && lastIsLabelledKeyword())
            return true;
        if (atTop())
            return blockFollows && m_text.substr(m_at, wordEnd - m_at) == "_OpenRails";
        return m_frames.back().stringsLeft > 0 && !blockFollows;
    }

    bool lastIsLabelledKeyword() const
    {
        if (m_frames.back().last != Last::Word || !m_inShape)
            return false;
        const Keyword *keyword = keywordOf(m_last);
        return keyword && keyword->labelled;
    }

    void skipComment(std::size_t wordEnd) { skipTo(lexer::SkipCommentItem(m_text, wordEnd)); }

    void skipTo(const lexer::Skipped &skipped)
    {
        if (!skipped.fix.empty()) {
            note(m_at, "the comment or block skipped from here runs to the end of the file");
            m_source.tailFix = skipped.fix;
        }
        m_at = skipped.end;
    }

    /// Adds the value at the current position and moves behind it.
    void pushValue(Last kind, std::size_t wordEnd, std::size_t end)
    {
        Frame &frame = m_frames.back();
        m_pending.push_back(static_cast<std::uint32_t>(m_at));
        m_beforeLast = std::exchange(m_last, {m_at, wordEnd, end});
        m_at = end;
        frame.last = kind;
        if (frame.stringsLeft > 0)
            --frame.stringsLeft;
    }

    void openBlock()
    {
        Frame &frame = m_frames.back();
        std::uint32_t label = 0;
        if (labelBefore())
            label = takePending();
        const Seen &name = label ? m_beforeLast : m_last;
        const bool named = label || (frame.last == Last::Word && canBeName(name));
        frame.last = Last::None;
        frame.stringsLeft = 0;
        if (!named || m_frames.size() > kMaxBlockDepth) {
            if (named)
                takePending();
            note(m_at, named ? "blocks are nested too deeply here: the block is skipped"
                             : "a block without a name is skipped");
            skipTo(lexer::SkipBlock(m_text, m_at));
            return;
        }
        takePending();
        if (atTop())
            dropStrayWords();
        push(name, label);
        ++m_at;
    }

    /// A text that looks like a comment mark, with a comment between it and the bracket, is not a
    /// name: written elsewhere, such a name would be a comment mark again.
    bool canBeName(const Seen &word) const
    {
        return atTop() || !lexer::IsCommentWord(textOf(word));
    }

    /// NAME VALUE ( is a block with a label if NAME is a keyword that may have one. Everywhere else
    /// the last word is the name, and what precedes it are values. If the last value but one is not
    /// m_beforeLast, something separates it from the last one.
    bool labelBefore() const
    {
        const Frame &frame = m_frames.back();
        if (frame.last == Last::None || m_pending.size() < frame.firstPending + 2)
            return false;
        const Keyword *keyword = keywordOf(m_beforeLast);
        if (!keyword || (keyword->shape && !m_inShape) || !adjacent(m_beforeLast, m_last))
            return false;
        if (keyword->labelled || frame.last == Last::Quoted)
            return true;
        const Keyword *own = keywordOf(m_last);
        return !own || (own->shape && !m_inShape);
    }

    /// A child block or a comment between two values separates them: only blanks may be between a
    /// name and its label.
    bool adjacent(const Seen &first, const Seen &second) const
    {
        return lexer::SkipBlanks(m_text, first.end) == second.begin;
    }

    std::string_view textOf(const Seen &word) const
    {
        return m_text.substr(word.begin, word.wordEnd - word.begin);
    }

    const Keyword *keywordOf(const Seen &word) const { return FindKeyword(textOf(word)); }

    std::uint32_t takePending()
    {
        const std::uint32_t last = m_pending.back();
        m_pending.pop_back();
        return last;
    }

    void push(const Seen &name, std::uint32_t label)
    {
        const Keyword *keyword = keywordOf(name);
        if (atTop())
            m_inShape = keyword && keyword->name == "shape";
        Record record;
        record.begin = static_cast<std::uint32_t>(name.begin);
        record.label = label;
        record.open = static_cast<std::uint32_t>(m_at);
        m_frames.push_back({static_cast<std::uint32_t>(m_source.records.Size()), m_pending.size(),
                            keyword ? keyword->strings : 0, Last::None});
        m_source.records.PushBack(record);
    }

    void closeBlock()
    {
        if (atTop()) {
            note(m_at, "a surplus closing bracket is ignored");
            dropStrayWords();
            m_frames.back().last = Last::None;
            ++m_at;
            return;
        }
        ++m_at;
        finish(0);
    }

    void finish(std::uint32_t flags)
    {
        const Frame frame = m_frames.back();
        Record &record = m_source.records[frame.record];
        record.end = static_cast<std::uint32_t>(m_at);
        record.flags = flags;
        record.firstValue = static_cast<std::uint32_t>(m_source.values.Size());
        record.valueCount = static_cast<std::uint32_t>(m_pending.size() - frame.firstPending);
        record.next = static_cast<std::uint32_t>(m_source.records.Size());
        for (std::size_t i = frame.firstPending; i < m_pending.size(); ++i)
            m_source.values.PushBack(m_pending[i]);
        m_pending.resize(frame.firstPending);
        m_frames.pop_back();
    }

    void closeAtEnd()
    {
        if (atTop()) {
            dropStrayWords();
            return;
        }
        const std::size_t open = m_frames.size() - 1;
        const Record &record = m_source.records[m_frames.back().record];
        note(record.begin, std::to_string(open) + (open == 1 ? " block is" : " blocks are") +
                               " not closed at the end of the file; the innermost begins here");
        while (!atTop())
            finish(Record::kUnclosed);
    }

    void dropStrayWords()
    {
        if (m_pending.empty())
            return;
        note(m_pending.front(), "words outside of any block are ignored");
        m_pending.clear();
    }

    void note(std::size_t place, std::string text)
    {
        if (m_source.notes.size() > kMaxNotes)
            return;
        if (m_source.notes.size() == kMaxNotes) {
            m_source.notes.push_back({m_notedLine, "further notes are left out"});
            return;
        }
        m_source.notes.push_back({lineOf(place), std::move(text)});
    }

    /// Continues counting lines from the last note, so that many notes cost one pass.
    int lineOf(std::size_t place)
    {
        if (place < m_notedAt)
            return m_source.LineOf(place);
        for (; m_notedAt < place; ++m_notedAt)
            m_notedLine += m_text[m_notedAt] == '\n';
        return m_notedLine;
    }

    Source &m_source;
    std::string_view m_text;
    lexer::Scanner m_scanner;
    std::size_t m_at;
    std::vector<Frame> m_frames;
    Seen m_last, m_beforeLast;            ///< the values seen last, in whatever block
    std::vector<std::uint32_t> m_pending; ///< values of the open blocks, innermost last
    bool m_inShape = false;
    std::size_t m_notedAt;
    int m_notedLine;
};

} // namespace

void ParseBlocks(Source &source)
{
    Parser(source).Run();
}

} // namespace stavfile
