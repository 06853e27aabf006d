// SPDX-License-Identifier: MIT
#pragma once

#include "content/HealthTree.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace content {

/// Return what the user can do about a finding, or about all findings of a cause, in one sentence.
std::string AdviceFor(const Finding &finding);
std::string AdviceFor(const Cause &cause);

/// Returns the first line of a text that users post to ask for help. `version` is that of the
/// program.
std::string HelpHeader(std::string_view version, Profiles profiles);
/// Return a group for such a text, in at most eight lines: what is wrong, the rule, what is wanted,
/// who wants it, where it was looked for, candidates, and what to do. Long lists are cut.
std::string HelpText(const HealthTree &tree, const HealthTree::CauseRow &cause);
std::string HelpText(const HealthTree &tree, const HealthTree::WantedRow &wanted);
std::string HelpText(const HealthTree &tree, const HealthTree::UserRow &user);

/// Returns everything that is known about one finding, in several lines.
std::string DetailsOf(const HealthTree &tree, const HealthTree::UserRow &user);
/// Returns a user with the place that names the wanted file: "a.con, line 7", or
/// "a.wag (a.s, line 3)" if another file has the entry.
std::string PlaceText(const HealthTree &tree, const HealthTree::UserRow &user);

} // namespace content
