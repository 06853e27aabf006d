// SPDX-License-Identifier: MIT
#include "zelkctl/EditOperation.h"

#include "host/Number.h"
#include "zelkctl/Session.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace zelkctl {
namespace {

using document::Move;

struct Verb
{
    std::string_view name;
    Move move;
};
constexpr Verb kVerbs[] = {
    {"add", Move::Add},           {"remove", Move::Remove},       {"clear", Move::RemoveAll},
    {"forwards", Move::Forwards}, {"backwards", Move::Backwards}, {"flip", Move::Flip},
};

[[noreturn]] void refuse(const std::string &text, const std::string &wanted)
{
    throw Failure("operation \"" + text + "\": " + wanted);
}

/// Splits a text at the commas outside double quotes, and removes the quotes.
std::vector<std::string> splitAtCommas(std::string_view text)
{
    std::vector<std::string> parts(1);
    bool quoted = false;
    for (const char c : text) {
        if (c == '"')
            quoted = !quoted;
        else if (c == ',' && !quoted)
            parts.emplace_back();
        else
            parts.back() += c;
    }
    return parts;
}

document::StockItem parseStock(const std::string &text, std::string_view value)
{
    const std::vector<std::string> parts = splitAtCommas(value);
    const bool whole = parts.size() == 3 && !parts[1].empty() && !parts[2].empty();
    if (!whole || (parts[0] != install::kEngine && parts[0] != install::kWagon))
        refuse(text, "expected add=Engine,FOLDER,NAME or add=Wagon,FOLDER,NAME");
    return {parts[0], parts[1], parts[2]};
}

int parseRow(const std::string &text, std::string_view value)
{
    const std::optional<int> row = host::NumberIn<int>(value);
    if (!row || *row < 1)
        refuse(text, "expected a row number, counted from 1");
    return *row;
}

} // namespace

EditOperation ParseEditOperation(const std::string &text)
{
    const std::size_t equals = text.find('=');
    const std::string_view name = std::string_view(text).substr(0, equals);
    const auto verb = std::find_if(std::begin(kVerbs), std::end(kVerbs),
                                   [name](const Verb &known) { return known.name == name; });
    if (verb == std::end(kVerbs))
        refuse(text, "expected add=, remove=, clear, forwards=, backwards= or flip=");
    const std::string_view value =
        equals == std::string::npos ? "" : std::string_view(text).substr(equals + 1);
    EditOperation operation{text, verb->move, 0, {}};
    if (verb->move == Move::Add)
        operation.stock = parseStock(text, value);
    else if (verb->move != Move::RemoveAll)
        operation.row = parseRow(text, value);
    else if (equals != std::string::npos)
        refuse(text, "clear takes no row");
    return operation;
}

} // namespace zelkctl
