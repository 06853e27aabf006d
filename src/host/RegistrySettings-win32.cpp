// SPDX-License-Identifier: MIT
#include "host/RegistrySettings-win32.h"

#include "host/Disk-win32.h"
#include "host/RuntimeError.h"
#include "host/Windows-win32.h"

#include <algorithm>

namespace host {

RegistrySettings::RegistrySettings(std::string_view key)
    : m_key(disk::Wide(key))
{
}

std::wstring RegistrySettings::keyOf(std::string_view section) const
{
    return m_key + L'\\' + disk::Wide(section);
}

std::optional<std::string> RegistrySettings::ReadFrom(std::string_view section,
                                                      std::string_view key)
{
    const std::wstring folder = keyOf(section), name = disk::Wide(key);
    std::wstring text;
    LSTATUS status = ERROR_MORE_DATA;
    DWORD bytes = 512;
    while (status == ERROR_MORE_DATA) { // another program may have stored a longer text
        text.resize(bytes / sizeof(wchar_t) + 1);
        bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
        status = RegGetValueW(HKEY_CURRENT_USER, folder.c_str(), name.c_str(), RRF_RT_REG_SZ,
                              nullptr, text.data(), &bytes);
    }
    if (status != ERROR_SUCCESS)
        return std::nullopt;
    return disk::Narrow(text.substr(0, text.find(L'\0')));
}

void RegistrySettings::WriteTo(std::string_view section, std::string_view key,
                               std::string_view value)
{
    std::string oneLine(value); // line breaks become blanks, as in IniFile
    std::replace_if(
        oneLine.begin(), oneLine.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    const std::wstring folder = keyOf(section), name = disk::Wide(key), text = disk::Wide(oneLine);
    const LSTATUS status =
        RegSetKeyValueW(HKEY_CURRENT_USER, folder.c_str(), name.c_str(), REG_SZ, text.c_str(),
                        static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    if (status == ERROR_SUCCESS)
        return;
    const disk::Failure failure =
        disk::FailureOf(static_cast<unsigned long>(status), ErrorNumber::PathNotFound);
    throw RuntimeError(failure.number,
                       "HKEY_CURRENT_USER\\" + disk::Narrow(folder) + ": " + failure.reason);
}

std::unique_ptr<SettingsStore> UserSettings()
{
    return std::make_unique<RegistrySettings>();
}

} // namespace host
