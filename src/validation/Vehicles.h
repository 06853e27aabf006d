// SPDX-License-Identifier: MIT
#pragma once

#include "stavfile/StfNode.h"

#include <string>
#include <string_view>

namespace validation {

/// Walks the entries `Engine` and `Wagon` of a TrainCfg block in file order.
class VehicleWalk
{
public:
    /// No object has no vehicles.
    explicit VehicleWalk(StfNode trainCfg)
        : m_trainCfg(std::move(trainCfg))
    {
    }
    /// Goes to the next one; false when there is none. RuntimeError 6 beyond 16 bits.
    bool Next() { return m_trainCfg && m_trainCfg.FindChild("Engine|Wagon", m_position); }

    StfNode Entry() const { return m_trainCfg.Children().Item(m_position); }
    /// The entry's block EngineData or WagonData, or no object.
    StfNode Data() const
    {
        const StfNode entry = Entry();
        return entry.Child(entry.Name() + "Data");
    }

private:
    StfNode m_trainCfg;
    std::int16_t m_position = 0;
};

/// How consists and activities name a stock file.
struct StockName
{
    std::string base;   ///< the file name less its last four characters
    std::string folder; ///< the name of its folder

    static StockName Of(std::string_view stockPath);
    /// Exactly, in letter case too.
    bool IsNamedBy(const StfNode &data) const
    {
        return stavfile::ValueAt(data, 0) == base && stavfile::ValueAt(data, 1) == folder;
    }
};

} // namespace validation
