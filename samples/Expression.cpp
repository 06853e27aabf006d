// SPDX-License-Identifier: MIT
// The expressions of scripts.
#include "samples/Script.h"

#include "samples/TextWriter.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace samples {
namespace {

List listOf(const Outline &points)
{
    List list;
    for (const Vec2 at : points)
        list.insert(list.end(), {at.x, at.y});
    return list;
}

/// Returns the points of a roof from the left eaves over the top to the right eaves.
Outline roofArc(float halfWidth, float eaves, float top, int pieces)
{
    const float rise = top - eaves;
    const float radius = (halfWidth * halfWidth + rise * rise) / (2 * rise);
    const float reach = std::asin(halfWidth / radius);
    Outline points;
    for (int i = 0; i <= pieces; ++i) {
        const float angle = reach * (2 * static_cast<float>(i) / static_cast<float>(pieces) - 1);
        points.push_back({std::sin(angle) * radius, top - radius + std::cos(angle) * radius});
    }
    points.front() = {-halfWidth, eaves};
    points.back() = {halfWidth, eaves};
    return points;
}

/// Returns the outline mirrored about the middle, with its points in reverse order.
Outline mirrored(Outline outline)
{
    std::reverse(outline.begin(), outline.end());
    for (Vec2 &at : outline)
        at.x = -at.x;
    return outline;
}

Patch withLook(Patch patch, float look)
{
    patch.look = static_cast<std::size_t>(look);
    return patch;
}

Value part(const List &a)
{
    return std::get<Patch>(a.at(0)).Part(a.at(1).Number(), a.at(2).Number(), a.at(3).Number(),
                                         a.at(4).Number());
}

Value turned(const List &a)
{
    const Patch &p = std::get<Patch>(a.at(0));
    return Patch{p.u1, p.v1, p.u0, p.v0, p.look};
}

/// Returns the points (x, y) of an outline as points in space at z.
Value upright(const List &a)
{
    List points;
    for (const Vec2 at : a.at(0).Points())
        points.insert(points.end(), {at.x, at.y, a.at(1).Number()});
    return points;
}

/// Returns a reproducible random number. Arguments: the number to hash, a variation of the hash,
/// the lowest bit of the hash to use, and the limit, which is exclusive.
Value dice(const List &a)
{
    const auto whole = [&](std::size_t i) { return static_cast<std::uint32_t>(a.at(i).Number()); };
    const std::uint32_t hash = (whole(0) * 2654435761U) ^ (whole(0) * 40503U << whole(1));
    return static_cast<float>((hash >> whole(2)) % whole(3));
}

Value rgb(const List &a)
{
    const auto channel = [&](std::size_t i) { return static_cast<std::uint8_t>(a.at(i).Number()); };
    return Colour{channel(0), channel(1), channel(2)};
}

using Function = Value (*)(const List &);

// clang-format off
const std::map<std::string_view, Function> kFunctions = {
    {"abs", [](const List &a) -> Value { return std::abs(a.at(0).Number()); }},
    {"sin", [](const List &a) -> Value { return std::sin(a.at(0).Number()); }},
    {"cos", [](const List &a) -> Value { return std::cos(a.at(0).Number()); }},
    {"sqrt", [](const List &a) -> Value { return std::sqrt(a.at(0).Number()); }},
    {"int", [](const List &a) -> Value { return std::trunc(a.at(0).Number()); }},
    {"min", [](const List &a) -> Value { return std::min(a.at(0).Number(), a.at(1).Number()); }},
    {"max", [](const List &a) -> Value { return std::max(a.at(0).Number(), a.at(1).Number()); }},
    {"size", [](const List &a) -> Value { return static_cast<float>(a.at(0).Items().size()); }},
    {"dice", dice},
    {"rgb", rgb},
    {"upright", upright},
    {"mirrored", [](const List &a) -> Value { return listOf(mirrored(a.at(0).Points())); }},
    {"arc", [](const List &a) -> Value { return listOf(roofArc(a.at(0).Number(), a.at(1).Number(), a.at(2).Number(),
                                                               static_cast<int>(a.at(3).Number()))); }},
    {"length", [](const List &a) -> Value { return static_cast<float>(std::get<std::string>(a.at(0)).size()); }},
    {"start", [](const List &a) -> Value { return std::get<std::string>(a.at(0)).substr(0, static_cast<std::size_t>(a.at(1).Number())); }},
    {"width", [](const List &a) -> Value { return TextWidth(std::get<std::string>(a.at(0)), a.at(1).Number()); }},
    {"mix", [](const List &a) -> Value { return Mix(std::get<Colour>(a.at(0)), std::get<Colour>(a.at(1)), a.at(2).Number()); }},
    {"lerp", [](const List &a) -> Value { return std::lerp(a.at(0).Number(), a.at(1).Number(), a.at(2).Number()); }},
    {"blue", [](const List &a) -> Value { return static_cast<float>(std::get<Colour>(a.at(0)).blue); }},
    {"red", [](const List &a) -> Value { return static_cast<float>(std::get<Colour>(a.at(0)).red); }},
    {"look", [](const List &a) -> Value { return withLook(std::get<Patch>(a.at(0)), a.at(1).Number()); }},
    {"part", part},
    {"turned", turned},
};
// clang-format on

/// Evaluates while parsing, by recursive descent. Evaluates both branches of a choice.
class Expression
{
public:
    Expression(const Script &script, std::string_view text)
        : m_script(script)
        , m_text(text)
    {
    }

