// SPDX-License-Identifier: MIT
#include "install/Registry.h"

#include "host/Disk-win32.h"
#include "host/Windows-win32.h"

#include <algorithm>

namespace Registry {
namespace {

/// Owns an open key.
class Key
{
public:
    Key(const std::wstring &name, REGSAM view)
    {
        if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, name.c_str(), 0, KEY_QUERY_VALUE | view, &m_key) !=
            ERROR_SUCCESS)
            m_key = nullptr;
    }
    ~Key()
    {
        if (m_key)
            RegCloseKey(m_key);
    }
    Key(const Key &) = delete;
    Key &operator=(const Key &) = delete;

    explicit operator bool() const { return m_key != nullptr; }
    HKEY Get() const { return m_key; }

private:
    HKEY m_key = nullptr;
};

/// Expands the variables in a value of an expandable type, as in "%ProgramFiles%\x".
std::wstring expanded(const std::wstring &text)
{
    std::wstring out;
    DWORD length = ExpandEnvironmentStringsW(text.c_str(), nullptr, 0);
    while (length > out.size()) {
        out.resize(length);
        length = ExpandEnvironmentStringsW(text.c_str(), out.data(), length);
    }
    return out.substr(0, out.find(L'\0'));
}

/// Returns the text of a value, cut at its first NUL. The value may lack a NUL, and its size may be
/// odd.
std::wstring textOf(HKEY key, const std::wstring &value)
{
    std::wstring text;
    DWORD type = REG_NONE, bytes = 512;
    LSTATUS status = ERROR_MORE_DATA;
    while (status == ERROR_MORE_DATA) {
        text.assign(bytes / sizeof(wchar_t) + 1, L'\0');
        bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
        status = RegQueryValueExW(key, value.c_str(), nullptr, &type,
                                  reinterpret_cast<BYTE *>(text.data()), &bytes);
    }
    if (status != ERROR_SUCCESS || (type != REG_SZ && type != REG_EXPAND_SZ))
        return {};
    text.resize(bytes / sizeof(wchar_t));
    text.resize(std::min(text.find(L'\0'), text.size()));
    return type == REG_EXPAND_SZ ? expanded(text) : text;
}

} // namespace

std::string QueryValue(std::string_view key, std::string_view value)
{
    const std::wstring name = host::disk::Wide(key), valueName = host::disk::Wide(value);
    for (const REGSAM view : {KEY_WOW64_32KEY, KEY_WOW64_64KEY}) {
        const Key open(name, static_cast<REGSAM>(view));
        const std::wstring text = open ? textOf(open.Get(), valueName) : std::wstring();
        if (!text.empty())
            return host::disk::Narrow(text);
    }
    return {};
}

std::string PathOnThisMachine(std::string_view windowsPath)
{
    return std::string(windowsPath);
}

} // namespace Registry
