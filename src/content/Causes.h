// SPDX-License-Identifier: MIT
#pragma once

#include "content/Finding.h"
#include "content/Resolver.h"

namespace content {

/// Groups the problems of a report by cause: absent folders, absent default sounds, damaged files
/// that several files name, and single files. Each problem gets exactly one cause.
void GroupByCause(HealthReport &report, host::Snapshot &folders, const InstallFolders &install);

/// Updates the severities, users, titles and order of the causes from their findings.
void CountCauses(HealthReport &report);

} // namespace content
