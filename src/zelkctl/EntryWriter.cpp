// SPDX-License-Identifier: MIT
#include "zelkctl/EntryWriter.h"

namespace zelkctl {

void EntryWriter::Add(const std::string &line, std::initializer_list<Member> members)
{
    if (m_json) {
        addObject(members);
        return;
    }
    m_out.Write(line);
    m_out.Write("\n");
}

void EntryWriter::End()
{
    if (m_json)
        m_out.Write(m_empty ? "[]\n" : "\n]\n");
}

void EntryWriter::addObject(std::initializer_list<Member> members)
{
    const char *separator = m_empty ? "[\n{" : ",\n{";
    m_empty = false;
    for (const Member &member : members) {
        m_out.Write(separator);
        m_out.WriteJson(member.key);
        m_out.Write(":");
        if (member.isLiteral)
            m_out.Write(member.value);
        else
            m_out.WriteJson(member.value);
        separator = ",";
    }
    m_out.Write("}");
}

} // namespace zelkctl
