// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace app {

/// The action of File > Open for a path, which depends only on the extension.
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

/// Returns the message for a kind that opens nothing, or "" for a kind that opens.
std::string RefusalOf(OpenKind kind);

/// The filter text of the open dialog; its first entry is initially selected.
extern const char kOpenFilter[];

} // namespace app
