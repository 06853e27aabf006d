// SPDX-License-Identifier: MIT
#pragma once

#include "samples/Painter.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// The language that describes models and textures. docs/model-scripts.md explains it.
namespace samples {

/// Returns the text of an embedded script. Throws std::out_of_range if there is none.
std::string_view ScriptText(std::string_view name);

struct Value;
using List = std::vector<Value>;

/// A number, a colour, a text, a patch or a list. Access as a wrong type throws
/// std::bad_variant_access.
struct Value : std::variant<float, Colour, std::string, Patch, List>
{
    using variant::variant;

    float Number() const { return std::get<float>(*this); }
    const List &Items() const { return std::get<List>(*this); }
    /// Returns an item of a list as a number.
    float operator[](std::size_t item) const { return Items().at(item).Number(); }
    /// Returns the value itself, or the values of a list and of all lists in it.
    List Flat() const;
    Outline Points() const;
};

class Script;

/// The arguments of a verb, read from left to right.
class Arguments
{
public:
    Arguments(Script &script, std::vector<std::string> words, std::function<void()> body)
        : m_script(script)
        , m_words(std::move(words))
        , m_body(std::move(body))
    {
    }

    /// True if the word that was read last holds more values.
    bool Inside() const { return !m_values.empty(); }
    bool More() const { return !m_values.empty() || m_next < m_words.size(); }
    /// Returns the next word without evaluating it, or for `$name` the text of that variable.
    std::string Word();
    Value Next();
    /// Returns the next number, which may be inside a list.
    float Number();
    /// Runs the indented lines below the verb.
    void RunBody() const { m_body(); }

private:
    Script &m_script;
    std::vector<std::string> m_words;
    std::function<void()> m_body;
    std::size_t m_next = 1;
    List m_values; ///< unread values of the last word, the next one last
};

/// Runs scripts. A fault in a script throws std::logic_error, which names the line.
class Script
{
public:
    using Verb = std::function<void(Arguments &)>;

    void Add(const std::string &name, Verb verb) { m_verbs[name] = std::move(verb); }
    /// Sets a variable that all lines see.
    void Set(const std::string &name, Value value) { m_scopes.front()[name] = std::move(value); }
    const Value &Get(std::string_view name) const;
    /// Copies the variables and definitions of another script.
    void Import(const Script &other);
    /// Runs the embedded script with this name. Its definitions remain.
    void Run(std::string_view name) { RunText(name, ScriptText(name)); }
    /// Runs a text. The messages of faults use `name` as the name of the script.
    void RunText(std::string_view name, std::string_view text);
    /// Calls a definition that has no parameters.
    void Call(const std::string &name) { execute({name}, 0, 0); }
    Value Evaluate(std::string_view expression) const { return EvaluateAll(expression).at(0); }
    /// Returns the values of expressions that are separated by commas.
    List EvaluateAll(std::string_view expressions) const;

private:
    struct Line
    {
        std::string place;
        std::size_t indent = 0;
        std::vector<std::string> words = {};
    };
    struct Definition
    {
        std::vector<std::string> parameters;
        std::size_t first;
        std::size_t last;
    };
    using Scope = std::map<std::string, Value, std::less<>>;

    void load(std::string_view name, std::string_view text);
    std::size_t endOf(std::size_t line) const;
    void run(std::size_t first, std::size_t last);
    bool truth(const std::string &expression) const { return Evaluate(expression).Number() != 0; }
    void execute(const std::vector<std::string> &words, std::size_t first, std::size_t last);
    bool control(const std::vector<std::string> &words, std::size_t first, std::size_t last);
    void call(const Definition &definition, Arguments &arguments);
    static void let(Scope &scope, std::string_view names, const List &values);
    void each(const std::vector<std::string> &words, std::size_t first, std::size_t last);
    void pickRow(const std::vector<std::string> &columns, std::size_t first, std::size_t last);

    std::deque<Line> m_lines; ///< of all scripts; references stay valid when it grows
    std::map<std::string, Verb> m_verbs;
    std::map<std::string, Definition> m_definitions;
    std::vector<Scope> m_scopes = std::vector<Scope>(1);
};

} // namespace samples
