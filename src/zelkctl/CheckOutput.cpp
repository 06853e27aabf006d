// SPDX-License-Identifier: MIT
#include "zelkctl/CheckOutput.h"

#include "host/Console.h"
#include "host/Disk.h"
#include "zelkctl/Session.h"

namespace zelkctl {
namespace {

constexpr std::size_t kColumns = 79;
constexpr std::chrono::milliseconds kBetweenDrawings(50);
constexpr const char *kEmptyLine = "\r\x1b[K";

void writeError(const std::string &text)
{
    host::WriteTo(host::Stream::Error, text); // there is no other place to report a failure
}

/// Returns as much of a text as fits into one line.
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
    , m_json(json)
    , m_entries(session.out, json)
    , m_progress(!quiet)
{
}

EntryWriter::Member CheckOutput::pathOf(const std::string &file)
{
    // Subjects that are not files ("all consists", "Route X") have no path.
    if (m_json && file != m_file) {
        m_path = host::disk::RootLength(file) > 0 ? m_session.files.SpellingOf(file) : std::nullopt;
        m_file = file;
    }
    return m_path ? EntryWriter::Member{"path", *m_path}
                  : EntryWriter::Member{"path", "null", true};
}

void CheckOutput::Add(const validation::Finding &finding)
{
    const std::string line = ReportLine(finding);
    m_progress.Clear();
    m_entries.Add(line, {{"code", std::to_string(CodeOf(finding.verdict)), true},
                         {"verdict", validation::VerdictName(finding.verdict)},
                         {"file", finding.file},
                         pathOf(finding.file),
                         {"dependent", finding.dependent},
                         {"text", line}});
    m_report += line + '\n';
    m_hasErrors = m_hasErrors || IsError(finding);
}

void CheckOutput::AddFailure(const std::string &name, const std::string &file,
                             const host::RuntimeError &error)
{
    const std::string reason = NumberedReason(file, error);
    const std::string line = validation::OneLine(file + ": " + reason);
    m_progress.Clear();
    if (m_json)
        m_entries.Add(line, {{"code", "null", true},
                             {"file", file},
                             pathOf(file),
                             {"error", std::to_string(error.Number()), true},
                             {"text", line}});
    m_report += line + '\n';
    Remark(name + ": " + reason);
    m_hasFailures = true;
}

void CheckOutput::Remark(const std::string &line)
{
    m_progress.Clear();
    m_session.out.Flush();
    writeError("zelkctl: " + line + '\n');
}

void CheckOutput::End()
{
    m_progress.Clear();
    m_entries.End();
}

} // namespace zelkctl
