// SPDX-License-Identifier: MIT
// Containers: for any bytes, the payload is readable and within the limit.
#include "korvat/formats/Container.h"

#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    constexpr std::size_t kLimit = 1 << 20;
    korvat::Container container;
    const std::string_view bytes(reinterpret_cast<const char *>(data), size);
    const korvat::ReadError error = OpenContainer(bytes, kLimit, container);
    if (error ? !container.payload.empty()
              : container.compressed && container.payload.size() > kLimit)
        std::abort();
    unsigned sum = 0;
    for (const std::uint8_t byte : container.payload)
        sum += byte;
    return sum == UINT32_MAX ? 1 : 0;
}
