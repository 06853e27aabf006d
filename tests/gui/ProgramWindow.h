// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// Asks the window of this title that a process shows to close, as its user would do; false when
/// the process shows none (yet).
bool CloseWindowOf(long long process, const std::string &title);
/// Whether CloseWindowOf can do anything here: it may need a display of a certain kind.
bool CanCloseWindows();
