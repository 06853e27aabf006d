// SPDX-License-Identifier: MIT
#include "zelkctl/EditOperation.h"

#include "document/UnitClipboard.h"
#include "host/Number.h"
#include "zelkctl/Session.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace zelkctl {
namespace {

using document::Move;

/// The values behind the verb.
enum class Takes
{
    Nothing,
    Rows,
    RowsAndPlace,
    Stock,
    PlaceAndStock
};

struct VerbRow
{
    std::string_view name;
    EditVerb verb;
    Takes takes;
};
constexpr VerbRow kVerbs[] = {
    {"add", EditVerb::Add, Takes::Stock},
    {"insert", EditVerb::Insert, Takes::PlaceAndStock},
    {"copy", EditVerb::Copy, Takes::RowsAndPlace},
    {"move", EditVerb::Move, Takes::RowsAndPlace},
    {"remove", EditVerb::Remove, Takes::Rows},
    {"clear", EditVerb::Clear, Takes::Nothing},
    {"forwards", EditVerb::Forwards, Takes::Rows},
    {"backwards", EditVerb::Backwards, Takes::Rows},
    {"flip", EditVerb::Flip, Takes::Rows},
    {"reverse", EditVerb::Reverse, Takes::Nothing},
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

document::StockItem parseStock(const EditOperation &operation, std::string_view value)
{
    const std::vector<std::string> parts = splitAtCommas(value);
    const bool whole = parts.size() == 3 && !parts[1].empty() && !parts[2].empty();
    const std::string before = operation.verb == EditVerb::Insert ? "insert=N," : "add=";
    if (!whole || (parts[0] != install::kEngine && parts[0] != install::kWagon))
        refuse(operation.text,
               "expected " + before + "Engine,FOLDER,NAME or " + before + "Wagon,FOLDER,NAME");
    return {parts[0], parts[1], parts[2]};
}

int parseRow(const std::string &text, std::string_view value, int least = 1)
{
    const std::optional<int> row = host::NumberIn<int>(value);
    if (!row || *row < least)
        refuse(text, least == 0 ? "expected the number of a row to put them behind, 0 for the head"
                                : "expected a row number, counted from 1");
    return *row;
}

std::vector<std::pair<int, int>> parseRows(const std::string &text, std::string_view value)
{
    std::vector<std::pair<int, int>> rows;
    for (const std::string &part : splitAtCommas(value)) {
        const std::size_t dash = part.find('-', 1); // not the sign of a number
        const int first = parseRow(text, std::string_view(part).substr(0, dash));
        const int last =
            dash == part.npos ? first : parseRow(text, std::string_view(part).substr(dash + 1));
        if (last < first)
            refuse(text, "the range " + part + " ends before it begins");
        rows.emplace_back(first, last);
    }
    return rows;
}

/// Splits a value at its first mark; the second part is empty if there is none.
std::pair<std::string_view, std::string_view> splitAt(std::string_view value, char mark)
{
    const std::size_t at = value.find(mark);
    return {value.substr(0, at), at == value.npos ? "" : value.substr(at + 1)};
}

void parseValue(EditOperation &operation, Takes takes, std::string_view value)
{
    switch (takes) {
    case Takes::Nothing:
        break;
    case Takes::Rows:
        operation.rows = parseRows(operation.text, value);
        break;
    case Takes::RowsAndPlace: {
        const auto [rows, place] = splitAt(value, ':');
        operation.rows = parseRows(operation.text, rows);
        operation.behind = parseRow(operation.text, place, 0);
        break;
    }
    case Takes::Stock:
        operation.stock = parseStock(operation, value);
        break;
    case Takes::PlaceAndStock: {
        const auto [place, stock] = splitAt(value, ',');
        operation.behind = parseRow(operation.text, place, 0);
        operation.stock = parseStock(operation, stock);
        break;
    }
    }
}

void checkRow(const EditOperation &operation, const document::ConsistTree &consist, int row)
{
    const int rows = static_cast<int>(consist.Rows().size());
    if (row > rows)
        throw Failure(operation.text + ": no such row, there are " + std::to_string(rows));
}

std::vector<int> rowsOf(const EditOperation &operation, const document::ConsistTree &consist)
{
    std::vector<int> rows;
    for (const auto &[first, last] : operation.rows) {
        checkRow(operation, consist, last);
        for (int row = first; row <= last; ++row)
            rows.push_back(row);
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

} // namespace

EditOperation ParseEditOperation(const std::string &text)
{
    const std::size_t equals = text.find('=');
    const std::string_view name = std::string_view(text).substr(0, equals);
    const auto known = std::find_if(std::begin(kVerbs), std::end(kVerbs),
                                    [name](const VerbRow &row) { return row.name == name; });
    if (known == std::end(kVerbs))
        refuse(text, "expected add=, insert=, copy=, move=, remove=, clear, forwards=, backwards=, "
                     "flip= or reverse");
    if (known->takes == Takes::Nothing && equals != std::string::npos)
        refuse(text, std::string(known->name) + " takes no row");
    EditOperation operation;
    operation.text = text;
    operation.verb = known->verb;
    parseValue(operation, known->takes,
               equals == std::string::npos ? "" : std::string_view(text).substr(equals + 1));
    return operation;
}

document::EditResult Perform(const EditOperation &operation, document::ConsistTree &consist,
                             host::GameFiles &files)
{
    const std::vector<int> rows = rowsOf(operation, consist);
    checkRow(operation, consist, operation.behind);
    const int place = operation.behind + 1;
    switch (operation.verb) {
    case EditVerb::Add:
        return consist.Edit(Move::Add, {}, {operation.stock});
    case EditVerb::Insert:
        return consist.Insert({operation.stock}, place);
    case EditVerb::Copy: {
        const document::CopiedUnits copied = document::CopyUnits(consist, rows, files);
        return consist.Paste(document::UnitsInBlocks(copied.blocks, files), place);
    }
    case EditVerb::Move:
        return consist.MoveTo(rows, place);
    case EditVerb::Remove:
        return consist.Edit(Move::Remove, rows);
    case EditVerb::Clear:
        return consist.Edit(Move::RemoveAll, rows);
    case EditVerb::Forwards:
        return consist.Edit(Move::Forwards, rows);
    case EditVerb::Backwards:
        return consist.Edit(Move::Backwards, rows);
    case EditVerb::Flip:
        return consist.Edit(Move::Flip, rows);
    case EditVerb::Reverse:
        break;
    }
    return consist.Reverse();
}

} // namespace zelkctl
