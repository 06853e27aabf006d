// SPDX-License-Identifier: MIT
#pragma once

#include "host/Ahead.h"
#include "validation/Content.h"
#include "validation/Findings.h"
#include "validation/TSValidation.h"

#include <chrono>
#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace validation {

/// What one check of one file gave.
struct Outcome
{
    Findings findings;
    std::int16_t verdict = TSValidation::IsValid;
    std::exception_ptr error = nullptr; ///< what left the check; the verdict means nothing then
};

/// The check of one file; `Content` may be used by several at once.
using FileCheck = std::int16_t (*)(Content &content, const std::string &fileName,
                                   Findings &findings);

} // namespace validation

/// One check of a TSValidation from its beginning to its end: gives work to the workers, tells what
/// they found, keeps the window alive. RuntimeError 5 when another one runs.
class TSValidation::Run
{
public:
    explicit Run(TSValidation &owner);
    ~Run() { m_owner.m_running = false; }
    Run(const Run &) = delete;
    Run &operator=(const Run &) = delete;

    validation::Content &Files() { return m_content; }
    /// Installation folder & "\" & `relative`.
    std::string PathOf(std::string_view relative) const;

    /// False when nobody hears messages, so that none needs to be made.
    bool WantsMessages() const { return m_wantsMessages; }
    void RaiseMessage(const std::string &message, std::int16_t level = 0) const;
    void RaiseProgress(std::size_t index, std::size_t total) const;
    /// Reports a verdict and gives it back.
    std::int16_t Record(std::int16_t code, const std::string &file, const std::string &dependent);

    /// The check of one file, told; its error leaves.
    std::int16_t CheckFile(validation::FileCheck check, std::string_view fileName);
    /// CheckFile in two steps, of which the first may be done by a worker. Without `messages` the
    /// check's own progress lines are left out.
    validation::Outcome OutcomeOf(validation::FileCheck check, const std::string &fileName,
                                  bool messages = true);
    std::int16_t Deliver(const validation::Outcome &outcome);

    /// Does jobs 0 to count-1 on the workers and takes their results in order, until there are no
    /// more or the check is stopped. The job must not throw.
    template <typename Result, typename Job, typename Take>
    void Each(std::size_t count, const Job &job, const Take &take)
    {
        if (m_owner.m_stopped || count == 0)
            return;
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

private:
    /// How long the window goes without its events while a check waits for a file.
    static constexpr std::chrono::milliseconds kPause{10};
    /// Results that may wait for being told: enough for the workers while the window paints.
    static constexpr std::size_t kAhead = 512;

    void pump() const;
    /// The next result, with the window alive while it waits; nothing when stopped meanwhile.
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
    /// The only way in which a finding is reported.
    void report(const validation::Finding &finding);

    TSValidation &m_owner;
    validation::Content m_content;
    bool m_verbose, m_wantsMessages;
};
