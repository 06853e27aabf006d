// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

/// Makes a Train Simulator installation out of content of our own: what a first run shows and tests
/// and benchmarks use. docs/sample-installation.md describes it.
namespace samples {

/// Totals; what is not given follows from what is, or is that of the default sample.
struct Options
{
    std::optional<int> folders = {};        ///< folders with stock
    std::optional<int> stock = {};          ///< .eng and .wag files
    std::optional<int> consists = {};       ///< .con files
    std::optional<std::uint64_t> seed = {}; ///< of the generated part; 1
};

struct Totals
{
    int folders = 0;
    int stock = 0;
    int consists = 0;
    int files = 0; ///< all files written, without the marker
};

/// The name of the file that marks a folder as made here.
inline constexpr const char *kMarkerFile = "zelk-sample.txt";

/// Writes the sample into `out`, which must be new, empty, or hold a sample made with the same
/// options; then the files of the sample are written again and all others are left alone. The same
/// options give the same bytes. Throws std::runtime_error that says what is wrong with the
/// options, the folder or a file.
Totals WriteSample(const std::filesystem::path &out, const Options &options = {});

} // namespace samples
