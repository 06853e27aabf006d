// SPDX-License-Identifier: MIT
#include "host/Product.h"

namespace host::product {

std::string_view Version()
{
    return ZELK_VERSION;
}

std::string ShownVersion()
{
    std::string version(Version());
    if (const std::size_t dot = version.rfind('.'); dot != version.npos)
        version[dot] = '-';
    return version;
}

} // namespace host::product
