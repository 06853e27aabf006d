// SPDX-License-Identifier: MIT
#include "TextureFuzz.h"
#include "korvat/formats/Container.h"
#include "korvat/formats/Limits.h"
#include "korvat/formats/ReadAce.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char *>(data), size);
    korvat::Container container;
    OpenContainer(bytes, korvat::kMaxTextureBytes, container);
    CheckTexture(korvat::ReadAce(bytes), container.payload.size());
    return 0;
}
