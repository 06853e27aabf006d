// SPDX-License-Identifier: MIT
#include "content/Timetable.h"

#include "host/Path.h"
#include "host/Text.h"
#include "stavfile/TextCodec.h"

#include <algorithm>
#include <set>

namespace content {
namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string textOf(std::string bytes)
{
    stavfile::DecodedText decoded = stavfile::Decode(std::move(bytes));
    if (decoded.isUtf32)
        return {};
    return stavfile::ToShownText(std::move(decoded.text), decoded.encoding);
}

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == text.npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Moves the next line, without its end, from `rest` to `line`. Returns false at the end.
bool nextLine(std::string_view &rest, std::string_view &line)
{
    if (rest.empty())
        return false;
    const std::size_t feed = rest.find('\n');
    line = rest.substr(0, feed);
    rest.remove_prefix(feed == rest.npos ? rest.size() : feed + 1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return true;
}

/// The first cell of the first row is usually blank, so that the row begins with the separator.
char separatorOf(std::string_view row)
{
    constexpr std::string_view kSeparators = ";\t,";
    if (!row.empty() && kSeparators.find(row.front()) != kSeparators.npos)
        return row.front();
    char best = ';';
    std::ptrdiff_t most = 0;
    for (const char separator : kSeparators)
        if (const auto count = std::count(row.begin(), row.end(), separator); count > most) {
            most = count;
            best = separator;
        }
    return best;
}

bool isComment(std::string_view cell)
{
    constexpr std::string_view kComment = "#comment";
    return Block::SameName(cell.substr(0, kComment.size()), kComment);
}

/// Removes commands such as $reverse from the end of a name.
std::string_view withoutCommands(std::string_view name)
{
    return trimmed(name.substr(0, name.find('$')));
}

/// The consists of a text such as "a + <b+c>$reverse".
class ConsistNames
{
public:
    template <typename Take> static void Each(std::string_view text, const Take &take)
    {
        std::size_t first = 0;
        bool inBrackets = false;
        for (std::size_t i = 0; i <= text.size(); ++i) {
            const bool ends = i == text.size() || (text[i] == '+' && !inBrackets);
            if (ends) {
                const std::string_view name = nameIn(text.substr(first, i - first));
                if (!name.empty())
                    take(name);
                first = i + 1;
            } else if (text[i] == '<' || text[i] == '>') {
                inBrackets = text[i] == '<' && text.find('>', i) != text.npos;
            }
        }
    }

private:
    static std::string_view nameIn(std::string_view part)
    {
        part = trimmed(part);
        if (!part.starts_with('<'))
            return withoutCommands(part);
        part.remove_prefix(1);
        return trimmed(part.substr(0, part.find('>')));
    }
};

/// Returns the end of an option's value: the next option or command outside brackets, except
/// $reverse, which belongs to the consist.
std::size_t endOfOption(std::string_view text)
{
    constexpr std::string_view kReverse = "$reverse";
    bool inBrackets = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '<' || text[i] == '>')
            inBrackets = text[i] == '<';
        else if (!inBrackets && text[i] == '/')
            return i;
        else if (!inBrackets && text[i] == '$' &&
                 !Block::SameName(text.substr(i, kReverse.size()), kReverse))
            return i;
    }
    return text.size();
}

class TimetableReader
{
public:
    explicit TimetableReader(std::string_view text)
        : m_rest(text)
    {
    }

    std::vector<Reference> Run()
    {
        std::string_view line;
        while (nextLine(m_rest, line)) {
            ++m_line;
            if (m_line == 1)
                readTitles(line);
            else
                readRow(line);
        }
        return std::move(m_found);
    }

private:
    template <typename Take> void eachCell(std::string_view row, const Take &take) const
    {
        for (std::size_t column = 0;; ++column) {
            const std::size_t end = row.find(m_separator);
            take(column, trimmed(row.substr(0, end)));
            if (end == row.npos)
                return;
            row.remove_prefix(end + 1);
        }
    }

    void readTitles(std::string_view row)
    {
        m_separator = separatorOf(row);
        eachCell(row, [&](std::size_t column, std::string_view cell) {
            m_isTrain.push_back(column > 0 && !cell.empty() && !isComment(cell));
        });
    }

    void readRow(std::string_view row)
    {
        eachCell(row, [&](std::size_t column, std::string_view cell) {
            if (column == 0) {
                if (!cell.empty())
                    m_key = std::string(cell);
                return;
            }
            if (column >= m_isTrain.size() || !m_isTrain[column] || isComment(m_key) ||
                cell.empty())
                return;
            if (Block::SameName(m_key, "#consist"))
                addConsists(cell);
            addOptions(cell);
        });
    }

    void addConsists(std::string_view text)
    {
        ConsistNames::Each(text, [this](std::string_view name) { add(name); });
    }

    void addOptions(std::string_view cell)
    {
        constexpr std::string_view kOption = "/consist=";
        for (std::size_t at = cell.find('/'); at != cell.npos; at = cell.find('/', at + 1)) {
            if (!Block::SameName(cell.substr(at, kOption.size()), kOption))
                continue;
            const std::string_view value = cell.substr(at + kOption.size());
            addConsists(value.substr(0, endOfOption(value)));
        }
    }

    /// Adds a consist unless it was added before: many trains of a timetable have the same one.
    void add(std::string_view name)
    {
        if (!m_seen.insert(host::ToUpper(name)).second)
            return;
        Reference reference;
        reference.kind = Kind::TimetableConsist;
        reference.wants = std::string(name);
        reference.name.file = reference.wants + ".con";
        if (host::path::HasExtension(name, "con"))
            reference.otherReadings.push_back({{}, reference.wants});
        reference.line = m_line;
        m_found.push_back(std::move(reference));
    }

    std::string_view m_rest;
    int m_line = 0;
    char m_separator = ';';
    std::vector<bool> m_isTrain; ///< by column
    std::string m_key;           ///< first cell of the row, or of the one that it continues
    std::set<std::string> m_seen;
    std::vector<Reference> m_found;
};

} // namespace

std::vector<Reference> ReferencesOfTimetable(std::string bytes)
{
    const std::string text = textOf(std::move(bytes));
    return TimetableReader(text).Run();
}

std::vector<std::string> TimetablesOfList(std::string bytes)
{
    const std::string text = textOf(std::move(bytes));
    std::vector<std::string> names;
    std::string_view rest = text, line;
    while (nextLine(rest, line))
        if (const std::string_view name = trimmed(line); !name.empty() && !name.starts_with('#'))
            names.emplace_back(name);
    return names;
}

} // namespace content
