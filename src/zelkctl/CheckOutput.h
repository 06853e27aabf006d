// SPDX-License-Identifier: MIT
#pragma once

#include "EntryWriter.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
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

/// Where the checks of one command leave their findings: report lines or JSON on the standard
/// output, errors on the standard error; and what the exit code will be.
class CheckOutput
{
public:
    CheckOutput(Session &session, bool json, bool quiet);

    /// A verdict, in the order of the report.
    void Add(std::int16_t code, const std::string &file, const std::string &dependent);
    /// Why a check could not be done.
    void AddFailure(const std::string &line);
    void End();

    ProgressLine &Progress() { return m_progress; }
    /// All report lines so far, each with its line end.
    const std::string &Report() const { return m_report; }
    /// 1 when something is wrong with the content, else 2 when a check could not be done, else 0.
    int ExitCode() const { return m_hasErrors ? 1 : m_hasFailures ? 2 : 0; }

private:
    Session &m_session;
    EntryWriter m_entries;
    ProgressLine m_progress;
    std::string m_report;
    bool m_hasErrors = false, m_hasFailures = false;
};

} // namespace zelkctl
