// SPDX-License-Identifier: MIT
#pragma once

#include "content/References.h"

#include <string>
#include <string_view>
#include <vector>

namespace content {

/// Returns the consists that an Open Rails timetable names, each once with its line: in the rows
/// #consist, and after /consist= in any cell. Skips comment rows and columns. A row with a blank
/// first cell continues the row above. `bytes` may be in any encoding of text files. Takes time and
/// memory in proportion to the size, even for damaged files.
std::vector<Reference> ReferencesOfTimetable(std::string bytes);

/// Returns the timetables that a timetable list names: one in each line, except the title.
std::vector<std::string> TimetablesOfList(std::string bytes);

} // namespace content
