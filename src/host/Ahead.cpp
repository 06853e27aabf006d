// SPDX-License-Identifier: MIT
#include "host/Ahead.h"

namespace host {

std::size_t DefaultWorkers()
{
    return std::max(1u, std::thread::hardware_concurrency());
}

} // namespace host
