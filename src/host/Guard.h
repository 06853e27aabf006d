// SPDX-License-Identifier: MIT
#pragma once

#include "host/Dialogs.h"
#include "host/RuntimeError.h"

#include <exception>
#include <string>

namespace document {

/// The top level of a command: runs it, and shows a failure in one message box with this title.
/// Returns true if there was none. Lets no exception pass.
template <typename Command>
bool Guarded(host::Dialogs &dialogs, const std::string &title, Command &&command)
{
    try {
        command();
        return true;
    } catch (const std::exception &failure) {
        dialogs.Message(host::Explained(failure), title, host::DialogIcon::Critical);
        return false;
    }
}

} // namespace document
