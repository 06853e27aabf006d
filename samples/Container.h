// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// The container that binary shapes and textures share.
namespace samples {

/// Returns a mark of 16 characters and the unchanged payload.
std::string StorePayload(std::string_view payload);

/// Returns "SIMISA@F", the size of the payload, "@@@@" and the payload as a zlib stream.
std::string CompressPayload(std::string_view payload);

} // namespace samples
