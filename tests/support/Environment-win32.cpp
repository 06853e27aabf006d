// SPDX-License-Identifier: MIT
#include "host/Windows-win32.h"
#include "support/Environment.h"

#include <filesystem>

namespace support {
namespace {

std::wstring wide(const std::string &text)
{
    return std::filesystem::path(std::u8string(text.begin(), text.end())).wstring();
}

void set(const std::string &name, const std::optional<std::string> &value)
{
    SetEnvironmentVariableW(wide(name).c_str(), value ? wide(*value).c_str() : nullptr);
}

} // namespace

ScopedVariable::ScopedVariable(std::string name, const std::optional<std::string> &value)
    : m_name(std::move(name))
{
    std::wstring before(32767, L'\0'); // the longest possible value
    const DWORD length = GetEnvironmentVariableW(wide(m_name).c_str(), before.data(), 32767);
    before.resize(length);
    if (length > 0) {
        const std::u8string text = std::filesystem::path(before).u8string();
        m_before = std::string(text.begin(), text.end());
    }
    set(m_name, value);
}

ScopedVariable::~ScopedVariable()
{
    set(m_name, m_before);
}

ScopedHome::ScopedHome()
{
    m_variables.emplace_back("USERPROFILE", m_folder.Path());
    m_variables.emplace_back("APPDATA", m_folder.MakeFolder("Roaming"));
    m_variables.emplace_back("LOCALAPPDATA", m_folder.MakeFolder("Local"));
    m_variables.emplace_back("ProgramData", m_folder.MakeFolder("etc"));
}

} // namespace support
