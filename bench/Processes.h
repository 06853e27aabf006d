// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace bench {

/// Runs a program (found on the path) to its end with its output thrown away. Ends this program
/// with a message when it cannot be run or fails.
void RunQuietly(const std::vector<std::string> &command);
/// The same, giving what the program wrote to its standard output.
std::string RunForOutput(const std::vector<std::string> &command);

/// Peak memory in MiB that `work` needs beyond what this process holds already, measured in a
/// process of its own.
double PeakMebibytes(const std::function<void()> &work);

/// Processor time that this process and those that it waited for have used, in milliseconds: other
/// programs on the machine change it less than the time on the clock.
double ProcessorMilliseconds();

/// Makes sure that the file's content is on the disk.
void FlushToDisk(const std::filesystem::path &file);

/// A new empty folder below the folder for temporary files.
std::filesystem::path MakeTemporaryFolder();

} // namespace bench
