// SPDX-License-Identifier: MIT
// Texts of search fields: letter case and blanks around them do not matter, and a text without
// terms and quotes finds exactly the vehicles that contain all its words.
#include "Input.h"
#include "content/SearchTerms.h"
#include "content/StockQuery.h"
#include "host/Text.h"

#include <memory>
#include <sstream>

namespace {

std::vector<content::SearchedStock> makeStock()
{
    auto facts = std::make_shared<content::StockFacts>();
    facts->name = "A b \xC3\xA9";
    facts->kinds = "ENGINE DIESEL";
    facts->coupling = "Automatic, Bar";
    for (content::StockFacts::Number &number : facts->numbers)
        number = {content::Figure::State::Known, 20};
    return {content::SearchedStockOf({"Engine", "my folder", "ab"}, facts),
            content::SearchedStockOf({"Wagon*", "b", "length>20"}, nullptr)};
}

bool holdsAllWords(const std::string &key, const std::string &text)
{
    std::istringstream words(text);
    for (std::string word; words >> word;)
        if (key.find(word) == key.npos)
            return false;
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const std::vector<content::SearchedStock> stock = makeStock();
    Input input(data, size);
    const auto system = input.Byte() & 1 ? content::UnitSystem::Metric : content::UnitSystem::Us;
    const std::string text(input.Rest());
    const content::StockQuery query(text, system), upper(' ' + host::ToUpper(text), system);
    const bool isPlain = text.find_first_not_of("abcdefgh lonty") == text.npos;
    for (const content::SearchedStock &vehicle : stock) {
        Require(query.Matches(vehicle) == upper.Matches(vehicle));
        Require(!query.IsEmpty() || query.Matches(vehicle));
        Require(!isPlain ||
                query.Matches(vehicle) == holdsAllWords(vehicle.key, host::ToUpper(text)));
    }
    const content::ConsistQuery consists(text);
    Require(!consists.IsEmpty() || consists.Matches("X", ""));
    for (const content::SearchTerm &term : content::SplitSearch(text))
        Require(term.IsWord() ? term.key.empty() : !term.key.empty());
    return 0;
}
