// SPDX-License-Identifier: MIT
#pragma once

namespace app {

/// Tells screen readers what the controls are that the toolkit does not know. Once, before windows
/// are made.
void NameAccessibleRoles();

} // namespace app
