// SPDX-License-Identifier: MIT
#pragma once

#include "ZelkctlTest.h"
#include "host/Path.h"
#include "samples/Sample.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

/// Runs zelkctl on a private sample installation in the folder "s".
class SampleFixture : public ZelkctlTest
{
protected:
    SampleFixture() { samples::WriteSample(m_folder.At("s")); }

    /// Returns the paths in the sample, with "/", of all files with an extension.
    std::vector<std::string> files(const std::string &extension) const
    {
        std::vector<std::string> found;
        const std::filesystem::path base = host::path::ToDisk(m_folder.At("s"));
        for (const auto &entry : std::filesystem::recursive_directory_iterator(base))
            if (entry.path().extension() == extension) {
                found.push_back(host::path::FromDisk(entry.path().lexically_relative(base)));
                std::replace(found.back().begin(), found.back().end(), '\\', '/');
            }
        std::sort(found.begin(), found.end());
        return found;
    }
};
