// SPDX-License-Identifier: MIT
#pragma once

namespace app {

/// Registers the accessible roles of the controls that Qt does not know. Call it once, before any
/// window exists.
void NameAccessibleRoles();

} // namespace app
