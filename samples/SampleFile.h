// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace samples {

/// A file of the sample: its path below the installation folder, with "/", and its bytes.
struct SampleFile
{
    std::string path; ///< UTF-8
    std::string bytes;
};

using SampleFiles = std::vector<SampleFile>;

} // namespace samples
