// SPDX-License-Identifier: MIT
#include "Output.h"

#include "Session.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <system_error>

namespace zelkctl {
namespace {

constexpr std::size_t kPiece = 1u << 16;

/// Text that stands in JSON as it is; nearly all values do, and large files have millions.
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
        Flush();
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
    errno = 0;
    const bool whole = std::fwrite(m_buffer.data(), 1, m_buffer.size(), stdout) == m_buffer.size();
    m_buffer.clear();
    if (!whole || std::fflush(stdout) != 0)
        throw Failure("standard output: " + std::generic_category().message(errno));
}

} // namespace zelkctl
