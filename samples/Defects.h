// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace samples {

/// The command that finds a defect.
enum class Check
{
    Stock,   ///< the check of a stock file, and so that of all stock
    Shape,   ///< the check of a shape
    Consist, ///< the stock check of a consist
    Usage,   ///< the search for a stock item or a consist in consists or services
    None     ///< no check looks there
};

/// "stock", "shape", "consist", "usage" or "-".
const char *CheckName(Check check);

/// One fault that the sample has on purpose.
struct Defect
{
    Check check;
    std::string file; ///< the checked file as it lies on the disk, with "/"
    std::string what;
    /// The ERROR lines of the check, with "<MSTS>" for the installation folder and "\" in paths.
    std::vector<std::string> report = {};
    int error = 0; ///< number of the run-time error that ends the check, 0 for none
};

/// Everything that checks find wrong in the sample; all else is clean. First the faults, then the
/// shapes with which nothing is wrong but that they are not text.
std::vector<Defect> Defects();

} // namespace samples
