// SPDX-License-Identifier: MIT
#pragma once

#include "host/Dialogs.h"

namespace host {

/// Dialogs for non-interactive use: every prompt for a text, a file or a choice is cancelled.
/// Subclasses decide what to do with messages.
class UnansweredDialogs : public Dialogs
{
public:
    std::optional<std::string> Input(const std::string &, const std::string &,
                                     const std::string &) override
    {
        return std::nullopt;
    }
    std::string OpenFile(const FileDialogRequest &) override { return {}; }
    std::string SaveFile(const FileDialogRequest &) override { return {}; }
    std::string SelectFromList(const std::string &, const std::string &) override { return {}; }
};

} // namespace host
