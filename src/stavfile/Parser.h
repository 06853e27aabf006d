// SPDX-License-Identifier: MIT
#pragma once

namespace stavfile {

struct Source;

/// Fills records, values, notes and tailFix of a source from its text.
void ParseBlocks(Source &source);

} // namespace stavfile
