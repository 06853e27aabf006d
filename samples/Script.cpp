// SPDX-License-Identifier: MIT
#include "samples/Script.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace samples {
namespace {

/// A script error whose message names the line.
struct LineFault : std::logic_error
{
    using std::logic_error::logic_error;
};

/// Splits a line at blanks outside brackets and quotes.
std::vector<std::string> wordsOf(std::string_view text)
{
    std::vector<std::string> words;
    int depth = 0;
    bool quoted = false;
    bool blank = true;
    for (const char c : text) {
        quoted = quoted != (c == '"');
        depth += c == '(' || c == '[' ? 1 : c == ')' || c == ']' ? -1 : 0;
        const bool gap = c == ' ' && depth == 0 && !quoted;
        if (!gap && blank)
            words.emplace_back();
        if (!gap)
            words.back() += c;
        blank = gap;
    }
    return words;
}

/// Removes and returns the text up to the separator.
std::string_view takeUpTo(std::string_view &text, char separator)
{
    const std::string_view piece = text.substr(0, text.find(separator));
    text.remove_prefix(std::min(text.size(), piece.size() + 1));
    return piece;
}

} // namespace

std::string Arguments::Word()
{
    if (!More())
        throw std::logic_error("too few words");
    const std::string &word = m_words[m_next++];
    return word.front() == '$' ? std::get<std::string>(m_script.Get(word.substr(1))) : word;
}

Value Arguments::Next()
{
    if (m_values.empty()) {
        m_values = m_script.EvaluateAll(Word());
        std::reverse(m_values.begin(), m_values.end());
    }
    Value value = std::move(m_values.back());
    m_values.pop_back();
    return value;
}

float Arguments::Number()
{
    const Value value = Next();
    const auto *items = std::get_if<List>(&value);
    if (!items)
        return value.Number();
    m_values.insert(m_values.end(), items->rbegin(), items->rend());
    return Number();
}

const Value &Script::Get(std::string_view name) const
{
    for (auto scope = m_scopes.rbegin(); scope != m_scopes.rend(); ++scope)
        if (const auto at = scope->find(name); at != scope->end())
            return at->second;
    throw std::logic_error("no variable " + std::string(name));
}

void Script::Import(const Script &other)
{
    m_lines = other.m_lines;
    m_definitions = other.m_definitions;
    m_scopes = other.m_scopes;
}

void Script::RunText(std::string_view name, std::string_view text)
{
    const std::size_t first = m_lines.size();
    load(name, text);
    run(first, m_lines.size());
}

void Script::load(std::string_view name, std::string_view text)
{
    for (int number = 1; !text.empty(); ++number) {
        const std::string_view line = takeUpTo(text, '\n');
        std::size_t indent = line.find_first_not_of(' ');
        if (indent == std::string_view::npos || line.substr(indent).starts_with("//"))
            continue;
        const std::string place = std::string(name) + ':' + std::to_string(number);
        m_lines.push_back({place, indent, {}});
        for (std::string &word : wordsOf(line.substr(indent))) {
            const bool header = word.back() == ':'; // the rest of the line acts as an indented line
            if (header)
                word.pop_back();
            m_lines.back().words.push_back(std::move(word));
            if (header)
                m_lines.push_back({place, ++indent, {}});
        }
    }
}

std::size_t Script::endOf(std::size_t line) const
{
    const std::size_t indent = m_lines[line].indent;
    std::size_t end = line + 1;
    while (end < m_lines.size() && m_lines[end].indent > indent)
        ++end;
    return end;
}

void Script::run(std::size_t first, std::size_t last)
{
    bool done = false; // whether the last `if` ran its lines
    for (std::size_t at = first, next = first; at < last; at = next) {
        next = endOf(at);
        const std::vector<std::string> &words = m_lines[at].words;
        try {
            if (words[0] == "only" && !truth(words.at(1)))
                return;
            if (words[0] == "if" || (words[0] == "else" && !done)) {
                done = words[0] == "else" || truth(words.at(1));
                if (done)
                    run(at + 1, next);
            } else if (words[0] != "else" && words[0] != "only") {
                execute(words, at + 1, next);
            }
        } catch (const LineFault &) {
            throw;
        } catch (const std::exception &fault) {
            throw LineFault(m_lines[at].place + ": " + fault.what());
        }
    }
}

