// SPDX-License-Identifier: MIT
#pragma once

#include "host/Settings.h"

#include <string>

namespace host {

/// Text values below a key of the user's registry hive; each section is a subkey.
class RegistrySettings : public SettingsStore
{
public:
    explicit RegistrySettings(std::string_view key = "Software\\ZELK");
    std::optional<std::string> ReadFrom(std::string_view section, std::string_view key) override;
    void WriteTo(std::string_view section, std::string_view key, std::string_view value) override;

private:
    std::wstring keyOf(std::string_view section) const;

    std::wstring m_key;
};

} // namespace host
