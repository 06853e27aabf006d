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
    : m_home("HOME", m_folder.Path())
    , m_config("XDG_CONFIG_HOME", std::nullopt)
    , m_data("XDG_DATA_HOME", std::nullopt)
    , m_state("XDG_STATE_HOME", std::nullopt)
    , m_configDirs("XDG_CONFIG_DIRS", m_folder.At("etc"))
    , m_wine("WINEPREFIX", std::nullopt)
    , m_registry("ZELK_REGISTRY", std::nullopt)
{
}

} // namespace support
