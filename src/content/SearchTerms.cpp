// SPDX-License-Identifier: MIT
#include "content/SearchTerms.h"

#include "host/Text.h"

#include <algorithm>
#include <utility>

namespace content {
namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

/// Finds the first operator outside quotes and splits the term there. A term that begins with an
/// operator is a word.
SearchTerm termOf(std::string_view raw)
{
    SearchTerm term;
    bool quoted = false;
    for (std::size_t i = 0; i < raw.size(); ++i) {
        const char c = raw[i];
        if (c == '"') {
            quoted = !quoted;
            continue;
        }
        const bool isOperator = c == ':' || c == '=' || c == '<' || c == '>';
        if (!quoted && isOperator && term.op.empty() && !term.text.empty()) {
            term.op = c;
            if (i + 1 < raw.size() && raw[i + 1] == '=' && (c == '<' || c == '>'))
                term.op += raw[++i];
            term.key = std::exchange(term.text, {});
        } else {
            term.text += c;
        }
    }
    if (!term.op.empty()) {
        term.key = host::ToUpper(term.key);
        term.value = host::ToUpper(term.text);
        term.text = term.key + term.op + term.value;
    } else {
        term.text = host::ToUpper(term.text);
    }
    return term;
}

bool containsAll(std::string_view text, const std::vector<std::string> &parts)
{
    return std::all_of(parts.begin(), parts.end(), [text](const std::string &part) {
        return text.find(part) != std::string_view::npos;
    });
}

} // namespace

std::vector<SearchTerm> SplitSearch(std::string_view text)
{
    std::vector<SearchTerm> terms;
    std::size_t at = 0;
    while (at < text.size()) {
        bool quoted = false;
        const std::size_t begin = at;
        while (at < text.size() && (quoted || !isBlank(text[at])))
            if (text[at++] == '"')
                quoted = !quoted;
        if (SearchTerm term = termOf(text.substr(begin, at - begin)); !term.text.empty())
            terms.push_back(std::move(term));
        while (at < text.size() && isBlank(text[at]))
            ++at;
    }
    return terms;
}

ConsistQuery::ConsistQuery(std::string_view text)
{
    for (SearchTerm &term : SplitSearch(text)) {
        if (term.key != "HAS" || term.op != ":") {
            m_words.push_back(std::move(term.text));
            continue;
        }
        std::replace(term.value.begin(), term.value.end(), '\\', '/');
        for (const char *extension : {".ENG", ".WAG"})
            if (term.value.ends_with(extension))
                term.value.resize(term.value.size() - 4);
        if (!term.value.empty())
            m_vehicles.push_back(std::move(term.value));
    }
}

bool ConsistQuery::Matches(std::string_view name, std::string_view vehicles) const
{
    return containsAll(name, m_words) && containsAll(vehicles, m_vehicles);
}

std::string VehicleKey(std::string_view folder, std::string_view name)
{
    return host::ToUpper(std::string(folder) + '/' + std::string(name)) + '\n';
}

} // namespace content
