// SPDX-License-Identifier: MIT
#pragma once

#include "host/UnansweredDialogs.h"

#include <string>
#include <vector>

namespace viewer {

/// The message boxes of one loading. Shows each text once, however many vehicles it concerns,
/// ignoring letter case as in file names. After the user has cancelled a box, shows no more. Keeps
/// all texts for the report.
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
    /// Returns the different texts in order of arrival, including those that were not shown.
    const std::vector<std::string> &Texts() const { return m_texts; }
    /// Forgets everything, before a new loading, which can be a silent one without boxes.
    void Clear(bool silent = false);

private:
    host::Dialogs &m_dialogs;
    std::vector<std::string> m_texts;
    bool m_silent = false;
};

} // namespace viewer
