// SPDX-License-Identifier: MIT
#pragma once

#include "host/Settings.h"

#include <string>

namespace host {

/// Text values of a key of the user's registry hive.
class RegistrySettings : public SettingsStore
{
public:
    explicit RegistrySettings(std::string_view key = "Software\\ZELK\\Settings");
    std::optional<std::string> Read(std::string_view key) override;
    void Write(std::string_view key, std::string_view value) override;

private:
    std::wstring m_key;
};

} // namespace host
