// SPDX-License-Identifier: MIT
#include "app/OpenRules.h"

#include "host/Path.h"

#include <array>
#include <utility>

namespace app {

const char kOpenFilter[] = "Consist Files (*.con)|*.con|Wagon Files (*.wag)|*.wag|"
                           "Engine Files (*.eng)|*.eng|Shape Files (*.s)|*.s|"
                           "Activity Files (*.act)|*.act|All Files (*.*)|*.*";

OpenKind KindOf(std::string_view path)
{
    static constexpr std::array<std::pair<std::string_view, OpenKind>, 6> kKinds = {{
        {"wag", OpenKind::Stock},
        {"eng", OpenKind::Stock},
        {"con", OpenKind::Consist},
        {"s", OpenKind::Shape},
        {"act", OpenKind::Activity},
        {"w", OpenKind::World},
    }};
    if (path.find('.') == path.npos)
        return OpenKind::Unsupported;
    const std::string extension = host::path::Extension(path);
    for (const auto &[known, kind] : kKinds)
        if (extension == known)
            return kind;
    return OpenKind::Unsupported;
}

std::string RefusalOf(OpenKind kind)
{
    switch (kind) {
    case OpenKind::World:
        return "World files not supported in this version!";
    case OpenKind::Unsupported:
        return "File type not supported!";
    default:
        return {};
    }
}

} // namespace app
