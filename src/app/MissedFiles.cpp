// SPDX-License-Identifier: MIT
#include "app/MissedFiles.h"

#include "content/HealthSettings.h"
#include "install/Installation.h"

namespace app {

content::FoundElsewhere MissedFilesOf(const install::Environment &environment,
                                      const std::vector<validation::Finding> &findings)
{
    std::vector<content::MissedFile> missed;
    for (const validation::Finding &finding : findings)
        if (finding.verdict == validation::Verdict::HasMissingReference)
            missed.push_back({finding.file, finding.dependent});
    std::string folder = environment.installation.CurrentFolder();
    const content::Profiles profiles = content::KeptProfiles(environment.settings, folder);
    return {std::move(folder), profiles, std::move(missed)};
}

} // namespace app
