// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

/// Generates a Train Simulator installation for first runs, tests and benchmarks.
/// docs/sample-installation.md describes it.
namespace samples {

/// The requested totals. Totals not given follow from the others or from the default sample.
struct Options
{
    std::optional<int> folders = {};        ///< folders with stock
    std::optional<int> stock = {};          ///< .eng and .wag files
    std::optional<int> consists = {};       ///< .con files
    std::optional<std::uint64_t> seed = {}; ///< of the generated part; default 1
    bool health = false; ///< also the cases of HealthCases.h, on top of these totals
    bool loads = false;  ///< also the vehicles of Loads.h, on top of these totals
    bool looks = false;  ///< also the vehicles of Looks.h, on top of these totals
};

struct Totals
{
    int folders = 0;
    int stock = 0;
    int consists = 0;
    int files = 0; ///< all files written, except the marker
};

/// The name of the file that marks a folder as a generated sample.
inline constexpr const char *kMarkerFile = "zelk-sample.txt";

/// Writes the sample into `out`, which must be new, empty, or hold a sample with the same options.
/// Overwrites such a sample but leaves other files in the folder alone. Adds health cases,
/// loads and looks to a sample without them. Equal options give equal bytes. Throws
/// std::runtime_error with a description if an option, the folder or a file is at fault.
Totals WriteSample(const std::filesystem::path &out, const Options &options = {});

} // namespace samples
