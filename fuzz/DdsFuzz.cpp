// SPDX-License-Identifier: MIT
#include "TextureFuzz.h"
#include "korvat/formats/ReadDds.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    CheckTexture(korvat::ReadDds({reinterpret_cast<const char *>(data), size}), size);
    return 0;
}
