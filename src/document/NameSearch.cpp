// SPDX-License-Identifier: MIT
#include "document/NameSearch.h"

#include <algorithm>

namespace document {
namespace {

char upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}

std::string upperCase(std::string_view text)
{
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), upper);
    return result;
}

/// Returns the bytes of a text in UTF-16 without those before its first and behind its last
/// character: they are the same in both byte orders.
std::string inUtf16(std::string_view text)
{
    std::string wide;
    for (const char c : text) {
        if (!wide.empty())
            wide += '\0';
        wide += c;
    }
    return wide;
}

bool isPlain(char c)
{
    return c > ' ' && c < '\x7f' && c != '"' && c != '\\';
}

} // namespace

NameSearch::Pattern::Pattern(std::string upperCase)
    : m_text(std::move(upperCase))
{
    m_steps.fill(m_text.size());
    for (std::size_t i = 0; i + 1 < m_text.size(); ++i) {
        const char c = m_text[i];
        m_steps[static_cast<unsigned char>(c)] = m_text.size() - 1 - i;
        if (c >= 'A' && c <= 'Z')
            m_steps[static_cast<unsigned char>(c + 32)] = m_text.size() - 1 - i;
    }
}

bool NameSearch::Pattern::IsIn(std::string_view bytes) const
{
    const std::size_t size = m_text.size();
    if (size == 0)
        return true;
    for (std::size_t at = 0; at + size <= bytes.size();) {
        const char last = bytes[at + size - 1];
        if (upper(last) == m_text.back() &&
            std::equal(m_text.begin(), m_text.end() - 1,
                       bytes.begin() + static_cast<std::ptrdiff_t>(at),
                       [](char wanted, char c) { return wanted == upper(c); }))
            return true;
        at += m_steps[static_cast<unsigned char>(last)];
    }
    return false;
}

NameSearch::NameSearch(std::string_view text)
    : m_narrow(upperCase(text))
    , m_wide(inUtf16(upperCase(text)))
{
}

std::string_view PlainRun(std::string_view text)
{
    std::string_view longest;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = at;
        while (end < text.size() && isPlain(text[end]))
            ++end;
        if (end - at > longest.size())
            longest = text.substr(at, end - at);
        at = end + 1;
    }
    return longest;
}

bool MaySpellOddly(std::string_view bytes)
{
    return bytes.find('+') != bytes.npos || bytes.find('\\') != bytes.npos;
}

} // namespace document
