// SPDX-License-Identifier: MIT
#pragma once

#include "host/UnansweredDialogs.h"

namespace zelkctl {

/// Shows nothing: for scenes whose defects are reported in another way.
class NoDialogs : public host::UnansweredDialogs
{
public:
    host::DialogAnswer Message(const std::string &, const std::string &, host::DialogIcon,
                               host::DialogButtons) override
    {
        return host::DialogAnswer::Ok;
    }
};

} // namespace zelkctl
