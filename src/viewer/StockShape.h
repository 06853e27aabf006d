// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace host {
class GameFiles;
}

namespace viewer {

/// The appearance of a vehicle, from its engine or wagon file.
struct StockShape
{
    std::string name;       ///< of the Wagon block; "" if it has none
    std::string title;      ///< the name that the simulator shows; "" if there is none
    std::string shapeFile;  ///< full path, relative to the stock file's folder; "" for none
    std::string whyNoShape; ///< the reason, with the file's name; "" if there is a shape
    /// The third value of Size as spelled, in metres ("25.038m"); nothing if there is none.
    std::optional<std::string> length;
};

/// Reads an engine or wagon file. Throws RuntimeError like StfFile::Load, and error 91 with the
/// file's name if there is no Wagon block.
StockShape ReadStockShape(host::GameFiles &files, const std::string &stockFile);

/// Like ReadStockShape, but also throws error 91 if no shape is named.
StockShape ReadStockShapeToShow(host::GameFiles &files, const std::string &stockFile);

/// Returns whether an engine or wagon file of the same name is beside a shape.
bool IsStockShape(host::GameFiles &files, const std::string &shapeFile);

} // namespace viewer
