// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace app {

/// What File > Open does with a path, by its extension alone.
enum class OpenKind
{
    Stock,
    Consist,
    Shape,
    Activity,
    World,
    Unsupported
};
OpenKind KindOf(std::string_view path);

/// The message for a kind that opens nothing, "" for one that does.
std::string RefusalOf(OpenKind kind);

/// The filter text of the open dialog; its first entry is the initial one.
extern const char kOpenFilter[];

} // namespace app
