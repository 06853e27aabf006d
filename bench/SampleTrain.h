// SPDX-License-Identifier: MIT
#pragma once

#include "install/Train.h"

#include <filesystem>
#include <string>
#include <vector>

namespace bench {

/// A train of 100 vehicles of 20 kinds, each kind with its own model, in a sample installation.
/// The form of a train's shape files.
enum class Shapes : bool
{
    MostlyCompressed, ///< one of 20 is text, as in real collections
    Text
};

struct SampleTrain
{
    static constexpr std::size_t kVehicles = 100, kKinds = 20;

    std::string folder;  ///< of the installation
    std::string name;    ///< its name in the list of consists, where it comes first
    std::string consist; ///< its file
    std::vector<install::StockItem> kinds;

    /// Returns the paths on disk of all files that the train needs: consist, stock files, shapes
    /// and textures.
    std::vector<std::string> Files() const;
};

/// Makes the installation in a new folder. Ends the program with a message on failure.
SampleTrain MakeSampleTrain(const std::filesystem::path &folder,
                            Shapes shapes = Shapes::MostlyCompressed);

} // namespace bench
