// SPDX-License-Identifier: MIT
#include "content/HealthSettings.h"

#include "host/Path.h"
#include "host/Settings.h"
#include "host/Text.h"

namespace content {
namespace {

constexpr std::string_view kSection = "Health";

/// Keys hold a fingerprint of the folder, because paths contain characters that keys cannot.
std::string keyOf(const std::string &folder)
{
    return "Profile-" + host::Fingerprint(host::ToUpper(host::path::Normalise(folder)));
}

} // namespace

Profiles KeptProfiles(host::SettingsStore &settings, const std::string &folder)
{
    const auto kept = settings.ReadFrom(kSection, keyOf(folder));
    for (const Profile profile : kProfiles)
        if (kept == ProfileName(profile))
            return profile;
    return Profiles::Both();
}

Profile ShownProfile(host::SettingsStore &settings, const std::string &folder)
{
    const auto kept = settings.ReadFrom(kSection, keyOf(folder));
    const bool openRails =
        kept == ProfileName(Profile::OpenRails) || kept == ProfileName(Profiles::Both());
    return openRails ? Profile::OpenRails : Profile::Msts;
}

void KeepProfiles(host::SettingsStore &settings, const std::string &folder, Profiles profiles)
{
    settings.WriteTo(kSection, keyOf(folder), ProfileName(profiles));
}

} // namespace content
