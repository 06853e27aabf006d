// SPDX-License-Identifier: MIT
#include "zelkctl/Output.h"

#include "host/Console.h"
#include "zelkctl/Session.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace zelkctl {
namespace {

constexpr std::size_t kPiece = 1u << 16;

/// True if JSON needs no escapes for the text. Nearly all values are plain, and large files have
/// millions of them.
bool isPlain(std::string_view text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return c >= ' ' && c < '\x7f' && c != '"' && c != '\\'; });
}

/// Returns the length of a text without the incomplete character at its end.
std::size_t wholeCharacters(std::string_view text)
{
    for (std::size_t behind = 1; behind <= std::min<std::size_t>(3, text.size()); ++behind) {
        const auto byte = static_cast<unsigned char>(text[text.size() - behind]);
        if (byte < 0x80)
            break;
        if (byte < 0xC0)
            continue; // not the first byte of a character
        const std::size_t length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : 2;
        return length > behind ? text.size() - behind : text.size();
    }
    return text.size();
}

} // namespace

void Output::Write(std::string_view text)
{
    m_buffer += text;
    if (m_buffer.size() < kPiece)
        return;
    // Whole lines if possible. Otherwise the line is longer than a piece: it must not be searched
    // again and again while it grows. A console must get whole characters.
    const std::size_t newLine = m_buffer.rfind('\n');
    writeOut(newLine != m_buffer.npos ? newLine + 1 : wholeCharacters(m_buffer));
}

void Output::WriteJson(std::string_view text)
{
    if (isPlain(text)) {
        m_buffer += '"';
        m_buffer += text;
        Write("\"");
        return;
    }
    using Json = nlohmann::json;
    Write(Json(text).dump(-1, ' ', false, Json::error_handler_t::replace));
}

void Output::Flush()
{
    writeOut(m_buffer.size());
}

void Output::writeOut(std::size_t count)
{
    const auto failure =
        host::WriteTo(host::Stream::Output, std::string_view(m_buffer).substr(0, count));
    m_buffer.erase(0, failure ? m_buffer.size() : count);
    if (!failure || (failure->readerGone && m_outlivesReader))
        return;
    if (failure->readerGone)
        throw ReaderGone();
    throw Failure("standard output: " + failure->reason);
}

} // namespace zelkctl
