// SPDX-License-Identifier: MIT
#include "host/Settings.h"

namespace host {

std::unique_ptr<SettingsStore> UserSettings()
{
    return std::make_unique<IniSettings>();
}

} // namespace host
