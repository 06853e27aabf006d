// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace samples {

/// The command that reports a defect.
enum class Check
{
    Stock,   ///< the check of a stock file, and so that of all stock
    Shape,   ///< the check of a shape
    Consist, ///< the stock check of a consist
    Usage,   ///< the search for a stock item or a consist in consists or services
    None     ///< no check reports it
};

/// "stock", "shape", "consist", "usage" or "-".
const char *CheckName(Check check);

/// A deliberate fault of the sample.
struct Defect
{
    Check check;
    std::string file; ///< the checked file, spelled as on the disk, with "/"
    std::string what;
    /// The ERROR lines of the check, with "<MSTS>" for the installation folder and "\" in paths.
    std::vector<std::string> report = {};
    int error = 0; ///< number of the run-time error that ends the check, 0 for none
};

/// Returns all findings of the checks in the sample; everything else is clean. The faults come
/// first, then the shapes whose only finding is that they are not text.
std::vector<Defect> Defects();

} // namespace samples
