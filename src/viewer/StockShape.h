// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace host {
class GameFiles;
}

namespace viewer {

/// What an engine or wagon file says about its looks.
struct StockShape
{
    std::string name;       ///< of the Wagon block, "" when it has none
    std::string shapeFile;  ///< full path, from the folder of the stock file; "" for none
    std::string whyNoShape; ///< with the file's name; "" when there is a shape
    /// Third value of Size as it stands, in metres ("25.038m"); nothing when there is none.
    std::optional<std::string> length;
};

/// Reads an engine or wagon file. RuntimeError as StfFile::Load; error 91 with the file's name when
/// there is no Wagon block.
StockShape ReadStockShape(host::GameFiles &files, const std::string &stockFile);

/// The same for who wants nothing but the shape: error 91 also when none is named.
StockShape ReadStockShapeToShow(host::GameFiles &files, const std::string &stockFile);

} // namespace viewer
