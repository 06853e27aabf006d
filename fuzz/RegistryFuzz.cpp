// SPDX-License-Identifier: MIT
// Wine's registry file: for any bytes, a look-up ends, and values written as Wine writes them are
// read back correctly.
#include "host/Text.h"
#include "install/WineRegistry.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

std::string escaped(std::string_view text)
{
    std::string out;
    for (const char c : text) {
        if (c == '\n')
            out += "\\n";
        else if (c == '\r')
            out += "\\x000d";
        else if (c == '\\' || c == '"' || c == ']')
            out += std::string("\\") + c;
        else
            out += c;
    }
    return out;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    install::ValueInWineRegistry(text, "Software\\Key", "Path");

    // Content before an entry of another key must not confuse the reader.
    const std::string_view name = text.substr(0, text.find('\0'));
    const std::string entry = "\n[Key]\n\"" + escaped(name) + "\"=\"" + escaped(text) + "\"\n";
    const auto found = install::ValueInWineRegistry("[Other]\n\"x\"=\"y\"\n" + entry, "kEY", name);
    if (found != text)
        std::abort();
    return 0;
}
