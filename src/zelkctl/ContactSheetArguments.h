// SPDX-License-Identifier: MIT
#pragma once

#include "zelkctl/ContactSheet.h"

#include <optional>
#include <string>
#include <vector>

namespace zelkctl {

/// The arguments of `contact-sheet`, as texts.
struct ContactSheetArguments
{
    std::vector<std::string> consists;
    std::string filter, out, size = "320", units = "metric", msts;
    bool loads = true;
};

/// Converts the texts; throws Failure for one that is not valid.
ContactSheetRequest RequestOf(const ContactSheetArguments &arguments);

/// Convert the arguments to a list, for the program that draws, and back; nothing for the list of
/// another command.
std::vector<std::string> ToList(const ContactSheetArguments &arguments);
std::optional<ContactSheetArguments> ContactSheetFromList(const std::vector<std::string> &list);

} // namespace zelkctl