    List Whole()
    {
        List items = list();
        if (!m_text.empty())
            throw std::logic_error("unexpected " + std::string(m_text));
        return items;
    }

private:
    bool take(std::string_view mark)
    {
        while (m_text.starts_with(' '))
            m_text.remove_prefix(1);
        if (!m_text.starts_with(mark))
            return false;
        m_text.remove_prefix(mark.size());
        return true;
    }

    void require(std::string_view mark)
    {
        if (!take(mark))
            throw std::logic_error(std::string(mark) + " expected");
    }

    List list()
    {
        List items = {choice()};
        while (take(","))
            items.push_back(choice());
        return items;
    }

    List listUntil(std::string_view mark)
    {
        if (take(mark))
            return {};
        List items = list();
        require(mark);
        return items;
    }

    /// `a ? b : c`, or `a|b|c` for the levels of detail from near to far.
    Value choice()
    {
        Value first = conjunction();
        if (take("?")) {
            Value yes = choice();
            require(":");
            Value no = choice();
            return first.Number() != 0 ? yes : no;
        }
        List levels = {std::move(first)};
        while (take("|"))
            levels.push_back(conjunction());
        if (levels.size() == 1)
            return levels.front();
        const auto level = static_cast<std::size_t>(m_script.Get("level").Number());
        return levels[std::min(level, levels.size() - 1)];
    }

    Value conjunction()
    {
        Value left = comparison();
        while (take("&")) {
            const Value right = comparison();
            left = truth(left.Number() != 0 && right.Number() != 0);
        }
        return left;
    }

    Value comparison()
    {
        const Value left = sum();
        if (take("="))
            return truth(same(left, sum()));
        if (take("<="))
            return truth(left.Number() <= sum().Number());
        if (take("<"))
            return truth(left.Number() < sum().Number());
        if (take(">"))
            return truth(left.Number() > sum().Number());
        return left;
    }

    static Value truth(bool is) { return is ? 1.0F : 0.0F; }
    static bool same(const Value &a, const Value &b)
    {
        const auto *text = std::get_if<std::string>(&a);
        return text ? *text == std::get<std::string>(b) : a.Number() == b.Number();
    }

