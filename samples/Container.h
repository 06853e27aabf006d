// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// The container that binary shapes and textures share.
namespace samples {

/// Mark of 16 characters, then the payload as it is.
std::string StorePayload(std::string_view payload);

/// "SIMISA@F", the size of the payload, "@@@@", then the payload as a zlib stream.
std::string CompressPayload(std::string_view payload);

} // namespace samples
