// SPDX-License-Identifier: MIT
#pragma once

#include "host/RuntimeError.h"
#include "validation/Finding.h"
#include "zelkctl/EntryWriter.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zelkctl {

struct Session;

/// One line on standard error that shows the progress and is redrawn when it changes. Draws nothing
/// if standard error is not a terminal.
class ProgressLine
{
public:
    explicit ProgressLine(bool wanted);
    ~ProgressLine() { Clear(); }
    ProgressLine(const ProgressLine &) = delete;
    ProgressLine &operator=(const ProgressLine &) = delete;

    /// False if nothing will ever be drawn.
    bool IsWatched() const { return m_wanted; }
    void SetPlace(std::size_t done, std::size_t total);
    void Show(std::string_view message);
    /// Removes the line, so that something else can be written.
    void Clear();

private:
    bool m_wanted;
    bool m_shown = false;
    std::string m_place;
    std::chrono::steady_clock::time_point m_drawn;
};

/// Writes the findings of one command to standard output, as report lines or JSON. Also writes its
/// run-time errors to standard error. Keeps the report and the exit code.
class CheckOutput
{
public:
    CheckOutput(Session &session, bool json, bool quiet);

    /// Adds a finding. Call this in the order of the report.
    void Add(const validation::Finding &finding);
    /// Adds the run-time error that ended the check of `file`, which the user named `name`.
    void AddFailure(const std::string &name, const std::string &file,
                    const host::RuntimeError &error);
    /// Writes a line for the user that is not a finding.
    void Remark(const std::string &line);
    void End();

    ProgressLine &Progress() { return m_progress; }
    /// Returns all lines so far, including errors, each with its line end.
    const std::string &Report() const { return m_report; }
    /// Returns 1 if the content has errors, else 2 if a check could not be done, else 0.
    int ExitCode() const { return m_hasErrors ? 1 : m_hasFailures ? 2 : 0; }

private:
    /// Returns the JSON member "path": where the file is on this disk, or null.
    EntryWriter::Member pathOf(const std::string &file);

    Session &m_session;
    bool m_json;
    EntryWriter m_entries;
    ProgressLine m_progress;
    std::string m_report;
    std::string m_file; ///< the last one, since consecutive findings often share a file
    std::optional<std::string> m_path; ///< of that file
    bool m_hasErrors = false, m_hasFailures = false;
};

} // namespace zelkctl