    Value sum()
    {
        Value left = product();
        for (;;) {
            if (take("+"))
                left = added(left, product());
            else if (take("-"))
                left = left.Number() - product().Number();
            else
                return left;
        }
    }

    /// Adds numbers; joins lists and texts.
    static Value added(const Value &left, const Value &right)
    {
        if (const auto *items = std::get_if<List>(&left)) {
            List all = *items;
            all.insert(all.end(), right.Items().begin(), right.Items().end());
            return all;
        }
        if (const auto *text = std::get_if<std::string>(&left)) {
            const auto *more = std::get_if<std::string>(&right);
            return *text + (more ? *more : samples::Number(right.Number()));
        }
        return left.Number() + right.Number();
    }

    Value product()
    {
        Value left = unary();
        for (;;) {
            if (take("*")) {
                const float factor = unary().Number();
                if (const auto *colour = std::get_if<Colour>(&left))
                    left = Shade(*colour, factor);
                else
                    left = left.Number() * factor;
            } else if (take("/")) {
                left = left.Number() / unary().Number();
            } else if (take("%")) {
                left = std::fmod(left.Number(), unary().Number());
            } else {
                return left;
            }
        }
    }

    Value unary()
    {
        if (take("-"))
            return -unary().Number();
        if (take("!"))
            return truth(unary().Number() == 0);
        return primary();
    }

    Value primary()
    {
        if (take("(")) {
            Value value = choice();
            require(")");
            return value;
        }
        if (take("["))
            return listUntil("]");
        if (take("\"")) {
            std::string text(m_text.substr(0, m_text.find('"')));
            m_text.remove_prefix(text.size());
            require("\"");
            return text;
        }
        if (take("#"))
            return colour();
        if (!m_text.empty() && std::isdigit(static_cast<unsigned char>(m_text.front())) != 0)
            return number();
        return named();
    }

    Value number()
    {
        float value = 0;
        const auto end = std::from_chars(m_text.data(), m_text.data() + m_text.size(), value).ptr;
        m_text.remove_prefix(static_cast<std::size_t>(end - m_text.data()));
        return value;
    }

    std::string_view word()
    {
        const auto end = std::find_if(m_text.begin(), m_text.end(), [](char c) {
            return std::isalnum(static_cast<unsigned char>(c)) == 0;
        });
        const auto size = static_cast<std::size_t>(end - m_text.begin());
        const std::string_view found = m_text.substr(0, size);
        m_text.remove_prefix(size);
        return found;
    }

    /// `rrggbb` or `rrggbbaa`.
    Value colour()
    {
        const std::string_view digits = word();
        std::array<std::uint8_t, 4> channels = {0, 0, 0, 255};
        for (std::size_t i = 0; i < digits.size() / 2 && i < channels.size(); ++i)
            std::from_chars(&digits[i * 2], &digits[i * 2] + 2, channels.at(i), 16);
        return Colour{channels[0], channels[1], channels[2], channels[3]};
    }

    Value named()
    {
        const std::string_view name = word();
        if (!take("("))
            return m_script.Get(name);
        const auto function = kFunctions.find(name);
        if (function == kFunctions.end())
            throw std::logic_error("no function " + std::string(name));
        return function->second(listUntil(")"));
    }

    const Script &m_script;
    std::string_view m_text;
};

} // namespace

List Value::Flat() const
{
    const auto *items = std::get_if<List>(this);
    if (!items)
        return {*this};
    List all;
    for (const Value &item : *items) {
        const List flat = item.Flat();
        all.insert(all.end(), flat.begin(), flat.end());
    }
    return all;
}

Outline Value::Points() const
{
    const List all = Flat();
    Outline points;
    for (std::size_t i = 0; i + 1 < all.size(); i += 2)
        points.push_back({all[i].Number(), all[i + 1].Number()});
    return points;
}

List Script::EvaluateAll(std::string_view expressions) const
{
    return Expression(*this, expressions).Whole();
}

} // namespace samples
