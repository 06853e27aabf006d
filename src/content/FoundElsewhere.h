// SPDX-License-Identifier: MIT
#pragma once

#include "content/ReferenceRules.h"

#include <cstddef>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace content {

/// A file that a check did not find.
struct MissedFile
{
    std::string file; ///< the file that names it
    std::string path; ///< where the check looked for it
};

/// Compares the files that a check calls missing with the rules of the simulators.
class FoundElsewhere
{
public:
    /// `folder` is the installation folder.
    FoundElsewhere(std::string folder, Profiles profiles, std::vector<MissedFile> missed);

    /// Returns the number of distinct paths that no simulator of the profiles misses, because each
    /// finds the file in another place or does not need it. Paths for which the rules have no
    /// answer do not count. Reads the files that name them. Returns nothing if it was stopped.
    std::optional<std::size_t> Count(const std::stop_token &stop) const;

private:
    std::string m_folder;
    Profiles m_profiles;
    std::vector<MissedFile> m_missed;
};

} // namespace content
