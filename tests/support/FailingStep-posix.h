// SPDX-License-Identifier: MIT
#pragma once

namespace support {

/// Lets one of the questions that the program puts to the system go wrong: opening, reading,
/// writing, renaming, deleting, listing, asking for permissions and so on, counted from 0 in the
/// order in which they are asked while the object lives. Only calls in our own code count; what
/// the standard library asks is answered as ever. Of the names in a folder only the second counts,
/// so that steps are as many as always where others work, too. One at a time, for one thread.
///
/// Belongs to programs that link zelk_failing_step.
class FailingStep
{
public:
    static constexpr int kNone = -1;
    static constexpr int kExitCode = 99;

    /// Step number `step` (kNone for none of them) is refused with the error of the system.
    FailingStep(int step, int error);
    /// The process ends at the step, with kExitCode, before it is done.
    struct EndsProcess
    {
    };
    FailingStep(int step, EndsProcess);
    ~FailingStep();
    FailingStep(const FailingStep &) = delete;
    FailingStep &operator=(const FailingStep &) = delete;

    /// How many steps there were so far.
    int Count() const;
    /// The name of the call that was refused, "" for none so far.
    const char *Refused() const;
};

} // namespace support
