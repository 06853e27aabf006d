// SPDX-License-Identifier: MIT
#pragma once

#include "support/TempFolder.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace support {

/// Changes the files and folders of an installation at random, in the ways in which users, other
/// programs and file systems do it. The same seed makes the same changes.
class RandomEdits
{
public:
    /// Knows the files that the folder contains now, so that some changes bring them back.
    RandomEdits(const TempFolder &folder, std::uint32_t seed);

    /// Makes one change and returns its description.
    std::string Step();

private:
    using Path = std::filesystem::path;
    using Edit = std::string (RandomEdits::*)();

    std::string createFile();
    std::string deleteFile();
    std::string renameFile();
    std::string changeBytes();
    std::string exchangeContent();
    std::string touch();
    std::string setTimeBack();
    std::string swapFiles();
    std::string renameFolder();
    std::string swapFolders();
    std::string changeCase();
    std::string restoreOne();
    std::string restoreAll();
    std::string replaceByFolder();
    std::string linkFolder();

    std::size_t below(std::size_t count);
    /// Return a file or folder that exists now; "" if there is none.
    Path anyFile();
    Path anyFolder();
    Path anyOf(const std::vector<Path> &paths);
    std::vector<Path> all(bool folders) const;
    void write(const Path &path, const std::string &bytes) const;
    static std::string bytesOf(const Path &path);
    /// Renames unless that is impossible; returns the description.
    static std::string rename(const Path &from, const Path &to);
    std::string swap(const Path &first, const Path &second) const;

    Path m_root;
    std::mt19937 m_random;
    std::map<Path, std::string> m_original;
};

} // namespace support
