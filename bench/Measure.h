// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace bench {

/// One measurement and its yardstick.
struct Row
{
    std::string what;
    std::string yardstick;
    double value = 0;
    double yardstickValue = 0;
    std::string unit = "ms";
    double processor = 0; ///< ratio of the processor times; 0 if not measured
};

/// Prints a table of the rows to standard output, with the ratios of the measured values and of the
/// processor times. Adds them to the file named by ZELK_BENCH_ROWS, too, if it is set.
void PrintTable(const std::vector<Row> &rows);

/// Returns the duration of one call, in milliseconds.
double Milliseconds(const std::function<void()> &work);

/// Reads files from start to end, in blocks of 1 MiB. Ends the program if one cannot be opened.
void ReadOnce(const std::vector<std::string> &files);

/// Returns a folder and all folders below it.
std::vector<std::string> FoldersBelow(const std::string &folder);
/// Lists each folder once. Ends the program if one cannot be listed.
void ListOnce(const std::vector<std::string> &folders);

/// Runs both alternately and stores the shortest time of each, because disturbances only add time.
/// For processor times it uses the sums, because they are disturbed less and their clock is coarse.
Row Compare(std::string what, const std::function<void()> &work, std::string yardstick,
            const std::function<void()> &yardstickWork, int rounds = 7);

} // namespace bench
