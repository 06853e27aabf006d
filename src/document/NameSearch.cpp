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

bool isPlain(char c)
{
    return c > ' ' && c < '\x7f' && c != '"' && c != '\\';
}

} // namespace

/// Horspool's search: the last character of the window decides how far to move.
NameSearch::NameSearch(std::string_view text)
    : m_text(upperCase(text))
{
    m_steps.fill(m_text.size());
    for (std::size_t i = 0; i + 1 < m_text.size(); ++i) {
        const char c = m_text[i];
        const std::size_t step = m_text.size() - 1 - i;
        m_steps[static_cast<unsigned char>(c)] = step;
        if (c >= 'A' && c <= 'Z')
            m_steps[static_cast<unsigned char>(c + 32)] = step;
    }
}

/// In UTF-16, the text is in every second byte. What the bytes between them are does not matter:
/// that could only be a name too many. Text without a byte order mark is UTF-16 only if there are
/// zeros near its start.
bool NameSearch::IsIn(std::string_view bytes) const
{
    constexpr std::size_t kStart = 64;
    if (m_text.empty())
        return true;
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"))
        return isIn(bytes, bytes[0] == '\xFF' ? 0 : 1, 2);
    const bool mayBeWide = bytes.substr(0, kStart).find('\0') != bytes.npos;
    return isIn(bytes, 0, 1) || (mayBeWide && (isIn(bytes, 0, 2) || isIn(bytes, 1, 2)));
}

bool NameSearch::isIn(std::string_view bytes, std::size_t first, std::size_t stride) const
{
    const std::size_t last = m_text.size() - 1;
    for (std::size_t at = first; at + last * stride < bytes.size();) {
        std::size_t left = m_text.size();
        while (left > 0 && upper(bytes[at + (left - 1) * stride]) == m_text[left - 1])
            --left;
        if (left == 0)
            return true;
        at += m_steps[static_cast<unsigned char>(bytes[at + last * stride])] * stride;
    }
    return false;
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
