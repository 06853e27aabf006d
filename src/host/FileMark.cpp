// SPDX-License-Identifier: MIT
#include "host/FileMark.h"

namespace host {

bool FileMark::IsTrusted(std::int64_t time) const
{
    return disk::IsBefore(modified, time) && disk::IsBefore(changed, time);
}

} // namespace host
