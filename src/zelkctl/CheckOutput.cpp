// SPDX-License-Identifier: MIT
#include "CheckOutput.h"

#include "Session.h"
#include "host/Console.h"
#include "validation/ResultKey.h"
#include "validation/TSValidation.h"

namespace zelkctl {
namespace {

constexpr std::size_t kColumns = 79;
constexpr std::chrono::milliseconds kBetweenDrawings(50);
constexpr const char *kEmptyLine = "\r\x1b[K";

void writeError(const std::string &text)
{
    host::WriteTo(host::Stream::Error, text); // nobody can be told when that fails
}

/// As much of a text as fits into one line.
std::string_view fitting(std::string_view text)
{
    std::size_t columns = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool continues = (static_cast<unsigned char>(text[i]) & 0xC0) == 0x80;
        if (!continues && ++columns > kColumns)
            return text.substr(0, i);
    }
    return text;
}

} // namespace

ProgressLine::ProgressLine(bool wanted)
    : m_wanted(wanted && host::IsTerminal(host::Stream::Error))
{
}

void ProgressLine::SetPlace(std::size_t done, std::size_t total)
{
    m_place = std::to_string(100 * done / total) + "% ";
}

void ProgressLine::Show(std::string_view message)
{
    const auto now = std::chrono::steady_clock::now();
    if (!m_wanted || now - m_drawn < kBetweenDrawings)
        return;
    const std::string line = m_place + std::string(message);
    writeError(kEmptyLine + std::string(fitting(line)));
    m_shown = true;
    m_drawn = now;
}

void ProgressLine::Clear()
{
    if (m_shown)
        writeError(kEmptyLine);
    m_shown = false;
}

CheckOutput::CheckOutput(Session &session, bool json, bool quiet)
    : m_session(session)
    , m_entries(session.out, json)
    , m_progress(!quiet)
{
}

void CheckOutput::Add(std::int16_t code, const std::string &file, const std::string &dependent)
{
    const std::string line =
        TSValidation::TranslateError(validation::ResultKey(code, file, dependent));
    m_progress.Clear();
    m_entries.Add(line, {{"code", std::to_string(code), true},
                         {"verdict", validation::VerdictName(code)},
                         {"file", file},
                         {"dependent", dependent},
                         {"text", line}});
    m_report += line + '\n';
    m_hasErrors = m_hasErrors || line.starts_with("ERROR: ");
}

void CheckOutput::AddFailure(const std::string &line)
{
    m_progress.Clear();
    m_session.out.Flush();
    writeError("zelkctl: " + line + '\n');
    m_hasFailures = true;
}

void CheckOutput::End()
{
    m_progress.Clear();
    m_entries.End();
}

} // namespace zelkctl
