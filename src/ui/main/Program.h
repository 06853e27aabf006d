// SPDX-License-Identifier: MIT
#pragma once

#include "ui/main/frmMain.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace app {

/// What `--version` and `--help`, as the sole argument, print; nothing for any other command line.
std::optional<std::string> AnswerTo(std::string_view commandLine);

/// The start-up order: makes the main window, titles it, opens the file named on the command line
/// (app/GivenFile.h) and shows the window. The services must outlive it.
std::unique_ptr<frmMain> StartMainWindow(const Services &services, const std::string &commandLine);

/// The whole program; the result is its exit code.
int RunProgram(int argc, char **argv);

} // namespace app
