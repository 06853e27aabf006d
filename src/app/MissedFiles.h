// SPDX-License-Identifier: MIT
#pragma once

#include "content/FoundElsewhere.h"
#include "install/Environment.h"
#include "validation/Finding.h"

#include <vector>

namespace app {

/// Returns the files that the findings of a check call missing, to compare with the rules of the
/// simulators that the user kept for the installation.
content::FoundElsewhere MissedFilesOf(const install::Environment &environment,
                                      const std::vector<validation::Finding> &findings);

} // namespace app
