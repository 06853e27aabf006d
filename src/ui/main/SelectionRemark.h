// SPDX-License-Identifier: MIT
#pragma once

#include <string>

class frmDocument;

namespace app {

/// Returns the remark of a command that uses only one of several selected consists: for the verb
/// "was opened", `Only "Coal" of the 3 selected consists was opened.` Returns "" if fewer than two
/// consists are selected.
std::string OnlyOneRemark(const frmDocument &list, const std::string &verb);

} // namespace app
