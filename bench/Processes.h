// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace bench {

/// Runs a program (found on the path) to its end and discards its output. Ends this program with a
/// message if the other cannot be run or fails.
void RunQuietly(const std::vector<std::string> &command);
/// Like RunQuietly, but returns what the program wrote to its standard output.
std::string RunForOutput(const std::vector<std::string> &command);

/// Returns the peak memory in MiB that `work` needs beyond the current memory of this process. The
/// work is done in a child process.
double PeakMebibytes(const std::function<void()> &work);

/// Returns the memory in MiB that this process occupies now.
double ResidentMebibytes();

/// Returns the processor time, in milliseconds, that this process and the children that it waited
/// for have used. Other programs on the machine affect it less than wall-clock time.
double ProcessorMilliseconds();

/// Flushes the file's content to the disk.
void FlushToDisk(const std::filesystem::path &file);

/// Creates an empty folder in the folder for temporary files and returns its path.
std::filesystem::path MakeTemporaryFolder();

} // namespace bench
