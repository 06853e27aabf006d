// SPDX-License-Identifier: MIT
// World files: for any bytes, the reader finds names of shapes, each once, or a fault.
#include "content/WorldFile.h"
#include "host/Path.h"
#include "host/Text.h"

#include <cstdint>
#include <cstdlib>
#include <set>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const content::WorldFile file =
        content::ReadWorldFile(std::string(reinterpret_cast<const char *>(data), size));
    if (!file.fault.empty() && !file.shapes.empty())
        std::abort();
    std::set<std::string> names;
    for (const content::Reference &reference : file.shapes)
        if (!host::path::HasExtension(reference.wants, "s") || reference.line < 0 ||
            !names.insert(host::ToUpper(reference.wants)).second)
            std::abort();
    return 0;
}
