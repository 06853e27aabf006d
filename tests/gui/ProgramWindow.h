// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// Asks a process's window with this title to close, as its user would. Returns false if the
/// process does not show it (yet).
bool CloseWindowOf(long long process, const std::string &title);
/// Returns whether CloseWindowOf works here: it may need a certain kind of display.
bool CanCloseWindows();
/// Presses a key, with the name that X gives it, in such a window. Returns false if the process
/// does not show it (yet). Only on systems with X.
bool PressKeyIn(long long process, const std::string &title, const char *key);
