// SPDX-License-Identifier: MIT
#pragma once

#include "validation/Finding.h"

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace validation {

/// The output of a check, in order: findings and progress lines. A check knows nothing else about
/// its caller, so it can run on a worker.
class Findings
{
public:
    using Entry = std::variant<Finding, std::string>; ///< a finding, or a progress line

    /// Drops valid verdicts unless `verbose`, and progress lines unless `messages`.
    explicit Findings(bool verbose = false, bool messages = true)
        : m_verbose(verbose)
        , m_messages(messages)
    {
    }
    bool Verbose() const { return m_verbose; }
    bool Messages() const { return m_messages; }

    /// Records a verdict and returns it.
    Verdict Record(Verdict verdict, std::string_view file, std::string_view dependent = {});
    /// Adds the progress line that consists of these two texts.
    void Message(std::string_view text, std::string_view rest = {})
    {
        if (m_messages)
            m_entries.emplace_back(std::string(text).append(rest));
    }

    const std::vector<Entry> &Entries() const { return m_entries; }

private:
    bool m_verbose, m_messages;
    std::vector<Entry> m_entries;
};

} // namespace validation
