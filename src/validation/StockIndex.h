// SPDX-License-Identifier: MIT
#pragma once

#include "host/SavedIndex.h"
#include "validation/Outcome.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace validation {

/// The saved results of a check of all stock: the names in the stock folders, and the outcome for
/// each stock file. Thread-safe, except for Save.
class StockIndex
{
public:
    /// `begin` as in host::SavedIndex. `empty` takes what the outcomes have to contain.
    StockIndex(host::Snapshot &snapshot, const host::IndexOptions &options, std::int64_t begin,
               const std::string &installation, const Findings &empty);

    using List = std::function<std::vector<std::string>(const std::string &folder)>;
    /// Returns the names of the stock files in a folder; nothing if the folder has changed. It then
    /// calls `list` to keep them for the next run.
    std::optional<std::vector<std::string>> Files(const std::string &folder, const List &list);

    using Check = std::function<Outcome()>;
    /// Returns the outcome for a stock file, which is made with `check` if something has changed.
    Outcome OutcomeOf(const std::string &item, const Check &check);

    void Save(host::SavedIndex::Extent extent) { m_index.Save(extent); }

private:
    Outcome unpack(std::string_view value) const;

    bool m_verbose, m_messages;
    host::SavedIndex m_index;
};

} // namespace validation
