// SPDX-License-Identifier: MIT
#include "install/ConsistUnit.h"

#include "host/Path.h"

#include <algorithm>
#include <cstdint>

using host::ErrorNumber;
using host::RuntimeError;

namespace install {

std::string StockPath(std::string_view installFolder, const StockItem &item)
{
    std::string extension = item.type.substr(0, 3);
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    const std::string folder = host::path::Join(installFolder, "Trains/Trainset");
    return host::path::Join(host::path::Join(folder, item.folder), item.shape + '.' + extension);
}

ConsistUnit UnitOf(const StfNode &entry)
{
    const StfNode data = entry.Child(entry.Name() + "Data");
    if (!data)
        throw RuntimeError(ErrorNumber::ObjectNotSet, "line " + std::to_string(entry.Line()) +
                                                          ": " + entry.Name() + " has no block " +
                                                          entry.Name() + "Data");
    ConsistUnit unit;
    unit.item.type = entry.Name();
    unit.item.shape = stavfile::ValueAt(data, 0);
    unit.item.folder = stavfile::ValueAt(data, 1);
    // A folder name with a blank that was not quoted comes as two values.
    if (data.NumParameters() == 3)
        unit.item.folder += ' ' + data.Parameter(2);
    std::int16_t flip = 0;
    unit.flipped = entry.FindChild("Flip", flip);
    return unit;
}

} // namespace install
