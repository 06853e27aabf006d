// SPDX-License-Identifier: MIT
#pragma once

namespace zelkctl {

/// True when somebody watches what is written to the standard error.
bool IsErrorTerminal();

} // namespace zelkctl
