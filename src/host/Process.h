// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace host {

/// Runs another program with these arguments, which reach it as they are, and waits for its end.
/// It shares this program's standard streams. Its exit code; a program that was ended by a signal
/// gives 128 and more. RuntimeError 53 when it cannot be started.
int RunAndWait(const std::string &program, const std::vector<std::string> &arguments);

/// The path of a program of ours that lies beside the running one.
std::string ProgramBeside(const std::string &name);

} // namespace host
