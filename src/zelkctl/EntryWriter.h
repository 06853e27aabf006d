// SPDX-License-Identifier: MIT
#pragma once

#include "zelkctl/Output.h"

#include <initializer_list>
#include <string>
#include <string_view>

namespace zelkctl {

/// Writes entries, one per line: as plain text, or as the objects of a JSON array.
class EntryWriter
{
public:
    struct Member
    {
        std::string_view key, value;
        bool isLiteral = false; ///< `value` is a number or null, written without quotes
    };

    EntryWriter(Output &out, bool json)
        : m_out(out)
        , m_json(json)
    {
    }

    void Add(const std::string &line, std::initializer_list<Member> members);
    void End();

private:
    void addObject(std::initializer_list<Member> members);

    Output &m_out;
    bool m_json;
    bool m_empty = true;
};

} // namespace zelkctl
