// SPDX-License-Identifier: MIT
#include "support/Environment.h"

#include <cstdlib>

namespace support {
namespace {

void set(const std::string &name, const std::optional<std::string> &value)
{
    if (value)
        setenv(name.c_str(), value->c_str(), 1);
    else
        unsetenv(name.c_str());
}

} // namespace

ScopedVariable::ScopedVariable(std::string name, const std::optional<std::string> &value)
    : m_name(std::move(name))
{
    if (const char *const before = std::getenv(m_name.c_str()))
        m_before = before;
    set(m_name, value);
}

ScopedVariable::~ScopedVariable()
{
    set(m_name, m_before);
}

ScopedHome::ScopedHome()
{
    m_variables.emplace_back("HOME", m_folder.Path());
    m_variables.emplace_back("XDG_CONFIG_DIRS", m_folder.At("etc"));
    for (const char *unset : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME",
                              "XDG_CACHE_HOME", "WINEPREFIX", "ZELK_REGISTRY"})
        m_variables.emplace_back(unset, std::nullopt);
}

} // namespace support
