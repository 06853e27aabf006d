// SPDX-License-Identifier: MIT
#pragma once

#include "host/Ahead.h"
#include "host/OpenFolder.h"
#include "validation/Content.h"
#include "validation/Outcome.h"
#include "validation/TSValidation.h"

#include <chrono>
#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace validation {

/// Checks one file; several calls may use `content` at once.
using FileCheck = Verdict (*)(Content &content, const std::string &fileName, Findings &findings);

} // namespace validation

/// One check of a TSValidation from beginning to end: gives work to the workers, reports what they
/// found, keeps the window responsive. Throws RuntimeError 5 if another check is running.
class TSValidation::Run
{
public:
    explicit Run(TSValidation &owner);
    ~Run() { m_owner.m_running = false; }
    Run(const Run &) = delete;
    Run &operator=(const Run &) = delete;

    validation::Content &Files() { return m_content; }
    /// Returns the installation folder & "\" & `relative`.
    std::string PathOf(std::string_view relative) const;

    /// Returns false if no handler receives messages, so that none need be created.
    bool WantsMessages() const { return m_wantsMessages; }
    void RaiseMessage(const std::string &message, std::int16_t level = 0) const;
    void RaiseProgress(std::size_t index, std::size_t total) const;
    /// Reports a verdict and returns it.
    validation::Verdict Record(validation::Verdict verdict, const std::string &file,
                               const std::string &dependent);

    /// Checks one file, reports its findings and returns its verdict's code; rethrows its
    /// exception.
    std::int16_t CheckFile(validation::FileCheck check, std::string_view fileName);
    /// The two steps of CheckFile: a worker may do the first. Without `messages` the check's own
    /// progress lines are left out.
    validation::Outcome OutcomeOf(validation::FileCheck check, const std::string &fileName,
                                  bool messages = true);
    /// Returns an empty list that takes what the handlers want.
    validation::Findings NewFindings(bool messages) const
    {
        return validation::Findings(m_verbose, m_wantsMessages && messages);
    }
    validation::Verdict Deliver(const validation::Outcome &outcome);

    /// Runs jobs 0 to count-1 on the workers and takes their results in order, until there are no
    /// more or the check is stopped. A single worker is the caller's thread, unless that has to
    /// process events: a second thread would make every use of files and memory slower. The job
    /// must not throw.
    template <typename Result, typename Job, typename Take>
    void Each(std::size_t count, const Job &job, const Take &take)
    {
        if (m_owner.m_stopped || count == 0)
            return;
        if (m_owner.m_workers <= 1 && !m_owner.ProcessEvents)
            eachHere(count, job, take);
        else
            eachAhead<Result>(count, job, take);
    }

private:
    template <typename Job, typename Take>
    void eachHere(std::size_t count, const Job &job, const Take &take) const
    {
        const host::disk::OpenFolder folder;
        for (std::size_t i = 0; i < count && !m_owner.m_stopped; ++i)
            take(i, job(i));
    }
    template <typename Result, typename Job, typename Take>
    void eachAhead(std::size_t count, const Job &job, const Take &take) const
    {
        host::Ahead<Result> ahead(count, job, m_owner.m_workers, kAhead);
        for (std::size_t i = 0; i < count; ++i) {
            const std::optional<Result> result = next(ahead);
            if (!result)
                return;
            take(i, *result);
            pump();
            if (m_owner.m_stopped)
                return;
        }
    }

    /// Longest time without window events while a check waits for a file.
    static constexpr std::chrono::milliseconds kPause{10};
    /// Number of results that may wait to be reported: enough for the workers while the window
    /// paints.
    static constexpr std::size_t kAhead = 512;

    void pump() const;
    /// Returns the next result and processes window events while it waits; nothing if stopped.
    template <typename Result> std::optional<Result> next(host::Ahead<Result> &ahead) const
    {
        if (!m_owner.ProcessEvents)
            return ahead.Take();
        for (;;) {
            if (auto result = ahead.TakeFor(kPause))
                return result;
            pump();
            if (m_owner.m_stopped)
                return std::nullopt;
        }
    }
    /// Every finding is reported through this function.
    void report(const validation::Finding &finding);

    TSValidation &m_owner;
    validation::Content m_content;
    bool m_verbose, m_wantsMessages;
};
