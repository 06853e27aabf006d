// SPDX-License-Identifier: MIT
#include "validation/SelectorEntries.h"

#include "host/Text.h"

namespace validation {

namespace {

SelectorEntry entryOf(const std::string &text)
{
    const std::size_t bracket = text.find('(');
    if (bracket == std::string::npos)
        return {std::string(host::TrimBlanks(text)), text + " route"};
    std::string detail = text.substr(bracket + 1);
    std::erase(detail, ')');
    return {std::string(host::TrimBlanks(text.substr(0, bracket))),
            std::string(host::TrimBlanks(detail))};
}

} // namespace

std::vector<SelectorEntry> SelectorEntries(std::string_view list)
{
    std::vector<SelectorEntry> entries;
    for (const std::string &text : host::Split(list, '|'))
        entries.push_back(entryOf(text));
    return entries;
}

} // namespace validation
