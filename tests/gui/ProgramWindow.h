// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// Asks a process's window with this title to close, as its user would. Returns false if the
/// process does not show it (yet).
bool CloseWindowOf(long long process, const std::string &title);
/// Returns whether CloseWindowOf works here: it may need a certain kind of display.
bool CanCloseWindows();
