// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace validation {

/// What a check has to tell, in order: verdicts and progress lines. A check knows nothing else of
/// its caller, so it can run on a worker.
class Findings
{
public:
    struct Entry
    {
        bool isMessage = false;
        std::int16_t code = 0;
        std::string text; ///< of a message, or the file that a verdict is about
        std::string dependent;
    };

    /// Without `verbose` valid verdicts leave no trace, without `messages` progress lines.
    explicit Findings(bool verbose = false, bool messages = true)
        : m_verbose(verbose)
        , m_messages(messages)
    {
    }
    bool Verbose() const { return m_verbose; }

    /// Records a verdict and gives it back.
    std::int16_t Record(std::int16_t code, std::string file, std::string dependent = {});
    void Message(std::string_view text)
    {
        if (m_messages)
            m_entries.push_back({true, 0, std::string(text), {}});
    }

    const std::vector<Entry> &Entries() const { return m_entries; }

private:
    bool m_verbose, m_messages;
    std::vector<Entry> m_entries;
};

} // namespace validation
