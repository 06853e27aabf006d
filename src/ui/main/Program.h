// SPDX-License-Identifier: MIT
#pragma once

#include "ui/main/frmMain.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace app {

/// Returns the text that `--version` or `--help` prints as the only argument; nothing for any other
/// command line.
std::optional<std::string> AnswerTo(std::string_view commandLine);

/// Starts the program: creates the main window, sets its title, opens the file named on the command
/// line (app/GivenFile.h) and shows the window. The services must outlive the window.
std::unique_ptr<frmMain> StartMainWindow(const install::Environment &environment, Desktop &desktop,
                                         Printers &printers, const std::string &commandLine);

/// Runs the whole program; returns its exit code.
int RunProgram(int argc, char **argv);

} // namespace app
