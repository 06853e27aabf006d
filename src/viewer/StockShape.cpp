// SPDX-License-Identifier: MIT
#include "viewer/StockShape.h"

#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/RuntimeError.h"
#include "install/Train.h"

using host::ErrorNumber;
using host::RuntimeError;

namespace viewer {
namespace {

constexpr int kLengthInSize = 2;

std::optional<std::string> lengthOf(const StfNode &wagon)
{
    const StfNode size = wagon.Child("Size");
    if (!size || size.NumParameters() <= kLengthInSize)
        return std::nullopt;
    return size.Parameter(kLengthInSize);
}

/// Returns the entry "Name", which engines have in their second block.
std::string titleOf(const StfFile &file, const StfNode &wagon)
{
    const std::string title =
        stavfile::JoinedValues(stavfile::ChildOf(file.FindNode("Engine"), "Name"));
    return title.empty() ? stavfile::JoinedValues(stavfile::ChildOf(wagon, "Name")) : title;
}

void readShapeFile(const StfNode &wagon, const std::string &stockFile, StockShape &stock)
{
    const StfNode shape = install::FindShape(wagon);
    const std::string name = stavfile::ValueAt(shape, 0);
    const std::string folder(host::path::FolderWithSeparator(stockFile));
    if (!shape)
        stock.whyNoShape = stockFile + ": there is no WagonShape in Wagon";
    else if (name.empty())
        stock.whyNoShape = stockFile + ": WagonShape names no file";
    else
        stock.shapeFile = folder.empty() ? name : host::path::Join(folder, name);
}

} // namespace

StockShape ReadStockShape(host::GameFiles &files, const std::string &stockFile)
{
    const StfFile file = StfFile::Read(files, stockFile);
    const StfNode wagon = install::RequireVehicle(file);
    StockShape stock;
    stock.name = stavfile::ValueAt(wagon, 0);
    stock.title = titleOf(file, wagon);
    stock.length = lengthOf(wagon);
    readShapeFile(wagon, stockFile, stock);
    return stock;
}

StockShape ReadStockShapeToShow(host::GameFiles &files, const std::string &stockFile)
{
    StockShape stock = ReadStockShape(files, stockFile);
    if (!stock.whyNoShape.empty())
        throw RuntimeError(ErrorNumber::ObjectNotSet, stock.whyNoShape);
    return stock;
}

bool IsStockShape(host::GameFiles &files, const std::string &shapeFile)
{
    const std::string_view name = host::path::FileName(shapeFile);
    if (name.empty())
        return false;
    const std::string pattern = std::string(name.substr(0, name.size() - 1)) + "??g";
    const std::string folder(host::path::FolderWithSeparator(shapeFile));
    return !files.ListFiles(folder, pattern).empty();
}

} // namespace viewer
