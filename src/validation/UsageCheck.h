// SPDX-License-Identifier: MIT
#pragma once

#include "install/Train.h"

#include <string>

namespace validation {

class Content;

/// How one consist uses a stock file.
struct ConsistUse
{
    bool first = false; ///< the stock file is its first vehicle
    bool any = false;   ///< the stock file is one of its vehicles
};

/// Searches in single files. A file that cannot be read uses nothing.
ConsistUse UseInConsist(Content &content, const std::string &consist,
                        const install::StockName &stock);
/// True if the service runs the consist of this name.
bool IsRunByService(const Content &content, const std::string &service, const std::string &consist);
/// Returns how often the loose consists of an activity contain the stock file.
int UsesInActivity(const Content &content, const std::string &activity,
                   const install::StockName &stock);

} // namespace validation
