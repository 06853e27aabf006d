// SPDX-License-Identifier: MIT
#pragma once

#include "EntryWriter.h"
#include "host/RuntimeError.h"
#include "validation/Finding.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zelkctl {

struct Session;

/// One line on the standard error that says what is being done, drawn anew as it changes. Nothing
/// is drawn where nobody watches.
class ProgressLine
{
public:
    explicit ProgressLine(bool wanted);
    ~ProgressLine() { Clear(); }
    ProgressLine(const ProgressLine &) = delete;
    ProgressLine &operator=(const ProgressLine &) = delete;

    /// False when nothing will ever be drawn.
    bool IsWatched() const { return m_wanted; }
    void SetPlace(std::size_t done, std::size_t total);
    void Show(std::string_view message);
    /// Takes the line away, so that something else can be written.
    void Clear();

private:
    bool m_wanted;
    bool m_shown = false;
    std::string m_place;
    std::chrono::steady_clock::time_point m_drawn;
};

/// Writes the findings of one command: report lines or JSON on the standard output, run-time errors
/// on the standard error as well. Keeps the report and knows the exit code.
class CheckOutput
{
public:
    CheckOutput(Session &session, bool json, bool quiet);

    /// Call in the order of the report.
    void Add(const validation::Finding &finding);
    /// The check of `file`, which the user named `name`, ended in an error.
    void AddFailure(const std::string &name, const std::string &file,
                    const host::RuntimeError &error);
    /// A line for the user that is not a finding.
    void Remark(const std::string &line);
    void End();

    ProgressLine &Progress() { return m_progress; }
    /// All lines so far, errors included, each with its line end.
    const std::string &Report() const { return m_report; }
    /// 1 when something is wrong with the content, else 2 when a check could not be done, else 0.
    int ExitCode() const { return m_hasErrors ? 1 : m_hasFailures ? 2 : 0; }

private:
    /// The JSON member "path": where the file is on this disk, or null.
    EntryWriter::Member pathOf(const std::string &file);

    Session &m_session;
    bool m_json;
    EntryWriter m_entries;
    ProgressLine m_progress;
    std::string m_report;
    std::string m_file; ///< the last one asked for, since findings of one file follow each other
    std::optional<std::string> m_path; ///< of that file
    bool m_hasErrors = false, m_hasFailures = false;
};

} // namespace zelkctl