void Script::execute(const std::vector<std::string> &words, std::size_t first, std::size_t last)
{
    if (control(words, first, last))
        return;
    Arguments arguments(*this, words, [&] {
        m_scopes.emplace_back();
        run(first, last);
        m_scopes.pop_back();
    });
    if (const auto verb = m_verbs.find(words[0]); verb != m_verbs.end())
        verb->second(arguments);
    else if (const auto at = m_definitions.find(words[0]); at != m_definitions.end())
        call(at->second, arguments);
    else
        throw std::logic_error("no verb " + words[0]);
    if (arguments.More())
        throw std::logic_error("too many words");
}

bool Script::control(const std::vector<std::string> &words, std::size_t first, std::size_t last)
{
    if (words[0] == "let") {
        let(m_scopes.back(), words.at(1), EvaluateAll(words.at(2)));
    } else if (words[0] == "set") {
        let(m_scopes.front(), words.at(1), EvaluateAll(words.at(2)));
    } else if (words[0] == "def") {
        m_definitions[words.at(1)] = {{words.begin() + 2, words.end()}, first, last};
    } else if (words[0] == "each") {
        each(words, first, last);
    } else if (words[0] == "for") {
        float at = Evaluate(words.at(2)).Number();
        for (let(m_scopes.back(), words[1], {at}); truth(words.at(3));
             let(m_scopes.back(), words[1], {at += Evaluate(words.at(4)).Number()}))
            run(first, last);
    } else if (words[0] == "run") {
        Run(words.at(1));
    } else if (words[0] == "table") {
        pickRow(words, first, last);
    } else {
        return false;
    }
    return true;
}

/// Sets a variable for each column, from the row that begins with the key.
void Script::pickRow(const std::vector<std::string> &columns, std::size_t first, std::size_t last)
{
    const auto &key = std::get<std::string>(Get(columns.at(1)));
    for (std::size_t row = first; row < last; ++row)
        if (m_lines[row].words[0] == key)
            for (std::size_t i = 2; i < columns.size(); ++i)
                m_scopes.back()[columns[i]] = Evaluate(m_lines[row].words.at(i - 1));
}

void Script::call(const Definition &definition, Arguments &arguments)
{
    Scope own;
    for (const std::string &name : definition.parameters)
        if (name.front() == '$')
            own[name.substr(1)] = arguments.Word();
        else
            own[name] = arguments.Next();
    m_scopes.push_back(std::move(own));
    run(definition.first, definition.last);
    m_scopes.pop_back();
}

/// Runs the lines once for each item. With several names, each run takes one value per name.
void Script::each(const std::vector<std::string> &words, std::size_t first, std::size_t last)
{
    List items;
    for (std::size_t i = 2; i < words.size(); ++i) {
        List values = EvaluateAll(words[i]);
        if (values.size() > 1)
            values = {Value(std::move(values))};
        else if (const auto *inner = std::get_if<List>(&values[0]))
            values = List(*inner);
        items.insert(items.end(), values.begin(), values.end());
    }
    const auto names = static_cast<std::size_t>(std::count(words[1].begin(), words[1].end(), ','));
    if (names > 0)
        items = Value(items).Flat();
    for (auto at = items.begin(); at != items.end(); at += static_cast<std::ptrdiff_t>(names + 1)) {
        let(m_scopes.back(), words[1], {at, at + static_cast<std::ptrdiff_t>(names + 1)});
        run(first, last);
    }
}

/// Sets one variable, or several whose names are separated by commas.
void Script::let(Scope &scope, std::string_view names, const List &values)
{
    const auto *one = values.size() == 1 ? std::get_if<List>(&values[0]) : nullptr;
    if (names.find(',') == std::string_view::npos)
        scope[std::string(names)] = values.size() == 1 ? values[0] : Value(values);
    else
        for (std::size_t i = 0; !names.empty(); ++i)
            scope[std::string(takeUpTo(names, ','))] = (one ? *one : values).at(i);
}

} // namespace samples
