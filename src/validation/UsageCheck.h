// SPDX-License-Identifier: MIT
#pragma once

#include "install/Train.h"

#include <string>

namespace validation {

class Content;

/// How one consist uses a stock file.
struct ConsistUse
{
    bool first = false; ///< its first vehicle is one
    bool any = false;   ///< some vehicle is one
};

/// Searches in single files. A file that cannot be read uses nothing.
ConsistUse UseInConsist(const Content &content, const std::string &consist,
                        const install::StockName &stock);
/// True when the service runs the consist of this name.
bool IsRunByService(const Content &content, const std::string &service, const std::string &consist);
/// How often the stock file stands in the loose consists of an activity.
int UsesInActivity(const Content &content, const std::string &activity,
                   const install::StockName &stock);

} // namespace validation
