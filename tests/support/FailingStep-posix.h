// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace support {

/// Makes one system call of the program fail: opening, reading, writing, renaming, deleting,
/// listing, asking for permissions and so on. Calls count from 0, in their order during the life of
/// the object. Only calls in our own code count; those of the standard library are not affected.
/// Only the second name read from a folder counts as a step, so that their number stays the same if
/// other files are in the folder. Only one object may exist at a time, for one thread.
///
/// Programs that use it link zelk_failing_step.
class FailingStep
{
public:
    static constexpr int kNone = -1;
    static constexpr int kExitCode = 99;

    /// Makes step number `step` (kNone for none) fail with this errno value.
    FailingStep(int step, int error);
    /// Ends the process with kExitCode just before the step.
    struct EndsProcess
    {
    };
    FailingStep(int step, EndsProcess);
    /// Makes every write from step number `step` on fail with ENOSPC.
    struct FillsDisk
    {
    };
    FailingStep(int step, FillsDisk);
    ~FailingStep();
    FailingStep(const FailingStep &) = delete;
    FailingStep &operator=(const FailingStep &) = delete;

    /// Returns the number of steps so far.
    int Count() const;
    /// Returns the names of the calls so far, in order.
    const std::vector<std::string> &Calls() const;
    /// Returns the name of the call that failed, or "" if none did yet.
    const char *Refused() const;
};

} // namespace support
