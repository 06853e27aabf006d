// SPDX-License-Identifier: MIT
#pragma once

#include "host/UnansweredDialogs.h"

#include <string>
#include <vector>

namespace viewer {

/// The message boxes of one loading. Each text is shown once, however many vehicles it concerns
/// (letter case is ignored, as in file names), and none after the user has dismissed a box. All
/// texts are kept for the report.
class LoadMessages : public host::UnansweredDialogs
{
public:
    /// Shows its boxes through `dialogs`, which must outlive it.
    explicit LoadMessages(host::Dialogs &dialogs)
        : m_dialogs(dialogs)
    {
    }

    host::DialogAnswer Message(const std::string &text, const std::string &title,
                               host::DialogIcon icon, host::DialogButtons buttons) override;
    /// The different texts in the order in which they came, also those that were not shown.
    const std::vector<std::string> &Texts() const { return m_texts; }
    /// Forgets everything, for a new loading.
    void Clear();

private:
    host::Dialogs &m_dialogs;
    std::vector<std::string> m_texts;
    bool m_silent = false;
};

} // namespace viewer
