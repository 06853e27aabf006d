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

} // namespace

void Output::Write(std::string_view text)
{
    m_buffer += text;
    if (m_buffer.size() >= kPiece)
        writeOut(m_buffer.rfind('\n') + 1); // a console must get whole characters
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
