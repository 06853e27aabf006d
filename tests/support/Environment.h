// SPDX-License-Identifier: MIT
#pragma once

#include "support/TempFolder.h"

#include <list>
#include <optional>
#include <string>
#include <vector>

namespace support {

/// Sets an environment variable (or unsets it) until the end of the block.
class ScopedVariable
{
public:
    ScopedVariable(std::string name, const std::optional<std::string> &value);
    ~ScopedVariable();
    ScopedVariable(const ScopedVariable &) = delete;
    ScopedVariable &operator=(const ScopedVariable &) = delete;

private:
    std::string m_name;
    std::optional<std::string> m_before;
};

/// A private home folder. HOME is the folder, the XDG variables, WINEPREFIX and ZELK_REGISTRY are
/// unset, and the only configuration folder of the machine is its subfolder "etc". On Windows the
/// folder is the profile, with "Roaming" and "Local" in it, and "etc" is the folder of the
/// machine's data.
class ScopedHome
{
public:
    ScopedHome();
    const TempFolder &Folder() const { return m_folder; }

private:
    TempFolder m_folder;
    std::list<ScopedVariable> m_variables;
};

} // namespace support
