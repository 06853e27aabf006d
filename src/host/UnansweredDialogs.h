// SPDX-License-Identifier: MIT
#pragma once

#include "host/Dialogs.h"

namespace host {

/// Where nobody can be asked: every question for a text, a file or a choice is cancelled. What is
/// told is left to those who derive from it.
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
