// SPDX-License-Identifier: MIT
// Timetables: for any bytes, the reader finds consists with a name and a line, or none.
#include "content/Timetable.h"

#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string bytes(reinterpret_cast<const char *>(data), size);
    for (const content::Reference &reference : content::ReferencesOfTimetable(bytes))
        if (reference.wants.empty() || reference.line < 2)
            std::abort();
    for (const std::string &name : content::TimetablesOfList(bytes))
        if (name.empty())
            std::abort();
    return 0;
}
