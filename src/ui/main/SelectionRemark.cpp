// SPDX-License-Identifier: MIT
#include "ui/main/SelectionRemark.h"

#include "ui/document/frmDocument.h"

namespace app {

std::string OnlyOneRemark(const frmDocument &list, const std::string &verb)
{
    const std::size_t selected = list.SelectedConsists().size();
    return selected < 2 ? std::string()
                        : "Only \"" + list.SelectedConsist() + "\" of the " +
                              std::to_string(selected) + " selected consists " + verb + '.';
}

} // namespace app
