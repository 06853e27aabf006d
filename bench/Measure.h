// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace bench {

/// Something that is measured beside its yardstick.
struct Row
{
    std::string what;
    std::string yardstick;
    double value = 0;
    double yardstickValue = 0;
    std::string unit = "ms";
    double processor = 0; ///< ratio of the processor times; 0 where they were not measured
};

/// A table of the rows with their ratios, on the standard output: of what was measured, and of the
/// processor time of both sides.
void PrintTable(const std::vector<Row> &rows);

/// Duration of one call, in milliseconds.
double Milliseconds(const std::function<void()> &work);

/// Runs both by turns and fills in the shortest time of each: what disturbs a run only adds. Of the
/// processor times, which are disturbed less and counted coarsely, it takes the sums.
Row Compare(std::string what, const std::function<void()> &work, std::string yardstick,
            const std::function<void()> &yardstickWork, int rounds = 7);

} // namespace bench
