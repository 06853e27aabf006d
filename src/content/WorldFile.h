// SPDX-License-Identifier: MIT
#pragma once

#include "content/References.h"

#include <string>
#include <vector>

namespace content {

/// The content of one file of a route's world, as far as it names shapes.
struct WorldFile
{
    std::vector<Reference> shapes; ///< each name once, in file order; binary files have no lines
    std::string fault;             ///< why the names cannot be read; "" if they were read
};

/// Reads a world file from its bytes: text, compressed text or tokens. Names of other files, such
/// as pictures and hazards, are left out.
WorldFile ReadWorldFile(std::string bytes);

} // namespace content
