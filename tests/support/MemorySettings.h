// SPDX-License-Identifier: MIT
#pragma once

#include "host/RuntimeError.h"
#include "host/Settings.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace support {

/// A settings store in memory, which can refuse writes.
class MemorySettings : public host::SettingsStore
{
public:
    std::optional<std::string> ReadFrom(std::string_view section, std::string_view key) override
    {
        const Section &all = section == kSettings ? values : windows;
        const auto found = all.find(key);
        return found == all.end() ? std::nullopt : std::optional(found->second);
    }
    void WriteTo(std::string_view section, std::string_view key, std::string_view value) override
    {
        if (readOnly)
            throw host::RuntimeError(host::ErrorNumber::PermissionDenied, "ZELK.ini");
        (section == kSettings ? values : windows)[std::string(key)] = value;
    }

    using Section = std::map<std::string, std::string, std::less<>>;
    Section values;  ///< the section "Settings"
    Section windows; ///< the section "Windows"
    bool readOnly = false;
};

} // namespace support
