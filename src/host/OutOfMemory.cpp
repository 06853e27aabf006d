// SPDX-License-Identifier: MIT
#include "host/OutOfMemory.h"

#include <string>

namespace host {

OutOfMemory::OutOfMemory(std::string_view file)
    : m_text(std::string(file) + ": there is not enough memory")
{
}

} // namespace host
