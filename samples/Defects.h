// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace samples {

/// The check that reports a defect.
enum class Check
{
    Stock,   ///< the check of a stock file; the check of all stock includes it
    Shape,   ///< the check of a shape
    Consist, ///< the stock check of a consist
    Usage,   ///< the search for consists with a vehicle, or services with a consist
    None     ///< no check reports it
};

/// Returns "stock", "shape", "consist", "usage" or "-".
const char *CheckName(Check check);

/// A deliberate fault in the sample.
struct Defect
{
    Check check;
    std::string file; ///< the checked file, spelled as on disk, with "/"
    std::string what;
    /// The ERROR lines of the check, with "<MSTS>" for the installation folder and "\" in paths.
    std::vector<std::string> report = {};
    int error = 0; ///< number of the run-time error that ends the check, 0 for none
};

/// Returns all planned defects; the checks find nothing else in the sample. The faults come first,
/// then the shapes that have findings only because they are not text.
std::vector<Defect> Defects();

} // namespace samples
