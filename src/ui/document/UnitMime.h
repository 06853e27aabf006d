// SPDX-License-Identifier: MIT
#pragma once

#include "stavfile/StfNode.h"

#include <memory>
#include <vector>

class QMimeData;

namespace host {
class GameFiles;
}

/// Units on the clipboard and in drags.
namespace document {

struct CopiedUnits;

std::unique_ptr<QMimeData> UnitMime(const CopiedUnits &units);
/// True if the content was copied from a train.
bool HoldsUnits(const QMimeData &content);
/// Returns the units, also those in lines of text; nothing if the content is something else.
std::vector<StfNode> UnitsIn(const QMimeData &content, host::GameFiles &files);

} // namespace document
