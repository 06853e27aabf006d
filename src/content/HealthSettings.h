// SPDX-License-Identifier: MIT
#pragma once

#include "content/ReferenceRules.h"

#include <string>

namespace host {
class SettingsStore;
}

/// What a user chose for the health reports and the 3D views of one installation, in the section
/// "Health" of the settings. Folders that differ only in letter case count as one installation.
namespace content {

/// Returns the simulators that run the content of an installation folder; both if none were kept.
Profiles KeptProfiles(host::SettingsStore &settings, const std::string &folder);
/// Returns the simulator whose reading of the vehicles 3D views show: that of MSTS until the user
/// has chosen. Of both, that of Open Rails, because it also has what MSTS reads.
Profile ShownProfile(host::SettingsStore &settings, const std::string &folder);
/// Keeps them. Throws as SettingsStore::WriteTo does.
void KeepProfiles(host::SettingsStore &settings, const std::string &folder, Profiles profiles);

} // namespace content
