// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace document {

/// Throws RuntimeError 75 for a blank name, which no list could show. The detail names `path`, the
/// file of the consist.
void CheckConsistName(const std::string &name, const std::string &path);

/// Like CheckConsistName, but also throws for a name that leads out of the consist folder or that
/// the simulator on Windows cannot open: one with any of \ / : * ? " < > | or with line breaks.
/// Writing the file refuses names that are too long or that the system reserves.
void CheckPortableConsistName(const std::string &name, const std::string &path);

} // namespace document
