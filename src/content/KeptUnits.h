// SPDX-License-Identifier: MIT
#pragma once

#include "content/SharedFiles.h"
#include "content/StockFacts.h"
#include "host/Packed.h"

#include <string_view>
#include <vector>

/// The results of this room in the form in which a saved index keeps them.
namespace content {

/// Part of the identity of each index: increase it when results or their form change.
inline constexpr std::string_view kKeptVersion = " 1 ";

void Pack(host::Packer &out, const std::vector<Draft> &drafts);
std::vector<Draft> UnpackDrafts(host::Unpacker &in);

void Pack(host::Packer &out, Profiles profiles);
Profiles UnpackProfiles(host::Unpacker &in);

void Pack(host::Packer &out, const StockFacts &facts);
StockFacts UnpackFacts(host::Unpacker &in);

} // namespace content
