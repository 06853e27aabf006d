// SPDX-License-Identifier: MIT
#include "install/Train.h"

#include "host/Path.h"
#include "host/Text.h"
#include "install/StockFiles.h"

#include <algorithm>

using stavfile::ValueAt;

namespace install {
namespace {

constexpr const char *kUnits = "Engine|Wagon"; ///< as alternatives for FindChild
constexpr const char *kVehicle = "Wagon", *kShape = "WagonShape";
constexpr int kName = 0, kFolder = 1, kFolderRest = 2; ///< values of a data block

} // namespace

std::string StockFileName(std::string_view type, std::string_view baseName)
{
    constexpr std::size_t kLetters = 3;
    std::string extension(type.substr(0, kLetters));
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return std::string(baseName).append(1, '.').append(extension);
}

std::string StockPath(std::string_view installFolder, const StockItem &item)
{
    const std::string folder =
        host::path::Join(host::path::Join(installFolder, kTrainset), item.folder);
    return host::path::Join(folder, StockFileName(item.type, item.shape));
}

StockName StockName::Of(std::string_view stockPath)
{
    constexpr std::size_t kExtension = 4; // ".eng", ".wag"
    std::string_view name = host::path::FileName(stockPath);
    name.remove_suffix(std::min(kExtension, name.size()));
    return {std::string(name), std::string(host::path::FileName(host::path::Folder(stockPath)))};
}

StfNode Unit::data() const
{
    return m_block.Child(Kind() + "Data");
}

bool Unit::IsFlipped() const
{
    std::int16_t position = 0;
    return m_block.FindChild("Flip", position);
}

StockItem Unit::Item() const
{
    const StfNode data = m_block.Require(Kind() + "Data");
    StockItem item{Kind(), ValueAt(data, kFolder), ValueAt(data, kName)};
    if (data.NumParameters() == kFolderRest + 1)
        item.folder += ' ' + data.Parameter(kFolderRest);
    return item;
}

StockName Unit::Stock() const
{
    const StfNode data = this->data();
    return {data.Parameter(kName), data.Parameter(kFolder)};
}

bool Unit::Names(const StockName &stock) const
{
    const StfNode data = this->data();
    return ValueAt(data, kName) == stock.base && ValueAt(data, kFolder) == stock.folder;
}

Units::Iterator &Units::Iterator::operator++()
{
    if (!m_train->FindChild(kUnits, m_position))
        m_train = nullptr;
    return *this;
}

Units::Iterator Units::begin() const
{
    Iterator first(m_train ? &m_train : nullptr);
    return m_train ? ++first : first;
}

StfNode FindTrain(const StfFile &consist)
{
    return stavfile::ChildOf(consist.FindNode(kTrain), kTrainCfg);
}

StfNode RequireTrain(const StfFile &consist)
{
    if (consist.Form() != stavfile::Form::Text)
        throw host::RuntimeError(host::ErrorNumber::ObjectNotSet,
                                 consist.FileName() + ": " + consist.Notes().front().text);
    return consist.Require(kTrain).Require(kTrainCfg);
}

std::string TrainTitle(const StfNode &trainCfg)
{
    return std::string(host::TrimBlanks(stavfile::JoinedValues(trainCfg)));
}

StfNode FindVehicle(const StfFile &stockFile)
{
    return stockFile.FindNode(kVehicle);
}

StfNode RequireVehicle(const StfFile &stockFile)
{
    return stockFile.Require(kVehicle);
}

StfNode FindShape(const StfNode &vehicle)
{
    return vehicle.Child(kShape);
}

} // namespace install
