// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace host {

/// Runs another program with exactly these arguments and waits until it ends. It shares this
/// program's standard streams. Returns its exit code, which is 128 or more if a signal ended it.
/// Throws RuntimeError 53 if it cannot be started.
int RunAndWait(const std::string &program, const std::vector<std::string> &arguments);

/// Lowers the priority of the calling thread for good, so that its work slows no other down.
void LowerThreadPriority();

/// Returns the path of one of our programs that is beside the running one.
std::string ProgramBeside(const std::string &name);

} // namespace host
